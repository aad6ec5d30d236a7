#include <QProcess>
#include <QtTest>

#include <memory>

#include "check/configuration.h"
#include "elaboration/elaboration.h"
#include "host/designmanager.h"
#include "host/project.h"
#include "model/jex/devicetable.h"
#include "model/netlist/rtlnetlist.h"
#include "tests/support/files.h"

namespace {

const QString folder = QStringLiteral(EXAMPLES_DIR "/soc/");

// What the program printed; an empty text and a failed test when it did not end well.
QByteArray run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0) {
        const QByteArray text = process.errorString().toUtf8() + process.readAllStandardError();
        QTest::qFail(program.toUtf8() + ": " + text.constData(), __FILE__, __LINE__);
        return QByteArray();
    }
    return process.readAllStandardOutput();
}

// Names that the design does not have, or not for probing.
QStringList strangers(const QList<JEX::SignalItem> &items, const QUARRY::RtlNetlist &netlist)
{
    QStringList names;
    for (const JEX::SignalItem &item : items) {
        names += strangers(item.members, netlist);
        const QUARRY::RtlNet *net = netlist.findNet(item.name);
        const QUARRY::RtlNetBus *bus = netlist.findBus(item.name);
        const bool isKnown = item.members.isEmpty() ? net && !net->excluded
                             : item.type == 1       ? bus && !bus->excluded
                                                    : !net && !bus;
        if (!isKnown) {
            names.append(item.name);
        }
    }
    return names;
}

} // namespace

class ExamplesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QString error;
        QVERIFY2(m_project.load(folder + "soc.jexprj", &error), qPrintable(error));
    }

    void project()
    {
        const DEV::DeviceArg device = m_project.data().device;
        QVERIFY(JEX_TOOL::knownDevices().contains(device));
        QString error;
        Core::Project copy;
        const QString path = put(m_dir.filePath("soc/soc.jexprj"), contents(folder + "soc.jexprj"));
        QVERIFY2(copy.load(path, &error), qPrintable(error));
        QVERIFY2(copy.save(&error), qPrintable(error));
        QCOMPARE(contents(path), contents(folder + "soc.jexprj"));
    }

    void configurations()
    {
        Core::ProjectManager::setCurrentProject(&m_project);
        const QMap<QString, QVariant> info = TE::TaskEngine::instance()->designManager()->getSourceFileInfo();
        Core::ProjectManager::setCurrentProject(nullptr);
        QStringList messages;
        const std::unique_ptr<QUARRY::RtlNetlist> netlist(
            QUARRY::buildNetlist(QUARRY::designInputFromInfo(info), messages));
        QCOMPARE(messages.join('\n'), QString());
        QVERIFY(netlist);
        for (const QString name : {"capture.zub", "trigger.zub"}) {
            RTLJEX::Configuration configuration;
            QString error;
            QVERIFY2(configuration.read(folder + name, &error), qPrintable(error));
            configuration.check(netlist.get(), &error);
            QCOMPARE(error, QString());
            for (const RTLJEX::AnyCore &core : configuration.cores()) {
                QCOMPARE(strangers(*core.signalRows, *netlist).join('\n'), QString());
                for (int i = 0; core.standard && i < JEX::PortCount; ++i) {
                    const QList<JEX::SignalItem> &items = core.standard->triggerPorts.at(i)->signalItems;
                    QCOMPARE(strangers(items, *netlist).join('\n'), QString());
                }
            }
            QVERIFY2(configuration.write(m_dir.filePath(name), &error), qPrintable(error));
            QCOMPARE(contents(m_dir.filePath(name)), contents(folder + name));
        }
    }

    // The files of the project are a whole design that works: the bench talks to it over the serial line.
    void simulation()
    {
        QStringList arguments = {"-g2012", "-I", folder + "rtl", "-o", m_dir.filePath("tb.vvp")};
        for (const Core::SourceFile &file : m_project.data().files) {
            if (file.type == TE::VerilogFile || file.type == TE::SystemVerilogFile) {
                arguments << file.path;
            } else if (file.type == TE::VhdlFile) {
                const QString entity = QFileInfo(file.path).baseName();
                run("ghdl", {"-a", "--std=08", "--workdir=" + m_dir.path(), file.path});
                const QByteArray verilog = run("ghdl", {"--synth", "--std=08", "--workdir=" + m_dir.path(),
                                                        "--out=verilog", file.path, "-e", entity});
                arguments << put(m_dir.filePath(entity + ".v"), verilog);
            }
        }
        arguments << folder + "tb/soc_tb.v";
        run("iverilog", arguments);
        QCOMPARE(run("vvp", {m_dir.filePath("tb.vvp")}), QByteArray("PASS\n"));
    }

private:
    QTemporaryDir m_dir;
    Core::Project m_project;
};

QTEST_GUILESS_MAIN(ExamplesTest)
#include "tst_examples.moc"
