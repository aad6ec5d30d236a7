#pragma once

#include <QTabWidget>

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
class AoOptionWidget : public QTabWidget
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

Q_SIGNALS:
    void modifed();

private:
    QUARRY::RtlNetlist *m_netlist;
    TriggerOptionWidget *m_trigger;
    CaptureOptionWidget *m_capture;
};

} // namespace RTLJEX
