#pragma once

#include <QObject>
#include <QString>

class QSettings;

namespace Workbench {

class Workspace;

// Keeps for each of the projects used last which files are open, which one is in front, and what of it is
// shown, and opens them again with the project. What is gone meanwhile is left out.
class Session : public QObject
{
    Q_OBJECT

public:
    Session(QSettings *settings, Workspace *workspace); // neither owned; the second is the parent

private:
    QString projectPath() const;
    void save();
    void restore();

    QSettings *m_settings;
    Workspace *m_workspace;
};

} // namespace Workbench
