#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include "host/filemark.h"
#include "host/projectdata.h"

namespace Core {

// The suffix of project files, without the dot.
inline const char *projectFileSuffix()
{
    return "jexprj";
}

// The open project. Every single change posts the host event that belongs to it (see TE::DesignManager)
// and marks the project modified; nothing reaches the disk before save().
class Project : public QObject
{
    Q_OBJECT

public:
    explicit Project(QObject *parent = nullptr);
    ~Project() override;

    QString name() const;
    QString filePath() const;   // the project file; empty for one made from the command line or a foreign one
    QString workingDir() const; // folder of the file it was read from; the current folder when there is none
    const ProjectData &data() const;
    bool isModified() const;

    // All fail with a sentence that names the file and the line or key at fault; a failed load leaves
    // the project as it was, a failed save the file. Saving replaces the file in one step.
    // A project that another tool made (see foreignproject.h) is read into one without a file: it becomes one
    // of our own by saveAs().
    bool load(const QString &filePath, QString *errorMessage);
    QString foreignPath() const { return m_foreignPath; } // where it was read from; else empty
    QStringList notes() const { return m_notes; }         // sentences on what of it was not understood
    bool save(QString *errorMessage);
    // Paths that are relative to the project's folder are adjusted to the new one.
    bool saveAs(const QString &filePath, QString *errorMessage);
    // What the project file held when it was read or saved last.
    QUtil::FileMark fileMark() const { return m_fileMark; }
    // Reads the file again and drops all edits. Posts the events of what is another now.
    bool reload(QString *errorMessage);
    void noteRemoval(); // the file is gone, so that there is something to be saved
    // Replaces everything at once, like load(), for a project that no view shows yet: posts no events, and
    // the project counts as unmodified.
    void setData(const ProjectData &data);

    // The form in which the project holds a path: absolute and clean, relative ones from workingDir().
    QString absolutePath(const QString &path) const;

    // Adds a file (type from its suffix) unless it is in the project already. Posts "TE.File.Add".
    // Refuses what is not there, and what it has already.
    bool addFile(const QString &path);
    void removeFile(const QString &path);                   // posts "TE.File.Remove"
    void setFileEnabled(const QString &path, bool enabled); // posts "TE.File.Change.Enable"
    void setFileType(const QString &path, int type);        // posts "TE.File.Change.Type"
    // Posts the event of a type that was set anew: hosts know of none for libraries.
    void setFileLibrary(const QString &path, const QString &library);
    // Options by the host's names, see projectOptions. Posts "TE.Option.Change" when the value differs.
    QVariant option(const QString &name) const; // invalid for a name that is none of these
    void setOption(const QString &name, const QVariant &value);
    void setDevice(const DEV::DeviceArg &device); // posts "TE.Device.Change"

Q_SIGNALS:
    void changed(); // it was edited, saved or read again

private:
    int indexOf(const QString &path) const;
    void finishChange(bool modified = true);

    ProjectData m_data;
    QString m_filePath;
    QString m_foreignPath;
    QStringList m_notes;
    QUtil::FileMark m_fileMark;
    bool m_modified;
};

// Knows the project that is open. Not more than one is.
class ProjectManager
{
public:
    static Project *currentProject(); // null when none is open; not owned by the caller
    static void setCurrentProject(Project *project);
};

} // namespace Core
