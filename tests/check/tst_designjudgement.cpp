#include <QtTest>

#include "check/designjudgement.h"
#include "elaboration/elaboration.h"
#include "model/netlist/rtlnetlist.h"
#include "tests/support/netlisttext.h"
#include "tests/support/tablerow.h"

using namespace RTLJEX;

namespace {

QString shown(const DesignFault &fault)
{
    if (fault.isNull())
        return QString();
    return fault.title + " | " + fault.text + fault.details.join(" / ");
}

} // namespace

class DesignJudgementTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // What real designs give is tested with the editors; here is what they hardly do.
    void judgesDesigns()
    {
        const QStringList none, one("a"), two({"a", "b"}), harmless({"WARNING: x", "see ERROR", "error: y"});
        QScopedPointer<QUARRY::RtlNetlist> plain(netlistFromText("b\n  clk\n")),
            jtag(netlistFromText("b\n  TS_JTAG!\n"));
        const Rows<DesignFault, const char *> rows = {
            {judgeModules("a", {one, two, harmless}), ""},
            {judgeModules("", {none, none, {"WARNING: x", "ERROR: a.v:1: y"}}),
             "Design files contain some errors. | WARNING: x / ERROR: a.v:1: y"},
            {judgeModules("a%1\"b", {one, none, none}),
             "Invalid Top Module | No module named \"a%1\"b\", please reset top module."},
            {judgeModules("a", {two, two, none}),
             "Design files contain some errors | Get no module from design."},
            {judgeNetlist("a", nullptr), ""},
            {judgeNetlist("b", plain.data()), ""},
            {judgeNetlist("", plain.data()), ""},
            {judgeNetlist("%2", jtag.data()),
             "Error | Get module \"%2\" failed, just received default module \"b\"."},
        };
        for (const auto &[found, expected] : rows)
            QCOMPARE(shown(found), QString(expected));
    }
};

QTEST_GUILESS_MAIN(DesignJudgementTest)
#include "tst_designjudgement.moc"
