#pragma once

#include <QMap>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QWidget>
#include <memory>

#include "options/currentdevice.h"

class QListWidgetItem;
class QPoint;
class QTreeWidgetItem;

namespace JEX {
class AoCore;
class MatchUnitModel;
struct LeftOut;
} // namespace JEX
namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

class Ui_TriggerOptionWidget;

// The "Trigger Options" of one Standard core. Core and netlist (may be null) belong to the view. Ports and
// match units are edited in place by their dialogs; the rest of the core is written by save() alone.
//
// An expression that names a unit which the mode lacks is grey: it neither counts nor is it saved.
class TriggerOptionWidget : public QWidget, public QUtil::IEventHandler
{
    Q_OBJECT

public:
    enum RowType { PortRow = 1001, SignalRow = 1002 }; // of the tree's items

    TriggerOptionWidget(JEX::AoCore *core, QUARRY::RtlNetlist *netlist, QWidget *parent = nullptr);
    ~TriggerOptionWidget() override;

    void save();
    // What the page shows; the core has ports and units of the page's core.
    void collect(JEX::AoCore *core, JEX::LeftOut *leftOut) const;
    void showCore(const JEX::AoCore &core, const JEX::LeftOut &leftOut); // reports nothing
    void setNlsdata(QUARRY::RtlNetlist *netlist);
    void handleIEvent(const QUtil::IEvent *event) override;
    bool eventFilter(QObject *object, QEvent *event) override;

Q_SIGNALS:
    void modified();

private Q_SLOTS:
    void editTrigger(QTreeWidgetItem *item, int column);
    void editMatchUnit(const QModelIndex &index);
    void editExpression(QListWidgetItem *item);
    void showExpListContextMenu(const QPoint &position);
    void onModeChange(const QString &text);
    void onImpleChange();
    void updateMatchUnitNumber(bool all);
    void updateExpressionCheck();
    void askEdit(QTreeWidgetItem *item);
    void askEdit(QListWidgetItem *item);
    void askEdit(const QModelIndex &row);
    void askEditCurrent();
    void editAsked();
    void removeExpressions();
    void toggleUnit();

private:
    // While a dialog of the page is open, the slots that edit do nothing.
    class EditMark
    {
    public:
        explicit EditMark(TriggerOptionWidget *page);
        ~EditMark();

    private:
        EditMark(const EditMark &);
        EditMark &operator=(const EditMark &);

        QPointer<TriggerOptionWidget> m_page;
    };

    void setUpPorts();
    void setUpMatchUnits();
    void setUpExpressions();
    void connectDoubleClicks();
    void connectKeys();
    void updateTriggerTree();
    void redrawUnits();
    void updateImplType();
    void updateExpressionType();
    void updateBsramNumber();

    QString askExpression();
    bool addExpression(const QString &limitTitle);
    QStringList validExpressions() const;
    QMap<int, QString> greyExpressions() const; // by row
    void showExpressions(const QStringList &valid, const QMap<int, QString> &grey);
    int checkedUnits() const;
    bool isStatic() const;
    void showStatic(bool on);

    std::unique_ptr<Ui_TriggerOptionWidget> m_ui;
    JEX::AoCore *m_core;
    QUARRY::RtlNetlist *m_netlist;
    JEX::MatchUnitModel *m_units; // a child of the page
    DeviceWatch m_device;
    QPersistentModelIndex m_asked; // to be edited as soon as the event loop is reached
    bool m_isEditing = false;
};

} // namespace RTLJEX
