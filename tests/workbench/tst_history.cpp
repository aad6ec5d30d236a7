#include <random>

#include "tests/support/tablerow.h"
#include "workbench/history.h"

using Workbench::ByteDelta;
using Workbench::History;

static QByteArray manyLines(int count)
{
    QByteArray text;
    for (int i = 0; i < count; ++i)
        text += "line " + QByteArray::number(i) + '\n';
    return text;
}

class HistoryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leadsBothWays_data()
    {
        textColumns("before", "after");
        const QString many = manyLines(5000); // more than one block
        row("same", many, many);
        row("none", "", "");
        row("from none", "", many);
        row("to none", many, "");
        row("one inside", many, QString(many).replace("line 2500\n", "another\n"));
        row("first", many, 'x' + many.mid(1));
        row("last", many, many + 'x');
        row("twice the same", "aaaa", "aaaaaa"); // prefix and suffix overlap
        row("shorter", "abab", "ab");
        row("another", "abc", "xyz");
    }
    void leadsBothWays()
    {
        const QByteArray before = textCells("before")[0].toUtf8(), after = textCells("after")[0].toUtf8();
        const ByteDelta delta(before, after);
        QCOMPARE(delta.forward(before), after);
        QCOMPARE(delta.backward(after), before);
        QVERIFY(delta.size() < 200 || before.isEmpty() || after.isEmpty());
    }

    // Any walk, beside a plain list of all states.
    void walksLikeAList()
    {
        std::mt19937 random(7);
        QList<QByteArray> states({"0"});
        int place = 0;
        History history;
        history.restart("0");
        for (int i = 1; i < 5000; ++i) {
            const unsigned way = random() % 10;
            if (way < 5) {
                const QByteArray state = manyLines(int(random() % 50)) + QByteArray::number(i);
                states = states.mid(0, place + 1) << state;
                ++place;
                history.take(state, "n" + QString::number(i));
            } else if (way < 7 && place > 0) {
                --place;
                QCOMPARE(history.undo(), states.at(place));
            } else if (way < 9 && place < states.size() - 1) {
                ++place;
                QCOMPARE(history.redo(), states.at(place));
            } else if (way == 9) {
                states[place] += '!';
                history.settle(states.at(place));
            }
            QCOMPARE(history.present(), states.at(place));
            QCOMPARE(history.canUndo(), place > 0);
            QCOMPARE(history.canRedo(), place < states.size() - 1);
        }
        QCOMPARE(history.stepCount(), states.size() - 1);
    }

    void joinsTyping()
    {
        History history;
        history.restart("");
        history.take("a", "Clock", History::Typing);
        history.take("ab", "Clock", History::Typing, true);
        history.take("abc", "Clock", History::Typing, true);
        QCOMPARE(history.stepCount(), 1);
        history.take("abc|", "Group");
        history.take("abc|d", "Clock", History::Typing);
        QCOMPARE(history.stepCount(), 3);
        // The box takes it back by itself, and makes it again.
        history.take("abc|", "Clock", History::Typing, true);
        QCOMPARE(history.undoName() + '/' + history.redoName(), QString("Group/Clock"));
        history.take("abc|d", "Clock", History::Typing, true);
        QCOMPARE(history.undoName() + '/' + history.redoName(), QString("Clock/"));
        history.undo();
        history.undo();
        QCOMPARE(history.undo(), QByteArray(""));
        QVERIFY(!history.canUndo());
    }

    // What the view cannot show is no edit, and is not lost either.
    void knowsWhatIsShown()
    {
        History history;
        history.restart("BSRAM");
        history.take("SSRAM", "Implementation");
        history.take("SSRAM x", "Clock");
        history.undo();
        history.noteShown("BSRAM, since the device has no other");
        history.take("BSRAM, since the device has no other", "Edit");
        QCOMPARE(history.stepCount(), 2);
        QCOMPARE(history.redo(), QByteArray("SSRAM x"));
        QCOMPARE(history.undo(), QByteArray("SSRAM"));
    }

    // At least 100 steps however large they are, and more of small ones; what is kept is counted.
    void forgetsTheOldest()
    {
        std::mt19937 random(1);
        History history;
        history.restart("");
        for (int i = 0; i < 110; ++i) {
            QByteArray noise(3 << 16, 0);
            for (char &byte : noise)
                byte = char(random());
            history.take(noise, "Edit");
        }
        QCOMPARE(history.stepCount(), 100);
        QVERIFY(history.stepBytes() > 32 << 20);
        for (int i = 0; i < 10000; ++i)
            history.take(QByteArray::number(i), "Edit");
        QVERIFY(history.stepBytes() <= 32 << 20);
        QVERIFY(history.stepCount() > 10000);
        int steps = 0;
        for (; history.canUndo(); ++steps)
            history.undo();
        QCOMPARE(steps, history.stepCount());
    }
};

QTEST_GUILESS_MAIN(HistoryTest)
#include "tst_history.moc"
