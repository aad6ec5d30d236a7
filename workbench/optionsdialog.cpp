#include "workbench/optionsdialog.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QListWidget>
#include <QTabWidget>
#include <QVBoxLayout>

#include "host/projectoptions.h"
#include "workbench/stringlistedit.h"
#include "workbench/topmodules.h"
#include "workbench/windowmemory.h"

namespace Workbench {
namespace {

QString byFileType()
{
    return OptionsDialog::tr("By file type");
}

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
      m_lists(new QTabWidget)
{
    const Core::ProjectData &data = project->data();
    setWindowTitle(tr("Project Options"));
    resize(560, 420);
    m_top->setObjectName("topModule");
    m_standard = newCombo("verilogStandard",
                          {byFileType(), "1364-1995", "1364-2001", "1364-2005", "1800-2005", "1800-2009",
                           "1800-2012", "1800-2017"},
                          data.verilogStandard.isEmpty() ? byFileType() : data.verilogStandard);
    m_tool = newCombo("synthesisTool", {"", "TarselSynthesis", "Synplify"}, data.synthesisTool);

    auto *form = new QFormLayout;
    form->addRow(tr("&Top module:"), m_top);
    form->addRow(tr("&Verilog standard:"), m_standard);
    form->addRow(tr("&Synthesis tool:"), m_tool);
    m_lists->setUsesScrollButtons(false);
    for (const Core::ProjectOption &option : Core::projectOptions) {
        if (!option.list)
            continue;
        const QString title = QCoreApplication::translate("Core::ProjectOption", option.title);
        auto *list = new StringListEdit(this);
        list->setObjectName(option.key);
        list->setValues(data.*option.list);
        if (option.isFolders)
            list->chooseFoldersFrom(project->workingDir());
        list->findChild<QListWidget *>()->setAccessibleName(title);
        m_lists->setTabToolTip(m_lists->addTab(list, title),
                               QCoreApplication::translate("Core::ProjectOption", option.hint));
    }
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &OptionsDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &OptionsDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_lists);
    layout->addWidget(buttons);
    WindowMemory::keep(this, "options");
}

void OptionsDialog::accept()
{
    const QString standard = m_standard->currentText().trimmed();
    for (const Core::ProjectOption &option : Core::projectOptions) {
        if (option.list)
            m_project->setOption(option.name, m_lists->findChild<StringListEdit *>(option.key)->values());
    }
    m_project->setOption("Verilog_Standard", standard == byFileType() ? QString() : standard);
    m_project->setOption("Synthesize_tool", m_tool->currentText().trimmed());
    m_project->setOption("TopModule", m_top->currentText().trimmed());
    QDialog::accept();
}

} // namespace Workbench
