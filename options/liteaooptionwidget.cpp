#include "options/liteaooptionwidget.h"

#include "options/litecaptureoptionwidget.h"

namespace RTLJEX {

LiteAoOptionWidget::LiteAoOptionWidget(JEX::AOCore_Lite *core, QUARRY::RtlNetlist *netlist, QWidget *parent)
    : QTabWidget(parent), m_capture(new LiteCaptureOptionWidget(core, netlist, this))
{
    addTab(m_capture, tr("Capture Options"));
    connect(m_capture, SIGNAL(modified()), SIGNAL(modified()));
}

void LiteAoOptionWidget::save()
{
    m_capture->save();
}

void LiteAoOptionWidget::collect(JEX::AOCore_Lite *core, JEX::LeftOut *) const
{
    m_capture->collect(core);
}

void LiteAoOptionWidget::showCore(const JEX::AOCore_Lite &core, const JEX::LeftOut &)
{
    m_capture->showCore(core);
}

void LiteAoOptionWidget::setNlsData(QUARRY::RtlNetlist *netlist)
{
    m_capture->setNlsdata(netlist);
    m_capture->updateTree();
}

QString LiteAoOptionWidget::signalPlace(const QWidget *, const QPoint &) const
{
    return tr("the capture list");
}

bool LiteAoOptionWidget::addSignals(const QList<JEX::SignalItem> &chosen, const QWidget *, const QPoint &,
                                    QStringList *)
{
    m_capture->addSignals(chosen);
    return true;
}

QList<JEX::SignalItem> LiteAoOptionWidget::chosenSignals() const
{
    return m_capture->chosenSignals();
}

} // namespace RTLJEX
