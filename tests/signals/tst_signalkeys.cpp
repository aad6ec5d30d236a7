#include <QtTest>

#include <QMenu>
#include <QSignalSpy>

#include "signals/signalrows.h"
#include "signals/signaltreewidget.h"
#include "tests/support/rowtext.h"
#include "tests/support/signaltext.h"
#include "tests/support/tablerow.h"

using namespace RTLJEX;

// The keys of a signal tree, and what its rows say in words.
class SignalKeysTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
        QFETCH(QString, chosen);
        QFETCH(QString, up);
        QFETCH(QString, down);
        const QString rows = "s:a s:b s:c b:d[1:0]{d[1],d[0]} !s:x";
        for (const auto &[key, expected] : {std::pair(Qt::Key_Up, up), std::pair(Qt::Key_Down, down)}) {
            signalTreeWidget tree;
            insertCaptureRows(&tree, signalsFromText(rows), 0);
            for (const QString &name : chosen.split(' ', Qt::SkipEmptyParts))
                rowNamed(&tree, name)->setSelected(true);
            const QStringList selected = namesOf(tree.selectedItems());
            QSignalSpy moved(&tree, SIGNAL(itemDragged()));
            QTest::keyClick(&tree, key, Qt::AltModifier);
            QCOMPARE(toText(topLevelRecords(&tree)), expected.isEmpty() ? rows : expected);
            QCOMPARE(moved.count(), expected.isEmpty() ? 0 : 1);
            QCOMPARE(namesOf(tree.selectedItems()), selected);
            const QString looks = rowText(&tree);
            updateCapEnable(&tree);
            QCOMPARE(rowText(&tree), looks);
        }
    }

    // A word beside each colour, and none where there is none.
    void statesInWords_data()
    {
        textColumns("record", "words");
        row("usual", "s:a", "");
        row("not captured", "!s:a", "Not captured");
        row("faulty", "^s:a", "Marked as faulty in the file");
    }

    void statesInWords()
    {
        QFETCH(QString, record);
        QFETCH(QString, words);
        signalTreeWidget tree;
        insertCaptureRows(&tree, signalsFromText(record), 0);
        QCOMPARE(tree.topLevelItem(0)->toolTip(0), words);
        const QString read = tree.topLevelItem(0)->data(0, Qt::AccessibleTextRole).toString();
        QCOMPARE(read, words.isEmpty() ? QString() : "a, " + words);
    }

    void missingInWords()
    {
        QTreeWidget tree; // as in a trigger port
        insertSignalRows(&tree, signalsFromText("~s:a b:b[1:0]{~b[1],b[0]}"), 0, 0);
        QCOMPARE(tree.topLevelItem(0)->toolTip(0), QString("Not in the design"));
        QCOMPARE(tree.topLevelItem(1)->toolTip(0), QString());
        QCOMPARE(tree.topLevelItem(1)->child(0)->toolTip(0), QString("Not in the design"));
    }

    void menuShowsTheKeyOfRenaming()
    {
        signalTreeWidget tree;
        insertCaptureRows(&tree, signalsFromText("s:a"), 0);
        tree.show();
        tree.setCurrentItem(tree.topLevelItem(0));
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1));
        QCoreApplication::sendEvent(&tree, &event);
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
    static QStringList namesOf(const QList<QTreeWidgetItem *> &rows)
    {
        QStringList names;
        for (const QTreeWidgetItem *row : rows)
            names << row->text(0);
        names.sort();
        return names;
    }
};

QTEST_MAIN(SignalKeysTest)
#include "tst_signalkeys.moc"
