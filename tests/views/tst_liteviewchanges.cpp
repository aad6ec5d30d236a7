#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTreeWidget>

#include "tests/support/modaldriver.h"
#include "tests/support/workspace.h"
#include "tests/views/shown.h"

namespace {

QString changedText(const QString &path)
{
    return QString("The file '%1' changed on disk.\nDo you want to reload?").arg(path);
}

QString removedText(const QString &path)
{
    return QString("The file '%1' has been removed on disk.\nDo you still want to keep it?").arg(path);
}

const char designText[] = "Design files changed. Do you want to reload?";

} // namespace

// What an open editor does when its file or its design changes.
class LiteViewChangesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fileBanners();
    void burstAndOwnSave();
    void removedFile_data();
    void removedFile();
    void cancellingAFileBanner();
    void reloadedRowsAreClassified();
    void invalidFileOnReload_data();
    void invalidFileOnReload();
    void designBanner();
    void designReloadFails();
    void diesWhileAsking_data();
    void diesWhileAsking();
};

// Editors and version control replace a file by a rename; each time is reported.
void LiteViewChangesTest::fileBanners()
{
    Workspace work;
    work.addDesign("design.v", counterDesign);
    const QString file = work.writeLite("a.zub", 1);
    Shown shown(file);
    shown.edit();

    for (int cores = 2; cores <= 3; ++cores) {
        work.writeLite("b.zub", cores);
        QFile::remove(file);
        QVERIFY(QFile::rename(work.path("b.zub"), file));
        QTRY_COMPARE(shown.banners(), QStringList(changedText(file)));
        shown.answer("Reload");
        QCOMPARE(shown.banners(), QStringList());
        QVERIFY(shown.find<QWidget>("bannerContainer")->isHidden());
        QCOMPARE(shown.find<QStackedWidget>("stackedWidget")->count(), cores);
        QCOMPARE(shown.find<QComboBox>("comboBoxAo")->count(), cores);
        QCOMPARE(shown.find<QComboBox>("comboBoxAo")->currentIndex(), 0);
        QVERIFY2(shown.view->isModified(), "a reload keeps the mark");
        QVERIFY(!shown.find<QCheckBox>("enableInputRegCheckBox")->isChecked());
    }

    work.writeLite("a.zub", 0);
    QTRY_COMPARE(shown.banners(), QStringList(changedText(file)));
    shown.answer("Cancel");
    QCOMPARE(shown.banners(), QStringList());
    QCOMPARE(shown.find<QStackedWidget>("stackedWidget")->count(), 3);
}

void LiteViewChangesTest::burstAndOwnSave()
{
    Workspace work;
    work.addDesign("design.v", counterDesign);
    const QString file = work.writeLite("a.zub", 1);
    Shown shown(file);
    shown.edit();
    QVERIFY(shown.view->save());
    QTest::qWait(800);
    QCOMPARE(shown.banners(), QStringList());

    for (int i = 0; i < 10; ++i) {
        work.write("a.zub", QByteArray(i, 'x'));
        QTest::qWait(20);
    }
    QTRY_COMPARE(shown.banners(), QStringList(changedText(file)));
    work.write("a.zub", "still more");
    QTest::qWait(800);
    QCOMPARE(shown.banners(), QStringList(changedText(file)));
}

void LiteViewChangesTest::removedFile_data()
{
    QTest::addColumn<QString>("button");
    QTest::newRow("keep") << "Keep It";
    QTest::newRow("close") << "Close";
}

void LiteViewChangesTest::removedFile()
{
    QFETCH(QString, button);
    Workspace work;
    work.addDesign("design.v", counterDesign);
    const QString file = work.writeLite("a.zub", 1);
    Shown shown(file), other(work.writeLite("other.zub", 1));
    shown.edit();
    QSignalSpy modified(shown.view, SIGNAL(modificationStatusChanged(bool)));
    QFile::remove(file);
    QTRY_COMPARE(shown.banners(), QStringList(removedText(file)));
    shown.answer(button);
    if (button == "Close") {
        QCOMPARE(modified.size(), 1);
        QVERIFY(!modified.first().first().toBool());
        QTRY_VERIFY2(!shown.container, "the container dies");
        QVERIFY(!shown.view && other.view && other.view->isVisible());
        return;
    }
    QCOMPARE(shown.banners(), QStringList());
    QVERIFY(shown.view->isModified());
    QVERIFY(shown.view->save());
    QVERIFY(QFile::exists(file));
    QFile::remove(file);
    QTRY_COMPARE(shown.banners(), QStringList(removedText(file)));
}

// The answer to the one question ends the waiting for the other as well.
void LiteViewChangesTest::cancellingAFileBanner()
{
    Workspace work;
    work.addDesign("design.v", counterDesign);
    const QString file = work.writeLite("a.zub", 1);
    Shown shown(file);
    work.write("a.zub", work.read("a.zub") + " ");
    QTRY_COMPARE(shown.banners(), QStringList(changedText(file)));
    work.project.setOption("TopModule", "top");
    QCOMPARE(shown.banners().size(), 2);
    shown.answer("Cancel");
    QCOMPARE(shown.banners(), QStringList("Top module changed. Do you want to reload?"));
    work.project.setOption("TopModule", "");
    QCOMPARE(shown.banners().size(), 2);
}

