#include <QtTest>

#include "host/project.h"
#include "model/jex/devicetable.h"
#include "tests/support/files.h"

class ExamplesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Its configurations are opened and saved by the test of the editor, and checked by those of the
    // programs.
    void project()
    {
        Core::Project project;
        QString error;
        const QByteArray text = contents(EXAMPLES_DIR "/soc/soc.jexprj");
        const Folder folder;
        const QString path = folder.write("soc/soc.jexprj", text);
        QVERIFY2(project.load(path, &error), qPrintable(error));
        QVERIFY(JEX_TOOL::knownDevices().contains(project.data().device));
        QVERIFY2(project.save(&error), qPrintable(error));
        QCOMPARE(contents(path), text);
    }
};

QTEST_GUILESS_MAIN(ExamplesTest)
#include "tst_examples.moc"
