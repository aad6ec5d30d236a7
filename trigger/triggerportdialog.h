#pragma once

#include <QDialog>
#include <memory>

namespace JEX {
struct TriggerPort;
}
namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

class Ui_TriggerPortDialog;

// "Trigger Port": the signals of one trigger port. The port, which is not owned, is written on OK alone. The
// netlist is not owned and may be null; reject the dialog before port or netlist goes.
class TriggerPortDialog : public QDialog
{
    Q_OBJECT

public:
    TriggerPortDialog(JEX::TriggerPort *port, QUARRY::RtlNetlist *netlist, QWidget *parent = nullptr);
    ~TriggerPortDialog() override;

public Q_SLOTS:
    void accept() override; // refuses more than 64 bits

private Q_SLOTS:
    void onAdd();
    void onRemove();
    void on_treeWidget_itemSelectionChanged();

private:
    std::unique_ptr<Ui_TriggerPortDialog> m_ui;
    JEX::TriggerPort *m_port;
    QUARRY::RtlNetlist *m_netlist;
};

} // namespace RTLJEX
