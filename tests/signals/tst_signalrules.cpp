#include <QtTest>

#include <random>

#include "model/quarry/rtlnetlist.h"
#include "signals/groupnames.h"
#include "signals/repeatrules.h"
#include "signals/roworder.h"
#include "signals/signallistindex.h"
#include "signals/signalrules.h"
#include "tests/signals/signaltext.h"
#include "tests/support/netlisttext.h"

using namespace RTLJEX;
using JEX::SignalItem;

namespace {

// The rules again, word by word and without any index: what the fast ones are compared with.
namespace literal {

void checkBus(QList<SignalItem> &list, const SignalItem &item)
{
    for (const SignalItem &entry : list)
        if (isBussignalInBus(entry, item))
            return;
    for (int i = 0; i < list.size(); ++i)
        if (isBussignalInBus(item, list.at(i)))
            list.removeAt(i--);
    list.append(item);
}

void grouped(const QList<SignalItem> &items, QList<SignalItem> &buses, QList<SignalItem> &others)
{
    for (SignalItem item : items) {
        for (int i = 0; i < item.members.size(); ++i)
            if (!item.members.at(i).valid)
                item.members.removeAt(i--);
        if (item.type == 1)
            checkBus(buses, item);
        else
            others.append(item);
    }
}

void repeatBus(QList<SignalItem> &rows, int &index, QList<SignalItem> &buses)
{
    SignalItem &row = rows[index];
    for (int i = 0; i < buses.size(); ++i) {
        if (buses.at(i).name == row.name) {
            buses.removeAt(i);
            row.capEnable = true;
            setBusCapEnable(row);
            return;
        }
        if (row.members.isEmpty() && isBussignalInBus(buses.at(i), row)) {
            rows.removeAt(index--);
            return;
        }
        for (const SignalItem &member : row.members) {
            if (i >= 0 && i < buses.size() && buses.at(i).name == member.name) {
                buses.removeAt(i--);
                row.capEnable = true;
                setBusCapEnable(row);
                break;
            }
        }
    }
}

bool takenOver(const SignalItem &member, SignalItem &row, QList<SignalItem> &buses)
{
    for (int i = 0; i < buses.size(); ++i) {
        if (isBussignalInBus(buses.at(i), member))
            return true;
        if (buses.at(i).members.isEmpty() && buses.at(i).name == member.name) {
            buses.removeAt(i--);
            row.capEnable = true;
        }
    }
    return false;
}

void repeatGroup(QList<SignalItem> &rows, int &index, QList<SignalItem> &others, QList<SignalItem> &buses)
{
    SignalItem &row = rows[index];
    const int width = row.members.size();
    for (int k = 0; k < row.members.size(); ++k) {
        if (row.members.at(k).type == 0) {
            CheckRepeatSignal(row.members[k], others);
            row.capEnable = row.capEnable || row.members.at(k).capEnable;
        } else if (takenOver(row.members.at(k), row, buses)) {
            row.members.removeAt(k--);
        }
    }
    if (row.members.size() == width)
        return;
    if (row.members.size() == 1) {
        buses.prepend(row.members.first());
    } else if (!row.members.isEmpty()) {
        const int from = row.name.indexOf('[') + 1;
        row.name.replace(from, row.name.indexOf(':') - from, QString::number(row.members.size() - 1));
        buses.prepend(row);
    }
    rows.removeAt(index--);
}

void checkRepeat(QList<SignalItem> &rows, QList<SignalItem> &buses, QList<SignalItem> &others)
{
    for (int index = 0; index < rows.size(); ++index) {
        if (rows.at(index).type == 0)
            CheckRepeatSignal(rows[index], others);
        else if (rows.at(index).type == -1)
            repeatGroup(rows, index, others, buses);
        else
            repeatBus(rows, index, buses);
    }
}

} // namespace literal

QString checkRepeat(QList<SignalItem> rows, const QList<SignalItem> &buses, const QList<SignalItem> &others)
{
    SignalListIndex busIndex(buses);
    SignalListIndex otherIndex(others);
    QList<SignalItem> kept;
    for (SignalItem &row : rows)
        if (judgeRow(row, otherIndex, busIndex) != RowGone)
            kept.append(row);
    return toText(kept) + " | " + toText(busIndex.records()) + " | " + toText(otherIndex.records());
}

// Records over very few names, so that they meet in every way.
class RandomSignals
{
public:
    explicit RandomSignals(unsigned seed) : m_engine(seed) {}

