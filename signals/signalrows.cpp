#include "signals/signalrows.h"

#include <QSet>
#include <QTreeWidget>
#include <QTreeWidgetItem>

#include "signals/rowedit.h"
#include "signals/roworder.h"
#include "signals/signalrow.h"

namespace RTLJEX {

namespace {

void showText(QTreeWidgetItem *row, const QString &text, bool italic)
{
    row->setText(0, text);
    if (italic) {
        QFont font = row->font(0);
        font.setItalic(true);
        row->setFont(0, font);
    } else if (row->data(0, Qt::FontRole).isValid()) {
        row->setData(0, Qt::FontRole, QVariant());
    }
}

void showInvalid(QTreeWidgetItem *row)
{
    row->setForeground(0, QBrush(Qt::gray));
    row->setFlags(row->flags() & ~(Qt::ItemIsSelectable | Qt::ItemIsEnabled));
}

// Most rows of a tree look right already; those are left alone, since an attached row that is written
// looks for its place in the tree.
void paint(QTreeWidgetItem *row, const QColor &colour, Qt::ItemFlags flags)
{
    const QBrush brush(colour);
    if (!row->data(0, Qt::ForegroundRole).isValid() || row->foreground(0) != brush)
        row->setForeground(0, brush);
    if (row->flags() != flags)
        row->setFlags(flags);
}

void writeCapEnable(QTreeWidgetItem *member, bool enabled)
{
    JEX::SignalItem item = recordOf(member);
    if (item.capEnable == enabled && member->data(0, Qt::UserRole).isValid())
        return;
    item.capEnable = enabled;
    setRecord(member, item);
}

const Qt::ItemFlags usable = Qt::ItemIsSelectable | Qt::ItemIsEnabled;

void paintDisabled(QTreeWidgetItem *row)
{
    paint(row, Qt::gray, (row->flags() & ~Qt::ItemIsDragEnabled) | usable);
    for (int i = 0; i < row->childCount(); ++i) {
        QTreeWidgetItem *member = row->child(i);
        writeCapEnable(member, false);
        paint(member, Qt::gray, member->flags() | usable);
    }
}

void paintEnabled(QTreeWidgetItem *row, const JEX::SignalItem &item)
{
    paint(row, item.auxFlag ? Qt::black : Qt::red, Qt::ItemIsDragEnabled | usable);
    const int count = qMin(row->childCount(), item.members.size());
    for (int i = 0; i < count; ++i) {
        QTreeWidgetItem *member = row->child(i);
        const bool good = item.members.at(i).auxFlag;
        if (good)
            writeCapEnable(member, true);
        paint(member, good ? Qt::black : Qt::red, member->flags() | usable);
    }
}

} // namespace

JEX::SignalItem recordOf(const QTreeWidgetItem *row)
{
    const QVariant data = row->data(0, Qt::UserRole);
    return data.userType() == qMetaTypeId<JEX::SignalItem>() ? data.value<JEX::SignalItem>()
                                                             : JEX::SignalItem();
}

void setRecord(QTreeWidgetItem *row, const JEX::SignalItem &item)
{
    row->setData(0, Qt::UserRole, QVariant::fromValue(item));
}

void showName(QTreeWidgetItem *row, const JEX::SignalItem &item)
{
    const bool renamed = !item.alias.isEmpty();
    showText(row, renamed ? item.alias : item.name, renamed);
}

QTreeWidgetItem *makeSignalRow(const JEX::SignalItem &item, int type)
{
    QTreeWidgetItem *row = new SignalRow(type);
    setRecord(row, item);
    showName(row, item);
    QList<QTreeWidgetItem *> members;
    for (const JEX::SignalItem &member : item.members) {
        members.append(new SignalRow(type));
        showName(members.last(), member);
        if (!member.valid)
            showInvalid(members.last());
    }
    row->addChildren(members);
    if (!item.valid)
        showInvalid(row);
    return row;
}

void settleRow(QTreeWidgetItem *row)
{
    if (row->flags() & Qt::ItemIsEnabled)
        return;
    row->setFlags(row->flags() | Qt::ItemIsEnabled);
    row->setFlags(row->flags() & ~Qt::ItemIsEnabled);
}

void signal2TreeItem(QTreeWidget *tree, JEX::SignalItem item, int type)
{
    if (tree)
        tree->addTopLevelItem(makeSignalRow(item, type));
}

void signal2TreeItem(QTreeWidgetItem *parent, JEX::SignalItem item, int type)
{
    if (!parent)
        return;
    parent->addChild(makeSignalRow(item, type));
    settleRow(parent->child(parent->childCount() - 1));
}

void signal2TreeItemWithIndex(QTreeWidget *tree, JEX::SignalItem item, int index, int type)
{
    if (tree)
        tree->insertTopLevelItem(qBound(0, index, tree->topLevelItemCount()), makeSignalRow(item, type));
}

void signal2TreeItemForHierarchy(QTreeWidgetItem *parent, JEX::SignalItem item, QStringList texts, int type)
{
    if (!parent || texts.size() != item.members.size() + 1)
        return;
    QTreeWidgetItem *row = makeSignalRow(item, type);
    row->setText(0, texts.first());
    for (int i = 0; i < item.members.size(); ++i) {
        showText(row->child(i), texts.at(i + 1), false);
        setRecord(row->child(i), item.members.at(i));
    }
    parent->addChild(row);
    settleRow(row);
}

void insertSignalRows(QTreeWidget *tree, const QList<JEX::SignalItem> &items, int index, int type)
{
    if (!tree)
        return;
    QList<QTreeWidgetItem *> rows;
    for (const JEX::SignalItem &item : items)
        rows.append(makeSignalRow(item, type));
    tree->insertTopLevelItems(qBound(0, index, tree->topLevelItemCount()), rows);
}

void insertCaptureRows(QTreeWidget *tree, const QList<JEX::SignalItem> &items, int index)
{
    if (!tree)
        return;
    QList<QTreeWidgetItem *> rows;
    for (const JEX::SignalItem &item : items) {
        rows.append(makeSignalRow(item, captureRowType));
        updateCapEnable(rows.last());
    }
    tree->insertTopLevelItems(qBound(0, index, tree->topLevelItemCount()), rows);
}

void updateCapEnable(QTreeWidgetItem *row)
{
    const JEX::SignalItem item = recordOf(row);
    if (item.capEnable)
        paintEnabled(row, item);
    else
        paintDisabled(row);
}

void updateCapEnable(QTreeWidget *tree)
{
    for (int i = 0; tree && i < tree->topLevelItemCount(); ++i)
        updateCapEnable(tree->topLevelItem(i));
}

int firstDisabledRow(const QTreeWidget *tree)
{
    int index = 0;
    while (index < tree->topLevelItemCount() && recordOf(tree->topLevelItem(index)).capEnable)
        ++index;
    return index;
}

void sortEnabledFirst(QTreeWidget *tree)
{
    QList<bool> enabled;
    bool inOrder = true;
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        enabled.append(recordOf(tree->topLevelItem(i)).capEnable);
        inOrder = inOrder && (i == 0 || enabled.at(i - 1) || !enabled.at(i));
    }
    if (inOrder)
        return;
    RowEdit edit(tree);
    edit.reorder(enabledFirstOrder(enabled));
    for (QTreeWidgetItem *row : edit.rows)
        updateCapEnable(row);
}

