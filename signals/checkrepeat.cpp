#include "signals/checkrepeat.h"

#include <QTreeWidget>
#include <QTreeWidgetItem>

#include "signals/repeatrules.h"
#include "signals/rowedit.h"
#include "signals/signallistindex.h"
#include "signals/signalrows.h"
#include "signals/signalrules.h"

namespace RTLJEX {

namespace {

void carryOut(RowVerdict verdict, QTreeWidget *tree, int &index, const JEX::SignalItem &item)
{
    if (verdict == RowChanged) {
        setRecord(tree->topLevelItem(index), item);
    } else if (verdict == RowGone) {
        delete tree->topLevelItem(index);
        --index;
    }
}

} // namespace

// Rows only ever see the lists, never each other, so those that go are deleted together at the end.
void CheckRepeat(QTreeWidget *tree, QList<JEX::SignalItem> &busList, QList<JEX::SignalItem> &otherList)
{
    if (!tree)
        return;
    SignalListIndex buses(busList);
    SignalListIndex others(otherList);
    QList<QTreeWidgetItem *> leaving;
    for (int index = 0; index < tree->topLevelItemCount(); ++index) {
        QTreeWidgetItem *row = tree->topLevelItem(index);
        const JEX::SignalItem before = recordOf(row);
        JEX::SignalItem item = before;
        const RowVerdict verdict = judgeRow(item, others, buses);
        if (verdict == RowGone)
            leaving.append(row);
        else if (verdict == RowChanged && item != before)
            setRecord(row, item);
    }
    if (!leaving.isEmpty())
        RowEdit(tree).remove(leaving);
    busList = buses.records();
    otherList = others.records();
}

QList<JEX::SignalItem> withoutRepeats(QTreeWidget *tree, const QList<JEX::SignalItem> &chosen)
{
    QList<JEX::SignalItem> buses;
    QList<JEX::SignalItem> others;
    Grouped(chosen, buses, others);
    CheckRepeat(tree, buses, others);
    return buses + others;
}

void CheckRepeatBus(QTreeWidget *tree, int &index, QList<JEX::SignalItem> &busList)
{
    JEX::SignalItem item = recordOf(tree->topLevelItem(index));
    SignalListIndex buses(busList);
    carryOut(judgeBusRow(item, buses), tree, index, item);
    busList = buses.records();
}

void CheckRepeatGroupBus(QTreeWidget *tree, int &index, QList<JEX::SignalItem> &otherList,
                         QList<JEX::SignalItem> &busList)
{
    JEX::SignalItem item = recordOf(tree->topLevelItem(index));
    SignalListIndex others(otherList);
    SignalListIndex buses(busList);
    carryOut(judgeGroupRow(item, others, buses), tree, index, item);
    busList = buses.records();
    otherList = others.records();
}

} // namespace RTLJEX