    QList<SignalItem> list(int most)
    {
        QList<SignalItem> items;
        for (int count = pick(most + 1); count > 0; --count)
            items.append(item());
        return items;
    }

private:
    int pick(int below) { return int(m_engine() % unsigned(below)); }

    SignalItem item()
    {
        SignalItem item;
        const int kind = pick(4);
        item.type = kind == 0 ? 0 : kind == 1 ? -1 : 1;
        const bool single = kind == 0 || kind == 2;
        item.name = single ? bit() : kind == 1 ? "group_0[3:0]" : QString("%1[3:0]").arg(base());
        for (int width = single ? 0 : pick(4); width > 0; --width) {
            SignalItem member;
            member.name = bit();
            member.type = pick(2);
            member.valid = pick(6) != 0;
            member.capEnable = pick(2) != 0;
            item.members.append(member);
        }
        item.capEnable = pick(2) != 0;
        return item;
    }

    QString base() { return QString(QChar('a' + pick(2))); }
    QString bit() { return QString("%1[%2]").arg(base()).arg(pick(4)); }

    std::mt19937 m_engine;
};

} // namespace

class TestSignalRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bitsAndTheirBus_data();
    void bitsAndTheirBus();
    void grouping_data();
    void grouping();
    void repeats_data();
    void repeats();
    void anyListsAsTheLiteralRules();
    void onlyTheFirstRepeatLeaves();
    void classification_data();
    void classification();
    void anEmptyNetlistClassifiesNothing();
    void rangeNames_data();
    void rangeNames();
    void groupNames_data();
    void groupNames();
    void enabling_data();
    void enabling();
    void moving_data();
    void moving();
    void captureBitsOfARow();
};

void TestSignalRules::bitsAndTheirBus_data()
{
    QTest::addColumn<QString>("bus");
    QTest::addColumn<QString>("single");
    QTest::addColumn<bool>("inside");
    QTest::newRow("a bit") << "b:a[1:0]{a[1],a[0]}"
                           << "b:a[0]" << true;
    QTest::newRow("another bit") << "b:a[1:0]{a[1],a[0]}"
                                 << "b:a[2]" << false;
    QTest::newRow("two buses") << "b:a[1:0]{a[1],a[0]}"
                               << "b:a[0]{x}" << false;
    QTest::newRow("two singles") << "b:a[0]"
                                 << "b:a[0]" << false;
}

void TestSignalRules::bitsAndTheirBus()
{
    QFETCH(QString, bus);
    QFETCH(QString, single);
    QTEST(isBussignalInBus(signalFromText(bus), signalFromText(single)), "inside");
}

void TestSignalRules::grouping_data()
{
    QTest::addColumn<QString>("already");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("buses");
    QTest::addColumn<QString>("others");
    QTest::newRow("a bit of a bus in the list is dropped") << "b:a[1:0]{a[1],a[0]}"
                                                           << "b:a[0]"
                                                           << "b:a[1:0]{a[1],a[0]}"
                                                           << "";
    QTest::newRow("a bus removes its bits, those beside each other too") << "b:x b:a[5] b:a[3]"
                                                                         << "b:a[5:3]{a[5],a[4],a[3]}"
                                                                         << "b:x b:a[5:3]{a[5],a[4],a[3]}"
                                                                         << "";
    QTest::newRow("kinds are kept apart in their order") << ""
                                                         << "s:clk g:group_0[1:0]{s:x,s:y} b:a[0] s:rst"
                                                         << "b:a[0]"
                                                         << "s:clk g:group_0[1:0]{s:x,s:y} s:rst";
    QTest::newRow("members that are not valid go") << ""
                                                   << "b:a[1:0]{~a[1],a[0]} b:a[1]"
                                                   << "b:a[1:0]{a[0]} b:a[1]"
                                                   << "";
    QTest::newRow("equal entries stay") << ""
                                        << "b:a[0] b:a[0]"
                                        << "b:a[0] b:a[0]"
                                        << "";
}

