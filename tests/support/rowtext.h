#pragma once

#include <QtWidgets>

namespace rowtext {

inline QString colourName(const QTreeWidgetItem *row)
{
    const QVariant brush = row->data(0, Qt::ForegroundRole);
    return !brush.isValid()                          ? "none"
           : row->foreground(0) == QBrush(Qt::gray)  ? "gray"
           : row->foreground(0) == QBrush(Qt::black) ? "black"
           : row->foreground(0) == QBrush(Qt::red)   ? "red"
                                                     : "?";
}

inline QString textOf(const QTreeWidget *tree, const QList<QTreeWidgetItem *> &selected, QTreeWidgetItem *row)
{
    QString text = row->text(0) + (row->font(0).italic() ? "/i " : " ") + colourName(row) + ' ';
    for (int bit = 0; bit < 6; ++bit) {
        if (row->flags() & (1 << bit))
            text += "swdDce"[bit];
    }
    text += QString(row->isExpanded() ? " >" : "") + (selected.contains(row) ? " *" : "") +
            (tree->currentItem() == row ? " @" : "");
    QStringList members;
    for (int i = 0; i < row->childCount(); ++i)
        members.append(textOf(tree, selected, row->child(i)));
    return text + (members.isEmpty() ? "" : " {" + members.join(", ") + "}");
}

} // namespace rowtext

// The rows of a tree as text, a line each, members in braces: text, "/i" when italic, then the foreground
// (none, gray, black, red), then the flags: s selectable, w editable, d drag, D drop, c checkable,
// e enabled; " >" when expanded, " *" when selected, " @" when current.
inline QString rowText(const QTreeWidget *tree)
{
    QStringList lines;
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        lines.append(rowtext::textOf(tree, tree->selectedItems(), tree->topLevelItem(i)));
    return lines.join('\n');
}

// The rows below another one, or those of the top level, their texts joined by blanks.
inline QString rowNames(const QTreeWidgetItem *parent)
{
    QStringList names;
    for (int i = 0; i < parent->childCount(); ++i)
        names.append(parent->child(i)->text(0));
    return names.join(' ');
}
inline QString rowNames(const QTreeWidget *tree)
{
    return rowNames(tree->invisibleRootItem());
}

// The row with that text, at any level; none when there are several.
inline QTreeWidgetItem *rowNamed(const QTreeWidget *tree, const QString &text)
{
    const auto rows = tree->findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
    return rows.size() == 1 ? rows.first() : nullptr;
}
