#pragma once

#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>

#include "host/devicearg.h"
#include "host/filetypes.h"

class QTimer;
namespace QUtil {
class FileWatcher;
}

namespace TE {

// What the project knows of a file.
struct FileInfo
{
    int type = UnknownFile; // FileType
    bool enabled = false;   // false too for a file that the project does not hold
};

// The design side of the open project: what its sources are, what its options say, which device it is
// for. Reads Core::ProjectManager::currentProject(); with no project every answer is empty.
// Watches the project's design files on disk and posts "TE.File.Modified" {"file"} when one changed, was
// replaced, vanished or came back; changes within a tenth of a second make one event a file.
//
// Events about the project, with their data:
//   "TE.File.Add"           "file"
//   "TE.File.Modified"      "file"
//   "TE.File.Remove"        "file" "enable" "type"
//   "TE.File.Change.Enable" "file" "enable" "type"
//   "TE.File.Change.Type"   "file" "type" "previous"
//   "TE.Option.Change"      "option"
//   "TE.Device.Change"      none
class DesignManager : public QObject
{
    Q_OBJECT

public:
    explicit DesignManager(QObject *parent = nullptr);

    // "Top" (text), "Files" (list of maps with "Path" absolute, "Type", "Library" and "OnlyWhenUsed", enabled
    // design files only, in project order), "DisabledFiles" (absolute list), "WorkingDir" (text) and the
    // options by their names in Core::projectOptions, folders absolute.
    QMap<QString, QVariant> getSourceFileInfo() const;
    FileInfo getFileInfo(const QString &path) const;
    QVariant getOptionValue(const QString &option) const; // names as in Core::Project::setOption
    QString workingDir() const;
    DEV::DeviceArg currentDevice() const;

    // Follows the project that is open now; called by Core::ProjectManager and Core::Project.
    void updateWatchedFiles();

private Q_SLOTS:
    void onFileChanged(const QString &path);
    void postModified();

private:
    QUtil::FileWatcher *m_watcher;
    QTimer *m_postTimer;
    QStringList m_changed; // to be posted, in order of change
};

// Where the design manager of the program is found. Both are made on first use and live as long as the
// program.
class TaskEngine
{
public:
    static TaskEngine *instance();
    DesignManager *designManager() const;

private:
    TaskEngine();
    DesignManager *m_designManager;
};

} // namespace TE
