// Yosys is the judge: on designs that both tools read, every name and range that it knows must be in the
// netlist, and no other.

#include "tests/quarry/elaborated.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QtTest>

#include <random>

using namespace QUARRY;

namespace {

QString ranged(const QString &path, int left, int right)
{
    return QString("%1 [%2:%3]").arg(path).arg(left).arg(right);
}

// Yosys joins scopes and instances by dots, and knows no difference between a net and a bus of one bit.
void addOurs(const Hierachy *node, QStringList &lines)
{
    const QString path = node->fullPathName() + '/';
    for (const RtlNet *net : node->nets)
        lines += ranged(path + net->name(), 0, 0).replace('/', '.');
    for (const RtlNetBus *bus : node->buses) {
        const QString name = bus->BusName();
        lines += QString(path + name).replace('/', '.').insert(path.size() + name.lastIndexOf('['), ' ');
    }
    for (const Hierachy *child : node->children)
        addOurs(child, lines);
}

class YosysDesign
{
public:
    YosysDesign(const QByteArray &json, const QString &vhdl)
        : m_modules(QJsonDocument::fromJson(json).object()["modules"].toObject()), m_vhdl(vhdl)
    {
    }

    void add(const QString &module, const QString &path, QStringList &lines) const
    {
        const QJsonObject nets = m_modules[module].toObject()["netnames"].toObject();
        for (auto it = nets.begin(); it != nets.end(); ++it) {
            const QJsonObject net = it.value().toObject();
            if (!net["hide_name"].toInt() && isWritten(module, it.key()))
                addNet(path + '.' + plain(it.key()), net, lines);
        }
        const QJsonObject cells = m_modules[module].toObject()["cells"].toObject();
        for (auto it = cells.begin(); it != cells.end(); ++it) {
            const QString type = it.value().toObject()["type"].toString();
            if (m_modules.contains(type))
                add(type, path + '.' + plain(it.key()), lines);
        }
    }

private:
    // It keeps the backslash of an escaped name that begins with a digit.
    static QString plain(QString name)
    {
        if (name.startsWith('\\'))
            name.remove(0, 1);
        return name.replace('/', '.');
    }

    static void addNet(const QString &path, const QJsonObject &net, QStringList &lines)
    {
        const int low = net["offset"].toInt();
        const int high = low + net["bits"].toArray().size() - 1;
        lines += net["upto"].toInt() ? ranged(path, low, high) : ranged(path, high, low);
    }

    // "f$func$..." holds the locals of a function. What GHDL made up does not stand in the VHDL.
    bool isWritten(const QString &module, const QString &name) const
    {
        if (name.contains("$func$"))
            return false;
        if (!m_vhdl.contains(QRegularExpression("\\bentity " + QRegularExpression::escape(module) + "\\b")))
            return true;
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
    QByteArray text;
    for (int module = 0; module < 12; ++module) {
        text += QString("module m%1 #(parameter W = 3) (input clk);\n").arg(module).toUtf8();
        for (int net = 0; net < 8; ++net) {
            const QString range = number(3) == 0 ? QString()
                                  : number(3) == 0
                                      ? QString("[W+%1:%1] ").arg(number(4))
                                      : QString("[%1:%2] ").arg(number(20) - 5).arg(number(20) - 5);
            text += QString("  %1 %2net_%3;\n").arg(number(2) ? "wire" : "reg").arg(range).arg(net).toUtf8();
        }
        for (int child = 0; module > 0 && child < 2; ++child) {
            const QString instance =
                QString("m%1 #(.W(%2)) u%3(clk);").arg(number(module)).arg(1 + number(5)).arg(child);
            const QString loop =
                QString("genvar g%1; generate for (g%1 = %2; g%1 < %3; g%1 = g%1 + 1) begin : s%1 "
                        "wire [g%1:0] w; %4 end endgenerate");
            text +=
                "  " + (number(2) ? instance : loop.arg(child).arg(number(3)).arg(4).arg(instance)).toUtf8();
            text += "\n";
        }
        text += "endmodule\n";
    }
    return text + "module top(input clk); m11 u(clk); m10 #(7) v(clk); endmodule\n";
}

} // namespace

class TestYosysNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameNames_data();
    void sameNames();

private:
    QString compared(const QStringList &sources, const QString &top, const QString &vhdl = QString());