void TestSignalRules::grouping()
{
    QFETCH(QString, already);
    QFETCH(QString, chosen);
    QList<SignalItem> buses = signalsFromText(already);
    QList<SignalItem> others;
    Grouped(signalsFromText(chosen), buses, others);
    QTEST(toText(buses), "buses");
    QTEST(toText(others), "others");
}

void TestSignalRules::repeats_data()
{
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QString>("buses");
    QTest::addColumn<QString>("others");
    QTest::addColumn<QString>("result");
    QTest::newRow("single net: enabled again") << "!s:clk"
                                               << ""
                                               << "s:clk s:rst"
                                               << "s:clk |  | s:rst";
    QTest::newRow("bit: enabled again") << "!b:a[0]"
                                        << "b:a[0] b:b[0]"
                                        << ""
                                        << "b:a[0] | b:b[0] | ";
    QTest::newRow("bit: its bus takes its place, the next row is still seen")
        << "b:a[0] !b:b[0]"
        << "b:a[1:0]{a[1],a[0]} b:b[0]"
        << ""
        << "b:b[0] | b:a[1:0]{a[1],a[0]} | ";
    QTest::newRow("bus: enabled with its members") << "!b:a[1:0]{!a[1],!a[0]}"
                                                   << "b:a[1:0]{a[1],a[0]}"
                                                   << ""
                                                   << "b:a[1:0]{a[1],a[0]} |  | ";
    QTest::newRow("bus: bits that it holds are not added") << "!b:a[1:0]{!a[1],!a[0]}"
                                                           << "b:a[1] b:a[0] b:a[2]"
                                                           << ""
                                                           << "b:a[1:0]{a[1],a[0]} | b:a[2] | ";
    QTest::newRow("bus: what comes behind itself is not looked at") << "b:a[1:0]{a[1],a[0]}"
                                                                    << "b:a[1:0]{a[1],a[0]} b:a[0]"
                                                                    << ""
                                                                    << "b:a[1:0]{a[1],a[0]} | b:a[0] | ";
    QTest::newRow("group: a net of it enables the group and that member") << "!g:group_0[1:0]{!s:x,!s:y}"
                                                                          << ""
                                                                          << "s:y"
                                                                          << "g:group_0[1:0]{!s:x,s:y} |  | ";
    QTest::newRow("group: a bit of it enables the group") << "!g:group_0[1:0]{!a[0],!b[0]}"
                                                          << "b:a[0]"
                                                          << ""
                                                          << "g:group_0[1:0]{!a[0],!b[0]} |  | ";
    QTest::newRow("group: all members taken over") << "g:group_0[1:0]{a[1],a[0]}"
                                                   << "b:a[1:0]{a[1],a[0]}"
                                                   << ""
                                                   << " | b:a[1:0]{a[1],a[0]} | ";
    QTest::newRow("group: one member left") << "g:group_0[2:0]{a[1],a[0],s:x}"
                                            << "b:a[1:0]{a[1],a[0]}"
                                            << ""
                                            << " | s:x b:a[1:0]{a[1],a[0]} | ";
    QTest::newRow("group: several left") << "g:group_0[3:0]{a[1],s:x,a[0],s:y}"
                                         << "b:a[1:0]{a[1],a[0]}"
                                         << ""
                                         << " | g:group_0[1:0]{s:x,s:y} b:a[1:0]{a[1],a[0]} | ";
    QTest::newRow("a rest at the front takes part in what follows") << "g:group_0[1:0]{a[0],c[0]} b:c[0]"
                                                                    << "b:a[0:0]{a[0]}"
                                                                    << ""
                                                                    << "b:c[0] | b:a[0:0]{a[0]} | ";
}

void TestSignalRules::repeats()
{
    QFETCH(QString, rows);
    QFETCH(QString, buses);
    QFETCH(QString, others);
    QTEST(checkRepeat(signalsFromText(rows), signalsFromText(buses), signalsFromText(others)), "result");
}

