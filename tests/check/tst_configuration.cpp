#include "check/configuration.h"
#include "check/designjudgement.h"
#include "check/rebinding.h"
#include "elaboration/elaboration.h"
#include "model/netlist/rtlnetlist.h"
#include "tests/support/files.h"
#include "tests/support/netlisttext.h"
#include "tests/support/tablerow.h"

using namespace RTLJEX;

const char standardFile[] = R"(<jexconfig version="1" mode="Standard">
<core number="4" clock="top/clok" topModule="top"><signals><signal name="top/d"/></signals></core>
<core number="2"/></jexconfig>)";
const char liteFile[] = R"(<jexconfig version="1" mode="Lite">
<core number="3" clock="top/clok"><signals><signal name="top/d"/></signals></core></jexconfig>)";

// "Standard: 4 top/clok top 1+1 standard, ..." with the rows and those of them that are enabled.
static QString shown(const Configuration &configuration)
{
    QStringList cores;
    for (const AnyCore &core : configuration.cores())
        cores << QString("%1 %2 %3 %4+%5")
                         .arg(core.number)
                         .arg(*core.clock, *core.topModule)
                         .arg(core.signalRows->size())
                         .arg(core.enabledRows->size()) +
                     (core.standard ? " standard" : " lite");
    return configuration.modeName() + ": " + cores.join(", ");
}

class ConfigurationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void reading_data()
    {
        textColumns("file", "free", "standard",
                    "lite"); // what configurations of no mode and of each make of it
        row("Standard", standardFile, "Standard: 4 top/clok top 1+1 standard, 2   0+0 standard",
            "accepted Standard: 4 top/clok top 1+1 standard, 2   0+0 standard",
            "The file \"FILE\" is a Standard configuration, not a Lite one.");
        row("Lite", liteFile, "Lite: 3 top/clok  1+1 lite",
            "The file \"FILE\" is a Lite configuration, not a Standard one.",
            "accepted Lite: 3 top/clok  1+1 lite");
        // Well-formed, so that the user is told what is wrong with it.
        row("wrong value", QString(liteFile).replace("\"3\"", "\"16\""),
            "Line 2 of the file \"FILE\": \"number\" of <core> is \"16\"; it must be a number from 0 to 15.",
            "The file \"FILE\" is a Lite configuration, not a Standard one.",
            "accepted Line 2 of the file \"FILE\": \"number\" of <core> is \"16\"; it must be a number from "
            "0 "
            "to 15.");
        const char neither[] = "The file \"FILE\" is no JEX configuration: its outermost element is <html>.";
        row("neither", "<html/>", neither, neither, neither);
    }
    void reading()
    {
        auto [file, free, standard, lite] = textCells("file", "free", "standard", "lite");
        const Folder folder;
        const QString path = folder.write("a.zub", file.toUtf8());
        const Rows<JEX::JexMode, QString> modes = {
            {JEX::InvalidMode, free}, {JEX::StandardMode, standard}, {JEX::LiteMode, lite}};
        for (const auto &[mode, expected] : modes) {
            Configuration configuration(mode);
            QString error, found = configuration.accepts(path) ? "accepted " : "";
            const bool ok = configuration.read(path, &error);
            QCOMPARE(ok, error.isEmpty());
            QCOMPARE(configuration.cores().isEmpty(), !ok);
            found += ok ? shown(configuration) : error.replace(path, "FILE");
            QCOMPARE(found, expected);
        }
    }

    // What was there is gone, whether or not the second file can be read; exchanged cores go with their mode.
    void readingAgain()
    {
        const Folder folder;
        Configuration a, b;
        QVERIFY(a.read(folder.write("a.zub", standardFile), nullptr));
        QVERIFY(b.read(folder.write("b.zub", liteFile), nullptr));
        QCOMPARE(a.coresOf<JEX::AoCore>().size(), 2);
        QVERIFY(a.read(folder.path("a.zub"), nullptr));
        QCOMPARE(a.cores().size(), 2);
        a.swap(b);
        QCOMPARE(shown(a) + " | " + shown(b),
                 QString("Lite: 3 top/clok  1+1 lite | "
                         "Standard: 4 top/clok top 1+1 standard, 2   0+0 standard"));
        QVERIFY(!b.read(folder.path("none.zub"), nullptr));
        QCOMPARE(shown(b), QString("Standard: "));
    }

    void writing()
    {
        const Folder folder;
        for (const char *file : {standardFile, liteFile}) {
            Configuration configuration;
            QString error;
            QByteArray bytes;
            QVERIFY(configuration.read(folder.write("a.zub", file), &error));
            QVERIFY(configuration.toBytes(&bytes, &error));
            QVERIFY2(configuration.write(folder.path("b.zub"), &error), qPrintable(error));
            QCOMPARE(folder.read("b.zub"), bytes);
            Configuration copy;
            QVERIFY(copy.read(folder.path("b.zub"), &error));
            QCOMPARE(shown(copy), shown(configuration));

            QVERIFY(!configuration.write(folder.path("none/b.zub"), &error));
            QCOMPARE(error, "Can not save to " + folder.path("none/b.zub") +
                                ": creating a file in its folder failed (No such file or directory).");
            configuration.cores().first().signalRows->first().type = 7;
            QVERIFY(!configuration.write(folder.path("b.zub"), &error));
            QCOMPARE(error, "The file \"" + folder.path("b.zub") +
                                "\" is not written: The value 7 of \"type\" must be one of group, net, bus.");
            QCOMPARE(folder.read("b.zub"), bytes);
        }
    }

    // What a command does when somebody else writes the file between its reading and its writing.
    void rewriting()
    {
        const QByteArray loose = R"(<jexconfig version="1" mode="Lite"><core number="0"/></jexconfig>)";
        const QByteArray other = R"(<jexconfig version="1" mode="Lite"><core number="1"/></jexconfig>)";
        const Folder dir;
        const QString path = dir.write("a.zub", loose);
        Configuration configuration;
        QString error;
        QVERIFY2(configuration.read(path, &error), qPrintable(error));
        dir.write("a.zub", other); // of the same size, at the same moment
        QVERIFY(!configuration.rewrite(path, &error));
        QCOMPARE(error, "The file \"" + path +
                            "\" has changed since it was read, and is left as it is. Run the command again.");
        QCOMPARE(dir.read("a.zub"), other);
        dir.write("new.zub", loose); // written anew, but the same
        QVERIFY(QFile::remove(path));
        QVERIFY(QFile::rename(dir.path("new.zub"), path));
        QVERIFY2(configuration.rewrite(path, &error), qPrintable(error));
        QVERIFY(dir.read("a.zub").contains("captureAmount"));
        QVERIFY(QFile::remove(path)); // nothing is lost
        QVERIFY(configuration.rewrite(path, &error));
        QVERIFY(QFile::exists(path));
    }

    // What a file had wrong before is no reason to refuse a new name; the same fault once more is.
    void rebindsWhatWasBroken()
    {
        const Folder folder;
        const std::unique_ptr<QUARRY::RtlNetlist> netlist(netlistFromText("top\n  clk\n  b\n"));
        const QPair<const char *, const char *> names[] = {{"top/b", ""},
                                                           {"top/clk", "A list would hold top/clk twice."}};
        for (const auto &name : names) {
            Configuration configuration;
            QVERIFY(configuration.read(
                folder.write("a.zub", QByteArray(liteFile).replace(
                                          "<signal name=\"top/d\"/>",
                                          "<signal name=\"top/clk\"/><signal name=\"top/clk\"/>"
                                          "<signal name=\"top/a\"/>")),
                nullptr));
            Renaming renaming;
            QVERIFY(renaming.set("top/a", name.first, nullptr));
            QCOMPARE(rebind(renaming, *netlist, configuration).refusal, QString(name.second));
        }
    }

    void judging_data()
    {
        textColumns("file", "errors", "stale");
        row("Standard", standardFile,
            "Core 4: No available trigger ports\nCore 4: No available match units\n"
            "Core 4: No expressions specified\nCore 4: The specified sample clock does not exist\n"
            "Core 2: No available trigger ports\nCore 2: No available match units\n"
            "Core 2: No expressions specified\nCore 2: No sample clock specified\n"
            "Core 2: No capture signals specified",
            "Core 4: clock signal top/clok is missing in the design; nearest: top/clk\n"
            "Core 4: capture signal top/d is missing in the design");
        // Lite cores are told by their position.
        row("Lite", liteFile, "Core 0: The specified sample clock does not exist",
            "Core 0: clock signal top/clok is missing in the design; nearest: top/clk\n"
            "Core 0: capture signal top/d is missing in the design");
        row("nothing", R"(<jexconfig version="1" mode="Lite"/>)", "", "");
    }
    void judging()
    {
        QFETCH(QString, file);
        const Folder folder;
        const std::unique_ptr<QUARRY::RtlNetlist> netlist(netlistFromText("top\n  clk\n"));
        Configuration configuration;
        QVERIFY(configuration.read(folder.write("a.zub", file.toUtf8()), nullptr));
        QString errors;
        const bool isGood = configuration.check(netlist.get(), &errors);
        QCOMPARE(isGood, errors.isEmpty());
        const FileFindings findings = configuration.judge(*netlist);
        QStringList stale;
        for (const StaleSignal &signal : findings.stale)
            stale << staleSentence(signal);
        QTEST(errors, "errors");
        QTEST(findings.errors.join('\n'), "errors");
        QTEST(stale.join('\n'), "stale");
        QCOMPARE(findings.isEmpty(), errors.isEmpty() && stale.isEmpty());
    }

    // What real designs give is tested with the editors; here is what they hardly do.
    void designs()
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
        for (const auto &[found, expected] : rows) {
            const QString told = found.title + " | " + found.text + found.details.join(" / ");
            QCOMPARE(found.isNull() ? QString() : told, QString(expected));
        }
    }
};

QTEST_GUILESS_MAIN(ConfigurationTest)
#include "tst_configuration.moc"
