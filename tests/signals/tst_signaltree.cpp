#include <QtTest>

#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QVBoxLayout>

#include "signals/signalrows.h"
#include "signals/signaltreewidget.h"
#include "tests/signals/rowtext.h"
#include "tests/signals/signaltext.h"

using namespace RTLJEX;
using JEX::SignalItem;

namespace {

// A capture tree and what it reported.
struct Fixture
{
    explicit Fixture(const char *rows)
        : dragged(&tree, SIGNAL(itemDragged())), changed(&tree, SIGNAL(CapSignalChange()))
    {
        tree.setHeaderHidden(true);
        insertCaptureRows(&tree, signalsFromText(rows), 0);
        tree.resize(300, 400);
        tree.show();
        (void)QTest::qWaitForWindowExposed(&tree);
    }

    QTreeWidgetItem *row(const QString &name)
    {
        const QList<QTreeWidgetItem *> found = tree.findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? nullptr : found.first();
    }

    void select(const QString &names)
    {
        tree.clearSelection();
        for (const QString &name : names.split(' ', Qt::SkipEmptyParts)) {
            tree.setCurrentItem(row(name), 0, QItemSelectionModel::NoUpdate);
            row(name)->setSelected(true);
        }
    }

    QString records() const
    {
        QList<SignalItem> items;
        for (int i = 0; i < tree.topLevelItemCount(); ++i)
            items.append(recordOf(tree.topLevelItem(i)));
        return toText(items);
    }

    QString reports() const
    {
        return QString("%1 dragged %2 changed").arg(dragged.count()).arg(changed.count());
    }

    QLineEdit *editor() { return tree.viewport()->findChild<QLineEdit *>(); }

    signalTreeWidget tree;
    QSignalSpy dragged;
    QSignalSpy changed;
};

QMenu *openMenu(Fixture &f)
{
    QTest::mouseClick(f.tree.viewport(), Qt::RightButton, Qt::NoModifier, QPoint(20, 200));
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}

QString enabledActions(const QMenu *menu)
{
    QStringList names;
    for (const QAction *action : menu->actions())
        names.append(action->isEnabled() ? action->text() : "-");
    return names.join(", ");
}

} // namespace

class TestSignalTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void menuActions_data();
    void menuActions();
    void theMenuCanBeTurnedOff();
    void theMenuKeyOpensTheMenu();
    void anActionOfTheMenuWorks();
    void aTreeMayDieUnderItsMenu();
    void edits_data();
    void edits();
    void selectionOrderNamesTheGroup();
    void reversing();
    void renaming_data();
    void renaming();
    void renamingKeysStayInTheRow();
    void aRowMayGoWhileItIsRenamed();
    void counting();
};

void TestSignalTree::menuActions_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("actions");
    QTest::newRow("nothing") << ""
                             << "-, -, -, -, -, -, -";
    QTest::newRow("single") << "clk"
                            << "-, -, Rename, Restore Original Name, -, -, Disable";
    QTest::newRow("bus") << "a[1:0]"
                         << "Ungroup, -, Rename, Restore Original Name, Reverse, -, Disable";
    QTest::newRow("two enabled") << "clk a[1:0]"
                                 << "Ungroup, Group, -, Restore Original Name, -, -, Disable";
    QTest::newRow("two disabled") << "off off2"
                                  << "-, Group, -, Restore Original Name, -, Enable, -";
    QTest::newRow("both kinds") << "clk off"
                                << "-, -, -, Restore Original Name, -, Enable, Disable";
    QTest::newRow("member") << "a[0]"
                            << "-, -, Rename, Restore Original Name, -, -, Disable";
    QTest::newRow("member of a disabled bus") << "b[0]"
                                              << "-, -, Rename, Restore Original Name, -, Enable, -";
    QTest::newRow("member and row") << "a[0] clk"
                                    << "-, -, -, Restore Original Name, -, -, Disable";
}

