#pragma once

#include <QWidget>
#include <memory>

#include "model/jex/signalitem.h"
#include "options/currentdevice.h"

namespace JEX {
class AoCore;
}
namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

class Ui_CaptureOptionWidget;

// The "Capture Options" of one Standard core. Core and netlist (may be null) belong to the view; the core is
// written by save() and otherwise only by updateTree(), which classifies its stored signals anew.
class CaptureOptionWidget : public QWidget, public QUtil::IEventHandler
{
    Q_OBJECT

public:
    CaptureOptionWidget(JEX::AoCore *core, QUARRY::RtlNetlist *netlist, QWidget *parent = nullptr);
    ~CaptureOptionWidget() override;

    void save();
    void
    collect(JEX::AoCore *core) const; // what the page shows; a row that is being renamed has its old name
    void showCore(const JEX::AoCore &core); // reports nothing
    void setNlsdata(QUARRY::RtlNetlist *netlist);
    // Rebuilds the rows from the core's stored signals, so edits that were not saved are gone. The signals
    // of the trigger ports are classified, too.
    void updateTree();
    void handleIEvent(const QUtil::IEvent *event) override;
    void addSignals(const QList<JEX::SignalItem> &chosen); // as the button does with what was searched
    QList<JEX::SignalItem> chosenSignals() const;          // of the rows that are selected

Q_SIGNALS:
    void modified();

private Q_SLOTS:
    void onStorageChanged();
    void onWindowChanged();
    void onCapAmountChanged();
    void onImplChanged();
    void onSelectClock();
    void onAddDataSignals();
    void onAddFromTrigger();
    void onRemoveSignals();
    void onCaptureSignalChange();
    void on_treeWidgetCapSigs_itemSelectionChanged();

private:
    void connectControls();
    void loadCore();
    void reportSizes();
    qint64 captureBits() const;
    void showAddedRows();
    void updateBsramCount();
    void updateImplType();
    void sortEnableSignal();

    std::unique_ptr<Ui_CaptureOptionWidget> m_ui;
    JEX::AoCore *m_core;
    QUARRY::RtlNetlist *m_netlist;
    DeviceWatch m_device;
};

} // namespace RTLJEX