QList<JEX::SignalItem> selectedRecords(const QTreeWidget *tree)
{
    QList<JEX::SignalItem> records;
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *row = tree->topLevelItem(i);
        const JEX::SignalItem record = recordOf(row);
        if (row->isSelected())
            records.append(record);
        for (int k = 0; k < row->childCount() && !row->isSelected(); ++k) {
            if (row->child(k)->isSelected() && k < record.members.size())
                records.append(record.members.at(k));
        }
    }
    return records;
}

QList<JEX::SignalItem> topLevelRecords(const QTreeWidget *tree)
{
    QList<JEX::SignalItem> records;
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        records.append(recordOf(tree->topLevelItem(i)));
    return records;
}

bool canRemoveRows(const QTreeWidget *tree)
{
    const QList<QTreeWidgetItem *> selected = tree->selectedItems();
    for (const QTreeWidgetItem *row : selected) {
        if (row->parent())
            return false;
    }
    return !selected.isEmpty();
}

bool removeChosenRows(QTreeWidget *tree)
{
    QList<QTreeWidgetItem *> leaving;
    for (QTreeWidgetItem *row : tree->selectedItems()) {
        if (!row->parent())
            leaving.append(row);
    }
    if (!leaving.isEmpty())
        RowEdit(tree).remove(leaving);
    return !leaving.isEmpty();
}

} // namespace RTLJEX
