// Yosys is the judge: on designs that both tools read, every name and range that it knows must be in the
// netlist, and no other.

#include "tests/elaboration/sources.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

#include <memory>
#include <random>

using namespace QUARRY;

namespace {

QString ranged(const QString &path, int left, int right)
{
    return QString("%1 [%2:%3]").arg(path).arg(left).arg(right);
}

// Yosys joins scopes and instances by dots, and knows no difference between a net and a bus of one bit.
QString asYosysWritesIt(const QString &path)
{
    return QString(path).replace('/', '.');
}

struct Names
{
    QStringList all;
    QSet<QString> mayBeUnknown; // GHDL drops what nothing reads, Yosys never sees it
};

void addOurs(const Hierachy *node, const QString &vhdl, Names &names)
{
    const int first = names.all.size();
    const QString path = node->fullPathName() + '/';
    for (const RtlNet *net : node->nets)
        names.all += ranged(asYosysWritesIt(path + net->name()), 0, 0);
    for (const RtlNetBus *bus : node->buses) {
        const QString name = bus->BusName();
        names.all += asYosysWritesIt(path + name).insert(path.size() + name.lastIndexOf('['), ' ');
    }
    if (vhdl.contains("entity " + node->moduleName + " is"))
        names.mayBeUnknown += QSet<QString>(names.all.begin() + first, names.all.end());
    for (const Hierachy *child : node->children)
        addOurs(child, vhdl, names);
}

class YosysDesign
{
public:
    YosysDesign(const QByteArray &json, const QString &vhdl)
        : m_modules(QJsonDocument::fromJson(json).object()["modules"].toObject()), m_vhdl(vhdl)
    {
    }

    void add(const QString &module, const QString &path, QSet<QString> &names) const
    {
        const QJsonObject nets = m_modules[module].toObject()["netnames"].toObject();
        for (auto it = nets.begin(); it != nets.end(); ++it) {
            const QJsonObject net = it.value().toObject();
            const int low = net["offset"].toInt();
            const int high = low + net["bits"].toArray().size() - 1;
            const bool upwards = net["upto"].toInt();
            if (!net["hide_name"].toInt() && isWritten(module, it.key()))
                names += ranged(path + '.' + plain(it.key()), upwards ? low : high, upwards ? high : low);
        }
        const QJsonObject memories = m_modules[module].toObject()["memories"].toObject();
        for (auto it = memories.begin(); it != memories.end(); ++it) {
            const QJsonObject memory = it.value().toObject();
            const int size = memory["size"].toInt();
            for (int i = 0; i < size && size <= 32; ++i)
                names += ranged(
                    QString("%1.%2[%3]").arg(path, plain(it.key())).arg(memory["start_offset"].toInt() + i),
                    memory["width"].toInt() - 1, 0);
        }
        const QJsonObject cells = m_modules[module].toObject()["cells"].toObject();
        for (auto it = cells.begin(); it != cells.end(); ++it) {
            const QString type = it.value().toObject()["type"].toString();
            if (m_modules.contains(type))
                add(type, path + '.' + plain(it.key()), names);
        }
    }

private:
    // It keeps the backslash of an escaped name that begins with a digit.
    static QString plain(QString name)
    {
        if (name.startsWith('\\'))
            name.remove(0, 1);
        return asYosysWritesIt(name);
    }

    // "f$func$..." holds the locals of a function. What GHDL made up does not stand in the VHDL.
    bool isWritten(const QString &module, const QString &name) const
    {
        if (!m_vhdl.contains("entity " + module + " is"))
            return !name.contains("$func$");
        return m_vhdl.contains(QRegularExpression("\\b" + QRegularExpression::escape(name) + "\\b"));
    }

    QJsonObject m_modules;
    QString m_vhdl;
};

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
            translated += run("ghdl", {"--synth", "--std=08", "--out=verilog", file, "-e"});
            files.removeAll(file);
        }
        files += m_sources.write("vhdl.v", translated);
        run("yosys", {"-q", "-p",
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
    QByteArray run(const QString &program, const QStringList &arguments) const
    {
        QProcess process;
        process.setWorkingDirectory(m_sources.path());
        process.start(program, arguments);
        if (!process.waitForFinished(120000) || process.exitCode() != 0)
            qFatal("%s: %s", qPrintable(program), process.readAllStandardError().constData());
        return process.readAllStandardOutput();
    }

    Sources m_sources;
};

QTEST_GUILESS_MAIN(YosysNamesTest)
#include "tst_yosysnames.moc"
