#include "host/fileattributes.h"

#include <QMap>

#include <cerrno>
#include <sys/xattr.h>
#include <unistd.h>

namespace QUtil {
namespace {

typedef QMap<QByteArray, QByteArray> Attributes;

const mode_t permissionBits = 07777;

bool isRefusal(int cause)
{
    return cause == EPERM || cause == EACCES || cause == EINVAL || cause == ENOTSUP || cause == ENOSYS;
}

// Sums over the content, which the system makes itself.
bool isOfContent(const QByteArray &name)
{
    return name == "security.ima" || name == "security.evm";
}

// The functions that list and get are those of a path or of a descriptor.
template <class File, class List, class Get>
Attributes attributes(File file, List list, Get get)
{
    Attributes found;
    QByteArray names(64 * 1024, '\0'), value(64 * 1024, '\0'); // the most that the system has
    const ssize_t size = list(file, names.data(), size_t(names.size()));
    names.truncate(int(qMax<ssize_t>(size, 0)));
    for (const QByteArray &name : names.split('\0')) {
        const ssize_t length =
            name.isEmpty() ? -1 : get(file, name.constData(), value.data(), size_t(value.size()));
        if (length >= 0 && !isOfContent(name))
            found.insert(name, value.left(int(length)));
    }
    return found;
}

// A new file has some of its own: the access list that its folder hands down.
bool copyExtended(const QByteArray &from, int to)
{
    const Attributes wanted = attributes(from.constData(), ::listxattr, ::getxattr);
    const Attributes own = attributes(to, ::flistxattr, ::fgetxattr);
    for (Attributes::const_iterator it = own.constBegin(); it != own.constEnd(); ++it) {
        if (!wanted.contains(it.key()))
            ::fremovexattr(to, it.key().constData());
    }
    for (Attributes::const_iterator it = wanted.constBegin(); it != wanted.constEnd(); ++it) {
        if (!own.contains(it.key()) || own.value(it.key()) != it.value())
            ::fsetxattr(to, it.key().constData(), it->constData(), size_t(it->size()), 0);
    }
    return attributes(to, ::flistxattr, ::fgetxattr) == wanted;
}

} // namespace

SaveFault copyAttributes(const SaveTarget &from, int descriptor, QStringList &losses)
{
    struct stat made;
    if (::fstat(descriptor, &made) != 0)
        return faultOf("looking at the new file");
    if ((made.st_uid != from.info.st_uid || made.st_gid != from.info.st_gid) &&
        ::fchown(descriptor, from.info.st_uid, from.info.st_gid) != 0) {
        if (!isRefusal(errno))
            return faultOf("setting the owner");
        losses << QLatin1String("its owner or group cannot be given to a new file");
    }
    if (::fchmod(descriptor, from.info.st_mode & permissionBits) != 0 && !isRefusal(errno))
        return faultOf("setting the permissions");
    if (!copyExtended(from.path, descriptor))
        losses << QLatin1String("its access list or extended attributes cannot be given to a new file");
    if (::fstat(descriptor, &made) != 0)
        return faultOf("looking at the new file");
    if ((made.st_mode ^ from.info.st_mode) & permissionBits)
        losses << QLatin1String("its permissions cannot be given to a new file");
    return SaveFault();
}

} // namespace QUtil
