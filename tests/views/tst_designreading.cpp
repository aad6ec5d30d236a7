#include <QtTest>

#include <QPushButton>
#include <QTextBlock>
#include <QTextEdit>

#include "host/designmanager.h"
#include "host/eventmanager.h"
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

QString question(const char *topic, const QVariantMap &data)
{
    const ToldEvent event(topic, data);
    return designQuestion(&event);
}

} // namespace

class DesignReadingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void events()
    {
        const QString aboutFiles("Design files changed. Do you want to reload?");
        Core::Project project;
        Core::ProjectData files;
        Core::ProjectManager::setCurrentProject(&project);
        for (const char *path : {"/p/a.v", "/p/b.sv", "/p/c.vhd", "/p/off.v", "/p/x.zub"}) {
            files.files.append(Core::SourceFile());
            files.files.last().path = path;
            files.files.last().type = TE::fileTypeFromName(path);
        }
        project.setData(files);
        project.setFileEnabled("/p/off.v", false);
        for (const char *topic : {"TE.File.Add", "TE.File.Modified"}) {
            for (const char *path : {"/p/a.v", "/p/b.sv", "/p/c.vhd"})
                QCOMPARE(question(topic, {{"file", path}}), aboutFiles);
            for (const char *path : {"/p/off.v", "/p/x.zub", "/p/unknown.v"})
                QCOMPARE(question(topic, {{"file", path}}), QString());
        }
        Core::ProjectManager::setCurrentProject(nullptr);

        for (int type = 1; type <= 5; ++type) {
            const QString expected = type >= 2 && type <= 4 ? aboutFiles : QString();
            QCOMPARE(question("TE.File.Remove", {{"type", type}, {"enable", true}}), expected);
            QCOMPARE(question("TE.File.Remove", {{"type", type}, {"enable", false}}), QString());
            QCOMPARE(question("TE.File.Change.Enable", {{"type", type}, {"enable", false}}), expected);
            QCOMPARE(question("TE.File.Change.Type", {{"type", type}, {"previous", 1}}), expected);
            QCOMPARE(question("TE.File.Change.Type", {{"type", 0}, {"previous", type}}), expected);
        }
        QCOMPARE(question("TE.Option.Change", {{"option", "IncludePath"}}), aboutFiles);
        QCOMPARE(question("TE.Option.Change", {{"option", "Verilog_Standard"}}), aboutFiles);
        QCOMPARE(question("TE.Option.Change", {{"option", "TopModule"}}),
                 QString("Top module changed. Do you want to reload?"));
        QCOMPARE(question("TE.Option.Change", {{"option", "Synthesize_tool"}}), QString());
        QCOMPARE(question("TE.Device.Change", {{"type", 2}, {"option", "TopModule"}}), QString());
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
