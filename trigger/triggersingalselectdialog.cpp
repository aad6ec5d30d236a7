#include "trigger/triggersingalselectdialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QScrollArea>
#include <QScrollBar>
#include <QTreeWidget>

#include "host/modal.h"
#include "host/rowdelegate.h"
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
    setProperty("helpTopic", "capture");
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    setSizeGripEnabled(true);
    m_preview->setHeaderHidden(true);
    m_preview->setAccessibleName(tr("Signals of the ticked ports"));
    QUtil::useRowDelegate(m_preview);
    m_preview->setUniformRowHeights(true);
    m_preview->setTextElideMode(Qt::ElideLeft);
    QDialogButtonBox *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, SIGNAL(accepted()), SLOT(accept()));
    connect(buttons, SIGNAL(rejected()), SLOT(reject()));
    QGridLayout *layout = new QGridLayout(this);
    layout->addWidget(makePortColumn(), 0, 0);
    layout->addWidget(m_preview, 0, 1);
    layout->addWidget(buttons, 1, 0, 1, 2);
    layout->setColumnStretch(1, 1);
    resize(QSize(32, 30) * fontMetrics().height());
}

// Scrolls where the screen is too low for all ports.
QWidget *TriggerSingalSelectDialog::makePortColumn()
{
    QWidget *column = new QWidget;
    QVBoxLayout *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const JEX::TriggerPort *port : m_ports) {
        QCheckBox *box = new QCheckBox(tr("Trigger Port %1").arg(port->portNumber));
        connect(box, SIGNAL(toggled(bool)), SLOT(onStateChanged()));
        layout->addWidget(box);
        m_boxes.append(box);
    }
    layout->addStretch();
    QScrollArea *area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(column);
    area->setMinimumWidth(column->sizeHint().width() + area->verticalScrollBar()->sizeHint().width());
    return area;
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
    for (int i = 0; i < m_ports.size(); ++i) {
        if (m_boxes.at(i)->isChecked())
            ticked += m_ports.at(i)->signalItems;
    }
    m_preview->clear();
    insertSignalRows(m_preview, ticked, 0, rowType);
}

} // namespace RTLJEX
