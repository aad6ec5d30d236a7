#pragma once

#include <QTabWidget>

namespace JEX {
struct AOCore_Lite;
struct LeftOut;
} // namespace JEX
namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

class LiteCaptureOptionWidget;

// The editor of one Lite core: a single tab. Core and netlist belong to the view.
class LiteAoOptionWidget : public QTabWidget
{
    Q_OBJECT

public:
    LiteAoOptionWidget(JEX::AOCore_Lite *core, QUARRY::RtlNetlist *netlist, QWidget *parent = nullptr);

    void save();
    // Writes what the page shows into a core that has all of the page's own.
    void collect(JEX::AOCore_Lite *core, JEX::LeftOut *leftOut) const;
    void showCore(const JEX::AOCore_Lite &core, const JEX::LeftOut &leftOut);
    // Also rebuilds the rows against the new netlist.
    void setNlsData(QUARRY::RtlNetlist *netlist);

Q_SIGNALS:
    void modified();

private:
    LiteCaptureOptionWidget *m_capture;
};

} // namespace RTLJEX
