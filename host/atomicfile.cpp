#include "host/atomicfile.h"

#include <cerrno>

#include "host/backupfile.h"
#include "host/fileattributes.h"
#include "host/savetarget.h"
#include "host/temporaryfile.h"

namespace QUtil {
namespace {

// The new file for a target, with all that the old one has but its content; or what speaks against it.
class Replacement
{
public:
    explicit Replacement(const SaveTarget &target) : m_target(target)
    {
        const mode_t mode = target.exists ? 0600 : 0666;
        if (target.exists && target.info.st_nlink > 1)
            losses << QString::fromLatin1("it has %1 names (hard links)").arg(target.info.st_nlink);
        else if (m_file.create(target.folder, mode))
            fault = target.exists ? copyAttributes(target, m_file.descriptor(), losses) : SaveFault();
        else if (target.exists && (errno == EACCES || errno == EPERM || errno == EROFS))
            losses << QLatin1String("its folder cannot be written to");
        else
            fault = faultOf("creating a file in its folder");
    }

    SaveFault write(const QByteArray &bytes)
    {
        const SaveFault failed = m_file.finish(bytes, m_target.path);
        return failed ? failed : flushFolder(m_target.folder);
    }

    QStringList losses;
    SaveFault fault;

private:
    const SaveTarget &m_target;
    TemporaryFile m_file;
};

SaveFault save(const SaveTarget &target, const QByteArray &bytes)
{
    if (target.fault)
        return target.fault;
    sweepTemporaryFiles(target.folder);
    {
        Replacement replacement(target);
        if (replacement.fault)
            return replacement.fault;
        if (replacement.losses.isEmpty())
            return replacement.write(bytes);
    }
    return writeInPlace(target, bytes);
}

} // namespace

bool writeFileAtomically(const QString &path, const QByteArray &bytes, QString *errorMessage)
{
    const SaveFault fault = save(SaveTarget(path), bytes);
    if (!fault)
        discardBackup(path); // of an earlier save that did not end
    else if (errorMessage)
        *errorMessage = fault.sentence(path);
    return !fault;
}

QStringList reasonsToWriteInPlace(const QString &path)
{
    const SaveTarget target(path);
    if (target.fault)
        return QStringList();
    return Replacement(target).losses;
}

} // namespace QUtil