void TestSignalTree::menuActions()
{
    QFETCH(QString, chosen);
    Fixture f("s:clk b:a[1:0]{a[1],a[0]} !s:off !s:off2 !b:b[1:0]{!b[1],!b[0]}");
    f.select(chosen);
    const QString before = rowText(&f.tree);
    QMenu *menu = openMenu(f);
    QVERIFY(menu);
    QTEST(enabledActions(menu), "actions");
    QCOMPARE(rowText(&f.tree), before);
    menu->close();
}

void TestSignalTree::theMenuCanBeTurnedOff()
{
    Fixture f("s:clk");
    QVERIFY(f.tree.contextMenuEnabled);
    f.tree.contextMenuEnabled = false;
    QVERIFY(!openMenu(f));
    f.tree.contextMenuEnabled = true;
    QTest::mouseClick(f.tree.viewport(), Qt::MiddleButton, Qt::NoModifier, QPoint(20, 10));
    QVERIFY(!QApplication::activePopupWidget());
    QVERIFY(f.tree.selectedItems().isEmpty());
}

void TestSignalTree::theMenuKeyOpensTheMenu()
{
    Fixture f("s:clk");
    f.select("clk");
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(f.tree.viewport(), &key);
    QVERIFY(QApplication::activePopupWidget());
    QApplication::activePopupWidget()->close();
}

void TestSignalTree::anActionOfTheMenuWorks()
{
    Fixture f("b:a[1] b:a[0] s:clk");
    f.select("a[1] a[0]");
    QPointer<QMenu> menu = openMenu(f);
    QVERIFY(menu);
    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                      menu->actionGeometry(menu->actions().at(1)).center());
    QCOMPARE(f.records(), QString("g:a[1:0]{a[1],a[0]} s:clk"));
    QTRY_VERIFY(!menu);
}

void TestSignalTree::aTreeMayDieUnderItsMenu()
{
    signalTreeWidget *tree = new signalTreeWidget;
    tree->show();
    QTest::mouseClick(tree->viewport(), Qt::RightButton);
    const QPointer<QWidget> menu = QApplication::activePopupWidget();
    QVERIFY(menu);
    delete tree;
    QVERIFY(!menu);
}

void TestSignalTree::edits_data()
{
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QString>("records");
    QTest::addColumn<QString>("reports");
    const QString moved = "1 dragged 0 changed";
    const QString captured = "1 dragged 1 changed";
    QTest::newRow("group: at the first selected row")
        << "s:c b:a[1] s:d b:a[0]"
        << "a[1] a[0]" << QByteArray("onMerge") << "s:c g:a[1:0]{a[1],a[0]} s:d" << moved;
    QTest::newRow("group: numbered, with the members of buses")
        << "g:group_0[0:0]{s:x} b:a[1:0]{a[1],a[0]} s:clk"
        << "a[1:0] clk" << QByteArray("onMerge") << "g:group_0[0:0]{s:x} g:group_1[2:0]{a[1],a[0],s:clk}"
        << moved;
    QTest::newRow("group: numbers are read from names, not from what is shown")
        << "s:x=group_0[1:0] g:group_0[0:0]=mine{s:y} s:c s:d"
        << "c d" << QByteArray("onMerge")
        << "s:x=group_0[1:0] g:group_0[0:0]=mine{s:y} g:group_1[1:0]{s:c,s:d}" << moved;
    QTest::newRow("group: disabled") << "s:a !s:c !s:d"
                                     << "c d" << QByteArray("onMerge") << "s:a !g:group_0[1:0]{!s:c,!s:d}"
                                     << moved;
    QTest::newRow("group: what is shown counts")
        << "b:a[1]=n[0] b:a[0]=n[1]"
        << "n[0] n[1]" << QByteArray("onMerge") << "g:n[0:1]{a[1]=n[0],a[0]=n[1]}" << moved;
    QTest::newRow("ungroup: members as stored, at the first selected row")
        << "s:a s:b b:c[1:0]{c[1]=C,!c[0]} s:d g:group_0[0:0]{s:x}"
        << "group_0[0:0] b c[1:0]" << QByteArray("onSplit") << "s:a s:x b:c[1]=C !b:c[0] s:b s:d" << moved;
    QTest::newRow("disable: to the end, as selected")
        << "s:a b:b{x} s:c !s:d"
        << "c b d" << QByteArray("onDisable") << "s:a !s:d !s:c !b:b{!x}" << captured;
    QTest::newRow("disable: members alone do nothing") << "b:b{x}"
                                                       << "x" << QByteArray("onDisable") << "b:b{x}"
                                                       << "0 dragged 0 changed";
    QTest::newRow("enable: behind the enabled, as selected")
        << "s:a !s:b !b:c{!x} !s:d"
        << "d c" << QByteArray("onEnable") << "s:a s:d b:c{x} !s:b" << captured;
    QTest::newRow("restore: rows and members")
        << "s:a=A b:b=B{x=X,y=Y}"
        << "A B Y" << QByteArray("onRestoreOrgName") << "s:a b:b{x=X,y}" << moved;
}