void LiteViewChangesTest::reloadedRowsAreClassified()
{
    Workspace work;
    work.addDesign("design.v", counterDesign);
    const QString file = work.writeLite("a.zub", 1);
    Shown shown(file);
    const auto type = [&shown] {
        const QTreeWidgetItem *row = shown.find<QTreeWidget>("treeWidgetSignal")->topLevelItem(0);
        return row->data(0, Qt::UserRole).value<JEX::SignalItem>().type;
    };
    QCOMPARE(type(), 0);
    work.write("a.zub", work.read("a.zub").replace("signal name=\"top/clk\"", "signal name=\"top/lost\""));
    QTRY_COMPARE(shown.banners(), QStringList(changedText(file)));
    shown.answer("Reload");
    QCOMPARE(type(), 1);
}

void LiteViewChangesTest::invalidFileOnReload_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");

    QTest::newRow("another mode") << QByteArray("\"Lite\"") << QByteArray("\"Standard\"");
    QTest::newRow("not well-formed") << QByteArray("</core>") << QByteArray();
    QTest::newRow("wrong value") << QByteArray("\"rising\"") << QByteArray("\"raising\"");
}

void LiteViewChangesTest::invalidFileOnReload()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    Workspace work;
    work.addDesign("design.v", counterDesign);
    const QString file = work.writeLite("a.zub", 1);
    Shown shown(file), other(work.writeLite("other.zub", 1));
    work.write("a.zub", work.read("a.zub").replace(from, to));
    QTRY_COMPARE(shown.banners(), QStringList(changedText(file)));
    ModalDriver driver;
    driver.then([&shown](QDialog *dialog) {
        QCOMPARE(shown.find<QStackedWidget>("stackedWidget")->count(), 1);
        dialog->findChild<QPushButton *>()->click();
    });
    shown.answer("Reload");
    QCOMPARE(driver.seen.join("\n"), QString("warning | Reload Jex | Invalid JEX file. | OK"));
    QTRY_VERIFY(!shown.container);
    QVERIFY(other.view);
}

void LiteViewChangesTest::designBanner()
{
    Workspace work;
    work.addDesign("design.v", counterDesign);
    Shown shown(work.writeLite("a.zub", 1));
    work.addDesign("more.v", "module leaf(input clk); endmodule\n");
    QCOMPARE(shown.banners(), QStringList(designText));
    work.project.setOption("TopModule", "top");
    work.addDesign("evenmore.v", "module leaf2(input clk); endmodule\n");
    QCOMPARE(shown.banners(), QStringList(designText));
    shown.answer("Cancel");
    QCOMPARE(shown.banners(), QStringList());

    work.project.setOption("TopModule", "");
    QCOMPARE(shown.banners(), QStringList("Top module changed. Do you want to reload?"));
    shown.answer("Cancel");

    // A net that the new design does not have is found missing by the next save.
    work.write("design.v", QByteArray(counterDesign).replace("clk", "clock"));
    work.project.setOption("TopModule", "top");
    QDialog open(shown.find<QStackedWidget>("stackedWidget")->currentWidget());
    open.show();
    shown.answer("Reload");
    QVERIFY2(!open.isVisible(), "it may show nets that are gone");
    QCOMPARE(shown.banners(), QStringList());
    ModalDriver driver;
    QString details;
    driver.then([&details](QDialog *dialog) {
        details = qobject_cast<QMessageBox *>(dialog)->detailedText();
        dialog->reject();
    });
    QVERIFY(!shown.view->save());
    QVERIFY2(details.contains("Core 0: The specified sample clock does not exist"), qPrintable(details));

    work.project.setOption("IncludePath", QStringList("inc"));
    QCOMPARE(shown.banners(), QStringList(designText));
}

void LiteViewChangesTest::designReloadFails()
{
    Workspace work;
    work.addDesign("design.v", counterDesign);
    Shown shown(work.writeLite("a.zub", 1)), other(work.writeLite("other.zub", 1));
    shown.edit();
    work.write("design.v", faultyDesign);
    work.project.setOption("TopModule", "top");
    ModalDriver driver;
    driver.then([&shown](QDialog *dialog) {
        QVERIFY2(shown.view->isModified(), "nothing is given up before the message was read");
        dialog->accept();
    });
    shown.answer("Reload");
    QCOMPARE(driver.seen.join("\n"), QString("dialog | Design files contain some errors."));
    QTRY_VERIFY(!shown.container);
    QVERIFY(!shown.view && other.view && other.view->isVisible());
    QCOMPARE(other.banners(), QStringList("Top module changed. Do you want to reload?"));
}

void LiteViewChangesTest::diesWhileAsking_data()
{
    QTest::addColumn<QByteArray>("action");
    for (const char *action : {"close", "save", "onRtlReload", "onBannerReload"})
        QTest::newRow(action) << QByteArray(action);
}

void LiteViewChangesTest::diesWhileAsking()
{
    QFETCH(QByteArray, action);
    Workspace work;
    work.addDesign("design.v", counterDesign);
    Shown shown(work.writeLite("a.zub", 1));
    shown.find<QLineEdit>("editSampleClock")->clear();
    work.write("design.v", faultyDesign);
    work.write("a.zub", "damaged");
    ModalDriver driver;
    driver.then([&shown](QDialog *) { delete shown.container; });
    if (action == "save")
        shown.view->save();
    else
        QMetaObject::invokeMethod(shown.view, action);
    QVERIFY(!shown.view);
    QVERIFY(driver.done());
}

QTEST_MAIN(LiteViewChangesTest)
#include "tst_liteviewchanges.moc"
