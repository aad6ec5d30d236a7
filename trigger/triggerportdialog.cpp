#include "trigger/triggerportdialog.h"

#include "host/modal.h"
#include "model/jex/core.h"
#include "netselect/jexsignalselectdialog.h"
#include "signals/checkrepeat.h"
#include "signals/signalrows.h"
#include "signals/signaltreesetup.h"
#include "ui_triggerportdialog.h"

namespace RTLJEX {

namespace {

const int rowType = 0;

} // namespace

TriggerPortDialog::TriggerPortDialog(JEX::TriggerPort *port, QUARRY::RtlNetlist *netlist, QWidget *parent)
    : QDialog(parent), m_ui(new Ui_TriggerPortDialog), m_port(port), m_netlist(netlist)
{
    m_ui->setupUi(this);
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    setUpSignalTree(m_ui->treeWidget, m_ui->btnRemove);
    insertSignalRows(m_ui->treeWidget, m_port->signalItems, 0, rowType);
    connect(m_ui->btnAdd, SIGNAL(clicked()), SLOT(onAdd()));
    connect(m_ui->btnRemove, SIGNAL(clicked()), SLOT(onRemove()));
}

TriggerPortDialog::~TriggerPortDialog() = default;

void TriggerPortDialog::onAdd()
{
    const QPointer<QWidget> alive(this);
    const QList<JEX::SignalItem> chosen = JexSignalSelectDialog::getNetName(m_netlist, this);
    if (!alive || chosen.isEmpty())
        return;
    signalTreeWidget *tree = m_ui->treeWidget;
    insertSignalRows(tree, withoutRepeats(tree, chosen), tree->topLevelItemCount(), rowType);
}

void TriggerPortDialog::onRemove()
{
    removeChosenRows(m_ui->treeWidget);
}

void TriggerPortDialog::on_treeWidget_itemSelectionChanged()
{
    m_ui->btnRemove->setEnabled(canRemoveRows(m_ui->treeWidget));
}

void TriggerPortDialog::accept()
{
    m_ui->treeWidget->finishEdit();
    const QList<JEX::SignalItem> items = topLevelRecords(m_ui->treeWidget);
    if (JEX::widthOf(items) > JEX::TriggerPort::WidthLimit) {
        QUtil::messageBox(this, QMessageBox::Warning, tr("Warning"), tr("Support 64 signals at most."));
        return;
    }
    m_port->signalItems = items;
    QDialog::accept();
}

} // namespace RTLJEX
