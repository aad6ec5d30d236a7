#include <QtTest>

#include "check/configuration.h"
#include "model/jex/devicetable.h"
#include "tests/elaboration/sources.h"

const QString folder = QStringLiteral(EXAMPLES_DIR "/soc/");

class ExamplesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void project()
    {
        Core::Project project;
        QString error;
        const QByteArray text = contents(folder + "soc.jexprj");
        const QString path = put(m_dir.filePath("soc/soc.jexprj"), text);
        QVERIFY2(project.load(path, &error), qPrintable(error));
        QVERIFY(JEX_TOOL::knownDevices().contains(project.data().device));
        QVERIFY2(project.save(&error), qPrintable(error));
        QCOMPARE(contents(path), text);
    }

    void configurations()
    {
        QStringList messages;
        const std::unique_ptr<QUARRY::RtlNetlist> netlist(
            QUARRY::buildNetlist(projectInput(folder + "soc.jexprj"), messages));
        QCOMPARE(messages.join('\n'), QString());
        QVERIFY(netlist);
        for (const QString name : {"capture.zub", "trigger.zub"}) {
            RTLJEX::Configuration configuration;
            QString error;
            QVERIFY2(configuration.read(folder + name, &error), qPrintable(error));
            const RTLJEX::FileFindings findings = configuration.judge(*netlist);
            QCOMPARE(findings.errors, QStringList());
            QCOMPARE(findings.stale.size(), 0); // nor any that must not be probed
            QVERIFY2(configuration.write(m_dir.filePath(name), &error), qPrintable(error));
            QCOMPARE(contents(m_dir.filePath(name)), contents(folder + name));
        }
    }

private:
    QTemporaryDir m_dir;
};

QTEST_GUILESS_MAIN(ExamplesTest)
#include "tst_examples.moc"
