#include <QCheckBox>
#include <QRadioButton>
#include <QSpinBox>

#include "host/eventmanager.h"
#include "tests/options/capturepage.h"
#include "tests/options/devices.h"

using namespace RTLJEX;

namespace {

const char data8[] =
    "b:top/data[7:0]{top/data[7],top/data[6],top/data[5],top/data[4],top/data[3],top/data[2],"
    "top/data[1],top/data[0]} ";

QString nets(int count)
{
    QString rows;
    for (int i = 0; i < count; ++i)
        rows += QString("s:top/n%1 ").arg(i);
    return rows;
}

} // namespace

// Each test runs over the pages of both editors.
class TestCapturePages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data()
    {
        QTest::addColumn<bool>("standard");
        QTest::newRow("Standard") << true;
        QTest::newRow("Lite") << false;
    }
    void init() { m_devices.none(); }
    void loadsAndSaves();
    void implementations_data();
    void implementations();
    void inputRegisterFollowsInitialData();
    void picksClock();
    void addsSignals();
    void removesRows();
    void rebuildTakesTheStoredList();
    void deviceChange();
    void dialogOutlivesPage();
    void everyControlReportsAChange();

private:
    Devices m_devices;
};

void TestCapturePages::loadsAndSaves()
{
    QFETCH_GLOBAL(bool, standard);
    m_devices.use(true);
    CapturePage page(standard, "g:group_0[1:0]=both{s:top/clk,^s:top/rst} s:top/u0/ready !s:top/x");
    const QList<JEX::SignalItem> rows = page.stored;
    const QList<qint32> values =
        standard ? QList<qint32>{1, 2, 4096, 3, 512, 77} : QList<qint32>{1, 2, 4096}; // see numbers()
    for (int i = 0; i < values.size(); ++i)
        *page.numbers()[i] = values[i];
    page.aoCore.sampleClock = page.liteCore.sampleClock = "top/clk";
    *page.flags()[0] = true;
    page.open();
    QVERIFY(page.child<QRadioButton>("radioButtonFalling")->isChecked());
    QCOMPARE(page.rows(), QString("both(2),top/u0/ready,-top/x"));
    QVERIFY(!page.child<QPushButton>("btnRemove")->isEnabled());

    page.tree()->addTopLevelItem(new QTreeWidgetItem(QStringList("no record")));
    page.stored.clear();
    page.aoCore.sampleClock = page.liteCore.sampleClock = QString();
    for (qint32 *number : page.numbers())
        *number = -1;
    for (bool *flag : page.flags())
        *flag = !*flag;
    page.save();
    for (int i = 0; i < values.size(); ++i)
        QCOMPARE(*page.numbers()[i], values[i]);
    QVERIFY(*page.flags()[0] && !*page.flags()[1]);
    QCOMPARE(standard ? page.aoCore.sampleClock : page.liteCore.sampleClock, QString("top/clk"));
    QCOMPARE(toText(page.stored), toText(rows));
    QCOMPARE(toText(page.enabled), toText(rows.mid(0, 2)));
}

void TestCapturePages::implementations_data()
{
    QTest::addColumn<QString>("editors");
    QTest::addColumn<bool>("ssram");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("bits");
    QTest::addColumn<int>("stored");
    QTest::addColumn<QString>("offered");
    QTest::addColumn<int>("saved");

    QTest::newRow("BSRAM") << "both" << true << 8 << 1 << 0 << "BSRAM SSRAM REG:BSRAM" << 0;
    QTest::newRow("SSRAM") << "both" << true << 8 << 1 << 2 << "BSRAM SSRAM REG:SSRAM" << 2;
    QTest::newRow("no SSRAM here") << "both" << false << 8 << 1 << 2 << "BSRAM REG:BSRAM" << 0;
    QTest::newRow("unknown") << "both" << true << 512 << 9 << 9 << "BSRAM SSRAM:BSRAM" << 0;
    QTest::newRow("2^32 bits") << "both" << false << 65536 << 65536 << 0 << "BSRAM:BSRAM" << 0;
    QTest::newRow("512 bits") << "Standard" << false << 8 << 63 << 1 << "BSRAM REG:REG" << 1;
    QTest::newRow("520 bits") << "Standard" << false << 8 << 64 << 1 << "BSRAM:BSRAM" << 0;
    // Registers are not found again.
    QTest::newRow("512 bits") << "Lite" << false << 2 << 256 << 1 << "BSRAM REG:BSRAM" << 0;
    QTest::newRow("514 bits") << "Lite" << false << 2 << 257 << 1 << "BSRAM:BSRAM" << 0;
}

