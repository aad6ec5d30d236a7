#include "rowtext.h"

#include <QSet>
#include <QStringList>
#include <QTreeWidget>

namespace {

QString colourName(const QTreeWidgetItem *row)
{
    if (!row->data(0, Qt::ForegroundRole).isValid())
        return "none";
    const QBrush brush = row->foreground(0);
    for (Qt::GlobalColor known : {Qt::gray, Qt::black, Qt::red})
        if (brush == QBrush(known))
            return known == Qt::gray ? "gray" : known == Qt::black ? "black" : "red";
    return "?";
}

QString flagLetters(Qt::ItemFlags flags)
{
    QString letters;
    const QList<QPair<Qt::ItemFlag, char>> names = {{Qt::ItemIsSelectable, 's'},
                                                    {Qt::ItemIsEnabled, 'e'},
                                                    {Qt::ItemIsDragEnabled, 'd'},
                                                    {Qt::ItemIsDropEnabled, 'D'},
                                                    {Qt::ItemIsUserCheckable, 'c'}};
    for (const auto &name : names)
        if (flags & name.first)
            letters += QLatin1Char(name.second);
    return letters;
}

void add(const QTreeWidget *tree, const QSet<const QTreeWidgetItem *> &selected, const QTreeWidgetItem *row,
         int depth, QStringList &lines)
{
    lines.append(QString(2 * depth, ' ') + row->text(0) + (row->font(0).italic() ? "/i " : " ") +
                 colourName(row) + ' ' + flagLetters(row->flags()) + (row->isExpanded() ? " >" : "") +
                 (selected.contains(row) ? " *" : "") + (tree->currentItem() == row ? " @" : ""));
    for (int i = 0; i < row->childCount(); ++i)
        add(tree, selected, row->child(i), depth + 1, lines);
}

} // namespace

QString rowText(const QTreeWidget *tree)
{
    QSet<const QTreeWidgetItem *> selected;
    for (const QTreeWidgetItem *row : tree->selectedItems())
        selected.insert(row);
    QStringList lines;
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        add(tree, selected, tree->topLevelItem(i), 0, lines);
    return lines.join('\n');
}

QString rowNames(const QTreeWidget *tree)
{
    QStringList names;
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        names.append(tree->topLevelItem(i)->text(0));
    return names.join(' ');
}

QString expected(const char *drawing)
{
    QStringList lines = QString::fromUtf8(drawing).split('\n', Qt::SkipEmptyParts);
    int indent = 1000;
    for (const QString &line : lines) {
        int blanks = 0;
        while (blanks < line.size() && line.at(blanks) == ' ')
            ++blanks;
        if (blanks < line.size())
            indent = qMin(indent, blanks);
    }
    QStringList result;
    for (const QString &line : lines)
        if (!line.trimmed().isEmpty())
            result.append(line.mid(indent));
    return result.join('\n');
}
