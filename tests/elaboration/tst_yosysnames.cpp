// Yosys is the judge: on designs that both tools read, every name and range that it knows must be in the
// netlist, and no other.

#include "tests/elaboration/yosysdesign.h"

#include <QtTest>

#include <memory>
#include <random>

using namespace QUARRY;

namespace {

// Modules that instantiate those before them, with ranges, parameters and loops drawn at random.
QByteArray generatedDesign(unsigned seed)
{
    std::mt19937 random(seed);
    const auto number = [&random](int below) { return int(random() % unsigned(below)); };
    const QString loop = "genvar g%1; generate for (g%1 = %2; g%1 < 4; g%1 = g%1 + 1) begin : s%1 "
                         "wire [g%1:0] w; %3 end endgenerate";
    QString text;
    for (int module = 0; module < 12; ++module) {
        text += QString("module m%1 #(parameter W = 3) (input clk);\n").arg(module);
        for (int net = 0; net < 8; ++net) {
            const QString ranges[] = {"", QString("[W+%1:%1] ").arg(number(4)),
                                      QString("[%1:%2] ").arg(number(20) - 5).arg(number(20) - 5)};
            text += QString("  %1 %2net_%3;\n").arg(number(2) ? "wire" : "reg", ranges[number(3)]).arg(net);
        }
        for (int child = 0; module > 0 && child < 2; ++child) {
            const QString instance =
                QString("m%1 #(.W(%2)) u%3(clk);").arg(number(module)).arg(1 + number(5)).arg(child);
            text += (number(2) ? instance : loop.arg(child).arg(number(3)).arg(instance)) + '\n';
        }
        text += "endmodule\n";
    }
    return text.toUtf8() + "module top(input clk); m11 u(clk); m10 #(7) v(clk); endmodule\n";
}

} // namespace

class YosysNamesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameNames_data()
    {
        QTest::addColumn<QStringList>("files");
        QStringList files = QDir(TEST_DESIGNS).entryList({"*.v", "types.sv"});
        files.removeAll("encrypted.v"); // which Yosys refuses
        for (const QString &file : files)
            QTest::newRow(qPrintable(file)) << QStringList(TEST_DESIGNS "/" + file);
        for (unsigned seed : {1, 2, 3}) {
            const QString name = QString("generated%1.v").arg(seed);
            QTest::newRow(qPrintable(name)) << QStringList(m_sources.write(name, generatedDesign(seed)));
        }
        QStringList example{EXAMPLES "/soc/rtl/soc_types.sv", EXAMPLES "/soc/rtl/soc_pkg.sv"};
        for (const QFileInfo &file : QDir(EXAMPLES "/soc/rtl").entryInfoList({"*.v", "*.sv", "*.vhd"})) {
            if (!example.contains(file.filePath()))
                example += file.filePath();
        }
        QTest::newRow("example") << example;
    }

    void sameNames()
    {
        QFETCH(QStringList, files);
        DesignInput input = m_sources.input(files);
        input.top = files.size() > 1 ? "soc" : "top";
        input.includePaths += EXAMPLES "/soc/rtl";
        QStringList messages;
        const std::unique_ptr<RtlNetlist> netlist(buildNetlist(input, messages));
        QVERIFY2(netlist, qPrintable(messages.join('\n')));

        QString vhdl;
        QByteArray translated;
        for (const QString &file : files.filter(".vhd")) {
            vhdl += contents(file);
            translated += runIn(m_sources, "ghdl", {"--synth", "--std=08", "--out=verilog", file, "-e"});
            files.removeAll(file);
        }
        files += m_sources.write("vhdl.v", translated);
        runIn(m_sources, "yosys",
              {"-q", "-p",
               QString("read_verilog -sv -I%1 %2; hierarchy -top %3; proc; write_json yosys.json")
                   .arg(input.includePaths.first(), files.join(' '), input.top)});
        QSet<QString> known;
        YosysDesign(m_sources.read("yosys.json"), vhdl).add(input.top, input.top, known);

        Names ours;
        addOurs(netlist->topHierarchy, vhdl, ours);
        const QSet<QString> shown(ours.all.begin(), ours.all.end());
        QVERIFY2(ours.all.size() >= 5, "too few names to tell anything");
        QCOMPARE(ours.all.size(), shown.size()); // none twice
        QCOMPARE(QStringList((known - shown).values()).join('\n'), QString());
        QCOMPARE(QStringList((shown - known - ours.mayBeUnknown).values()).join('\n'), QString());
    }

private:
    Sources m_sources;
};

QTEST_GUILESS_MAIN(YosysNamesTest)
#include "tst_yosysnames.moc"
