#include "host/designmanager.h"

#include <QDir>
#include <QSet>
#include <QTimer>

#include "host/eventmanager.h"
#include "host/filewatcher.h"
#include "host/project.h"

namespace TE {
namespace {

const int postDelay = 100; // ms

QStringList absolutePaths(const Core::Project &project, const QStringList &paths)
{
    QStringList result;
    for (const QString &path : paths)
        result.append(project.absolutePath(path));
    return result;
}

QVariant fileEntry(const Core::SourceFile &file)
{
    QMap<QString, QVariant> entry;
    entry.insert(QLatin1String("Path"), file.path);
    entry.insert(QLatin1String("Type"), file.type);
    entry.insert(QLatin1String("Library"), file.library);
    entry.insert(QLatin1String("OnlyWhenUsed"), file.onlyWhenUsed);
    return entry;
}

} // namespace

DesignManager::DesignManager(QObject *parent)
    : QObject(parent), m_watcher(new QUtil::FileWatcher(this)), m_postTimer(new QTimer(this))
{
    m_postTimer->setSingleShot(true);
    m_postTimer->setInterval(postDelay);
    connect(m_watcher, SIGNAL(fileChanged(QString)), this, SLOT(onFileChanged(QString)));
    connect(m_watcher, SIGNAL(fileReturned(QString)), this, SLOT(onFileChanged(QString)));
    connect(m_postTimer, SIGNAL(timeout()), this, SLOT(postModified()));
}

QMap<QString, QVariant> DesignManager::getSourceFileInfo() const
{
    QMap<QString, QVariant> info;
    const Core::Project *project = Core::ProjectManager::currentProject();
    if (!project)
        return info;
    const Core::ProjectData &data = project->data();
    QList<QVariant> files;
    QStringList disabled;
    for (const Core::SourceFile &file : data.files) {
        if (isDesignFileType(file.type) && file.enabled)
            files.append(fileEntry(file));
        else if (isDesignFileType(file.type))
            disabled.append(file.path);
    }
    info.insert(QLatin1String("Top"), data.topModule);
    info.insert(QLatin1String("Files"), files);
    info.insert(QLatin1String("DisabledFiles"), disabled);
    for (const Core::ProjectOption &option : Core::projectOptions) {
        info.insert(QLatin1String(option.name), option.is(Core::FolderTrait)
                                                    ? absolutePaths(*project, data.*option.list)
                                                    : option.valueIn(data));
    }
    info.insert(QLatin1String("WorkingDir"), project->workingDir());
    return info;
}

FileInfo DesignManager::getFileInfo(const QString &path) const
{
    FileInfo info;
    const Core::Project *project = Core::ProjectManager::currentProject();
    if (!project)
        return info;
    const QString absolute = project->absolutePath(path);
    for (const Core::SourceFile &file : project->data().files) {
        if (file.path == absolute) {
            info.type = file.type;
            info.enabled = file.enabled;
            return info;
        }
    }
    return info;
}

QVariant DesignManager::getOptionValue(const QString &option) const
{
    const Core::Project *project = Core::ProjectManager::currentProject();
    return project ? project->option(option) : QVariant();
}

QString DesignManager::workingDir() const
{
    const Core::Project *project = Core::ProjectManager::currentProject();
    return project ? project->workingDir() : QString();
}

DEV::DeviceArg DesignManager::currentDevice() const
{
    const Core::Project *project = Core::ProjectManager::currentProject();
    return project ? project->data().device : DEV::DeviceArg();
}

void DesignManager::updateWatchedFiles()
{
    QStringList wanted;
    if (const Core::Project *project = Core::ProjectManager::currentProject()) {
        for (const Core::SourceFile &file : project->data().files) {
            if (isDesignFileType(file.type))
                wanted.append(file.path);
        }
    }
    const QSet<QString> keep = wanted.toSet();
    const QStringList followed = m_watcher->followed();
    for (const QString &path : followed) {
        if (!keep.contains(path))
            m_watcher->forget(path);
    }
    const QSet<QString> known = followed.toSet();
    for (const QString &path : wanted) {
        if (!known.contains(path))
            m_watcher->await(path);
    }
}

void DesignManager::onFileChanged(const QString &path)
{
    m_watcher->await(path);
    if (!m_changed.contains(path))
        m_changed.append(path);
    if (!m_postTimer->isActive())
        m_postTimer->start();
}

void DesignManager::postModified()
{
    const QStringList changed = m_changed;
    m_changed.clear();
    for (const QString &path : changed) {
        QMap<QString, QVariant> data;
        data.insert(QLatin1String("file"), path);
        QUtil::EventManager::instance()->post(QLatin1String("TE.File.Modified"), data);
    }
}

TaskEngine::TaskEngine() : m_designManager(new DesignManager)
{
}

// Never destroyed: views may ask until the process ends.
TaskEngine *TaskEngine::instance()
{
    static TaskEngine *engine = new TaskEngine;
    return engine;
}

DesignManager *TaskEngine::designManager() const
{
    return m_designManager;
}

} // namespace TE
