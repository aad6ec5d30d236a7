#include "bench/bench.h"
#include "bench/context.h"
#include "netselect/jexsignalselectdialog.h"

#include <QCoreApplication>
#include <QPushButton>
#include <QTreeWidget>

using namespace RTLJEX;

namespace {

int rowCount(const QTreeWidget *tree)
{
    int count = tree->topLevelItemCount();
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        count += tree->topLevelItem(i)->childCount();
    return count;
}

// Rows with one variant each, built and then given to the tree at once.
void fillPlainly(QTreeWidget *tree, int count, const QString &text)
{
    QList<QTreeWidgetItem *> rows;
    rows.reserve(count);
    for (int i = 0; i < count; ++i) {
        rows.append(new QTreeWidgetItem);
        rows.last()->setData(0, Qt::DisplayRole, text);
    }
    tree->addTopLevelItems(rows);
    tree->doItemsLayout();
}

} // namespace

void measureResultTree(Context &context)
{
    JexSignalSelectDialog dialog(context.netlist.get());
    dialog.show();
    QTreeWidget *tree = dialog.findChild<QTreeWidget *>(QStringLiteral("treeWidget"));
    QPushButton *button = dialog.findChild<QPushButton *>(QStringLiteral("pushButtonSearch"));
    button->click();
    tree->doItemsLayout();
    const int count = rowCount(tree);

    QTreeWidget plain;
    plain.setUniformRowHeights(true);
    plain.resize(tree->size());
    plain.show();
    const QString text = context.netlist->topHierarchy->nets.first()->fullPathName();
    Times filling;
    for (int run = 0; run < 3; ++run) {
        tree->clear();
        plain.clear();
        const Times both = inTurn(
            1,
            [&] {
                button->click();
                tree->doItemsLayout();
            },
            [&] { fillPlainly(&plain, count, text); });
        filling.figure = run == 0 ? both.figure : qMin(filling.figure, both.figure);
        filling.limit = run == 0 ? both.limit : qMin(filling.limit, both.limit);
    }
    print({QStringLiteral("Search result of %1 rows, filled and laid out | bare tree").arg(count),
           filling.figure, filling.limit, 0.8, "ms"});

    const int selectable = tree->topLevelItemCount();
    int collected = 0;
    double selecting = 0;
    for (int run = 0; run < 5; ++run) {
        tree->clearSelection();
        const double time = fastest(1, [&] {
            tree->selectAll();
            collected = dialog.getSelectedNets().size();
        });
        selecting = run == 0 ? time : qMin(selecting, time);
    }
    if (collected != selectable)
        qFatal("%d records of %d selected rows", collected, selectable);
    print({QStringLiteral("Selecting %1 rows, collecting the records, a row").arg(selectable),
           selecting * 1e3 / selectable, 0, 0.4, "us"});
}
