#include "options/aooptionwidget.h"

#include "options/captureoptionwidget.h"
#include "options/triggeroptionwidget.h"

namespace RTLJEX {

AoOptionWidget::AoOptionWidget(JEX::AoCore *core, QUARRY::RtlNetlist *netlist, QWidget *parent)
    : QTabWidget(parent),
      m_netlist(netlist),
      m_trigger(new TriggerOptionWidget(core, netlist, this)),
      m_capture(new CaptureOptionWidget(core, netlist, this))
{
    addTab(m_trigger, tr("Trigger Options"));
    addTab(m_capture, tr("Capture Options"));
    connect(m_trigger, SIGNAL(modified()), SIGNAL(modifed()));
    connect(m_capture, SIGNAL(modified()), SIGNAL(modifed()));
}

void AoOptionWidget::save()
{
    m_trigger->save();
    m_capture->save();
}

void AoOptionWidget::collect(JEX::AoCore *core, JEX::LeftOut *leftOut) const
{
    m_trigger->collect(core, leftOut);
    m_capture->collect(core);
}

void AoOptionWidget::showCore(const JEX::AoCore &core, const JEX::LeftOut &leftOut)
{
    m_trigger->showCore(core, leftOut);
    m_capture->showCore(core);
}

void AoOptionWidget::setNlsdata(QUARRY::RtlNetlist *netlist)
{
    m_netlist = netlist;
    m_trigger->setNlsdata(netlist);
    m_capture->setNlsdata(netlist);
    m_capture->updateTree();
}

QString AoOptionWidget::signalPlace(const QWidget *widget, const QPoint &position) const
{
    if (currentWidget() == m_capture)
        return tr("the capture list");
    const int port = m_trigger->portAt(widget, position);
    return port < 0 ? QString() : tr("trigger port %1").arg(port);
}

bool AoOptionWidget::addSignals(const QList<JEX::SignalItem> &chosen, const QWidget *widget,
                                const QPoint &position, QStringList *faults)
{
    if (currentWidget() == m_trigger)
        return m_trigger->addSignals(m_trigger->portAt(widget, position), chosen, faults);
    m_capture->addSignals(chosen);
    return true;
}

QList<JEX::SignalItem> AoOptionWidget::chosenSignals() const
{
    return currentWidget() == m_trigger ? m_trigger->chosenSignals() : m_capture->chosenSignals();
}

} // namespace RTLJEX
