#include "workbench/optionsdialog.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QListWidget>
#include <QTabWidget>
#include <QVBoxLayout>

#include <iterator>

#include "host/project.h"
#include "workbench/stringlistedit.h"
#include "workbench/topmodules.h"
#include "workbench/windowmemory.h"

namespace Workbench {
namespace {

QString translated(const char *text)
{
    return *text ? QCoreApplication::translate("Core::ProjectOption", text) : QString();
}

QComboBox *newBox(const Core::ProjectData &data, const Core::ProjectOption &option)
{
    const QString value = data.*option.text;
    if (option.text == &Core::ProjectData::topModule)
        return new TopModuleBox(value);
    auto *box = new QComboBox;
    box->setEditable(true);
    box->addItem(translated(option.hint));
    box->addItems(QString(option.choices).split(' ', Qt::SkipEmptyParts));
    box->setCurrentText(value.isEmpty() ? translated(option.hint) : value);
    return box;
}

QWidget *newList(const Core::Project &project, const Core::ProjectOption &option)
{
    auto *list = new StringListEdit;
    list->setValues(project.data().*option.list);
    if (option.is(Core::FolderTrait))
        list->chooseFoldersFrom(project.workingDir());
    list->findChild<QListWidget *>()->setAccessibleName(translated(option.title));
    return list;
}

} // namespace

OptionsDialog::OptionsDialog(Core::Project *project, QWidget *parent) : QDialog(parent), m_project(project)
{
    setProperty("helpTopic", "project");
    setWindowTitle(tr("Project Options"));
    resize(560, 420);
    auto *form = new QFormLayout;
    auto *lists = new QTabWidget;
    lists->setUsesScrollButtons(false);
    for (const Core::ProjectOption &option : Core::projectOptions) {
        QWidget *field = option.text ? newBox(project->data(), option) : newList(*project, option);
        field->setObjectName(option.key);
        if (option.text)
            form->addRow(translated(option.title), field);
        else
            lists->setTabToolTip(lists->addTab(field, translated(option.title)), translated(option.hint));
    }
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &OptionsDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &OptionsDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(lists);
    layout->addWidget(buttons);
    WindowMemory::keep(this, "options");
}

void OptionsDialog::accept()
{
    // The top module is the first and comes last: who asks about the design asks about its sources if it can.
    for (auto option = std::rbegin(Core::projectOptions); option != std::rend(Core::projectOptions);
         ++option) {
        if (option->list) {
            m_project->setOption(option->name, findChild<StringListEdit *>(option->key)->values());
            continue;
        }
        const QString text = findChild<QComboBox *>(option->key)->currentText().trimmed();
        m_project->setOption(option->name, text == translated(option->hint) ? QString() : text);
    }
    QDialog::accept();
}

} // namespace Workbench
