#include "check/nearestnames.h"
#include "check/stalereport.h"
#include "model/netlist/rtlnetlist.h"
#include "tests/support/netlisttext.h"
#include "tests/support/signaltext.h"
#include "tests/support/tablerow.h"

using namespace RTLJEX;

const char design[] = R"(
top
  clk
  spare x
  low[3:0] x0
  wide[15:0]
  up[0:7]
  gone x
  u_rx:rx
    state[2:0]
    count_q[7:0]
    ready
    e/x
  u_tx:tx
    phase[2:0]
    shared
  u_other:other
    shared
    unique
    moved[7:0]
  u_lanes:lanes
    lane_a
    lane_b
    lane_c
    lane_d
)";

// "name type", with members behind it: "a[1:0] bus = a[1] a[0]"; a bus without them has all its bits, unless
// they would fill the memory.
static JEX::SignalItem itemFromText(const QString &text)
{
    JEX::SignalItem item;
    if (!text.contains(" = ") && !text.contains(":-"))
        item.members = signalNamed(text.section(' ', 0, 0)).members;
    item.name = text.section(' ', 0, 0);
    item.type = text.section(' ', 1, 1) == "bus" ? 1 : text.section(' ', 1, 1) == "net" ? 0 : -1;
    for (const QString &name : text.section(" = ", 1).split(' ', Qt::SkipEmptyParts))
        item.members << signalNamed(name);
    return item;
}

class StaleReportTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void signalsOfACore_data()
    {
        // "rows": one a line; "expected": the sentences without "Core 0: capture signal "
        textColumns("rows", "expected");
        row("there",
            "top/clk net\ntop/wide[15:0] bus\ntop/up[0:7] bus\ntop/u_rx/state[2] bus\n"
            "top/u_rx/e/x net",
            "");
        row("reversed, part, group",
            "top/wide[0:15] bus\ntop/wide[7:4] group\n"
            "group_0[1:0] group = top/clk top/wide[3]",
            "");
        row("renamed register", "top/u_tx/fase[2:0] bus",
            "top/u_tx/fase[2:0] is missing in the design; nearest: top/u_tx/phase[2:0]");
        row("renamed, only the width tells", "top/u_tx/mode[2:0] bus",
            "top/u_tx/mode[2:0] is missing in the design; nearest: top/u_tx/phase[2:0]");
        row("another width is further away, and a bit has the buses that hold it",
            "top/u_rx/state_count[7:0] bus\ntop/u_rx/abcdefgh[6] bus",
            "top/u_rx/state_count[7:0] is missing in the design; nearest: top/u_rx/count_q[7:0], "
            "top/u_rx/state[2:0]\n"
            "top/u_rx/abcdefgh[6] is missing in the design; nearest: top/u_rx/count_q[6]");
        row("four letters in common", "top/u_other/sharp_edges_on net",
            "top/u_other/sharp_edges_on is missing in the design; nearest: top/u_other/shared");
        row("same instance first, then near names elsewhere", "top/u_rx/count[7:0] bus",
            "top/u_rx/count[7:0] is missing in the design; nearest: top/u_rx/count_q[7:0]");
        row("a bit of it", "top/u_rx/countq[3] bus",
            "top/u_rx/countq[3] is missing in the design; nearest: top/u_rx/count_q[3]");
        row("nothing like it", "top/u_tx/qqqqqqqq net", "top/u_tx/qqqqqqqq is missing in the design");
        row("moved", "top/u_old/unique net\ntop/u_rx/moved[7:0] bus\ntop/u_rx/moved[1] bus",
            "top/u_old/unique moved, it is now top/u_other/unique\n"
            "top/u_rx/moved[7:0] moved, it is now top/u_other/moved[7:0]\n"
            "top/u_rx/moved[1] moved, it is now top/u_other/moved[1]");
        row("two places that it may have moved to, the nearer first", "top/u_txx/shared net",
            "top/u_txx/shared is missing in the design; nearest: top/u_tx/shared, top/u_other/shared");
        row("width",
            "top/wide[7:0] bus\ntop/low[7:0] bus\ntop/up net\ntop/clk[0] bus\ntop/low[7] bus\n"
            "top/up[8:1] bus\ntop/low[5:2] group\ntop/wide[2147483647:-9] bus",
            "top/wide[7:0] changed in width, it is now top/wide[15:0]\n"
            "top/low[7:0] changed in width, it is now top/low[3:0]\n"
            "top/up changed in width, it is now top/up[0:7]\n"
            "top/clk[0] changed in width, it is now top/clk\n"
            "top/low[7] changed in width, it is now top/low[3:0]\n"
            "top/up[8:1] changed in width, it is now top/up[0:7]\n"
            "top/low[5:2] changed in width, it is now top/low[3:0]\n"
            "top/wide[2147483647:-9] changed in width, it is now top/wide[15:0]");
        row("excluded", "top/spare net\ntop/low[3:0] bus\ntop/low[0] bus",
            "top/spare is now excluded from probing\n"
            "top/low[0] of top/low[3:0] is now excluded from probing\n"
            "top/low[0] is now excluded from probing");
        row("three are enough", "top/u_lanes/lane net",
            "top/u_lanes/lane is missing in the design; nearest: "
            "top/u_lanes/lane_a, top/u_lanes/lane_b, top/u_lanes/lane_c");
        row("what is excluded is not suggested", "top/gone_ net", "top/gone_ is missing in the design");
        row("members of a group", "group_0[2:0] group = top/clk top/u_rx/redy top/low[9]",
            "top/u_rx/redy of group_0[2:0] is missing in the design; nearest: top/u_rx/ready\n"
            "top/low[9] of group_0[2:0] changed in width, it is now top/low[3:0]");
    }
    void signalsOfACore()
    {
        auto [rows, expected] = textCells("rows", "expected");
        const QScopedPointer<QUARRY::RtlNetlist> netlist(netlistFromText(design));
        JEX::AOCore_Lite core;
        core.sampleClock = "top/clk";
        for (const QString &row : rows.split('\n'))
            core.captureSignals << itemFromText(row);
        core.enabledCaptureSignals = core.captureSignals;
        QString found;
        for (const StaleSignal &signal : staleSignals(anyCores(QList<decltype(&core)>{&core}), *netlist))
            found += staleSentence(signal).replace("Core 0: capture signal ", "") + '\n';
        QCOMPARE(found.trimmed().split('\n'), expected.split('\n'));
    }

    void placesOfAStandardCore()
    {
        const QScopedPointer<QUARRY::RtlNetlist> netlist(netlistFromText(design));
        JEX::AoCore core(7);
        core.sampleClock = "top/clk_";
        core.triggerPorts[2]->signalItems << itemFromText("top/clk net")
                                          << itemFromText("top/u_rx/readi net");
        core.captureSignals << itemFromText("top/clk net");
        core.enabledCaptureSignals << itemFromText("top/vanished net"); // in no row
        QStringList found;
        for (const StaleSignal &signal : staleSignals(anyCores(QList<decltype(&core)>{&core}), *netlist))
            found << QString("%1 row %2: ").arg(signal.core).arg(signal.row) + staleSentence(signal);
        QCOMPARE(
            found,
            QStringList({"0 row -1: Core 7: clock signal top/clk_ is missing in the design; nearest: top/clk",
                         "0 row 1: Core 7: trigger port 2 signal top/u_rx/readi is missing in the design; "
                         "nearest: top/u_rx/ready",
                         "0 row -1: Core 7: capture signal top/vanished is missing in the design"}));
        QCOMPARE(staleSignals(anyCores(QList<decltype(&core)>{&core}), QUARRY::RtlNetlist()).size(),
                 5); // a design without anything
    }

    void distances()
    {
        const Rows<const char *, const char *, int, int> cases = {
            {"", "abc", 9, 3},  {"state", "State", 9, 0}, {"kitten", "sitting", 9, 3},
            {"ab", "ba", 9, 2}, {"abc", "xyz", 1, 2},     {"abcd", "a", 2, 3}};
        for (const auto &[a, b, limit, distance] : cases)
            QCOMPARE(editDistance(a, b, limit), distance);
    }
};

QTEST_GUILESS_MAIN(StaleReportTest)
#include "tst_stalereport.moc"
