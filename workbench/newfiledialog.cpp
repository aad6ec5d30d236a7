#include "workbench/newfiledialog.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "host/filewizard.h"
#include "workbench/windowmemory.h"

namespace Workbench {

NewFileDialog::NewFileDialog(const QString &folder, QWidget *parent)
    : QDialog(parent),
      m_list(new QListWidget),
      m_folder(new QLineEdit(QDir::toNativeSeparators(folder))),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    setProperty("helpTopic", "new");
    setWindowTitle(tr("New File"));
    resize(480, 320);
    for (const Core::IFileWizardFactory *factory : Core::FileWizardRegistry::factories()) {
        auto *item = new QListWidgetItem(factory->displayName() + "\n" + factory->description(), m_list);
        item->setIcon(QIcon(":/netlist/image/magnifier.png"));
    }
    m_list->setAccessibleName(tr("Kind of file"));
    m_list->setCurrentRow(0);
    auto *folderRow = new QHBoxLayout;
    auto *label = new QLabel(tr("&Folder:"));
    auto *browseButton = new QPushButton(tr("&Browse..."));
    label->setBuddy(m_folder);
    browseButton->setAutoDefault(false);
    folderRow->addWidget(label);
    folderRow->addWidget(m_folder);
    folderRow->addWidget(browseButton);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_list);
    layout->addLayout(folderRow);
    layout->addWidget(m_buttons);
    connect(browseButton, &QPushButton::clicked, this, &NewFileDialog::browse);
    connect(m_folder, &QLineEdit::textChanged, this, &NewFileDialog::updateState);
    connect(m_list, &QListWidget::itemDoubleClicked, m_buttons->button(QDialogButtonBox::Ok),
            &QPushButton::click);
    connect(m_list, &QListWidget::currentRowChanged, this, &NewFileDialog::updateState);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &NewFileDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &NewFileDialog::reject);
    updateState();
    WindowMemory::keep(this, "newFile");
}

Core::IFileWizardFactory *NewFileDialog::factory() const
{
    return Core::FileWizardRegistry::factories().value(m_list->currentRow(), nullptr);
}

QString NewFileDialog::folder() const
{
    return QDir::fromNativeSeparators(m_folder->text());
}

void NewFileDialog::browse()
{
    const QString chosen = QFileDialog::getExistingDirectory(this, tr("Choose Folder"), folder());
    if (!chosen.isEmpty())
        m_folder->setText(QDir::toNativeSeparators(chosen));
}

void NewFileDialog::updateState()
{
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(factory() && QDir(folder()).exists());
}

} // namespace Workbench
