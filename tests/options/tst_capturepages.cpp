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

// Where nothing else is said, a test runs over the pages of both editors.
class TestCapturePages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_devices.none(); }
    void loadsAndSaves_data() { editors(); }
    void loadsAndSaves();
    void implementations_data();
    void implementations();
    void sizes_data();
    void sizes();
    void inputRegisterFollowsInitialData();
    void picksClock_data() { editors(); }
    void picksClock();
    void addsSignals_data() { editors(); }
    void addsSignals();
    void removesRows_data() { editors(); }
    void removesRows();
    void rebuildTakesTheStoredList_data() { editors(); }
    void rebuildTakesTheStoredList();
    void deviceChange_data() { editors(); }
    void deviceChange();
    void dialogOutlivesPage_data() { editors(); }
    void dialogOutlivesPage();
    void everyControlReportsAChange_data() { editors(); }
    void everyControlReportsAChange();

private:
    void editors()
    {
        QTest::addColumn<bool>("standard");
        QTest::newRow("Standard") << true;
        QTest::newRow("Lite") << false;
    }

    Devices m_devices;
};

void TestCapturePages::loadsAndSaves()
{
    QFETCH(bool, standard);
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
    QTest::addColumn<bool>("standard");
    QTest::addColumn<bool>("ssram");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("bits");
    QTest::addColumn<int>("stored");
    QTest::addColumn<QString>("offered");
    QTest::addColumn<int>("saved");

    for (bool standard : {false, true}) {
        QTest::newRow("BSRAM") << standard << true << 8 << 1 << 0 << "BSRAM SSRAM REG:BSRAM" << 0;
        QTest::newRow("SSRAM") << standard << true << 8 << 1 << 2 << "BSRAM SSRAM REG:SSRAM" << 2;
        QTest::newRow("no SSRAM here") << standard << false << 8 << 1 << 2 << "BSRAM REG:BSRAM" << 0;
        QTest::newRow("unknown") << standard << true << 512 << 9 << 9 << "BSRAM SSRAM:BSRAM" << 0;
        QTest::newRow("2^32 bits") << standard << false << 65536 << 65536 << 0 << "BSRAM:BSRAM" << 0;
    }
    QTest::newRow("Standard, 512 bits") << true << false << 8 << 63 << 1 << "BSRAM REG:REG" << 1;
    QTest::newRow("Standard, 520 bits") << true << false << 8 << 64 << 1 << "BSRAM:BSRAM" << 0;
    QTest::newRow("Lite, 512 bits; registers are not found again")
        << false << false << 2 << 256 << 1 << "BSRAM REG:BSRAM" << 0;
    QTest::newRow("Lite, 514 bits") << false << false << 2 << 257 << 1 << "BSRAM:BSRAM" << 0;
}

void TestCapturePages::implementations()
{
    QFETCH(bool, standard);
    QFETCH(bool, ssram);
    QFETCH(int, size);
    QFETCH(int, bits);
    QFETCH(int, stored);
    m_devices.use(ssram);
    CapturePage page(standard, nets(bits), size);
    page.implementationField = stored;
    page.open();
    QTEST(CapturePage::offered(page.implementation()), "offered");
    page.save();
    QTEST(page.implementationField, "saved");
}

// A Standard core's sizes depend on each other.
void TestCapturePages::sizes_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("shown");

    QTest::newRow("smallest") << "comboStorageSize=4"
                              << "1..1:1 | 4:4 | 0..0:0";
    QTest::newRow("three segments share like four")
        << "comboStorageSize=65536 comboWindowNum=3"
        << "1..16384:3 | 4 8 16 32 64 128 256 512 1024 2048 4096 8192 16384:1024 | 0..1020:0";
    QTest::newRow("segments stay") << "comboWindowNum=5 comboStorageSize=32"
                                   << "1..8:5 | 4:4 | 0..0:0";
    QTest::newRow("most segments") << "comboWindowNum=100 comboStorageSize=64"
                                   << "1..16:16 | 4:4 | 0..0:0";
    QTest::newRow("amount stays") << "comboCapAmount=8 comboWindowNum=64"
                                  << "1..256:64 | 4 8 16:8 | 0..4:0";
    QTest::newRow("largest amount") << "comboWindowNum=64"
                                    << "1..256:64 | 4 8 16:16 | 0..12:0";
    QTest::newRow("position follows") << "comboStorageSize=64 spinBoxTrigPos=60 comboCapAmount=16"
                                      << "1..16:1 | 4 8 16 32 64:16 | 0..12:12";
    QTest::newRow("nothing fits") << "comboStorageSize=8 comboWindowNum+3"
                                  << "1..3:3 | : | -4..-4:-4";
    QTest::newRow("fits again") << "comboStorageSize=8 comboWindowNum+3 comboWindowNum=1"
                                << "1..3:1 | 4 8:8 | 0..4:0";
}

void TestCapturePages::sizes()
{
    QFETCH(QString, steps);
    CapturePage page(true);
    page.open();
    QSpinBox *position = page.child<QSpinBox>("spinBoxTrigPos");
    for (const QString &step : steps.split(' ')) {
        const QStringList parts = step.split(QRegExp("[=+]"));
        QComboBox *box = page.child<QComboBox>(parts[0].toLatin1());
        if (step.contains('+')) // what no storage leads to
            box->addItem(parts[1], parts[1].toInt());
        if (box)
            CapturePage::choose(box, parts[1]);
        else
            position->setValue(parts[1].toInt());
    }
    const QComboBox *segments = page.child<QComboBox>("comboWindowNum");
    QCOMPARE(segments->maxVisibleItems(), 15);
    for (int i = 0; i < segments->count(); ++i)
        QVERIFY(segments->itemText(i) == QString::number(i + 1) && segments->itemData(i) == i + 1);
    const QString amount = CapturePage::offered(page.child<QComboBox>("comboCapAmount"));
    QTEST(QString("1..%1:%2 | %3 | %4..%5:%6")
              .arg(segments->count())
              .arg(segments->currentText(), amount)
              .arg(position->minimum())
              .arg(position->maximum())
              .arg(position->value()),
          "shown");
}

void TestCapturePages::inputRegisterFollowsInitialData()
{
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
    QFETCH(bool, standard);
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
    QFETCH(bool, standard);
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
    QFETCH(bool, standard);
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
    QFETCH(bool, standard);
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
    QFETCH(bool, standard);
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
    QFETCH(bool, standard);
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
    QFETCH(bool, standard);
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
