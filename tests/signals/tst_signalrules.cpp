#include "model/netlist/rtlnetlist.h"
#include "signals/groupnames.h"
#include "signals/repeatrules.h"
#include "signals/signallistindex.h"
#include "signals/signalrules.h"
#include "tests/support/netlisttext.h"
#include "tests/support/randomsignals.h"
#include "tests/support/tablerow.h"

using namespace RTLJEX;
using JEX::SignalItem;

const char design[] = R"(
top
  clk
  count[3:0]
  u0:uart
    ready
    data[1:0]
    u1:fifo
      odd[0]
)";

static QString joined(const QList<SignalItem> &rows, const QList<SignalItem> &buses,
                      const QList<SignalItem> &others)
{
    return toText(rows) + " | " + toText(buses) + " | " + toText(others);
}

class SignalRulesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bitsAndTheirBus()
    {
        const SignalItem bus = signalFromText("b:A{a1,a0}");
        QVERIFY(isBussignalInBus(bus, signalFromText("b:a0")));
        for (const char *other : {"b:a2", "b:A", "b:a0{x}"})
            QVERIFY(!isBussignalInBus(bus, signalFromText(other)));
        QVERIFY(!isBussignalInBus(signalFromText("b:a0"), signalFromText("b:a0")));
        QCOMPARE(captureBits(bus), 2);
        QCOMPARE(captureBits(signalFromText("s:clk")), 1);
        QCOMPARE(captureBits(signalFromText("!b:A{a1,a0}")), 0);
    }

    void grouping_data()
    {
        textColumns("already", "chosen", "result");
        row("a bit of a bus is dropped", "b:A{a1,a0}", "b:a0", "b:A{a1,a0} | ");
        row("a bus removes its bits", "b:x b:a5 b:a3", "b:A{a5,a4,a3}", "b:x b:A{a5,a4,a3} | ");
        row("kinds are kept apart", "", "s:clk g:G{s:x,s:y} b:a0 s:rst", "b:a0 | s:clk g:G{s:x,s:y} s:rst");
        row("members that are not valid go", "", "b:A{~a1,a0} b:a1 g:G{~s:x}", "b:A{a0} b:a1 | g:G");
        row("equal entries stay", "", "b:a0 b:a0 b:A{x} b:A{x} b:x{y}", "b:a0 b:a0 b:A{x} b:A{x} b:x{y} | ");
        row("what was dropped does not come back", "b:a0 b:a0", "b:A{a0} b:a0 b:b0", "b:A{a0} b:b0 | ");
    }
    void grouping()
    {
        auto [already, chosen] = textCells("already", "chosen");
        QList<SignalItem> buses = signalsFromText(already);
        QList<SignalItem> others;
        Grouped(signalsFromText(chosen), buses, others);
        QTEST(toText(buses) + " | " + toText(others), "result");
    }

    void repeats_data()
    {
        textColumns("before", "after"); // rows, new buses and bits, other new signals
        row("net: enabled again", "!s:clk |  | s:clk s:rst", "s:clk |  | s:rst");
        row("net: no bit", "s:x | b:x | ", "s:x | b:x | ");
        row("bit: enabled again", "!b:a0 | b:a0 b:b0 | ", "b:a0 | b:b0 | ");
        row("bit: one repeat leaves", "b:a0 | b:a0 b:a0 | ", "b:a0 | b:a0 | ");
        row("bit: replaced by its bus, the next is seen", "b:a0 !b:b0 | b:A{a1,a0} b:b0 | ",
            "b:b0 | b:A{a1,a0} | ");
        row("bit: the first in the list decides", "!b:a0 | b:a0 b:A{a0} | ", "b:a0 | b:A{a0} | ");
        row("bit: the bus first", "b:a0 | b:A{a0} b:a0 | ", " | b:A{a0} b:a0 | ");
        row("bit: a bus of its name", "!b:a0 | b:a0{a0} | ", "b:a0 |  | ");
        row("bus: enabled with its members", "!b:A{!a1,!a0} | b:A{a1,a0} | ", "b:A{a1,a0} |  | ");
        row("bus: its bits are not added", "!b:A{!a1,!a0} | b:a1 b:a0 b:a2 | ", "b:A{a1,a0} | b:a2 | ");
        row("bus: bits in front of itself", "b:A{a1,a0} | b:a1 b:x b:a1 b:A{a1,a0} | ",
            "b:A{a1,a0} | b:x | ");
        row("bus: left at itself", "b:A{a1,a0} | b:A{a1,a0} b:a0 | ", "b:A{a1,a0} | b:a0 | ");
        row("bus: another one", "!b:A{!a0} | b:B{a0} | ", "!b:A{!a0} | b:B{a0} | ");
        row("group: a net of it enables both", "!g:G{!s:x,!s:y} |  | s:y", "g:G{!s:x,s:y} |  | ");
        row("group: an enabled net in it", "!g:G{s:x} |  | ", "g:G{s:x} |  | ");
        row("group: a bit of it enables the group", "!g:G{!a0,!b0} | b:a0 b:a0 | ", "g:G{!a0,!b0} |  | ");
        row("group: a bus of a member's name", "!g:G{!a0} | b:a0{x} | ", "!g:G{!a0} | b:a0{x} | ");
        row("group: all taken over", "g:G{a1,a0} | b:A{a1,a0} | ", " | b:A{a1,a0} | ");
        row("group: a bit in front of the bus", "g:G{a0,s:x} | b:a0 b:A{a0} b:a0 | ",
            " | s:x b:A{a0} b:a0 | ");
        row("group: one left", "g:G{a1,a0,s:x} | b:A{a1,a0} | ", " | s:x b:A{a1,a0} | ");
        row("group: several left", "g:group_0[3:0]{a1,s:x,a0,s:y} | b:A{a1,a0} | ",
            " | g:group_0[1:0]{s:x,s:y} b:A{a1,a0} | ");
        row("group: its rest meets the rows behind", "g:G{a0,c0} b:c0 | b:A{a0} | ", "b:c0 | b:A{a0} | ");
        row("group: rests pile up at the front", "g:G{a0,c0} g:H{a0,d0} b:e0 | b:A{a0} b:e0 | ",
            "b:e0 | b:d0 b:c0 b:A{a0} | ");
        row("group: the rest in front is met", "g:G{a0,s:c=x} g:H{a0,s:c=y} b:c | b:A{a0} | ",
            "b:c | s:c=x b:A{a0} | ");
    }
    void repeats()
    {
        QFETCH(QString, before);
        const QStringList lists = before.split('|');
        SignalListIndex buses(signalsFromText(lists.at(1)));
        SignalListIndex others(signalsFromText(lists.at(2)));
        QList<SignalItem> kept;
        for (SignalItem &item : signalsFromText(lists.at(0))) {
            if (judgeRow(item, others, buses) != RowGone)
                kept.append(item);
        }
        QTEST(joined(kept, buses.records(), others.records()), "after");
    }

    void classification_data()
    {
        textColumns("stored", "classified");
        row("net of the top", "top/clk", "s:top/clk");
        row("net below", "b:top/u0/ready", "s:top/u0/ready");
        row("bit", "top/count[3]", "b:top/count[3]");
        row("net with the look of a bit", "b:top/u0/u1/odd[0]", "s:top/u0/u1/odd[0]");
        row("a name that is nowhere", "s:top/gone", "b:top/gone");
        row("bus", "top/u0/data[1:0]{s:top/u0/data[1],x}", "b:top/u0/data[1:0]{top/u0/data[1],x}");
        row("another range is no bus", "b:top/count[4:0]{g:x}", "g:top/count[4:0]{x}");
        row("group", "b:group_0[1:0]{top/clk,s:top/count[0]}", "g:group_0[1:0]{s:top/clk,top/count[0]}");
        row("flags stay", "!~^top/clk=c", "!~^s:top/clk=c");
    }
    void classification()
    {
        QFETCH(QString, stored);
        const QScopedPointer<QUARRY::RtlNetlist> netlist(netlistFromText(design));
        QList<QUARRY::RtlNet *> nets = netlist->topHierarchy->nets;
        QList<QUARRY::RtlNetBus *> buses = netlist->topHierarchy->buses;
        getAllnlsNet(netlist->topHierarchy, nets, buses);
        SignalItem item = signalFromText(stored);
        CheckBusOrSignal(nets, buses, item);
        QTEST(toText(item), "classified");

        QList<SignalItem> list{signalFromText(stored)};
        classifySignals(netlist.data(), list);
        QTEST(toText(list), "classified");
    }

    // What a page does at once is what the functions for one record do one after the other.
    void oneByOneAsAtOnce()
    {
        const QScopedPointer<QUARRY::RtlNetlist> netlist(
            netlistFromText("top\n  x\n  y\n  a[2:0]\n  u0:m\n    z\n    a[2:0]\n"));
        QList<QUARRY::RtlNet *> nets = netlist->topHierarchy->nets;
        QList<QUARRY::RtlNetBus *> buses = netlist->topHierarchy->buses;
        getAllnlsNet(netlist->topHierarchy, nets, buses);
        const QStringList names = {"top/x",       "top/a[2:0]", "top/a[1]",      "top/u0/z",
                                   "top/u0/a[0]", "top/lost",   "top/u0/a[2:0]", "group_0[1:0]"};
        for (quint32 seed = 0; seed < 300; ++seed) {
            RandomSignals random(seed);
            QList<SignalItem> atOnce = random.list(), oneByOne;
            const auto rename = [&](SignalItem &item) { item.name = names.at(random.below(names.size())); };
            for (SignalItem &item : atOnce) {
                rename(item);
                std::for_each(item.members.begin(), item.members.end(), rename);
            }
            oneByOne = atOnce;
            classifySignals(netlist.data(), atOnce);
            for (SignalItem &item : oneByOne)
                CheckBusOrSignal(nets, buses, item);
            QVERIFY2(toText(atOnce) == toText(oneByOne), qPrintable(QString::number(seed)));

            QList<SignalItem> chosen = random.list(), already = random.list(), others, one, rest;
            for (SignalItem &item : already)
                item.type = JEX::BusKind;
            one = already;
            Grouped(chosen, already, others);
            for (SignalItem item : chosen) {
                const auto isInvalid = [](const SignalItem &member) { return !member.valid; };
                item.members.erase(std::remove_if(item.members.begin(), item.members.end(), isInvalid),
                                   item.members.end());
                item.type == JEX::BusKind ? CheckBus(one, item) : rest.append(item);
            }
            QVERIFY2(joined({}, already, others) == joined({}, one, rest), qPrintable(QString::number(seed)));
        }
    }

    void anEmptyNetlistClassifiesNothing()
    {
        const QScopedPointer<const QUARRY::RtlNetlist> netlist(netlistFromText("top\n  u0:m\n"));
        const QUARRY::RtlNetlist *const none = nullptr;
        QList<SignalItem> list = signalsFromText("g:x s:y");
        for (const QUARRY::RtlNetlist *model : {none, netlist.data()})
            classifySignals(model, list);
        CheckBusOrSignal(QList<QUARRY::RtlNet *>(), QList<QUARRY::RtlNetBus *>(), list[0]);
        QCOMPARE(toText(list), QString("g:x s:y"));
    }

    void rangeNames()
    {
        const auto rangeOf = [](const char *texts) { return busRangeName(QString(texts).split(' ')); };
        QCOMPARE(rangeOf("a[3] a[2] a[1]"), QString("a[3:1]"));
        QCOMPARE(rangeOf("a[0] a[1]"), QString("a[0:1]"));
        QCOMPARE(rangeOf("a[1][9] a[1][10]"), QString("a[1][9:10]"));
        for (const char *texts : {"a[0] a[2]", "a[0] a[1] a[0]", "a[1] a[1]", "a[0] b[1]", "a[00] a[1]",
                                  "a[1] clk", "a[99999999999] a[99999999998]", "a[1]"})
            QVERIFY2(rangeOf(texts).isEmpty(), texts);
    }

    void groupNames()
    {
        const auto freeBeside = [](const char *names) { return freeGroupName(QString(names).split(' ')); };
        QCOMPARE(freeBeside("clk a[3:0] group_x[1:0] group_0 xgroup_0[1:0]"), QString("group_0"));
        QCOMPARE(freeBeside("group_2[1:0] group_0[3:0]"), QString("group_1"));
        QCOMPARE(freeBeside("group_1[1:0]"), QString("group_0"));
        QCOMPARE(freeBeside("group_0[1:0] group_0[3:0]"), QString("group_2")); // a step for each of them
        QCOMPARE(freeBeside("group_0[1:0] group_1[3:0] group_1[0:0]"), QString("group_3"));
        QCOMPARE(freeBeside("group_10[1:0] group_0[1:0] group_2[1:0] group_1[1:0]"), QString("group_3"));
        QCOMPARE(groupNameWithRange("group_2", 6), QString("group_2[5:0]"));
        QCOMPARE(groupNameForWidth("group_3[7:0]", 5), QString("group_3[4:0]"));
        QCOMPARE(groupNameForWidth("odd", 5), QString("odd"));
    }
};

QTEST_GUILESS_MAIN(SignalRulesTest)
#include "tst_signalrules.moc"
