#include <QtTest>

#include <QPushButton>
#include <QTextBlock>
#include <QTextEdit>

#include "host/designmanager.h"
#include "host/eventmanager.h"
#include "model/netlist/rtlnetlist.h"
#include "tests/support/netlisttext.h"
#include "tests/support/workspace.h"
#include "views/designevents.h"
#include "views/designreading.h"
#include "views/messagedlg.h"

using namespace RTLJEX;

namespace {

struct ToldEvent : QUtil::IEvent
{
    ToldEvent(const char *name, const QVariantMap &values) : m_name(name), m_values(values) {}
    QString topic() const override { return m_name; }
    QMap<QString, QVariant> data() const override { return m_values; }

    const QString m_name;
    const QVariantMap m_values;
};

DesignReaction reaction(const char *topic, const QVariantMap &data)
{
    const ToldEvent event(topic, data);
    return designReaction(&event);
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
    // What real designs give is tested with the editors; here is what they hardly do.
    void judgesDesigns()
    {
        const QStringList none, one("a"), two({"a", "b"}), harmless({"WARNING: x", "see ERROR", "error: y"});
        QScopedPointer<QUARRY::RtlNetlist> plain(netlistFromText("b\n  clk\n")),
            jtag(netlistFromText("b\n  TS_JTAG!\n"));
        const struct
        {
            DesignFault found;
            const char *expected;
        } rows[] = {
            {judgeModules({"a", one, two, harmless}), ""},
            {judgeModules({"", none, none, {"WARNING: x", "ERROR: a.v:1: y"}}),
             "Design files contain some errors. | WARNING: x / ERROR: a.v:1: y"},
            {judgeModules({"a%1\"b", one, none, none}),
             "Invalid Top Module | No module named \"a%1\"b\", please reset top module."},
            {judgeModules({"a", two, two, none}),
             "Design files contain some errors | Get no module from design."},
            {judgeNetlist("a", nullptr), ""},
            {judgeNetlist("b", plain.data()), ""},
            {judgeNetlist("", plain.data()), ""},
            {judgeNetlist("%2", jtag.data()),
             "Error | Get module \"%2\" failed, just received default module \"b\"."},
        };
        for (const auto &row : rows)
            QCOMPARE(shown(row.found), QString(row.expected));
    }

    void events()
    {
        Core::Project project;
        Core::ProjectManager::setCurrentProject(&project);
        for (const char *path : {"/p/a.v", "/p/b.sv", "/p/c.vhd", "/p/off.v", "/p/x.zub"})
            project.addFile(path);
        project.setFileEnabled("/p/off.v", false);
        for (const char *topic : {"TE.File.Add", "TE.File.Modified"}) {
            for (const char *path : {"/p/a.v", "/p/b.sv", "/p/c.vhd"})
                QCOMPARE(reaction(topic, {{"file", path}}), DesignFilesChanged);
            for (const char *path : {"/p/off.v", "/p/x.zub", "/p/unknown.v"})
                QCOMPARE(reaction(topic, {{"file", path}}), NoReaction);
        }
        Core::ProjectManager::setCurrentProject(nullptr);

        for (int type = 1; type <= 5; ++type) {
            const DesignReaction expected = type >= 2 && type <= 4 ? DesignFilesChanged : NoReaction;
            QCOMPARE(reaction("TE.File.Remove", {{"type", type}, {"enable", true}}), expected);
            QCOMPARE(reaction("TE.File.Remove", {{"type", type}, {"enable", false}}), NoReaction);
            QCOMPARE(reaction("TE.File.Change.Enable", {{"type", type}, {"enable", false}}), expected);
            QCOMPARE(reaction("TE.File.Change.Type", {{"type", type}, {"previous", 1}}), expected);
            QCOMPARE(reaction("TE.File.Change.Type", {{"type", 0}, {"previous", type}}), expected);
        }
        QCOMPARE(reaction("TE.Option.Change", {{"option", "IncludePath"}}), DesignFilesChanged);
        QCOMPARE(reaction("TE.Option.Change", {{"option", "Verilog_Standard"}}), DesignFilesChanged);
        QCOMPARE(reaction("TE.Option.Change", {{"option", "TopModule"}}), TopModuleChanged);
        QCOMPARE(reaction("TE.Option.Change", {{"option", "Synthesize_tool"}}), NoReaction);
        QCOMPARE(reaction("TE.Device.Change", {{"type", 2}, {"option", "TopModule"}}), NoReaction);
    }

    void includePaths()
    {
        Workspace work;
        work.project.setOption("IncludePath", QStringList({"inc", "/usr/lib/x", "../up/./two"}));
        const QString folder = work.project.workingDir();
        QCOMPARE(projectIncludePaths(),
                 QStringList({folder + "/inc", "/usr/lib/x", QDir::cleanPath(folder + "/../up/two")}));
    }

    void messageDialog()
    {
        MessageDlg dialog(nullptr);
        QTextEdit *text = dialog.findChild<QTextEdit *>("textEdit");
        QVERIFY(text->isReadOnly());
        QCOMPARE(text->lineWrapMode(), QTextEdit::NoWrap);
        dialog.setDetailMsg(QStringList());
        QCOMPARE(text->toPlainText(), QString());
        dialog.setDetailMsg(QStringList({"ERROR: a.v:3: <b>bold</b>", "WARNING: b.v:1: %1"}));
        QCOMPARE(text->toPlainText(), QString("ERROR: a.v:3: <b>bold</b>\nWARNING: b.v:1: %1"));

        dialog.show();
        const QTextCursor second(text->document()->lastBlock());
        QTest::mouseDClick(text->viewport(), Qt::LeftButton, Qt::NoModifier,
                           text->cursorRect(second).center());
        QCOMPARE(text->textCursor().selectedText(), QString("WARNING: b.v:1: %1"));
        dialog.findChild<QPushButton *>()->click();
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }
};

QTEST_MAIN(DesignReadingTest)
#include "tst_designreading.moc"
