#pragma once

#include <QTabWidget>

#include "options/signalpage.h"

namespace JEX {
class AoCore;
struct LeftOut;
} // namespace JEX
namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

class CaptureOptionWidget;
class TriggerOptionWidget;

// The editor of one Standard core, a tab for its trigger and one for its capture. Core and netlist belong to
// the view.
class AoOptionWidget : public QTabWidget, public SignalPage
{
    Q_OBJECT

public:
    AoOptionWidget(JEX::AoCore *core, QUARRY::RtlNetlist *netlist, QWidget *parent = nullptr);

    void save();
    // Writes what the page shows into a core that has all of the page's own.
    void collect(JEX::AoCore *core, JEX::LeftOut *leftOut) const;
    // Shows that, without writing more into the page's core than its dialogs do.
    void showCore(const JEX::AoCore &core, const JEX::LeftOut &leftOut);
    // Also rebuilds the capture rows against the new netlist.
    void setNlsdata(QUARRY::RtlNetlist *netlist);

    QString signalPlace(const QWidget *widget, const QPoint &position) const override;
    bool addSignals(const QList<JEX::SignalItem> &chosen, const QWidget *widget, const QPoint &position,
                    QStringList *faults) override;
    QList<JEX::SignalItem> chosenSignals() const override;

Q_SIGNALS:
    void modifed();

private:
    QUARRY::RtlNetlist *m_netlist;
    TriggerOptionWidget *m_trigger;
    CaptureOptionWidget *m_capture;
};

} // namespace RTLJEX
