#include "host/project.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QMap>
#include <QPointer>
#include <QVariant>

#include "host/absolutepath.h"
#include "host/atomicfile.h"
#include "host/backupfile.h"
#include "host/designmanager.h"
#include "host/eventmanager.h"
#include "host/foreignproject.h"
#include "host/projectfile.h"
#include "host/regularfile.h"

namespace Core {
namespace {

const qint64 sizeLimit = 16 * QUtil::MiB;

QPointer<Project> &openProject()
{
    static QPointer<Project> project;
    return project;
}

typedef QMap<QString, QVariant> EventData;

void post(const char *topic, const EventData &data)
{
    QUtil::EventManager::instance()->post(QLatin1String(topic), data);
}

EventData fileData(const SourceFile &file)
{
    EventData data;
    data.insert(QLatin1String("file"), file.path);
    data.insert(QLatin1String("enable"), file.enabled);
    data.insert(QLatin1String("type"), file.type);
    return data;
}

void postOptionChange(const QString &option)
{
    EventData data;
    data.insert(QLatin1String("option"), option);
    post("TE.Option.Change", data);
}

void postTypeChange(const SourceFile &file, int previous)
{
    EventData data;
    data.insert(QLatin1String("file"), file.path);
    data.insert(QLatin1String("previous"), previous);
    data.insert(QLatin1String("type"), file.type);
    post("TE.File.Change.Type", data);
}

void postAddition(const SourceFile &file)
{
    EventData data;
    data.insert(QLatin1String("file"), file.path);
    post("TE.File.Add", data);
}

// The events of all that is another in the second list; the order of files is nobody's concern.
void postFileChanges(const QList<SourceFile> &before, const QList<SourceFile> &after)
{
    QHash<QString, SourceFile> gone;
    for (const SourceFile &file : before)
        gone.insert(file.path, file);
    for (const SourceFile &file : after) {
        const bool isKnown = gone.contains(file.path);
        const SourceFile old = gone.take(file.path);
        if (!isKnown)
            postAddition(file);
        if (isKnown && old.enabled != file.enabled)
            post("TE.File.Change.Enable", fileData(file));
        if (isKnown &&
            (old.type != file.type || old.library != file.library || old.onlyWhenUsed != file.onlyWhenUsed))
            postTypeChange(file, old.type);
    }
    for (const SourceFile &file : gone)
        post("TE.File.Remove", fileData(file));
}

void moveRelativePaths(QStringList &paths, const QString &oldFolder, const QString &newFolder)
{
    for (QString &path : paths) {
        if (!path.startsWith(QLatin1Char('/')))
            path = QDir(newFolder).relativeFilePath(QUtil::absoluteIn(oldFolder, path));
    }
}

bool readProject(const QString &path, ProjectData &data, QUtil::FileMark &mark, QStringList &notes,
                 QString *errorMessage)
{
    const QString folder = QFileInfo(path).absolutePath();
    QByteArray bytes;
    QString fault = QUtil::pendingBackupFault(path);
    if (!fault.isEmpty() || !QUtil::readRegularFile(path, sizeLimit, &bytes, &fault))
        fault += QLatin1Char('.');
    else if (isForeignProject(path))
        readForeignProject(path, bytes, folder, data, notes, fault);
    else
        projectFromJson(bytes, folder, data, fault);
    mark = QUtil::FileMark(bytes);
    if (!fault.isEmpty() && errorMessage)
        *errorMessage =
            Project::tr("Can not read the project %1: %2").arg(QDir::toNativeSeparators(path), fault);
    return fault.isEmpty();
}

} // namespace

Project::Project(QObject *parent) : QObject(parent), m_modified(false)
{
}

Project::~Project()
{
    if (ProjectManager::currentProject() == this)
        ProjectManager::setCurrentProject(nullptr);
}

QString Project::name() const
{
    return m_data.name.isEmpty() ? QFileInfo(m_filePath).completeBaseName() : m_data.name;
}

QString Project::filePath() const
{
    return m_filePath;
}

QString Project::workingDir() const
{
    if (!m_filePath.isEmpty())
        return QFileInfo(m_filePath).absolutePath();
    return m_foreignPath.isEmpty() ? QDir::currentPath() : QFileInfo(m_foreignPath).absolutePath();
}

const ProjectData &Project::data() const
{
    return m_data;
}

bool Project::isModified() const
{
    return m_modified;
}

QString Project::absolutePath(const QString &path) const
{
    return QUtil::absoluteIn(workingDir(), path);
}

bool Project::load(const QString &filePath, QString *errorMessage)
{
    const QString absolute = QFileInfo(filePath).absoluteFilePath();
    const bool isForeign = isForeignProject(absolute);
    ProjectData read;
    QUtil::FileMark mark;
    QStringList notes;
    if (!readProject(absolute, read, mark, notes, errorMessage))
        return false;
    m_filePath = isForeign ? QString() : absolute;
    m_foreignPath = isForeign ? absolute : QString();
    m_notes = notes;
    m_fileMark = isForeign ? QUtil::FileMark() : mark;
    setData(read);
    return true;
}

bool Project::reload(QString *errorMessage)
{
    ProjectData read;
    QUtil::FileMark mark;
    if (!readProject(m_filePath, read, mark, m_notes, errorMessage))
        return false;
    m_fileMark = mark;
    const ProjectData before = m_data;
    setData(read);
    postFileChanges(before.files, m_data.files);
    for (const ProjectOption &option : projectOptions) {
        if (option.valueIn(before) != option.valueIn(m_data))
            postOptionChange(QLatin1String(option.name));
    }
    if (!(before.device == m_data.device))
        post("TE.Device.Change", EventData());
    return true;
}

void Project::noteRemoval()
{
    m_fileMark = QUtil::FileMark();
    finishChange();
}

bool Project::save(QString *errorMessage)
{
    if (m_filePath.isEmpty()) {
        if (errorMessage)
            *errorMessage = tr("The project has no file yet: choose one to save it to.");
        return false;
    }
    const QByteArray bytes = projectToJson(m_data, workingDir());
    const QUtil::FileMark mark(bytes);
    const bool isSaved = QUtil::writeFileAtomically(m_filePath, bytes, errorMessage);
    // The last step of a save can fail when the file is written.
    if (isSaved || mark == QUtil::FileMark::of(m_filePath))
        m_fileMark = mark;
    if (!isSaved)
        return false;
    m_modified = false;
    Q_EMIT changed();
    return true;
}

bool Project::saveAs(const QString &filePath, QString *errorMessage)
{
    const QString oldPath = m_filePath;
    const QUtil::FileMark oldMark = m_fileMark;
    const ProjectData oldData = m_data;
    const QString oldFolder = workingDir();
    m_filePath = QFileInfo(filePath).absoluteFilePath();
    for (const ProjectOption &option : projectOptions) {
        if (option.is(FolderTrait))
            moveRelativePaths(m_data.*option.list, oldFolder, workingDir());
    }
    if (save(errorMessage))
        return true;
    m_filePath = oldPath;
    m_fileMark = oldMark;
    m_data = oldData;
    return false;
}

void Project::setData(const ProjectData &data)
{
    m_data = data;
    for (SourceFile &file : m_data.files)
        file.path = absolutePath(file.path);
    finishChange(false);
}

int Project::indexOf(const QString &path) const
{
    const QString absolute = absolutePath(path);
    for (int i = 0; i < m_data.files.size(); ++i) {
        if (m_data.files.at(i).path == absolute)
            return i;
    }
    return -1;
}

// What every change ends with, before its event is posted: handlers see the new state everywhere.
void Project::finishChange(bool modified)
{
    m_modified = modified;
    if (ProjectManager::currentProject() == this)
        TE::TaskEngine::instance()->designManager()->updateWatchedFiles();
    Q_EMIT changed();
}

bool Project::addFile(const QString &path)
{
    if (indexOf(path) >= 0 || !QFileInfo(absolutePath(path)).exists())
        return false;
    SourceFile file;
    file.path = absolutePath(path);
    file.type = TE::fileTypeFromName(path);
    m_data.files.append(file);
    finishChange();
    postAddition(file);
    return true;
}

void Project::removeFile(const QString &path)
{
    const int index = indexOf(path);
    if (index < 0)
        return;
    const SourceFile file = m_data.files.takeAt(index);
    finishChange();
    post("TE.File.Remove", fileData(file));
}

void Project::setFileEnabled(const QString &path, bool enabled)
{
    const int index = indexOf(path);
    if (index < 0 || m_data.files.at(index).enabled == enabled)
        return;
    m_data.files[index].enabled = enabled;
    const EventData data = fileData(m_data.files.at(index));
    finishChange();
    post("TE.File.Change.Enable", data);
}

void Project::setFileType(const QString &path, int type)
{
    const int index = indexOf(path);
    if (index < 0 || m_data.files.at(index).type == type)
        return;
    const int previous = m_data.files.at(index).type;
    m_data.files[index].type = type;
    finishChange();
    postTypeChange(m_data.files.at(index), previous);
}

void Project::setFileLibrary(const QString &path, const QString &library)
{
    const int index = indexOf(path);
    if (index < 0 || m_data.files.at(index).library == library)
        return;
    m_data.files[index].library = library;
    finishChange();
    postTypeChange(m_data.files.at(index), m_data.files.at(index).type);
}

QVariant Project::option(const QString &name) const
{
    const ProjectOption *option = findOption(name);
    return option ? option->valueIn(m_data) : QVariant();
}

void Project::setOption(const QString &name, const QVariant &value)
{
    const ProjectOption *option = findOption(name);
    if (!option)
        return;
    const QVariant before = option->valueIn(m_data);
    if (option->text)
        m_data.*option->text = value.toString();
    else
        m_data.*option->list = value.toStringList();
    if (before == option->valueIn(m_data))
        return;
    finishChange();
    postOptionChange(name);
}

void Project::setDevice(const DEV::DeviceArg &device)
{
    if (m_data.device == device)
        return;
    m_data.device = device;
    finishChange();
    post("TE.Device.Change", EventData());
}

Project *ProjectManager::currentProject()
{
    return openProject();
}

void ProjectManager::setCurrentProject(Project *project)
{
    openProject() = project;
    TE::TaskEngine::instance()->designManager()->updateWatchedFiles();
}

} // namespace Core