void TestCapturePages::implementations()
{
    QFETCH_GLOBAL(bool, standard);
    QFETCH(QString, editors);
    QFETCH(bool, ssram);
    QFETCH(int, size);
    QFETCH(int, bits);
    QFETCH(int, stored);
    if (editors == (standard ? "Lite" : "Standard"))
        return;
    m_devices.use(ssram);
    CapturePage page(standard, nets(bits), size);
    page.implementationField = stored;
    page.open();
    QTEST(CapturePage::offered(page.implementation()), "offered");
    page.save();
    QTEST(page.implementationField, "saved");
}

void TestCapturePages::inputRegisterFollowsInitialData()
{
    QFETCH_GLOBAL(bool, standard);
    if (standard)
        return; // has no such flag
    m_devices.use(true);
    CapturePage page(false, QString(), 2);
    page.open();
    const QCheckBox *reg = page.child<QCheckBox>("enableInputRegCheckBox");
    QString states;
    for (const char *step : {"", "REG", "BSRAM", "SSRAM", "BSRAM", "", "REG"}) {
        if (*step)
            CapturePage::choose(page.implementation(), step);
        else
            page.child<QCheckBox>("capIniDataCheckBox")->click();
        states += QString(reg->isChecked() ? "on" : "off") + (reg->isEnabled() ? " " : "! ");
    }
    QCOMPARE(states, QString("on! off! on! off! on! on on "));
}

void TestCapturePages::picksClock()
{
    QFETCH_GLOBAL(bool, standard);
    CapturePage page(standard);
    page.open();
    const QLineEdit *clock = page.child<QLineEdit>("editSampleClock");
    page.pick("btnSampleClock", {"top/clk"});
    QCOMPARE(clock->text(), QString("top/clk"));
    QCOMPARE(page.modified->size(), 1);
    page.pick("btnSampleClock", {});
    page.pick("btnSampleClock", {"top/rst"}, QDialogButtonBox::Cancel);
    QCOMPARE(clock->text(), QString("top/clk"));
    QCOMPARE(page.modified->size(), 1);
}

void TestCapturePages::addsSignals()
{
    QFETCH_GLOBAL(bool, standard);
    CapturePage page(standard, "s:top/u0/ready !s:top/gone !s:top/rst");
    page.open();
    page.pick("btnAdd", {"top/clk"}, QDialogButtonBox::Cancel);
    QCOMPARE(page.modified->size(), 0);

    // Buses and bits first, then single nets, after the enabled rows.
    page.pick("btnAdd", {"top/clk", "top/data[7:0]", "top/u0/count[3]", "top/u0/count[1]"});
    QCOMPARE(page.rows(), QString("top/u0/ready,top/data[7:0](8),top/u0/count[3],top/u0/count[1],top/clk,"
                                  "-top/gone,-top/rst"));
    QVERIFY(page.modified->size() > 0);
    const int required = standard ? JEX_TOOL::bsramNumberRequiredWithAdjust(12, 1024)
                                  : JEX_TOOL::bsramNumberRequired(12, 1024);
    QCOMPARE(page.usage(), QString("BSRAM Usage : <font color = red>%1</font>/0").arg(required));

    // What is there already is enabled.
    page.pick("btnAdd", {"top/rst", "top/clk"});
    QCOMPARE(page.rows(), QString("top/u0/ready,top/data[7:0](8),top/u0/count[3],top/u0/count[1],top/clk,"
                                  "top/rst,-top/gone"));
}

void TestCapturePages::removesRows()
{
    QFETCH_GLOBAL(bool, standard);
    CapturePage page(standard, "s:top/clk " + QString(data8) + nets(50000));
    page.open();
    QTreeWidgetItem *data = page.tree()->topLevelItem(1);
    const QPushButton *remove = page.child<QPushButton>("btnRemove");
    data->setSelected(true);
    QVERIFY(remove->isEnabled());
    data->child(3)->setSelected(true);
    QVERIFY(!remove->isEnabled());
    QMetaObject::invokeMethod(page.widget.get(), "onRemoveSignals");
    QCOMPARE(page.tree()->topLevelItemCount(), 50002);
    QCOMPARE(page.modified->size(), 0);

    // Quadratic work would take minutes here.
    page.tree()->selectAll(); // members that nobody sees are left out
    page.tree()->topLevelItem(0)->setSelected(false);
    data->child(3)->setSelected(false);
    QSignalSpy selection(page.tree(), SIGNAL(itemSelectionChanged()));
    page.tree()->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(page.widget.get()));
    QTest::keyClick(page.tree(), Qt::Key_Delete);
    QCOMPARE(page.rows(), QString("top/clk"));
    QCOMPARE(selection.size(), 1);
    QVERIFY(page.modified->size() > 0 && !remove->isEnabled());
}

