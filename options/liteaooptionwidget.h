#pragma once

#include <QTabWidget>

#include "options/signalpage.h"

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
class LiteAoOptionWidget : public QTabWidget, public SignalPage
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

    QString signalPlace(const QWidget *widget, const QPoint &position) const override;
    bool addSignals(const QList<JEX::SignalItem> &chosen, const QWidget *widget, const QPoint &position,
                    QStringList *faults) override;
    QList<JEX::SignalItem> chosenSignals() const override;

Q_SIGNALS:
    void modified();

private:
    LiteCaptureOptionWidget *m_capture;
};

} // namespace RTLJEX
