#pragma once

#include <QTabWidget>

#include "options/aooptionwidget.h"
#include "options/signalpage.h"

namespace JEX {
struct LeftOut;
}
namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

// What a page of one tab tells, whichever its core.
class OneTabPage : public QTabWidget, public SignalPage
{
    Q_OBJECT

public:
    using QTabWidget::QTabWidget;

Q_SIGNALS:
    void modified(); // what the tab shows
};

// The editor of one core without a trigger: a single tab, a Capture. Core and netlist belong to the view.
template <class Core, class Capture>
class PlainPage : public OneTabPage
{
public:
    PlainPage(Core *core, QUARRY::RtlNetlist *netlist, QWidget *parent = nullptr)
        : OneTabPage(parent), m_capture(new Capture(core, netlist, this))
    {
        addTab(m_capture, AoOptionWidget::tr("Capture Options"));
        connect(m_capture, SIGNAL(modified()), SIGNAL(modified()));
    }

    void save() { m_capture->save(); }
    // Writes what the page shows into a core that has all of the page's own.
    void collect(Core *core, JEX::LeftOut *) const { m_capture->collect(core); }
    void showCore(const Core &core, const JEX::LeftOut &) { m_capture->showCore(core); }
    // Also rebuilds the rows against the new netlist.
    void setNlsData(QUARRY::RtlNetlist *netlist)
    {
        m_capture->setNlsdata(netlist);
        m_capture->updateTree();
    }

    QString signalPlace(const QWidget *, const QPoint &) const override
    {
        return AoOptionWidget::tr("the capture list");
    }
    bool addSignals(const QList<JEX::SignalItem> &chosen, const QWidget *, const QPoint &,
                    QStringList *) override
    {
        m_capture->addSignals(chosen);
        return true;
    }
    QList<JEX::SignalItem> chosenSignals() const override { return m_capture->chosenSignals(); }

private:
    Capture *const m_capture; // child
};

} // namespace RTLJEX
