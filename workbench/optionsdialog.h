#pragma once

#include <QDialog>

namespace Core {
class Project;
}

namespace Workbench {

// The options of a project. Each has a field that is called as its key. Accepting sets those that differ,
// each as one change of the project.
class OptionsDialog : public QDialog
{
    Q_OBJECT

public:
    OptionsDialog(Core::Project *project, QWidget *parent);

    void accept() override;

private:
    Core::Project *m_project; // not owned; open as long as the dialog
};

} // namespace Workbench
