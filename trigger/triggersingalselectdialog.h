#pragma once

#include <QDialog>
#include <QList>

#include "model/jex/signalitem.h"

class QCheckBox;
class QTreeWidget;

namespace JEX {
struct TriggerPort;
}

namespace RTLJEX {

// "Add From Trigger": lets the user tick trigger ports and shows their signals. The ports are not owned;
// reject the dialog before they go.
class TriggerSingalSelectDialog : public QDialog
{
    Q_OBJECT

public:
    explicit TriggerSingalSelectDialog(QList<JEX::TriggerPort *> ports, QWidget *parent = nullptr);

    // Runs the dialog. Empty when it was cancelled or died with its parent.
    static QList<JEX::SignalItem> getSelectTriggerPort(QList<JEX::TriggerPort *> ports, QWidget *parent);

    // The signals of all ticked ports in port order; one that two ports share comes twice.
    QList<JEX::SignalItem> selectTriggerPort() const;

private Q_SLOTS:
    void onStateChanged();

private:
    QWidget *makePortColumn();

    QList<JEX::TriggerPort *> m_ports;
    QList<QCheckBox *> m_boxes; // one a port, in their order
    QTreeWidget *m_preview;
};

} // namespace RTLJEX
