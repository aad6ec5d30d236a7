#include "views/pagesignals.h"

#include <QLineEdit>
#include <QTreeWidget>

#include "check/configuration.h"
#include "options/triggeroptionwidget.h"
#include "signals/signalrows.h"
#include "signals/signalrules.h"
#include "signals/signaltreewidget.h"

namespace RTLJEX {
namespace {

const char *const clockField = "editSampleClock";

void judge(JEX::SignalItem &item, const QUARRY::RtlNetlist *netlist)
{
    QList<JEX::SignalItem> alone;
    alone << item;
    classifySignals(netlist, alone);
    item = alone.first();
}

// False when all are the same.
bool putRows(signalTreeWidget *tree, const QList<JEX::SignalItem> &items, const QUARRY::RtlNetlist *netlist)
{
    bool isChanged = false;
    for (int i = 0; i < qMin(items.size(), tree->topLevelItemCount()); ++i) {
        QTreeWidgetItem *row = tree->topLevelItem(i);
        JEX::SignalItem item = items.at(i);
        if (recordOf(row) == item)
            continue;
        isChanged = true;
        judge(item, netlist);
        setRecord(row, item);
        showName(row, item);
        for (int member = 0; member < qMin(row->childCount(), item.members.size()); ++member)
            showName(row->child(member), item.members.at(member));
        updateCapEnable(row);
    }
    return isChanged;
}

bool putPorts(const JEX::AoCore &copy, JEX::AoCore &stored, const QUARRY::RtlNetlist *netlist)
{
    bool isChanged = false;
    for (int i = 0; i < stored.triggerPorts.size(); ++i) {
        QList<JEX::SignalItem> &items = stored.triggerPorts.at(i)->signalItems;
        const QList<JEX::SignalItem> &now = copy.triggerPorts.at(i)->signalItems;
        for (int row = 0; row < qMin(items.size(), now.size()); ++row) {
            if (items.at(row) == now.at(row))
                continue;
            isChanged = true;
            items[row] = now.at(row);
            judge(items[row], netlist);
        }
    }
    return isChanged;
}

} // namespace

void takePageSignals(const QWidget *page, AnyCore &copy)
{
    if (const QLineEdit *field = page->findChild<QLineEdit *>(QLatin1String(clockField)))
        *copy.clock = field->text();
    const signalTreeWidget *tree = page->findChild<signalTreeWidget *>();
    if (!tree)
        return;
    *copy.signalRows = topLevelRecords(tree);
    copy.enabledRows->clear();
    for (const JEX::SignalItem &item : *copy.signalRows) {
        if (item.capEnable)
            copy.enabledRows->append(item);
    }
}

void putPageSignals(QWidget *page, AnyCore &copy, AnyCore &stored, const QUARRY::RtlNetlist *netlist)
{
    QLineEdit *field = page->findChild<QLineEdit *>(QLatin1String(clockField));
    if (field && field->text() != *copy.clock)
        field->setText(*copy.clock);
    signalTreeWidget *tree = page->findChild<signalTreeWidget *>();
    // A signal of the tree's own, which only it may emit where signals are protected.
    if (tree && putRows(tree, *copy.signalRows, netlist))
        QMetaObject::invokeMethod(tree, "itemDragged");
    TriggerOptionWidget *trigger = page->findChild<TriggerOptionWidget *>();
    if (trigger && stored.standard && putPorts(*copy.standard, *stored.standard, netlist))
        trigger->showChangedPorts();
}

QString focusedSignal(const QWidget *focused)
{
    if (const QLineEdit *field = qobject_cast<const QLineEdit *>(focused))
        return field->objectName() == QLatin1String(clockField) ? field->text() : QString();
    const QTreeWidget *tree = qobject_cast<const QTreeWidget *>(focused);
    const QTreeWidgetItem *row = tree ? tree->currentItem() : nullptr;
    if (!row)
        return QString();
    JEX::SignalItem item = recordOf(row);
    // The records of members are in that of their bus or group.
    if (item.name.isEmpty() && row->parent())
        item = recordOf(row->parent())
                   .members.value(row->parent()->indexOfChild(const_cast<QTreeWidgetItem *>(row)));
    return item.isOfBus() || item.isSingle() ? item.name : item.members.first().name;
}

} // namespace RTLJEX