void TestSignalRules::anyListsAsTheLiteralRules()
{
    for (unsigned seed = 1; seed <= 3000; ++seed) {
        RandomSignals random(seed);
        const QList<SignalItem> chosen = random.list(7);
        QList<SignalItem> rows = random.list(7);
        QList<SignalItem> buses = random.list(3);
        QList<SignalItem> others = random.list(3);
        const QString input = toText(rows) + " | " + toText(buses) + " | " + toText(others);

        QList<SignalItem> fastBuses = buses;
        QList<SignalItem> fastOthers = others;
        Grouped(chosen, fastBuses, fastOthers);
        literal::grouped(chosen, buses, others);
        QCOMPARE(toText(fastBuses) + " | " + toText(fastOthers), toText(buses) + " | " + toText(others));

        const QString fast = checkRepeat(rows, buses, others);
        literal::checkRepeat(rows, buses, others);
        const QString slow = toText(rows) + " | " + toText(buses) + " | " + toText(others);
        QVERIFY2(fast == slow, qPrintable(input + "\n" + fast + "\n" + slow));
    }
}

void TestSignalRules::onlyTheFirstRepeatLeaves()
{
    QList<SignalItem> list = signalsFromText("s:x s:y !s:x");
    SignalItem item = signalFromText("!s:x");
    CheckRepeatSignal(item, list);
    QCOMPARE(toText(item) + " | " + toText(list), QString("s:x | s:y !s:x"));
    CheckRepeatSignal(item = signalFromText("!s:z"), list);
    QCOMPARE(toText(item) + " | " + toText(list), QString("!s:z | s:y !s:x"));
}

static const char design[] = R"(
top
  clk
  count[3:0]
  u0:uart
    ready
    data[1:0]
    u1:fifo
      odd[0]
)";

void TestSignalRules::classification_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("classified");
    QTest::newRow("net of the top") << "top/clk"
                                    << "s:top/clk";
    QTest::newRow("net below") << "b:top/u0/ready"
                               << "s:top/u0/ready";
    QTest::newRow("bit") << "top/count[3]"
                         << "b:top/count[3]";
    QTest::newRow("net with the look of a bit") << "b:top/u0/u1/odd[0]"
                                                << "s:top/u0/u1/odd[0]";
    QTest::newRow("a name that is nowhere") << "s:top/gone"
                                            << "b:top/gone";
    QTest::newRow("bus") << "top/u0/data[1:0]{s:top/u0/data[1],top/u0/data[0]}"
                         << "b:top/u0/data[1:0]{top/u0/data[1],top/u0/data[0]}";
    QTest::newRow("another range is no bus") << "b:top/count[4:0]{g:x}"
                                             << "g:top/count[4:0]{x}";
    QTest::newRow("group") << "b:group_0[1:0]{top/clk,s:top/count[0]}"
                           << "g:group_0[1:0]{s:top/clk,top/count[0]}";
    QTest::newRow("flags stay") << "!~^top/clk=c"
                                << "!~^s:top/clk=c";
}

void TestSignalRules::classification()
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

void TestSignalRules::anEmptyNetlistClassifiesNothing()
{
    const QScopedPointer<QUARRY::RtlNetlist> netlist(netlistFromText("top\n  u0:m\n"));
    for (const QUARRY::RtlNetlist *model : {static_cast<const QUARRY::RtlNetlist *>(nullptr),
                                            static_cast<const QUARRY::RtlNetlist *>(netlist.data())}) {
        QList<SignalItem> list = signalsFromText("g:x s:y");
        classifySignals(model, list);
        QCOMPARE(toText(list), QString("g:x s:y"));
    }
    SignalItem item = signalFromText("g:x");
    CheckBusOrSignal(QList<QUARRY::RtlNet *>(), QList<QUARRY::RtlNetBus *>(), item);
    QCOMPARE(toText(item), QString("g:x"));
}

void TestSignalRules::rangeNames_data()
{
    QTest::addColumn<QString>("texts");
    QTest::addColumn<QString>("name");
    QTest::newRow("down") << "a[3] a[2] a[1]"
                          << "a[3:1]";
    QTest::newRow("up") << "a[0] a[1]"
                        << "a[0:1]";
    QTest::newRow("of a bit of an array") << "a[1][9] a[1][10]"
                                          << "a[1][9:10]";
    QTest::newRow("gap") << "a[0] a[2]"
                         << "";
    QTest::newRow("turns") << "a[0] a[1] a[0]"
                           << "";
    QTest::newRow("stays") << "a[1] a[1]"
                           << "";
    QTest::newRow("two bases") << "a[0] b[1]"
                               << "";
    QTest::newRow("leading zero") << "a[00] a[1]"
                                  << "";
    QTest::newRow("no bit") << "a[1] clk"
                            << "";
    QTest::newRow("beyond any index") << "a[99999999999] a[99999999998]"
                                      << "";
    QTest::newRow("one") << "a[1]"
                         << "";
}

