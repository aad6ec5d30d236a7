#pragma once

#include <QDialog>

class QDialogButtonBox;
class QLineEdit;
class QListWidget;
namespace Core {
class IFileWizardFactory;
}

namespace Workbench {

// Asks which of the registered wizards to run, and in which folder.
class NewFileDialog : public QDialog
{
    Q_OBJECT

public:
    NewFileDialog(const QString &folder, QWidget *parent);

    Core::IFileWizardFactory *factory() const; // null when there is none; not owned
    QString folder() const;

private:
    void browse();
    void updateState();

    QListWidget *m_list;
    QLineEdit *m_folder;
    QDialogButtonBox *m_buttons;
};

} // namespace Workbench
