#include "signals/signaltreewidget.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QHash>
#include <QMenu>
#include <QSet>

#include "signals/groupnames.h"
#include "signals/renameeditor.h"
#include "signals/rowedit.h"
#include "signals/roworder.h"
#include "signals/signalrows.h"
#include "signals/signalrules.h"

namespace RTLJEX {

namespace {

const int rowType = 0;

QList<QTreeWidgetItem *> topLevel(const QList<QTreeWidgetItem *> &rows)
{
    QList<QTreeWidgetItem *> result;
    for (QTreeWidgetItem *row : rows) {
        if (!row->parent())
            result.append(row);
    }
    return result;
}

QList<QTreeWidgetItem *> withMembers(const QList<QTreeWidgetItem *> &rows)
{
    QList<QTreeWidgetItem *> result;
    for (QTreeWidgetItem *row : topLevel(rows)) {
        if (row->childCount() > 0)
            result.append(row);
    }
    return result;
}

// Of a top-level row or a member.
JEX::SignalItem signalOf(const QTreeWidgetItem *row)
{
    if (!row->parent())
        return recordOf(row);
    return recordOf(row->parent())
        .members.value(row->parent()->indexOfChild(const_cast<QTreeWidgetItem *>(row)));
}

void setAlias(QTreeWidgetItem *row, const QString &alias)
{
    QTreeWidgetItem *owner = row->parent() ? row->parent() : row;
    JEX::SignalItem record = recordOf(owner);
    const int member = owner == row ? -1 : owner->indexOfChild(row);
    if (member >= record.members.size())
        return;
    JEX::SignalItem &item = member < 0 ? record : record.members[member];
    item.alias = alias;
    setRecord(owner, record);
    showName(row, item);
}

// The rule, asked about the rows of a tree.
bool canGroupRows(const QList<QTreeWidgetItem *> &rows)
{
    QList<JEX::SignalItem> records;
    for (const QTreeWidgetItem *row : rows)
        records.append(signalOf(row));
    return canGroup(records, topLevel(rows).size() < rows.size());
}

// The first of them in the order of the tree.
int lowest(const QList<QTreeWidgetItem *> &rows, const QList<QTreeWidgetItem *> &wanted)
{
    QSet<const QTreeWidgetItem *> set;
    for (const QTreeWidgetItem *row : wanted)
        set.insert(row);
    int index = 0;
    while (index < rows.size() && !set.contains(rows.at(index)))
        ++index;
    return index;
}

void updateAll(const QList<QTreeWidgetItem *> &rows)
{
    for (QTreeWidgetItem *row : rows)
        updateCapEnable(row);
}

} // namespace

signalTreeWidget::signalTreeWidget(QWidget *parent)
    : QTreeWidget(parent),
      contextMenuEnabled(true),
      m_split(addMenuAction(tr("Ungroup"), SLOT(onSplit()))),
      m_merge(addMenuAction(tr("Group"), SLOT(onMerge()))),
      m_changeName(addMenuAction(tr("Rename"), SLOT(onChangeName()))),
      m_restoreName(addMenuAction(tr("Restore Original Name"), SLOT(onRestoreOrgName()))),
      m_reverse(addMenuAction(tr("Reverse"), SLOT(onReverse()))),
      m_enable(addMenuAction(tr("Enable"), SLOT(onEnable()))),
      m_disable(addMenuAction(tr("Disable"), SLOT(onDisable())))
{
    m_changeName->setShortcut(Qt::Key_F2); // for the eye: the key is heard below
    m_changeName->setShortcutContext(Qt::WidgetShortcut);
    setSelectionMode(ExtendedSelection);
    setDragDropMode(InternalMove);
    setUniformRowHeights(true);
}

QAction *signalTreeWidget::addMenuAction(const QString &text, const char *slot)
{
    QAction *action = new QAction(text, this);
    connect(action, SIGNAL(triggered()), this, slot);
    return action;
}

int signalTreeWidget::signalCount() const
{
    int count = 0;
    for (int i = 0; i < topLevelItemCount(); ++i)
        count += captureBits(recordOf(topLevelItem(i)));
    return count;
}

bool signalTreeWidget::getGroupBusName(QString &name) const
{
    QStringList texts;
    QSet<const QTreeWidgetItem *> chosen;
    for (const QTreeWidgetItem *row : selectedItems()) {
        texts.append(row->text(0));
        chosen.insert(row);
    }
    name = busRangeName(texts);
    if (!name.isEmpty())
        return false;
    QStringList others;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        if (!chosen.contains(topLevelItem(i)))
            others.append(recordOf(topLevelItem(i)).name);
    }
    name = freeGroupName(others);
    return true;
}

