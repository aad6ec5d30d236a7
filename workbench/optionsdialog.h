#pragma once

#include <QDialog>

class QComboBox;
namespace Core {
class Project;
}

namespace Workbench {

class StringListEdit;
class TopModuleBox;

// The options of a project. Accepting sets those that differ, each as one change of the project.
class OptionsDialog : public QDialog
{
    Q_OBJECT

public:
    OptionsDialog(Core::Project *project, QWidget *parent);

    void accept() override;

private:
    StringListEdit *addList(const QString &objectName, const QStringList &values);

    Core::Project *m_project; // not owned; open as long as the dialog
    TopModuleBox *m_top;
    QComboBox *m_standard;
    QComboBox *m_tool;
    StringListEdit *m_includePaths;
    StringListEdit *m_libraryPaths;
    StringListEdit *m_librarySuffixes;
    StringListEdit *m_defines;
    StringListEdit *m_undefines;
    StringListEdit *m_parameters;
};

} // namespace Workbench
