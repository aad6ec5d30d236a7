#pragma once

#include <QDialog>

class QComboBox;
class QTabWidget;
namespace Core {
class Project;
}

namespace Workbench {

class TopModuleBox;

// The options of a project. Accepting sets those that differ, each as one change of the project.
class OptionsDialog : public QDialog
{
    Q_OBJECT

public:
    OptionsDialog(Core::Project *project, QWidget *parent);

    void accept() override;

private:
    Core::Project *m_project; // not owned; open as long as the dialog
    TopModuleBox *m_top;
    QComboBox *m_standard;
    QComboBox *m_tool;
    QTabWidget *m_lists; // a StringListEdit for each option that is a list, under its key
};

} // namespace Workbench
