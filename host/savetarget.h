#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <sys/stat.h>

namespace QUtil {

// The step of a save that failed, and the words for why; none when the reason is empty. Made at once where
// the step fails, since the next call sets errno anew.
struct SaveFault
{
    QString step; // may be empty: the reason says it all
    QString reason;

    explicit operator bool() const { return !reason.isEmpty(); }
    QString sentence(const QString &path) const; // "Can not save to PATH: ..."

    Q_DECLARE_TR_FUNCTIONS(QUtil::Saving)
};
SaveFault faultOf(const char *step); // with the present errno

// The file that a name to save to means: the end of a chain of links, where nothing need be yet.
struct SaveTarget
{
    explicit SaveTarget(const QString &path);

    QByteArray path;
    QByteArray folder;
    bool exists = false;
    struct stat info; // when it exists
    SaveFault fault;  // why nothing may be written there
};

// Steps of writing. Each gives what went wrong.
SaveFault writeAll(int descriptor, const QByteArray &bytes);
SaveFault flush(int descriptor);
SaveFault flushFolder(const QByteArray &folder); // which makes a name in it last

} // namespace QUtil
