#include "signals/signalrows.h"
#include "signals/signaltreewidget.h"
#include "tests/support/rowtext.h"
#include "tests/support/signaltext.h"
#include "tests/support/tablerow.h"

using namespace RTLJEX;

namespace {

QString at(const QPoint &global)
{
    return QString("mousemove %1 %2 ").arg(global.x()).arg(global.y());
}

// The place for a row to be dropped at: a share of its height from its top.
QPoint placeIn(const signalTreeWidget &tree, const QString &name, double share)
{
    const QRect rect = tree.visualItemRect(rowNamed(&tree, name));
    return tree.viewport()->mapToGlobal(QPoint(60, rect.top() + int(share * rect.height())));
}

// Gives the exit code of the mouse.
int drag(const QPoint &from, const QPoint &to)
{
    QProcess mouse;
    const QPoint near = from + QPoint(0, from.y() < to.y() ? 15 : -15);
    const QString script = at(from) + "mousedown 1 sleep 0.05 " + at(near) + "sleep 0.05 " + at(to) +
                           "sleep 0.05 " + at(to + QPoint(1, 0)) + "sleep 0.2 mouseup 1 sleep 0.1";
    mouse.start("xdotool", script.split(' '));
    const bool done = QTest::qWaitFor([&] { return mouse.state() == QProcess::NotRunning; }, 10000);
    QTest::qWait(100);
    return done ? mouse.exitCode() : -1;
}

} // namespace

// Drags with a mouse that the X server believes in: the drag loop takes its events from there.
class SignalDragTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dragging_data()
    {
        textColumns("chosen", "over"); // empty: below all rows
        QTest::addColumn<double>("share");
        textColumns("rows", "result"); // what the tree starts with
        const QString rows = "s:a b:b{x,y} s:c s:d !s:e";
        const QString enabled = "s:a s:b s:c";
        row("upper half", "d", "b", 0.2, rows, "a d b c e");
        row("lower half", "a", "c", 0.8, rows, "b c a d e");
        row("several, in tree order", "d b", "a", 0.2, rows, "b d a c e");
        row("a member stays", "x c", "a", 0.2, rows, "c a b d e");
        row("onto a disabled row", "a", "e", 0.2, rows, "a b c d e");
        row("onto a member", "d", "x", 0.2, rows, "a b c d e");
        row("onto a selected row", "d a", "d", 0.8, rows, "a b c d e");
        row("below, the last row disabled", "a", "", 0.0, rows, "a b c d e");
        row("below", "b a", "", 0.0, enabled, "c a b");
        row("a disabled row", "e", "a", 0.2, rows, "a b c d e");
    }
    void dragging()
    {
        auto [chosen, over, share, rows, result] =
            cells<QString, QString, double, QString, QString>("chosen", "over", "share", "rows", "result");
        QWidget window;
        QVBoxLayout layout(&window);
        signalTreeWidget tree;
        layout.addWidget(&tree);
        tree.setHeaderHidden(true);
        tree.setStyleSheet("QTreeWidget::item { height: 20px;}");
        window.setGeometry(100, 100, 300, 400);
        insertCaptureRows(&tree, signalsFromText(rows), 0);
        tree.expandAll();
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));

        const QStringList names = chosen.split(' ');
        for (const QString &name : names)
            rowNamed(&tree, name)->setSelected(true);
        const int selected = tree.selectedItems().size();
        const QString before = rowNames(&tree);
        tree.topLevelItem(0)->setForeground(0, QBrush(Qt::blue)); // a drop ends in the right colours
        QSignalSpy dragged(&tree, SIGNAL(itemDragged()));
        const QPoint from = placeIn(tree, names.last(), 0.5);
        const QPoint to =
            over.isEmpty() ? tree.viewport()->mapToGlobal(QPoint(60, 300)) : placeIn(tree, over, share);
        QCOMPARE(drag(from, to), 0);

        QCOMPARE(rowNames(&tree), result);
        QCOMPARE(dragged.count(), rowNames(&tree) == before ? 0 : 1);
        if (chosen != "e") { // there the mouse selects, as no drag begins
            QCOMPARE(tree.selectedItems().size(), selected);
            QVERIFY(!rowText(&tree).contains('?'));
        }
        for (int i = 0; i < tree.topLevelItemCount(); ++i)
            QVERIFY(tree.topLevelItem(i)->isExpanded() || tree.topLevelItem(i)->childCount() == 0);
    }
};

QTEST_MAIN(SignalDragTest)
#include "tst_signaldrag.moc"
