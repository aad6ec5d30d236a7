#include "trigger/triggersingalselectdialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QTreeWidget>

#include "host/modal.h"
#include "model/jex/core.h"
#include "signals/signalrows.h"

namespace RTLJEX {

namespace {

const int rowType = 0;

} // namespace

TriggerSingalSelectDialog::TriggerSingalSelectDialog(QList<JEX::TriggerPort *> ports, QWidget *parent)
    : QDialog(parent), m_ports(ports), m_preview(new QTreeWidget)
{
    setWindowTitle(tr("Add From Trigger"));
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    setSizeGripEnabled(true);
    QVBoxLayout *column = new QVBoxLayout;
    for (const JEX::TriggerPort *port : ports) {
        QCheckBox *box = new QCheckBox(tr("Trigger Port %1").arg(port->portNumber));
        connect(box, SIGNAL(toggled(bool)), SLOT(onStateChanged()));
        column->addWidget(box);
        m_boxes.append(box);
    }
    column->addStretch();
    m_preview->setHeaderHidden(true);
    m_preview->setUniformRowHeights(true);
    m_preview->setTextElideMode(Qt::ElideLeft);
    QDialogButtonBox *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, SIGNAL(accepted()), SLOT(accept()));
    connect(buttons, SIGNAL(rejected()), SLOT(reject()));
    QGridLayout *layout = new QGridLayout(this);
    layout->addLayout(column, 0, 0);
    layout->addWidget(m_preview, 0, 1);
    layout->addWidget(buttons, 1, 0, 1, 2);
    layout->setColumnStretch(1, 1);
    resize(QSize(32, 27) * fontMetrics().height());
}

QList<JEX::SignalItem> TriggerSingalSelectDialog::getSelectTriggerPort(QList<JEX::TriggerPort *> ports,
                                                                       QWidget *parent)
{
    const QUtil::Modal<TriggerSingalSelectDialog> dialog(new TriggerSingalSelectDialog(ports, parent));
    if (dialog->exec() != Accepted || !dialog.data())
        return QList<JEX::SignalItem>();
    return dialog->selectTriggerPort();
}

QList<JEX::SignalItem> TriggerSingalSelectDialog::selectTriggerPort() const
{
    return topLevelRecords(m_preview);
}

void TriggerSingalSelectDialog::onStateChanged()
{
    QList<JEX::SignalItem> ticked;
    for (int i = 0; i < m_ports.size(); ++i)
        if (m_boxes.at(i)->isChecked())
            ticked += m_ports.at(i)->signalItems;
    m_preview->clear();
    insertSignalRows(m_preview, ticked, 0, rowType);
}

} // namespace RTLJEX
