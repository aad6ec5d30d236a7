#pragma once

#include <QWidget>
#include <memory>

#include "options/currentdevice.h"

namespace JEX {
struct AOCore_Lite;
}
namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

class Ui_LiteCaptureOptionWidget;

// The "Capture Options" of one Lite core. Core and netlist (may be null) belong to the view; the core is
// written by save() and otherwise only by updateTree(), which classifies its stored signals anew.
class LiteCaptureOptionWidget : public QWidget, public QUtil::IEventHandler
{
    Q_OBJECT

public:
    LiteCaptureOptionWidget(JEX::AOCore_Lite *core, QUARRY::RtlNetlist *netlist, QWidget *parent = nullptr);
    ~LiteCaptureOptionWidget() override;

    void save();
    void collect(
        JEX::AOCore_Lite *core) const; // what the page shows; a row that is being renamed has its old name
    void showCore(const JEX::AOCore_Lite &core); // reports nothing
    void setNlsdata(QUARRY::RtlNetlist *netlist);
    // Rebuilds the rows from the core's stored signals, so edits that were not saved are gone.
    void updateTree();
    void handleIEvent(const QUtil::IEvent *event) override;

Q_SIGNALS:
    void modified();

private Q_SLOTS:
    void onSelectClock();
    void onAddDataSignals();
    void onRemoveSignals();
    void onImplementation();
    void onCapInitData();
    void onCapAmountOrDataSigalChanged();
    void onCaptureSignalChange();
    void on_treeWidgetSignal_itemSelectionChanged();

private:
    void connectControls();
    void loadCore();
    void updateBsramCount();
    void updateImplType();
    void updateInputRegCheck();
    void sortEnableSignal();
    int captureAmount() const;
    qint64 captureBits() const;

    std::unique_ptr<Ui_LiteCaptureOptionWidget> m_ui;
    JEX::AOCore_Lite *m_core;
    QUARRY::RtlNetlist *m_netlist;
    DeviceWatch m_device;
};

} // namespace RTLJEX