    Elaborated m_elaborated;
};

void TestYosysNames::sameNames_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &file : QDir(TEST_DESIGNS).entryList(QDir::Files))
        QTest::newRow(qPrintable(file)) << QString(TEST_DESIGNS "/") + file;
    for (const char *seed : {"1", "2", "3"})
        QTest::newRow(qPrintable(QString("generated ") + seed)) << QString(seed);
    QTest::newRow("example") << QString();
}

QString TestYosysNames::compared(const QStringList &sources, const QString &top, const QString &vhdl)
{
    const QStringList include(EXAMPLES "/soc/rtl");
    const QString script = QString("read_verilog -sv -I%1 %2; hierarchy -top %3; proc; write_json %4")
                               .arg(include.first(), sources.join(' '), top, m_elaborated.path("yosys.json"));
    QString error;
    m_elaborated.run("yosys", {"-q", "-p", script}, error);
    if (!error.isEmpty())
        return error;
    QFile json(m_elaborated.path("yosys.json"));
    if (!json.open(QIODevice::ReadOnly))
        return json.errorString();
    QStringList wanted;
    YosysDesign(json.readAll(), vhdl).add(top, top, wanted);

    ReadOptions options;
    options.top = top;
    options.generated = QSet<QString>({m_elaborated.path("vhdl.v")});
    QStringList messages;
    const std::unique_ptr<RtlNetlist> read(
        netlistFromVerilatorXml(m_elaborated.xml(top, sources, include), options, messages, nullptr));
    if (!read)
        return messages.join('\n');
    QStringList ours;
    addOurs(read->topHierarchy, ours);
    if (ours.size() < 5)
        return "too few names to tell anything";
    const QSet<QString> known(wanted.begin(), wanted.end());
    const QSet<QString> shown(ours.begin(), ours.end());
    QStringList differences;
    for (const QString &line : (known - shown).values())
        differences += "missing: " + line;
    for (const QString &line : (shown - known).values())
        differences += "too many: " + line;
    if (ours.size() != shown.size())
        differences += "a name twice";
    differences.sort();
    return differences.join('\n');
}

void TestYosysNames::sameNames()
{
    QFETCH(QString, name);
    QStringList sources(name);
    QString top = "top";
    QString vhdl;
    if (name.isEmpty()) {
        const QDir folder(EXAMPLES "/soc/rtl");
        top = "soc";
        sources = QStringList({folder.filePath("soc_types.sv"), folder.filePath("soc_pkg.sv")});
        for (const QString &file : folder.entryList({"*.v", "*.sv"}, QDir::Files))
            if (!sources.contains(folder.filePath(file)))
                sources += folder.filePath(file);
        QByteArray verilog;
        QString error;
        for (const QString &file : folder.entryList({"*.vhd"}, QDir::Files)) {
            const QString path = folder.filePath(file);
            verilog += m_elaborated.run("ghdl", {"--synth", "--std=08", "--out=verilog", path, "-e"}, error);
            QVERIFY2(error.isEmpty(), qPrintable(error));
            QFile source(path);
            QVERIFY(source.open(QIODevice::ReadOnly));
            vhdl += source.readAll();
        }
        sources += m_elaborated.write("vhdl.v", verilog);
    } else if (!name.contains('/')) {
        sources = QStringList(m_elaborated.write("generated.v", generatedDesign(name.toUInt())));
    }
    const QString differences = compared(sources, top, vhdl);
    QVERIFY2(differences.isEmpty(), qPrintable(differences));
}

QTEST_GUILESS_MAIN(TestYosysNames)
#include "tst_yosysnames.moc"