void signalTreeWidget::onMerge()
{
    const QList<QTreeWidgetItem *> chosen = selectedItems();
    if (!canGroupRows(chosen))
        return;
    JEX::SignalItem group;
    for (const QTreeWidgetItem *row : chosen) {
        const JEX::SignalItem item = recordOf(row);
        if (row->childCount() > 0)
            group.members += item.members;
        else
            group.members.append(item);
    }
    for (const JEX::SignalItem &member : group.members)
        group.capEnable = group.capEnable && member.capEnable;
    if (getGroupBusName(group.name))
        group.name = groupNameWithRange(group.name, group.members.size());
    {
        RowEdit edit(this);
        const int index = lowest(edit.rows, chosen);
        edit.remove(chosen);
        edit.rows.insert(index, makeSignalRow(group, rowType));
        edit.choose(edit.rows.at(index));
        updateAll(edit.rows);
    }
    scrollToItem(currentItem());
    Q_EMIT itemDragged();
}

void signalTreeWidget::onSplit()
{
    const QList<QTreeWidgetItem *> chosen = topLevel(selectedItems());
    const QList<QTreeWidgetItem *> groups = withMembers(chosen);
    if (groups.isEmpty())
        return;
    {
        RowEdit edit(this);
        QList<QTreeWidgetItem *> members;
        for (const QTreeWidgetItem *row : groups) {
            for (const JEX::SignalItem &member : recordOf(row).members)
                members.append(makeSignalRow(member, rowType));
        }
        const int index = lowest(edit.rows, chosen);
        edit.rows = edit.rows.mid(0, index) + members + edit.rows.mid(index);
        edit.remove(groups);
        updateAll(edit.rows);
    }
    Q_EMIT itemDragged();
}

// The row that the menu was asked for is the current one; after a Ctrl+click it need not be the one that is
// still selected.
QTreeWidgetItem *signalTreeWidget::menuRow()
{
    const QList<QTreeWidgetItem *> chosen = selectedItems();
    if (chosen.size() == 1 && chosen.first() != currentItem())
        setCurrentItem(chosen.first());
    return currentItem();
}

void signalTreeWidget::onChangeName()
{
    finishEdit(); // who hears of it may make other rows
    QTreeWidgetItem *row = menuRow();
    if (!row)
        return;
    scrollToItem(row);
    m_renamed = indexFromItem(row);
    m_editor = new RenameEditor(row->text(0), viewport());
    setItemWidget(row, 0, m_editor);
    m_editor->selectAll();
    m_editor->setFocus();
    connect(m_editor, SIGNAL(editingFinished()), SLOT(finishEdit()));
}

// Comes again when the editor that is going loses the focus; there is none to finish by then.
void signalTreeWidget::finishEdit()
{
    QLineEdit *editor = m_editor;
    m_editor = nullptr;
    QTreeWidgetItem *row = itemFromIndex(m_renamed);
    if (!editor || !row)
        return;
    if (editor->hasFocus())
        setFocus();
    const QString text = editor->text();
    removeItemWidget(row, 0);
    if (text.isEmpty() || text == row->text(0))
        return;
    setAlias(row, text == signalOf(row).name ? QString() : text);
    Q_EMIT itemDragged();
}

void signalTreeWidget::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    const QModelIndex renamed = m_renamed;
    const QModelIndex owner = renamed.parent().isValid() && !parent.isValid() ? renamed.parent() : renamed;
    if (owner.isValid() && owner.parent() == parent && owner.row() >= start && owner.row() <= end)
        m_editor = nullptr; // the base class removes it, and it must not write into a row that goes
    QTreeWidget::rowsAboutToBeRemoved(parent, start, end);
}

void signalTreeWidget::onRestoreOrgName()
{
    const QList<QTreeWidgetItem *> chosen = selectedItems();
    if (chosen.isEmpty())
        return;
    for (QTreeWidgetItem *row : chosen) {
        if (!signalOf(row).alias.isEmpty())
            setAlias(row, QString());
    }
    Q_EMIT itemDragged();
}

