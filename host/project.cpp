#include "host/project.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QPointer>
#include <QVariant>

#include "host/atomicfile.h"
#include "host/designmanager.h"
#include "host/eventmanager.h"
#include "host/projectfile.h"

namespace Core {
namespace {

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

// Where an option lives in the record: exactly one of the two is set for a known name.
struct OptionPlace
{
    QString ProjectData::*text;
    QStringList ProjectData::*list;
};

OptionPlace placeOf(const QString &option)
{
    OptionPlace place = {nullptr, nullptr};
    if (option == QLatin1String("TopModule"))
        place.text = &ProjectData::topModule;
    else if (option == QLatin1String("Verilog_Standard"))
        place.text = &ProjectData::verilogStandard;
    else if (option == QLatin1String("Synthesize_tool"))
        place.text = &ProjectData::synthesisTool;
    else if (option == QLatin1String("IncludePath"))
        place.list = &ProjectData::includePaths;
    else if (option == QLatin1String("LibraryPath"))
        place.list = &ProjectData::libraryPaths;
    else if (option == QLatin1String("Defines"))
        place.list = &ProjectData::defines;
    return place;
}

void moveRelativePaths(QStringList &paths, const QString &oldFolder, const QString &newFolder)
{
    for (QString &path : paths) {
        if (QDir::isRelativePath(path))
            path = QDir(newFolder).relativeFilePath(QDir(oldFolder).absoluteFilePath(path));
    }
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
    return m_filePath.isEmpty() ? QDir::currentPath() : QFileInfo(m_filePath).absolutePath();
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
    return QDir::cleanPath(QDir(workingDir()).absoluteFilePath(path));
}

bool Project::load(const QString &filePath, QString *errorMessage)
{
    const QString absolute = QFileInfo(filePath).absoluteFilePath();
    const QString shown = QDir::toNativeSeparators(absolute);
    QString fault;
    ProjectData read;
    QFile file(absolute);
    if (!file.open(QIODevice::ReadOnly))
        fault = file.errorString() + QLatin1Char('.');
    else
        projectFromJson(file.readAll(), QFileInfo(absolute).absolutePath(), read, fault);
    if (!fault.isEmpty()) {
        if (errorMessage)
            *errorMessage = QString::fromLatin1("Can not read the project %1: %2").arg(shown, fault);
        return false;
    }
    m_filePath = absolute;
    setData(read);
    return true;
}

bool Project::save(QString *errorMessage)
{
    if (m_filePath.isEmpty()) {
        if (errorMessage)
            *errorMessage = QLatin1String("The project has no file yet: choose one to save it to.");
        return false;
    }
    if (!QUtil::writeFileAtomically(m_filePath, projectToJson(m_data, workingDir()), errorMessage))
        return false;
    m_modified = false;
    Q_EMIT changed();
    return true;
}

bool Project::saveAs(const QString &filePath, QString *errorMessage)
{
    const QString oldPath = m_filePath;
    const ProjectData oldData = m_data;
    const QString oldFolder = workingDir();
    m_filePath = QFileInfo(filePath).absoluteFilePath();
    moveRelativePaths(m_data.includePaths, oldFolder, workingDir());
    moveRelativePaths(m_data.libraryPaths, oldFolder, workingDir());
    if (save(errorMessage))
        return true;
    m_filePath = oldPath;
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

void Project::addFile(const QString &path)
{
    if (indexOf(path) >= 0)
        return;
    SourceFile file;
    file.path = absolutePath(path);
    file.type = TE::fileTypeFromName(path);
    m_data.files.append(file);
    finishChange();
    EventData data;
    data.insert(QLatin1String("file"), file.path);
    post("TE.File.Add", data);
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
    EventData data;
    data.insert(QLatin1String("file"), m_data.files.at(index).path);
    data.insert(QLatin1String("previous"), m_data.files.at(index).type);
    data.insert(QLatin1String("type"), type);
    m_data.files[index].type = type;
    finishChange();
    post("TE.File.Change.Type", data);
}

QVariant Project::option(const QString &option) const
{
    const OptionPlace place = placeOf(option);
    if (place.text)
        return m_data.*place.text;
    return place.list ? QVariant(m_data.*place.list) : QVariant();
}

void Project::setOption(const QString &option, const QVariant &value)
{
    const OptionPlace place = placeOf(option);
    if (place.text && m_data.*place.text != value.toString())
        m_data.*place.text = value.toString();
    else if (place.list && m_data.*place.list != value.toStringList())
        m_data.*place.list = value.toStringList();
    else
        return;
    finishChange();
    EventData data;
    data.insert(QLatin1String("option"), option);
    post("TE.Option.Change", data);
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