void TestSignalTree::edits()
{
    QFETCH(QString, rows);
    QFETCH(QString, chosen);
    QFETCH(QByteArray, slot);
    Fixture f(rows.toLatin1());
    f.select(chosen);
    QVERIFY(QMetaObject::invokeMethod(&f.tree, slot));
    QTEST(f.records(), "records");
    QTEST(f.reports(), "reports");
    // The rows look as rows of these records do.
    signalTreeWidget fresh;
    insertCaptureRows(&fresh, signalsFromText(f.records()), 0);
    f.tree.collapseAll();
    f.tree.clearSelection();
    f.tree.setCurrentItem(nullptr);
    QCOMPARE(rowText(&f.tree), rowText(&fresh));
}

void TestSignalTree::selectionOrderNamesTheGroup()
{
    Fixture f("b:a[0] b:a[1]");
    f.select("a[1] a[0]");
    QString name;
    QVERIFY(!f.tree.getGroupBusName(name));
    QCOMPARE(name, QString("a[1:0]"));
    f.select("a[0] a[1]");
    f.tree.onMerge();
    QCOMPARE(rowText(&f.tree), expected(R"(
        a[0:1] black sed * @
          a[0] black sedDc
          a[1] black sedDc)"));
    f.select("");
    QVERIFY(f.tree.getGroupBusName(name));
    QCOMPARE(name, QString("group_0"));
}

void TestSignalTree::reversing()
{
    Fixture f("s:clk b:a[2:0]=bus{a[2],^a[1],^a[0]}");
    f.select("bus");
    f.row("bus")->setExpanded(true);
    f.tree.onReverse();
    QCOMPARE(f.records(), QString("s:clk b:a[2:0]=bus{^b:a[0],^b:a[1],a[2]}").replace("^b:", "^"));
    QCOMPARE(rowText(&f.tree), expected(R"(
        clk black sed
        bus/i black sed > * @
          a[0] red sedDc
          a[1] red sedDc
          a[2] black sedDc)"));
    f.select("clk");
    f.tree.onReverse();
    QCOMPARE(f.reports(), QString("1 dragged 0 changed"));
}

void TestSignalTree::renaming_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("records");
    QTest::addColumn<int>("dragged");
    const QString unchanged = "s:clk b:a[1:0]=bus{a[1],a[0]=low}";
    QTest::newRow("alias") << "clk"
                           << "C k" << int(Qt::Key_Return) << "s:clk=C k b:a[1:0]=bus{a[1],a[0]=low}" << 1;
    QTest::newRow("keypad") << "clk"
                            << "C" << int(Qt::Key_Enter) << "s:clk=C b:a[1:0]=bus{a[1],a[0]=low}" << 1;
    QTest::newRow("own name") << "bus"
                              << "a[1:0]" << int(Qt::Key_Return) << "s:clk b:a[1:0]{a[1],a[0]=low}" << 1;
    QTest::newRow("member") << "a[1]"
                            << "h" << int(Qt::Key_Return) << "s:clk b:a[1:0]=bus{a[1]=h,a[0]=low}" << 1;
    QTest::newRow("member's own name")
        << "low"
        << "a[0]" << int(Qt::Key_Return) << "s:clk b:a[1:0]=bus{a[1],a[0]}" << 1;
    QTest::newRow("leaving the row") << "clk"
                                     << "C" << int(Qt::Key_Tab) << "s:clk=C b:a[1:0]=bus{a[1],a[0]=low}" << 1;
    QTest::newRow("empty") << "clk"
                           << "" << int(Qt::Key_Return) << unchanged << 0;
    QTest::newRow("unchanged") << "bus"
                               << "bus" << int(Qt::Key_Return) << unchanged << 0;
    QTest::newRow("escape") << "clk"
                            << "C" << int(Qt::Key_Escape) << unchanged << 0;
}

void TestSignalTree::renaming()
{
    QFETCH(QString, row);
    QFETCH(QString, typed);
    QFETCH(int, key);
    Fixture f("s:clk b:a[1:0]=bus{a[1],a[0]=low}");
    f.tree.expandAll();
    f.tree.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&f.tree));
    f.select(row);
    f.tree.setFocus();
    QTest::keyClick(&f.tree, Qt::Key_F2);
    QLineEdit *editor = f.editor();
    QVERIFY(editor);
    QVERIFY(editor->hasFocus());
    QCOMPARE(editor->selectedText(), row);
    QTest::keyClick(editor, Qt::Key_Delete);
    QTest::keyClicks(editor, typed);
    QTest::keyClick(editor, Qt::Key(key));
    QTEST(f.records(), "records");
    QTEST(f.dragged.count(), "dragged");
    QTRY_VERIFY(!f.editor());
    signalTreeWidget fresh;
    insertCaptureRows(&fresh, {recordOf(f.tree.topLevelItem(0)), recordOf(f.tree.topLevelItem(1))}, 0);
    f.tree.collapseAll();
    f.tree.clearSelection();
    f.tree.setCurrentItem(nullptr);
    QCOMPARE(rowText(&f.tree), rowText(&fresh));
}

