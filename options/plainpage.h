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

// The editor of one core without a trigger: a single tab, a Capture. Core and netlist belong to the view. Who
// is one has a signal modified(), which it connects to that of the tab.
template <class Core, class Capture>
class PlainPage : public QTabWidget, public SignalPage
{
public:
    PlainPage(Core *core, QUARRY::RtlNetlist *netlist, QWidget *parent)
        : QTabWidget(parent), capture(new Capture(core, netlist, this))
    {
        addTab(capture, AoOptionWidget::tr("Capture Options"));
    }

    void save() { capture->save(); }
    // Writes what the page shows into a core that has all of the page's own.
    void collect(Core *core, JEX::LeftOut *) const { capture->collect(core); }
    void showCore(const Core &core, const JEX::LeftOut &) { capture->showCore(core); }
    // Also rebuilds the rows against the new netlist.
    void setNlsData(QUARRY::RtlNetlist *netlist)
    {
        capture->setNlsdata(netlist);
        capture->updateTree();
    }

    QString signalPlace(const QWidget *, const QPoint &) const override
    {
        return AoOptionWidget::tr("the capture list");
    }
    bool addSignals(const QList<JEX::SignalItem> &chosen, const QWidget *, const QPoint &,
                    QStringList *) override
    {
        capture->addSignals(chosen);
        return true;
    }
    QList<JEX::SignalItem> chosenSignals() const override { return capture->chosenSignals(); }

protected:
    Capture *const capture; // child
};

} // namespace RTLJEX
