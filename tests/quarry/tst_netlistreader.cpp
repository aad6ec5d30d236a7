#include "model/quarry/netlistreader.h"
#include "tests/quarry/sources.h"

#include <QtTest>

#include <memory>

using namespace QUARRY;

class TestNetlistReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tree_data();
    void tree();
    void declarations();
    void unusableFiles_data();
    void unusableFiles();

private:
    static std::unique_ptr<RtlNetlist> read(const QString &file)
    {
        DesignInput input = Sources().input({file});
        input.top = "top";
        QStringList messages;
        std::unique_ptr<RtlNetlist> netlist(buildNetlist(input, messages, nullptr));
        if (!netlist)
            qWarning("%s", qPrintable(messages.join('\n')));
        return netlist;
    }

    Sources m_sources;
};

void TestNetlistReader::tree_data()
{
    QTest::addColumn<QString>("file");
    for (const QString &file : QDir(TEST_DESIGNS).entryList(QDir::Files))
        QTest::newRow(qPrintable(file)) << TEST_DESIGNS "/" + file;
}

// Each design ends in the netlist that it must give, in comments that begin with "//= " or "--= ".
void TestNetlistReader::tree()
{
    QFETCH(QString, file);
    QStringList expected;
    for (const QString &line : QString(contents(file)).split('\n'))
        if (line.startsWith("//= ") || line.startsWith("--= "))
            expected += line.mid(4).simplified().split(' ');
    QVERIFY(!expected.isEmpty());
    QCOMPARE(drawn(read(file).get()).join(' ').split(' '), expected);
}

void TestNetlistReader::declarations()
{
    const QString file = m_sources.write("top.sv", R"(package p1; typedef enum {X, Y=-5} e_t; endpackage
package p2; typedef enum {Z} e_t; endpackage
module top(input wire signed [7:0] a);
  typedef enum logic [2:0] {IDLE, RUN=5} state_t;
  state_t state;
  enum logic {OFF, ON} flag;
  logic [1:0][3:0] packs;
  p1::e_t unclear; p2::e_t other;
  struct packed { logic x; } rec;
  byte octet;
endmodule)");
    const std::unique_ptr<RtlNetlist> netlist = read(file);
    QVERIFY(netlist);
    QStringList lines;
    const auto note = [&](const QString &name, const Declaration &info) {
        QCOMPARE(info.file, file);
        lines += QString("%1 %2: %3").arg(name).arg(info.line).arg(info.type) +
                 (info.enumLabels.isEmpty() ? QString() : " = " + info.enumLabels.join(' '));
    };
    for (const RtlNetBus *bus : netlist->topHierarchy->buses)
        note(bus->BusName(), bus->declaration());
    note("flag", netlist->findNet("top/flag")->declaration());
    QCOMPARE(lines.join('\n'), QString("a[7:0] 3: logic signed [7:0]\n"
                                       "state[2:0] 5: state_t = IDLE=0 RUN=5\n"
                                       "packs[7:0] 7: logic [1:0][3:0]\n"
                                       "unclear[31:0] 8: e_t\n"
                                       "other[31:0] 8: e_t\n"
                                       "rec[0:0] 9: struct packed\n"
                                       "octet[7:0] 10: byte\n"
                                       "flag 6: enum logic = OFF=0 ON=1"));
}

void TestNetlistReader::unusableFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("message"); // empty: what a cancelled reading says
    QTest::newRow("missing") << QByteArray() << "ERROR: The elaborated design %1 cannot be read: ";
    const QString damaged = "ERROR: %1 is not a complete design that Verilator wrote. Read the design again.";
    QTest::newRow("empty") << QByteArray("") << damaged;
    QTest::newRow("other") << QByteArray("<project/>") << damaged;
    QTest::newRow("cut off") << QByteArray("<verilator_xml><netlist><module name=\"top\"") << damaged;
    QTest::newRow("no top")
        << QByteArray("<verilator_xml><netlist/></verilator_xml>")
        << "ERROR: The design has no top module. Add the file that holds it to the project.";
    const QByteArray endless = "<verilator_xml><netlist><module name=\"a\" origName=\"a\" topModule=\"1\">"
                               "<instance name=\"u\" defName=\"a\"/></module></netlist></verilator_xml>";
    QTest::newRow("endless") << endless << "ERROR: The module a contains itself.";
    QTest::newRow("cancelled") << endless << "";
}

void TestNetlistReader::unusableFiles()
{
    class Cancelling : public ElaborationProgress
    {
        void stage(const QString &) override {}
        bool cancelled() override { return true; }
    } cancelling;
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    const QString file = m_sources.path(QString(QTest::currentDataTag()) + ".xml");
    if (!content.isNull())
        m_sources.write(QFileInfo(file).fileName(), content);
    QStringList messages;
    const std::unique_ptr<RtlNetlist> netlist(
        netlistFromVerilatorXml(file, ReadOptions(), messages, message.isEmpty() ? &cancelling : nullptr));
    QVERIFY(!netlist);
    QCOMPARE(messages.size(), message.isEmpty() ? 0 : 1);
    message.replace("%1", file);
    QCOMPARE(messages.value(0).left(message.size()), message);
}

QTEST_GUILESS_MAIN(TestNetlistReader)
#include "tst_netlistreader.moc"
