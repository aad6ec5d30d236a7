#include <QScopedPointer>
#include <QTest>

#include "host/designmanager.h"
#include "host/eventmanager.h"
#include "host/project.h"
#include "model/quarry/rtlnetlist.h"
#include "tests/support/netlisttext.h"
#include "views/designevents.h"
#include "views/designreading.h"

using namespace RTLJEX;

namespace {

struct ToldEvent : QUtil::IEvent
{
    QString name;
    QMap<QString, QVariant> values;

    QString topic() const override { return name; }
    QMap<QString, QVariant> data() const override { return values; }
};

// "file=/p/a.v type=2 enable=1"
QMap<QString, QVariant> valuesFromText(const QString &text)
{
    QMap<QString, QVariant> values;
    for (const QString &pair : text.split(' ', Qt::SkipEmptyParts)) {
        const QString value = pair.section('=', 1);
        bool number = false;
        value.toInt(&number);
        values[pair.section('=', 0, 0)] = number ? QVariant(value.toInt()) : QVariant(value);
    }
    return values;
}

QString shown(const DesignFault &fault)
{
    if (fault.isNull())
        return QString();
    return fault.title + " | " + fault.text + fault.details.join(" / ");
}

} // namespace

class DesignReadingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void modules_data();
    void modules();
    void netlist();
    void events_data();
    void events();
    void includePaths();
};

void DesignReadingTest::modules_data()
{
    QTest::addColumn<QString>("top");
    QTest::addColumn<QStringList>("topModules");
    QTest::addColumn<QStringList>("modules");
    QTest::addColumn<QStringList>("messages");
    QTest::addColumn<QString>("expected");

    // What real designs give is tested with the editors; here is what they hardly do.
    const QStringList none, one("a"), two({"a", "b"}), harmless({"WARNING: x", "see ERROR", "error: y"});
    QTest::newRow("harmless messages") << "a" << one << two << harmless << "";
    QTest::newRow("errors come first") << "" << none << none << QStringList({"WARNING: x", "ERROR: a.v:1: y"})
                                       << "Design files contain some errors. | WARNING: x / ERROR: a.v:1: y";
    QTest::newRow("odd name") << "a%1\"b" << one << none << none
                              << "Invalid Top Module | No module named \"a%1\"b\", please reset top module.";
    QTest::newRow("no top, none named")
        << "" << none << two << none << "Multiple Top Module | Multiple top, please set top module.";
    QTest::newRow("several tops, one named")
        << "a" << two << two << none << "Design files contain some errors | Get no module from design.";
}

void DesignReadingTest::modules()
{
    QFETCH(QString, top);
    QFETCH(QStringList, topModules);
    QFETCH(QStringList, modules);
    QFETCH(QStringList, messages);
    const ModuleFindings found = {top, topModules, modules, messages};
    QTEST(shown(judgeModules(found)), "expected");
}

void DesignReadingTest::netlist()
{
    QScopedPointer<QUARRY::RtlNetlist> plain(netlistFromText("b\n  clk\n")),
        jtag(netlistFromText("b\n  TS_JTAG!\n"));
    QCOMPARE(shown(judgeNetlist("a", nullptr)) + shown(judgeNetlist("b", plain.data())) +
                 shown(judgeNetlist("", plain.data())),
             QString());
    QCOMPARE(shown(judgeNetlist("%2", jtag.data())),
             QString("Error | Get module \"%2\" failed, just received default module \"b\"."));
    QCOMPARE(shown(judgeNetlist("b", jtag.data())),
             QString("Error | TS_JTAG used in design conflicts with ZUB."));
}

void DesignReadingTest::events_data()
{
    QTest::addColumn<QString>("topic");
    QTest::addColumn<QString>("data");
    QTest::addColumn<int>("expected");

    const int no = NoReaction, files = DesignFilesChanged, top = TopModuleChanged;
    const auto row = [](const char *topic, const char *data, int expected) {
        QTest::newRow(QByteArray(topic) + " " + data) << topic << data << expected;
    };
    for (const char *topic : {"TE.File.Add", "TE.File.Modified"}) {
        row(topic, "file=/p/a.v", files);
        row(topic, "file=/p/b.sv", files);
        row(topic, "file=/p/c.vhd", files);
        row(topic, "file=/p/off.v", no);
        row(topic, "file=/p/x.zub", no);
        row(topic, "file=/p/unknown.v", no);
    }
    for (int type = 1; type <= 5; ++type) {
        const bool design = type >= 2 && type <= 4;
        const QByteArray typeText = "type=" + QByteArray::number(type);
        row("TE.File.Remove", (typeText + " enable=1").constData(), design ? files : no);
        row("TE.File.Remove", (typeText + " enable=0").constData(), no);
        row("TE.File.Change.Enable", (typeText + " enable=0").constData(), design ? files : no);
        row("TE.File.Change.Type", (typeText + " previous=1").constData(), design ? files : no);
        row("TE.File.Change.Type", ("previous=" + QByteArray::number(type) + " type=0").constData(),
            design ? files : no);
    }
    row("TE.Option.Change", "option=IncludePath", files);
    row("TE.Option.Change", "option=Verilog_Standard", files);
    row("TE.Option.Change", "option=TopModule", top);
    row("TE.Option.Change", "option=Synthesize_tool", no);
    row("TE.Device.Change", "type=2 file=/p/a.v option=TopModule", no);
}

void DesignReadingTest::events()
{
    QFETCH(QString, topic);
    QFETCH(QString, data);
    Core::Project project;
    Core::ProjectManager::setCurrentProject(&project);
    for (const char *path : {"/p/a.v", "/p/b.sv", "/p/c.vhd", "/p/off.v", "/p/x.zub"})
        project.addFile(path);
    project.setFileEnabled("/p/off.v", false);

    ToldEvent event;
    event.name = topic;
    event.values = valuesFromText(data);
    QTEST(int(designReaction(&event)), "expected");
    Core::ProjectManager::setCurrentProject(nullptr);
}

void DesignReadingTest::includePaths()
{
    Core::Project project;
    Core::ProjectManager::setCurrentProject(&project);
    project.setOption("IncludePath", QStringList({"inc", "/usr/lib/x", "../up/./two"}));
    const QString folder = project.workingDir();
    QCOMPARE(projectIncludePaths(),
             QStringList({folder + "/inc", "/usr/lib/x", QDir::cleanPath(folder + "/../up/two")}));
    Core::ProjectManager::setCurrentProject(nullptr);
}

QTEST_MAIN(DesignReadingTest)
#include "tst_designreading.moc"
