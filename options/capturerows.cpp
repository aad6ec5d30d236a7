#include "options/capturerows.h"

#include <QHash>
#include <QPointer>
#include <QSet>
#include <QTreeWidgetItem>

#include <algorithm>

#include "netselect/jexsignalselectdialog.h"
#include "signals/checkrepeat.h"
#include "signals/rowedit.h"
#include "signals/signalrows.h"
#include "signals/signalrules.h"
#include "signals/signaltreewidget.h"

namespace RTLJEX {

namespace {

bool areAlike(const JEX::SignalItem &a, const JEX::SignalItem &b)
{
    return a.valid == b.valid;
}

// Of the same name. False for a row that is better made anew: what is not valid is made to look so.
bool becomesRecord(QTreeWidgetItem *row, const JEX::SignalItem &item)
{
    const JEX::SignalItem old = recordOf(row);
    if (old == item)
        return true;
    if (!areAlike(old, item) || old.members.size() != item.members.size() ||
        !std::equal(old.members.begin(), old.members.end(), item.members.begin(), areAlike))
        return false;
    setRecord(row, item);
    showName(row, item);
    for (int i = 0; i < row->childCount(); ++i)
        showName(row->child(i), item.members.at(i));
    row->setFlags(QTreeWidgetItem().flags());
    return true;
}

} // namespace

bool addSearchedRows(QTreeWidget *tree, QUARRY::RtlNetlist *netlist, QWidget *page)
{
    const QPointer<QWidget> alive(page);
    const QList<JEX::SignalItem> chosen = JexSignalSelectDialog::getNetName(netlist, page);
    qDebug("get infor from search");
    if (!alive || chosen.isEmpty())
        return false;
    addCaptureRows(tree, chosen);
    return true;
}

void addCaptureRows(QTreeWidget *tree, const QList<JEX::SignalItem> &chosen)
{
    const QList<JEX::SignalItem> added = withoutRepeats(tree, chosen);
    // Rows may have gone or become enabled by now, so the place is looked up only here.
    insertCaptureRows(tree, added, firstDisabledRow(tree));
}

QList<JEX::SignalItem> uniqueByName(const QList<JEX::SignalItem> &items)
{
    QList<JEX::SignalItem> unique;
    QSet<QString> seen;
    for (const JEX::SignalItem &item : items) {
        QStringList members;
        for (const JEX::SignalItem &member : item.members)
            members << (item.isGroup() ? member.name : QString());
        members.sort();
        members.removeDuplicates();
        const QString key = item.name + QLatin1Char('\n') + members.join(QLatin1String("\n"));
        if (!seen.contains(key))
            unique.append(item);
        seen.insert(key);
    }
    return unique;
}

void rebuildCaptureRows(QTreeWidget *tree, const QUARRY::RtlNetlist *netlist, QList<JEX::SignalItem> &stored)
{
    classifySignals(netlist, stored);
    tree->clear();
    insertCaptureRows(tree, stored, 0);
}

void showCaptureRows(QTreeWidget *tree, const QList<JEX::SignalItem> &records)
{
    if (topLevelRecords(tree) == records)
        return;
    RowEdit edit(tree);
    QHash<QString, QList<QTreeWidgetItem *>> known;
    for (QTreeWidgetItem *row : edit.rows)
        known[recordOf(row).name].append(row);
    QList<QTreeWidgetItem *> rows;
    for (const JEX::SignalItem &item : records) {
        QList<QTreeWidgetItem *> &sameName = known[item.name];
        QTreeWidgetItem *row = sameName.isEmpty() ? nullptr : sameName.first();
        if (row && becomesRecord(row, item))
            sameName.removeFirst();
        else
            row = makeSignalRow(item, captureRowType);
        updateCapEnable(row);
        rows.append(row);
    }
    QList<QTreeWidgetItem *> leaving;
    for (const QList<QTreeWidgetItem *> &left : known)
        leaving += left;
    edit.remove(leaving);
    edit.rows = rows;
}

void collectCaptureRows(const QTreeWidget *tree, QList<JEX::SignalItem> &enabled, QList<JEX::SignalItem> &all)
{
    enabled.clear();
    all.clear();
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        const QVariant data = tree->topLevelItem(i)->data(0, Qt::UserRole);
        if (!data.canConvert<JEX::SignalItem>())
            continue;
        const JEX::SignalItem item = data.value<JEX::SignalItem>();
        all.append(item);
        if (item.capEnable)
            enabled.append(item);
    }
}

} // namespace RTLJEX
