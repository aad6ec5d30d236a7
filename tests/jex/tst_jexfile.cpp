#include <sys/stat.h>

#include "host/eventmanager.h"
#include "model/jex/jexfile.h"
#include "tests/support/files.h"
#include "tests/support/tablerow.h"

using namespace JEX;

const char liteFile[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<jexconfig version="1" mode="Lite">
    <core number="0" clock="top/clk" edge="falling" implementation="SSRAM" captureAmount="64" inputRegister="true" captureInitialData="false" topModule="">
        <signals>
            <signal name="top/u0/cnt[1:0]" type="bus" alias="größe &lt;&quot;&amp;%1&quot;&gt;">
                <signal name="top/u0/cnt[1]" type="bus" alias=" msb&#9;&#10;&#13;"/>
                <signal name="top/u0/cnt[0]" type="bus" aux="false"/>
            </signal>
            <signal name="group_0[1:0]" type="group" capture="false">
                <signal name="top/a" type="net" capture="false" valid="false"/>
                <signal name="top/\b[0] " type="bus" capture="false"/>
            </signal>
            <signal name="top/ready" type="net"/>
        </signals>
    </core>
    <core number="1" clock="" edge="rising" implementation="REG" captureAmount="2" inputRegister="false" captureInitialData="true" topModule="top">
        <signals/>
        <enabled>
            <signal name="top/x" type="net"/>
        </enabled>
    </core>
</jexconfig>
)";

// Each attribute has another value than that of a new record somewhere, so that one that is not read is
// missed.
const char standardFile[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<jexconfig version="1" mode="Standard">
    <core number="3" clock="top/clk" edge="falling" triggerMode="static" triggerImplementation="REG" captureImplementation="SSRAM" storageSize="8" segments="3" captureAmount="0" triggerPosition="-4" forceTriggerByFallingEdge="true" captureInitialData="true" topModule="top">
        <port number="2">
            <signal name="top/a[1:0]" type="bus">
                <signal name="top/a[1]" type="bus"/>
                <signal name="top/a[0]" type="bus"/>
            </signal>
            <signal name="top/b" type="net"/>
        </port>
        <unit number="0" enabled="true" port="2" function="inRange" value="1X0" upperValue="111"/>
        <unit number="15" enabled="false" port="4" function="equal" value=""/>
        <expression text="M0&amp;&amp;!M1"/>
        <expression text="M0"/>
        <signals/>
    </core>
</jexconfig>
)";

const char core1[] = "<core number=\"1\"";
const char m0[] = "<expression text=\"M0\"/>";

class JexFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void liteRoundTrip()
    {
        put(m_path, liteFile);
        QCOMPARE(jexModeFromJexConfigFile(m_path), LiteMode);
        QVERIFY(checkJEXLiteFile(m_path));
        QVERIFY(!checkJEXStandardFile(m_path));
        bool ok = false;
        QList<AOCore_Lite *> cores = readJEXConfigFromXml_Lite(m_path, &ok, nullptr);
        QVERIFY(ok);
        QCOMPARE(cores.size(), 2);
        const AOCore_Lite &core = *cores.first();
        QCOMPARE(core.sampleEdge, qint32(FallingEdge));
        QCOMPARE(core.implementation, 2);
        QVERIFY(core.enableCaptureDataInputRegister);
        QVERIFY(!core.captureInitialData);
        QCOMPARE(core.captureSignals[0].alias, QString::fromUtf8("größe <\"&%1\">"));
        QCOMPARE(core.captureSignals[0].members[0].alias, QString(" msb\t\n\r"));
        QVERIFY(!core.captureSignals[0].members[1].auxFlag);
        QVERIFY(!core.captureSignals[1].members[0].valid);
        QCOMPARE(core.captureSignals[1].type, -1);
        QCOMPARE(core.captureSignals[2].type, 0);
        QCOMPARE(core.enabledCaptureSignals,
                 QList<SignalItem>({core.captureSignals[0], core.captureSignals[2]}));
        QCOMPARE(cores.last()->enabledCaptureSignals.size(), 1);

        QVERIFY(writeJEXConfigToXml_Lite(cores, m_path));
        QCOMPARE(contents(m_path), QByteArray(liteFile));
        qDeleteAll(cores);
    }

    void standardRoundTrip()
    {
        put(m_path, standardFile);
        QCOMPARE(jexModeFromJexConfigFile(m_path), StandardMode);
        QVERIFY(checkJEXStandardFile(m_path));
        QVERIFY(!checkJEXLiteFile(m_path));
        QList<AoCore *> cores = readJEXConfigFromXml(m_path, nullptr, nullptr);
        QCOMPARE(cores.size(), 1);
        const AoCore &core = *cores.first();
        QCOMPARE(core.triggerPorts.size(), 16);
        QCOMPARE(core.availableTriggers(), QList<TriggerPort *>() << core.getTrigger(2));
        QCOMPARE(core.getTrigger(2)->singleSignals().size(), 3);
        QCOMPARE(core.enabledMatchUnits(), QList<MatchUnit *>() << core.matchUnit(0));
        QCOMPARE(core.matchUnit(0)->triggerPort, core.getTrigger(2));
        QCOMPARE(core.matchUnit(15)->triggerPort, core.getTrigger(4));
        QVERIFY(!core.matchUnit(16));
        QVERIFY(!core.getTrigger(-1));
        QCOMPARE(core.expressions, QStringList({"M0&&!M1", "M0"}));
        QCOMPARE(core.windowNumber, 3);

        QVERIFY(writeJEXConfigToXml(cores, m_path));
        QCOMPARE(contents(m_path), QByteArray(standardFile));
        qDeleteAll(cores);
    }

    // What an editor seldom writes, but others may: it is read, and written back to the byte.
    void oddCores_data()
    {
        textColumns("body", "enabled");
        const QByteArray unit = R"(
        <unit number="0" enabled="true" function="equal" value=""/>
        <signals/>)";
        row("numbers of units begin anew", unit, "");
        row("a unit with nothing but a function",
            QByteArray(unit).replace("true", "false").replace("equal", "less"), "");
        row("an upper value that nobody asks for",
            QByteArray(unit).replace(R"(value="")", R"(value="1" upperValue="0")"), "");
        row("the highest trigger position", "\n        <signals/>", "");
        const QByteArray signalList = R"(
        <signals>
            <signal name="top/a" type="net"/>
            <signal name="top/b" type="net" capture="false"/>
        </signals>)";
        row("what is enabled is captured", signalList, "top/a");
        row("nothing is captured, whatever is enabled", signalList + "\n        <enabled/>", "");
    }
    void oddCores()
    {
        QFETCH(QString, body);
        const QString head = QString(standardFile).section('\n', 0, 1) + '\n';
        const QString core = QString(standardFile).section('\n', 2, 2).replace("\"-4\"", "\"65532\"") + body +
                             "\n    </core>\n";
        const QString text =
            head + core + QString(core).replace("core number=\"3\"", "core number=\"4\"") + "</jexconfig>\n";
        put(m_path, text.toUtf8());
        QString error;
        const QList<AoCore *> cores = readJEXConfigFromXml(m_path, nullptr, &error);
        QCOMPARE(error, QString());
        QCOMPARE(cores.size(), 2);
        QStringList enabled;
        for (const SignalItem &item : cores.last()->enabledCaptureSignals)
            enabled << item.name;
        QTEST(enabled.join(' '), "enabled");
        QVERIFY(writeJEXConfigToXml(cores, m_path));
        QCOMPARE(QString(contents(m_path)), text);
        qDeleteAll(cores);
    }

    void emptyFilesAndNone()
    {
        fillInfoForEmptyJexConfig(m_path, LiteMode);
        QVERIFY(checkJEXLiteFile(m_path));
        bool ok = false;
        QVERIFY(readJEXConfigFromXml_Lite(m_path, &ok, nullptr).isEmpty());
        QVERIFY(ok);
        fillInfoForEmptyJexConfig(m_path, StandardMode);
        ok = false;
        QVERIFY(readJEXConfigFromXml(m_path, &ok, nullptr).isEmpty());
        QVERIFY(ok);
        const QByteArray before = contents(m_path);
        fillInfoForEmptyJexConfig(m_path, InvalidMode);
        QCOMPARE(contents(m_path), before);
        QString error;
        QVERIFY(readJEXConfigFromXml_Lite("/none.zub", nullptr, &error).isEmpty());
        QCOMPARE(error, QString("The file \"/none.zub\" cannot be read: No such file or directory."));
        QCOMPARE(jexModeFromJexConfigFile("/none.zub"), InvalidMode);
    }

    // Whatever a file holds, writing it back must not make it unreadable.
    void textThatXmlCannotHold()
    {
        AOCore_Lite core;
        core.captureSignals.append(SignalItem());
        core.captureSignals[0].alias = QString("a") + QChar(1) + QChar(0xd800) + "b" + QChar(0xffff) +
                                       QString::fromUtf8("😀") + QChar(0xdc00) + QChar(0xd800);
        core.enabledCaptureSignals = core.captureSignals;
        QVERIFY(writeJEXConfigToXml_Lite({&core}, m_path));
        QString error;
        QList<AOCore_Lite *> read = readJEXConfigFromXml_Lite(m_path, nullptr, &error);
        QCOMPARE(error, QString());
        QCOMPARE(read[0]->captureSignals[0].alias, QString::fromUtf8("a\ufffd\ufffdb\ufffd😀\ufffd\ufffd"));
        qDeleteAll(read);
    }

    // What is said of a file, the part of the first or second one above that makes it so, and what stands
    // there.
    void faults_data()
    {
        textColumns("old", "fresh");
        row("22: this is no well-formed XML: Premature end of document.", "</jexconfig>\n", "");
        row("14: this is no well-formed XML: Opening and ending tag mismatch.", "</signals>", "</signal>");
        row("23: this is no well-formed XML: Extra content at end of document.", "fig>\n",
            "fig>\n<jexconfig/>");
        row(" is no JEX configuration: its outermost element is <project>.", "jexconfig", "project");
        row(R"( has the format version "2"; this editor reads version 1.)", R"("1" mode)", R"("2" mode)");
        row(R"( has the mode ""; it must be Standard or Lite.)", R"( mode="Lite")", "");
        row(" is a Standard configuration, not a Lite one.", "Lite", "Standard");
        row(R"(16: <core> has an attribute "colour" that is not known.)", core1,
            R"(<core number="1" colour="")");
        row(R"(2: <jexconfig> has an attribute "date" that is not known.)", "mode=", R"(date="now" mode=)");
        row("18: <port> is not expected here.", "<enabled>", R"(<port number="0"/><enabled>)");
        row(R"(18: there is text between the elements: "zzz".)", "<enabled>", "zzz<enabled>");
        row(R"(18: there is text between the elements: "<![CDATA[ ]]>".)", "<enabled>",
            "<![CDATA[ ]]><enabled>");
        row("2: a configuration holds no document type declaration.", "<jexconfig",
            R"(<!DOCTYPE jexconfig [<!ENTITY a "b">]><jexconfig)");
        row(R"(3: "edge" of <core> is "up"; it must be one of rising, falling.)", "\"falling\"", "\"up\"");
        row(R"(3: "captureAmount" of <core> is "100"; it must be a power of two from 2 to 65536.)", "\"64\"",
            "\"100\"");
        row(R"(16: "number" of <core> is "99999999999"; it must be a number from 0 to 15.)", core1,
            R"(<core number="99999999999")");
        row(R"(16: <core> has no "number".)", core1, "<core");
        row("16: there is a second <core> with the number 0.", core1, R"(<core number="0")");
        row(R"(7: "aux" of <signal> is "0"; it must be true or false.)", R"(aux="false")", R"(aux="0")");
        row(R"(19: <signal> has no "name".)", R"(<signal name="top/x")", "<signal");
        row("18: the core has a second <signals>.", "<enabled>", "<signals/><enabled>");
        row("19: signals are nested more than 8 deep.", R"(<signal name="top/x" type="net"/>)",
            QByteArray(R"(<signal name="a">)").repeated(100000));
        QByteArray cores;
        for (int i = 1; i < 16; ++i)
            cores += "<core number=\"" + QByteArray::number(i) + "\"/>";
        row("16: there are more than 16 cores.", core1, cores + core1);

        row(R"(12: "number" of <unit> is "16"; it must be a number from 0 to 15.)", R"(number="15")",
            R"(number="16")");
        row("12: there is a second <unit> with the number 0.", R"(number="15")", R"(number="0")");
        row(R"(11: "function" of <unit> is "near"; it must be one of equal, notEqual, less, greater, inRange.)",
            "inRange", "near");
        row(R"(11: "value" of <unit> is "1x"; it must be made of 0, 1, X, R, F, B and N.)", "1X0", "1x");
        for (const QByteArray number : {"+0", "00", "0 "})
            row("12: \"number\" of <unit> is \"" + number + "\"; it must be a number from 0 to 15.",
                R"(number="15")", "number=\"" + number + '"');
        row(R"(3: "triggerPosition" of <core> is "65533"; it must be a number from -4 to 65532.)", "\"-4\"",
            "\"65533\"");
        row("14: the core has more than 16 expressions.", m0, QByteArray(m0).repeated(16));
        row(R"(14: <expression> has no "text".)", m0, "<expression/>");
    }
    void faults()
    {
        auto [old, fresh] = textCells("old", "fresh");
        const bool isLite = QString(liteFile).contains(old);
        put(m_path, QString(isLite ? liteFile : standardFile).replace(old, fresh).toUtf8());
        bool ok = true;
        QString error;
        QVERIFY(isLite ? readJEXConfigFromXml_Lite(m_path, &ok, &error).isEmpty()
                       : readJEXConfigFromXml(m_path, &ok, &error).isEmpty());
        const QString message = QTest::currentDataTag(), line = message.section(':', 0, 0),
                      file = '"' + m_path + '"';
        QCOMPARE(error, message[0] == ' '
                            ? "The file " + file + message
                            : "Line " + line + " of the file " + file + message.mid(line.size()));
        QVERIFY(!ok);
        // What a file is and whether it is XML is told without reading its values.
        const QRegularExpression noFile("XML|mode|outermost|a Standard|type declaration|nested");
        QCOMPARE(isLite ? checkJEXLiteFile(m_path) : checkJEXStandardFile(m_path), !message.contains(noFile));
    }

    // A million attributes would hang the reader of the XML, and a text can be dressed up to hide them.
    void bounds_data()
    {
        textColumns("text", "said");
        const QByteArray file = R"(<jexconfig version="1" mode="Lite">)", tail = "</jexconfig>";
        const QByteArray many = "<a" + QByteArray(" a=\"<'\"").repeated(65) + "/>";
        const char *const said = "Line 1 of the file \"%1\": an element has more than 64 attributes.";
        row("plain", file + many + tail, said);
        row("behind a comment", "<!--> <a x=\"-->" + file + many + tail, said);
        row("behind an instruction", "<?p <a x='?>" + file + many + tail, said);
        row("behind a section", file + "<![CDATA[<x ']]>" + many + tail, said);
        row("in a comment", file + "<!-- " + many + " -->" + tail, "");
        row("in an instruction", file + "<?p " + many + "?>" + tail, "");
        const char *const utf8 = "Line 1 of the file \"%1\": it is not in UTF-8.";
        row("other letters", "<?xml version='1.0' encoding = 'IBM037'?>" + file + tail, utf8);
        row("two bytes a letter", "utf-16", utf8);
        row("other spelling", "<?xml version='1.0' encoding='utf-8'?>" + file + tail, "");
        row("far away", "<?xml version='1.0' " + QByteArray(2000, ' ') + "encoding='IBM037'?>" + file + tail,
            "Line 1 of the file \"%1\": its XML declaration does not end.");
        row("large", "", "The file \"%1\" cannot be read: it is larger than 64 MiB.");
        row("pipe", "", "The file \"%1\" cannot be read: it is a named pipe, not a regular file.");
        row("deep", file + QByteArray("<a>").repeated(100000),
            "Line 1 of the file \"%1\": <a> is not expected here.");
    }
    void bounds()
    {
        auto [text, said] = textCells("text", "said");
        QString error;
        put(m_path, text == "utf-16" ? QByteArray("\xff\xfe<\0", 4) : text.toUtf8());
        if (said.contains("larger"))
            QVERIFY(QFile::resize(m_path, (64 << 20) + 1));
        if (said.contains("pipe")) {
            QVERIFY(QFile::remove(m_path));
            QCOMPARE(mkfifo(qPrintable(m_path), 0600), 0);
        }
        qDeleteAll(readJEXConfigFromXml_Lite(m_path, nullptr, &error));
        QCOMPARE(error, said.replace("%1", m_path));
        QCOMPARE(checkJEXLiteFile(m_path), said.isEmpty());
        const bool isHeadRead = said.isEmpty() || said.contains("expected");
        QCOMPARE(jexModeFromJexConfigFile(m_path), isHeadRead ? LiteMode : InvalidMode);
        QVERIFY(QFile::remove(m_path));
    }

    // Why a file was not written goes to the host, and to who asks.
    void tellsWhyItIsNotWritten()
    {
        struct Listener : QUtil::IEventHandler
        {
            QStringList heard;
            Listener() { QUtil::EventManager::instance()->subscribe(this, NotWrittenTopic); }
            ~Listener() override { QUtil::EventManager::instance()->unsubscribe(this, NotWrittenTopic); }
            void handleIEvent(const QUtil::IEvent *event) override
            {
                heard << event->data().value("error").toString();
            }
        } listener;
        const QString path = m_dir.filePath("none/a.zub");
        const QString reason =
            "Can not save to " + path + ": creating a file in its folder failed (No such file or directory).";
        AOCore_Lite first, second;
        QString error;
        QVERIFY(!writeJEXConfigToXml_Lite({&first}, path, &error));
        QCOMPARE(error, reason);
        QCOMPARE(listener.heard, QStringList(reason));
        QVERIFY(!writeJEXConfigToXml_Lite({&first}, path));
        fillInfoForEmptyJexConfig(path, StandardMode);
        QVERIFY(!writeJEXConfigToXml_Lite({&first, &second}, m_path));
        QCOMPARE(listener.heard.mid(0, 3), QStringList({reason, reason, reason}));
        QVERIFY(listener.heard.last().startsWith("The file \"" + m_path + "\" is not written: "));
    }

    // What could not be read again is not written, and the old file stays.
    void refusesToWrite()
    {
        put(m_path, "old");
        AOCore_Lite first, second;
        QVERIFY(!writeJEXConfigToXml_Lite({&first, &second}, m_path));
        second.coreNumber = 1;
        second.captureAmount = 1000;
        QVERIFY(!writeJEXConfigToXml_Lite({&first, &second}, m_path));
        second.captureAmount = 1024;
        AoCore standard(0);
        standard.matchUnit(3)->value = "1x";
        QVERIFY(!writeJEXConfigToXml({&standard}, m_path));
        QCOMPARE(contents(m_path), QByteArray("old"));
        QVERIFY(writeJEXConfigToXml_Lite({&first, &second}, m_path));
        QVERIFY(checkJEXLiteFile(m_path));
    }

private:
    QTemporaryDir m_dir;
    QString m_path = m_dir.filePath("a %1 'b'.zub");
};

QTEST_GUILESS_MAIN(JexFileTest)
#include "tst_jexfile.moc"