void TestCapturePages::rebuildTakesTheStoredList()
{
    QFETCH_GLOBAL(bool, standard);
    const QString classified = "s:top/u0/ready s:top/clk b:top/gone " + QString(data8) +
                               "g:group_0[1:0]{s:top/rst,top/data[1]} !s:top/rst";
    CapturePage page(standard, QString(classified).replace(QRegExp("[sb]:"), "g:"));
    page.aoCore.triggerPorts[2]->signalItems = signalsFromText("g:top/clk g:top/data[2]");
    page.open();
    delete page.tree()->topLevelItem(0);

    page.rebuild(page.netlist.get());
    QCOMPARE(toText(page.stored), classified);
    QList<JEX::SignalItem> shown;
    for (int i = 0; i < page.tree()->topLevelItemCount(); ++i)
        shown << recordOf(page.tree()->topLevelItem(i));
    QCOMPARE(toText(shown), classified);
    QCOMPARE(page.modified->size(), 0);
    QCOMPARE(toText(page.aoCore.triggerPorts[2]->signalItems),
             QString(standard ? "s:top/clk b:top/data[2]" : "g:top/clk g:top/data[2]"));

    // Without a design nothing is known about the rows, and nothing is judged.
    page.stored[2].type = 0;
    page.rebuild(nullptr);
    QCOMPARE(page.stored[2].type, 0);
}

void TestCapturePages::deviceChange()
{
    QFETCH_GLOBAL(bool, standard);
    m_devices.use(false);
    CapturePage page(standard, "!s:top/rst s:top/clk " + QString(data8), 32);
    page.open();
    CapturePage::choose(page.implementation(), "REG");
    QVERIFY2(page.usage().startsWith("Register Usage : "), qPrintable(page.usage()));
    page.modified->clear();
    m_devices.use(true);
    QCOMPARE(CapturePage::offered(page.implementation()), QString("BSRAM SSRAM REG:REG"));
    QCOMPARE(page.rows().startsWith("-top/rst"), standard); // the Lite page sorts
    QVERIFY(page.modified->size() > 0);

    CapturePage::choose(page.implementation(), "SSRAM");
    QVERIFY2(page.usage().startsWith("SSRAM Usage : "), qPrintable(page.usage()));
    m_devices.use(false);
    QCOMPARE(CapturePage::offered(page.implementation()), QString("BSRAM REG:BSRAM"));

    page.modified->clear();
    QUtil::EventManager::instance()->post("TE.Option.Change", {});
    QCOMPARE(page.modified->size(), 0);
    page.widget.reset();
    m_devices.use(true); // nobody is left to hear of it
}

void TestCapturePages::dialogOutlivesPage()
{
    QFETCH_GLOBAL(bool, standard);
    for (const char *opener : {"btnAdd", "btnSampleClock"}) {
        CapturePage page(standard);
        page.open();
        page.user.then([&](QDialog *) { page.widget.reset(); });
        QTest::mouseClick(page.child<QPushButton>(opener), Qt::LeftButton);
        QVERIFY(!page.widget);
    }
}

void TestCapturePages::everyControlReportsAChange()
{
    QFETCH_GLOBAL(bool, standard);
    m_devices.use(true);
    CapturePage page(standard, QString(), 64);
    page.open();
    const auto reports = [&](const QWidget *control) {
        QVERIFY2(page.modified->size() > 0, qPrintable(control->objectName()));
        page.modified->clear();
    };
    for (QAbstractButton *box : page.widget->findChildren<QAbstractButton *>()) {
        box->isCheckable() ? box->click() : page.tree()->itemDragged();
        if (box->objectName() != "radioButtonRising") // checked already
            reports(box);
    }
    for (QComboBox *box : page.widget->findChildren<QComboBox *>()) {
        box->setCurrentIndex(box->currentIndex() == 0 ? 1 : box->currentIndex() - 1);
        reports(box);
    }
    page.child<QLineEdit>("editSampleClock")->setText("top/clk");
    reports(page.widget.get());
    if (QSpinBox *position = page.child<QSpinBox>("spinBoxTrigPos")) {
        position->setValue(1);
        reports(position);
    }
    QMetaObject::invokeMethod(page.tree(), "CapSignalChange"); // only the figures follow
    QCOMPARE(page.modified->size(), 0);
}

QTEST_MAIN(TestCapturePages)
#include "tst_capturepages.moc"
