#include "signals/signalrows.h"
#include "signals/signaltreewidget.h"
#include "tests/support/rowtext.h"
#include "tests/support/signaltext.h"
#include "tests/support/tablerow.h"

using namespace RTLJEX;

namespace {

// A capture tree and what it reported.
struct Fixture
{
    explicit Fixture(const QString &rows)
        : dragged(&tree, SIGNAL(itemDragged())), changed(&tree, SIGNAL(CapSignalChange()))
    {
        QObject::connect(&tree, &signalTreeWidget::itemDragged, [this] { order += 'd'; });
        QObject::connect(&tree, &signalTreeWidget::CapSignalChange, [this] { order += 'c'; });
        insertCaptureRows(&tree, signalsFromText(rows), 0);
        tree.setHeaderHidden(true);
        tree.resize(300, 400);
        tree.show();
        (void)QTest::qWaitForWindowActive(&tree);
    }

    void select(const QString &names)
    {
        tree.clearSelection();
        for (const QString &name : names.split(' ', Qt::SkipEmptyParts)) {
            QTreeWidgetItem *row = rowNamed(&tree, name);
            tree.setCurrentItem(row, 0, QItemSelectionModel::NoUpdate);
            row->setSelected(true);
        }
    }

    QMenu *openMenu(Qt::MouseButton button = Qt::RightButton)
    {
        QTest::mouseClick(tree.viewport(), button, Qt::NoModifier, QPoint(20, 200));
        return qobject_cast<QMenu *>(QApplication::activePopupWidget());
    }

    QLineEdit *editor() { return tree.viewport()->findChild<QLineEdit *>(); }
    QString records() const { return toText(topLevelRecords(&tree)); }
    QString reports() const
    {
        return QString("%1 dragged %2 changed").arg(dragged.count()).arg(changed.count());
    }

    // As they look in a tree that is made of these records.
    void compareRowsWithRecords()
    {
        signalTreeWidget fresh;
        insertCaptureRows(&fresh, topLevelRecords(&tree), 0);
        tree.collapseAll();
        tree.clearSelection();
        tree.setCurrentItem(nullptr);
        QCOMPARE(rowText(&tree), rowText(&fresh));
    }

    signalTreeWidget tree;
    QSignalSpy dragged;
    QSignalSpy changed;
    QString order; // of the reports
};

} // namespace

class SignalTreeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void menuActions_data()
    {
        textColumns("chosen", "actions");
        row("nothing", "", "-, -, -, -, -, -, -");
        row("single", "clk", "-, -, Rename, Restore Original Name, -, -, Disable");
        row("bus", "a[1:0]", "Ungroup, -, Rename, Restore Original Name, Reverse, -, Disable");
        row("two enabled", "clk a[1:0]", "Ungroup, Group, -, Restore Original Name, -, -, Disable");
        row("two disabled", "off off2", "-, Group, -, Restore Original Name, -, Enable, -");
        row("both kinds", "clk off", "-, -, -, Restore Original Name, -, Enable, Disable");
        row("member", "a[0]", "-, -, Rename, Restore Original Name, -, -, Disable");
        row("member of a disabled bus", "b[0]", "-, -, Rename, Restore Original Name, -, Enable, -");
        row("member and row", "a[0] clk", "-, -, -, Restore Original Name, -, -, Disable");
    }
    void menuActions()
    {
        QFETCH(QString, chosen);
        Fixture f("s:clk b:a[1:0]{a[1],!a[0]} !s:off !s:off2 !b:b[1:0]{!b[1],b[0]}"); // rows as they show
        QCOMPARE(f.tree.signalCount(), 3);
        f.select(chosen);
        const QString before = rowText(&f.tree);
        QMenu *menu = f.openMenu();
        QVERIFY(menu);
        QStringList names;
        for (const QAction *action : menu->actions())
            names.append(action->isEnabled() ? action->text() : "-");
        QTEST(names.join(", "), "actions");
        QCOMPARE(rowText(&f.tree), before);
        menu->close();
        // What the menu does not offer is not done either.
        f.tree.onMerge();
        QCOMPARE(rowText(&f.tree) != before, names.contains("Group"));
    }

    void theMenuOpensAndActs()
    {
        QScopedPointer<Fixture> f(new Fixture("b:a[1] b:a[0] s:clk"));
        f->select("a[1] a[0]");
        QVERIFY(!f->openMenu(Qt::MiddleButton));
        f->tree.contextMenuEnabled = false;
        QVERIFY(!f->openMenu());
        f->tree.contextMenuEnabled = true;
        QPointer<QMenu> menu = f->openMenu();
        QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                          menu->actionGeometry(menu->actions().at(1)).center());
        QCOMPARE(f->records(), QString("g:a[1:0]{a[1],a[0]} s:clk"));
        QTRY_VERIFY(!menu);

        QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QApplication::sendEvent(f->tree.viewport(), &key);
        menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        f.reset(); // a page can be closed under its menu
        QVERIFY(!menu);
    }

    void pressesOfNoUseAreLeftToOthers()
    {
        struct Tree : signalTreeWidget
        {
            using signalTreeWidget::mousePressEvent;
        } tree;
        for (const bool hasMenu : {true, false}) {
            tree.contextMenuEnabled = hasMenu;
            const Qt::MouseButton button = hasMenu ? Qt::MiddleButton : Qt::RightButton;
            QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), button, button, Qt::NoModifier);
            tree.mousePressEvent(&press);
            QVERIFY(!press.isAccepted());
        }
    }

    void edits_data()
    {
        textColumns("rows", "chosen", "slot", "records");
        row("first selected row", "s:c b:a[1] s:d b:a[0]", "a[1] a[0]", "onMerge",
            "s:c g:a[1:0]{a[1],a[0]} s:d");
        row("members of buses", "g:group_0[0:0]{s:x} b:A{a1,a0} s:clk", "A clk", "onMerge",
            "g:group_0[0:0]{s:x} g:group_1[2:0]{a1,a0,s:clk}");
        row("numbers from names, not from what is shown", "s:x=group_0[1:0] g:group_0[0:0]=mine{s:y} s:c s:d",
            "c d", "onMerge", "s:x=group_0[1:0] g:group_0[0:0]=mine{s:y} g:group_1[1:0]{s:c,s:d}");
        row("disabled group", "s:a !s:c !s:d", "c d", "onMerge", "s:a !g:group_0[1:0]{!s:c,!s:d}");
        row("what is shown counts", "b:a[1]=n[0] b:a[0]=n[1]", "n[0] n[1]", "onMerge",
            "g:n[0:1]{a[1]=n[0],a[0]=n[1]}");
        row("members as stored", "s:a s:b b:C{c1=C1,!c0} s:d g:G{s:x}", "G b C", "onSplit",
            "s:a s:x b:c1=C1 !b:c0 s:b s:d");
        row("to the end, as selected", "s:a b:b{x} s:c !s:d", "c b d", "onDisable", "s:a !s:d !s:c !b:b{!x}");
        row("behind the enabled, as selected", "s:a !s:b !b:c{!x} !s:d", "d c", "onEnable",
            "s:a s:d b:c{x} !s:b");
        row("rows and members", "s:a=A b:b=B{x=X,y=Y}", "A B Y", "onRestoreOrgName", "s:a b:b{x=X,y}");
    }
    void edits()
    {
        auto [rows, chosen, slot] = textCells("rows", "chosen", "slot");
        Fixture f(rows);
        f.select(chosen);
        QVERIFY(QMetaObject::invokeMethod(&f.tree, slot.toLatin1()));
        QTEST(f.records(), "records");
        QCOMPARE(f.order, QString(slot.endsWith("able") ? "cd" : "d"));
        f.compareRowsWithRecords();
    }

    void selectionOrderNamesTheGroup()
    {
        Fixture f("b:a[0] b:a[1]");
        QString name;
        QVERIFY(f.tree.getGroupBusName(name));
        QCOMPARE(name, QString("group_0"));
        f.select("a[0] a[1]");
        QVERIFY(!f.tree.getGroupBusName(name));
        QCOMPARE(name, QString("a[0:1]"));
        f.select("a[1] a[0]");
        f.tree.onMerge();
        QCOMPARE(rowText(&f.tree), QString("a[1:0] black sde * @ {a[1] black sdDce, a[0] black sdDce}"));
    }

    void newGroupsAreSeen()
    {
        Fixture f(QString("s:n ").repeated(60) + "s:x s:y");
        f.select("x y");
        f.tree.scrollToTop();
        f.tree.onMerge();
        const QRect row = f.tree.visualItemRect(f.tree.topLevelItem(60));
        QVERIFY(!row.isEmpty());
        QVERIFY(f.tree.viewport()->rect().contains(row));
    }

    void reversing()
    {
        Fixture f("s:clk b:a[2:0]=bus{a[2],^a[1],^a[0]}");
        f.select("bus");
        f.tree.topLevelItem(1)->setExpanded(true);
        f.tree.onReverse();
        QCOMPARE(f.records(), QString("s:clk b:a[2:0]=bus{^a[0],^a[1],a[2]}"));
        QCOMPARE(rowText(&f.tree),
                 QString("clk black sde\n"
                         "bus/i black sde > * @ {a[0] red sdDce, a[1] red sdDce, a[2] black sdDce}"));
        f.select("clk");
        f.tree.onReverse();
        QCOMPARE(f.reports(), QString("1 dragged 0 changed"));
    }

    void renaming_data()
    {
        textColumns("name", "typed");
        columns<int, QString>("key", "records");
        const QString unchanged = "s:clk b:a[1:0]=bus{a[1],a[0]=low}";
        row("alias", "clk", "C k", int(Qt::Key_Return), "s:clk=C k b:a[1:0]=bus{a[1],a[0]=low}");
        row("keypad", "clk", "C", int(Qt::Key_Enter), "s:clk=C b:a[1:0]=bus{a[1],a[0]=low}");
        row("own name", "bus", "a[1:0]", int(Qt::Key_Return), "s:clk b:a[1:0]{a[1],a[0]=low}");
        row("member", "a[1]", "h", int(Qt::Key_Return), "s:clk b:a[1:0]=bus{a[1]=h,a[0]=low}");
        row("member's own name", "low", "a[0]", int(Qt::Key_Return), "s:clk b:a[1:0]=bus{a[1],a[0]}");
        row("leaving the row", "clk", "C", int(Qt::Key_Tab), "s:clk=C b:a[1:0]=bus{a[1],a[0]=low}");
        row("empty", "clk", "", int(Qt::Key_Return), unchanged);
        row("unchanged", "bus", "bus", int(Qt::Key_Return), unchanged);
        row("escape", "clk", "C", int(Qt::Key_Escape), unchanged);
    }
    void renaming()
    {
        auto [name, typed, key] = cells<QString, QString, int>("name", "typed", "key");
        Fixture f("s:clk b:a[1:0]=bus{a[1],a[0]=low}");
        const QString before = f.records();
        f.tree.expandAll();
        f.select(name);
        f.tree.setFocus();
        QTest::keyClick(&f.tree, Qt::Key_F2);
        QLineEdit *editor = f.editor();
        QVERIFY(editor);
        QVERIFY(editor->hasFocus());
        QCOMPARE(editor->selectedText(), name);
        QTest::keyClick(editor, Qt::Key_Delete);
        QTest::keyClicks(editor, typed);
        QTest::keyClick(editor, Qt::Key(key));
        QTEST(f.records(), "records");
        QCOMPARE(f.dragged.count(), f.records() == before ? 0 : 1);
        QTRY_VERIFY(!f.editor());
        f.compareRowsWithRecords();
    }

    void anotherRowIsRenamedMeanwhile()
    {
        Fixture f("s:a s:b s:c");
        f.select("a");
        f.tree.onChangeName();
        f.editor()->setText("A");
        f.select("b"); // the current one by now
        f.tree.onChangeName();
        QCOMPARE(f.records(), QString("s:a=A s:b s:c"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        f.editor()->setText("B");
        f.select("c");
        // Who hears of the end of a rename may make other rows.
        connect(&f.tree, &signalTreeWidget::itemDragged, [&f] {
            const QList<JEX::SignalItem> items = topLevelRecords(&f.tree);
            f.tree.clear();
            insertCaptureRows(&f.tree, items, 0);
        });
        f.tree.onChangeName();
        QCOMPARE(f.records(), QString("s:a=A s:b=B s:c"));
        QTRY_VERIFY(!f.editor());
    }

    void aRowMayGoWhileItIsRenamed()
    {
        Fixture f("s:a b:b{x} s:c");
        f.tree.expandAll();
        for (const char *name : {"a", "x", "c"}) {
            f.select(name);
            f.tree.onChangeName();
            f.editor()->setText("new");
            delete f.tree.takeTopLevelItem(0);
            QTRY_VERIFY(!f.editor());
        }
        f.tree.finishEdit();
        QCOMPARE(f.reports(), QString("0 dragged 0 changed"));
    }

    void rowsAreMoved_data()
    {
        textColumns("chosen", "up", "down");
        row("first", "a", "", "s:b s:a s:c b:d[1:0]{d[1],d[0]} !s:x");
        row("inner", "b", "s:b s:a s:c b:d[1:0]{d[1],d[0]} !s:x", "s:a s:c s:b b:d[1:0]{d[1],d[0]} !s:x");
        row("last of those that are captured", "d[1:0]", "s:a s:b b:d[1:0]{d[1],d[0]} s:c !s:x", "");
        row("block", "b c", "s:b s:c s:a b:d[1:0]{d[1],d[0]} !s:x", "s:a b:d[1:0]{d[1],d[0]} s:b s:c !s:x");
        row("apart", "a c", "s:a s:c s:b b:d[1:0]{d[1],d[0]} !s:x", "s:b b:d[1:0]{d[1],d[0]} s:a s:c !s:x");
        row("not captured", "x", "", "");
        row("member", "d[1]", "", "");
        row("with one that is not captured", "c x", "s:a s:c s:b b:d[1:0]{d[1],d[0]} !s:x",
            "s:a s:b b:d[1:0]{d[1],d[0]} s:c !s:x");
        row("nothing", "", "", "");
    }
    void rowsAreMoved()
    {
        auto [chosen, up, down] = textCells("chosen", "up", "down");
        const QString rows = "s:a s:b s:c b:d[1:0]{d[1],d[0]} !s:x";
        for (const auto &[key, expected] : {std::pair(Qt::Key_Up, up), std::pair(Qt::Key_Down, down)}) {
            Fixture f(rows);
            f.select(chosen);
            const QSet<QString> selected = namesOf(f.tree.selectedItems());
            QTest::keyClick(&f.tree, key, Qt::AltModifier);
            QCOMPARE(f.records(), expected.isEmpty() ? rows : expected);
            QCOMPARE(f.order, QString(expected.isEmpty() ? "" : "d"));
            QCOMPARE(namesOf(f.tree.selectedItems()), selected);
            const QString looks = rowText(&f.tree);
            updateCapEnable(&f.tree);
            QCOMPARE(rowText(&f.tree), looks);
        }
    }

    // A word beside each colour, and none where there is none.
    void statesInWords()
    {
        signalTreeWidget rows;
        insertCaptureRows(&rows, signalsFromText("s:a ^s:c !s:b"), 0);
        const QStringList words{"", "Marked as faulty in the file", "Not captured"};
        for (int i = 0; i < words.size(); ++i) {
            const QTreeWidgetItem *row = rows.topLevelItem(i);
            QCOMPARE(row->toolTip(0), words.at(i));
            QCOMPARE(row->data(0, Qt::AccessibleTextRole).toString(),
                     words.at(i).isEmpty() ? QString() : row->text(0) + ", " + words.at(i));
        }
        QTreeWidget port;
        insertSignalRows(&port, signalsFromText("~s:a b:b[1:0]{~b[1],b[0]}"), 0, 0);
        QCOMPARE(port.topLevelItem(0)->toolTip(0), QString("Not in the design"));
        QCOMPARE(port.topLevelItem(1)->toolTip(0), QString());
        QCOMPARE(port.topLevelItem(1)->child(0)->toolTip(0), QString("Not in the design"));
    }

    void menuShowsTheKeyOfRenaming()
    {
        Fixture f("s:a");
        f.tree.setCurrentItem(f.tree.topLevelItem(0));
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1));
        QCoreApplication::sendEvent(&f.tree, &event);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QStringList keys;
        for (const QAction *action : menu->actions()) {
            if (!action->shortcut().isEmpty())
                keys << action->text() + ' ' + action->shortcut().toString();
        }
        menu->close();
        QCOMPARE(keys, QStringList("Rename F2"));
    }

private:
    static QSet<QString> namesOf(const QList<QTreeWidgetItem *> &rows)
    {
        QSet<QString> names;
        for (const QTreeWidgetItem *row : rows)
            names << row->text(0);
        return names;
    }
};

QTEST_MAIN(SignalTreeTest)
#include "tst_signaltree.moc"
