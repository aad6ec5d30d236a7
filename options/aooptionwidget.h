#pragma once

#include <QTabWidget>

namespace JEX {
class AoCore;
}
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