void TestSignalTree::renamingKeysStayInTheRow()
{
    QDialog dialog;
    QVBoxLayout layout(&dialog);
    signalTreeWidget tree;
    layout.addWidget(&tree);
    insertCaptureRows(&tree, signalsFromText("s:a"), 0);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    for (Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        tree.setCurrentItem(tree.topLevelItem(0));
        tree.onChangeName();
        QTest::keyClick(dialog.focusWidget(), key);
        QVERIFY(dialog.isVisible());
        QVERIFY(tree.hasFocus());
    }
}

void TestSignalTree::aRowMayGoWhileItIsRenamed()
{
    Fixture f("s:a b:b{x} s:c");
    f.tree.expandAll();
    for (const char *name : {"a", "x"}) {
        f.select(name);
        f.tree.onChangeName();
        f.editor()->setText("new");
        delete f.tree.takeTopLevelItem(0);
        QTRY_VERIFY(!f.editor());
    }
    f.select("c");
    f.tree.onChangeName();
    f.editor()->setText("new");
    f.tree.clear();
    QCoreApplication::processEvents();
    f.tree.finishEdit();
    QCOMPARE(f.reports(), QString("0 dragged 0 changed"));
}

void TestSignalTree::counting()
{
    Fixture f("b:a[7:0]{a[7],a[6],a[5],a[4],a[3],a[2],a[1],a[0]} s:clk !s:off !b:b{x,y}");
    QCOMPARE(f.tree.signalCount(), 9);
}

QTEST_MAIN(TestSignalTree)
#include "tst_signaltree.moc"