// The member rows move along with their records, and take their colours with them.
void signalTreeWidget::onReverse()
{
    QTreeWidgetItem *row = menuRow();
    if (!row || row->parent())
        return;
    JEX::SignalItem item = recordOf(row);
    if (item.members.size() < 2)
        return;
    QList<JEX::SignalItem> reversed;
    for (const JEX::SignalItem &member : item.members)
        reversed.prepend(member);
    item.members = reversed;
    setRecord(row, item);

    const bool expanded = row->isExpanded();
    QList<QTreeWidgetItem *> members;
    for (QTreeWidgetItem *member : row->takeChildren())
        members.prepend(member);
    row->addChildren(members);
    settleRow(row);
    row->setExpanded(expanded);
    setCurrentItem(row);
    Q_EMIT itemDragged();
}

void signalTreeWidget::onEnable()
{
    setCaptured(true);
}

void signalTreeWidget::onDisable()
{
    setCaptured(false);
}

// Rows that are enabled go to the end of the enabled ones, rows that are disabled to the end of all.
void signalTreeWidget::setCaptured(bool captured)
{
    QHash<const QTreeWidgetItem *, int> positions;
    QList<bool> enabled;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        positions.insert(topLevelItem(i), i);
        enabled.append(recordOf(topLevelItem(i)).capEnable);
    }
    QList<int> changed;
    for (const QTreeWidgetItem *row : topLevel(selectedItems())) {
        if (enabled.at(positions.value(row)) != captured)
            changed.append(positions.value(row));
    }
    if (changed.isEmpty())
        return;
    {
        const QTreeWidgetItem newRow;
        RowEdit edit(this);
        for (int index : changed) {
            JEX::SignalItem item = recordOf(edit.rows.at(index));
            item.capEnable = captured;
            setBusCapEnable(item);
            setRecord(edit.rows.at(index), item);
            edit.rows.at(index)->setFlags(newRow.flags());
        }
        edit.reorder(captured ? orderAfterEnabling(enabled, changed)
                              : orderAfterMove(enabled.size(), changed, enabled.size()));
        updateAll(edit.rows);
    }
    Q_EMIT CapSignalChange();
    Q_EMIT itemDragged();
}

void signalTreeWidget::updateActions()
{
    const QList<QTreeWidgetItem *> chosen = selectedItems();
    int enabled = 0;
    for (const QTreeWidgetItem *row : chosen)
        enabled += recordOf(row).capEnable ? 1 : 0; // a member as its row is drawn
    const int count = chosen.size();
    const int buses = withMembers(chosen).size();
    m_split->setEnabled(buses >= 1);
    m_merge->setEnabled(canGroupRows(chosen));
    m_changeName->setEnabled(count == 1);
    m_restoreName->setEnabled(count >= 1);
    m_reverse->setEnabled(count == 1 && buses == 1);
    m_enable->setEnabled(enabled != count);
    m_disable->setEnabled(enabled != 0);
}

// The menu lives until it is closed; no loop is run for it, so nothing is left on the stack when the tree
// goes meanwhile.
void signalTreeWidget::showMenu(const QPoint &globalPosition)
{
    updateActions();
    QMenu *menu = new QMenu(this);
    connect(menu, SIGNAL(aboutToHide()), menu, SLOT(deleteLater()));
    for (QAction *action : {m_split, m_merge, m_changeName, m_restoreName, m_reverse, m_enable, m_disable})
        menu->addAction(action);
    menu->popup(globalPosition);
}

// The right button comes with its press; what is left is the menu key.
void signalTreeWidget::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Keyboard && contextMenuEnabled) {
        const QRect row = currentItem() ? visualItemRect(currentItem()) : QRect();
        showMenu(viewport()->mapToGlobal(viewport()->rect().intersected(row).bottomLeft()));
    }
    event->accept();
}

void signalTreeWidget::keyPressEvent(QKeyEvent *event)
{
    const bool isMove = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    if (isMove && event->modifiers() == Qt::AltModifier)
        moveRows(event->key() == Qt::Key_Up ? -1 : 1);
    else if (event->key() == Qt::Key_F2 && contextMenuEnabled && selectedItems().size() == 1)
        onChangeName();
    else
        QTreeWidget::keyPressEvent(event);
}

} // namespace RTLJEX
