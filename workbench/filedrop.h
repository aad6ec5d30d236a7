#pragma once

#include <QObject>
#include <QStringList>

class QWidget;

namespace Workbench {

class Workspace;

// Takes files that are dropped anywhere on the window: a project or a configuration is opened, any other file
// is added to the project.
class FileDrop : public QObject
{
    Q_OBJECT

public:
    FileDrop(QWidget *window, Workspace *workspace); // neither owned; the first is the parent

    void take(const QStringList &paths);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *m_window;
    Workspace *m_workspace;
};

} // namespace Workbench
