#include "workbench/optionsdialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>
#include <QVBoxLayout>

#include "host/project.h"
#include "workbench/stringlistedit.h"
#include "workbench/topmodules.h"
#include "workbench/windowmemory.h"

namespace Workbench {
namespace {

const char *const byFileType = "By file type";

QComboBox *newCombo(const char *objectName, const QStringList &entries, const QString &value)
{
    auto *combo = new QComboBox;
    combo->setObjectName(objectName);
    combo->setEditable(true);
    combo->addItems(entries);
    combo->setCurrentText(value);
    return combo;
}

} // namespace

OptionsDialog::OptionsDialog(Core::Project *project, QWidget *parent)
    : QDialog(parent),
      m_project(project),
      m_top(new TopModuleBox(project->data().topModule)),
      m_includePaths(addList("includePaths", project->data().includePaths)),
      m_libraryPaths(addList("libraryPaths", project->data().libraryPaths)),
      m_librarySuffixes(addList("librarySuffixes", project->data().librarySuffixes)),
      m_defines(addList("defines", project->data().defines)),
      m_undefines(addList("undefines", project->data().undefines)),
      m_parameters(addList("parameters", project->data().parameters))
{
    const Core::ProjectData &data = project->data();
    setWindowTitle("Project Options");
    resize(560, 420);
    m_top->setObjectName("topModule");
    m_standard = newCombo("verilogStandard",
                          {byFileType, "1364-1995", "1364-2001", "1364-2005", "1800-2005", "1800-2009",
                           "1800-2012", "1800-2017"},
                          data.verilogStandard.isEmpty() ? byFileType : data.verilogStandard);
    m_tool = newCombo("synthesisTool", {"", "TarselSynthesis", "Synplify"}, data.synthesisTool);
    m_includePaths->chooseFoldersFrom(project->workingDir());
    m_libraryPaths->chooseFoldersFrom(project->workingDir());

    auto *form = new QFormLayout;
    form->addRow("&Top module:", m_top);
    form->addRow("&Verilog standard:", m_standard);
    form->addRow("&Synthesis tool:", m_tool);
    auto *lists = new QTabWidget;
    lists->setUsesScrollButtons(false);
    lists->addTab(m_includePaths, "Include Paths");
    lists->addTab(m_libraryPaths, "Library Paths");
    lists->addTab(m_librarySuffixes, "Library Suffixes");
    lists->addTab(m_defines, "Defines");
    lists->addTab(m_undefines, "Undefines");
    lists->addTab(m_parameters, "Parameters");
    const char *const hints[] = {
        "Folders for included files",
        "Folders that are searched for modules that no file of the project defines",
        "What the names of the files in library paths end with, as .v",
        "Macros, NAME or NAME=VALUE",
        "Macros that the design shall not see, though the reading of it defines them",
        "Parameters or generics of the top module, NAME=VALUE"};
    for (int tab = 0; tab < lists->count(); ++tab)
        lists->setTabToolTip(tab, hints[tab]);
    for (int tab = 0; tab < lists->count(); ++tab)
        lists->widget(tab)->findChild<QListWidget *>()->setAccessibleName(lists->tabText(tab));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &OptionsDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &OptionsDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(lists);
    layout->addWidget(buttons);
    WindowMemory::keep(this, "options");
}

StringListEdit *OptionsDialog::addList(const QString &objectName, const QStringList &values)
{
    auto *list = new StringListEdit(this);
    list->setObjectName(objectName);
    list->setValues(values);
    return list;
}

void OptionsDialog::accept()
{
    const QString standard = m_standard->currentText().trimmed();
    m_project->setOption("IncludePath", m_includePaths->values());
    m_project->setOption("LibraryPath", m_libraryPaths->values());
    m_project->setOption("LibrarySuffix", m_librarySuffixes->values());
    m_project->setOption("Defines", m_defines->values());
    m_project->setOption("Undefines", m_undefines->values());
    m_project->setOption("Parameters", m_parameters->values());
    m_project->setOption("Verilog_Standard", standard == byFileType ? QString() : standard);
    m_project->setOption("Synthesize_tool", m_tool->currentText().trimmed());
    m_project->setOption("TopModule", m_top->currentText().trimmed());
    QDialog::accept();
}

} // namespace Workbench