void TestSignalRules::rangeNames()
{
    QFETCH(QString, texts);
    QTEST(busRangeName(texts.split(' ')), "name");
}

void TestSignalRules::groupNames_data()
{
    QTest::addColumn<QString>("others");
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << "clk a[3:0] group_x[1:0] group_1 xgroup_0[1:0]"
                          << "group_0";
    QTest::newRow("gap") << "group_2[1:0] group_0[3:0]"
                         << "group_1";
    QTest::newRow("zero is free") << "group_1[1:0]"
                                  << "group_0";
    QTest::newRow("next") << "group_1[1:0] group_0[0:0]"
                          << "group_2";
    QTest::newRow("ten sorts behind two") << "group_10[1:0] group_0[1:0] group_2[1:0] group_1[1:0]"
                                          << "group_3";
}

void TestSignalRules::groupNames()
{
    QFETCH(QString, others);
    QTEST(freeGroupName(others.split(' ')), "name");
    QCOMPARE(groupNameWithRange("group_2", 6), QString("group_2[5:0]"));
    QCOMPARE(groupNameForWidth("group_3[7:0]", 5), QString("group_3[4:0]"));
    QCOMPARE(groupNameForWidth("odd", 5), QString("odd"));
}

void TestSignalRules::enabling_data()
{
    QTest::addColumn<QString>("flags");
    QTest::addColumn<QList<int>>("chosen");
    QTest::addColumn<QList<int>>("order");
    QTest::newRow("behind the enabled, as selected") << "1000" << QList<int>{3, 1} << QList<int>{0, 3, 1, 2};
    QTest::newRow("all") << "00" << QList<int>{1, 0} << QList<int>{1, 0};
    QTest::newRow("mixed rows") << "0101" << QList<int>{2} << QList<int>{2, 0, 1, 3};
}

void TestSignalRules::enabling()
{
    QFETCH(QString, flags);
    QFETCH(QList<int>, chosen);
    QList<bool> enabled;
    for (QChar flag : flags)
        enabled.append(flag == '1');
    QTEST(orderAfterEnabling(enabled, chosen), "order");
    QCOMPARE(enabledFirstOrder({false, true, false, true}), (QList<int>{1, 3, 0, 2}));
}

void TestSignalRules::moving_data()
{
    QTest::addColumn<QList<int>>("moved");
    QTest::addColumn<int>("before");
    QTest::addColumn<QList<int>>("order");
    QTest::newRow("up") << QList<int>{2, 4} << 1 << QList<int>{0, 2, 4, 1, 3};
    QTest::newRow("down") << QList<int>{0, 1} << 4 << QList<int>{2, 3, 0, 1, 4};
    QTest::newRow("end") << QList<int>{0} << 5 << QList<int>{1, 2, 3, 4, 0};
    QTest::newRow("in front of one that moves") << QList<int>{1, 3} << 1 << QList<int>{0, 1, 3, 2, 4};
}

void TestSignalRules::moving()
{
    QFETCH(QList<int>, moved);
    QFETCH(int, before);
    QTEST(orderAfterMove(5, moved, before), "order");
    QCOMPARE(dropRow(3, 109, 100, 20), 3);
    QCOMPARE(dropRow(3, 110, 100, 20), 4);
}

void TestSignalRules::captureBitsOfARow()
{
    QCOMPARE(captureBits(signalFromText("b:a[1:0]{a[1],a[0]}")), 2);
    QCOMPARE(captureBits(signalFromText("s:clk")), 1);
    QCOMPARE(captureBits(signalFromText("!s:clk")), 0);
}

QTEST_GUILESS_MAIN(TestSignalRules)
#include "tst_signalrules.moc"
