#include "host/eventmanager.h"
#include "model/jex/jextool.h"
#include "model/jex/zubfields.h"
#include "tests/options/pages.h"
#include "tests/support/tablerow.h"

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

template <class Core>
QString flagsOf(const Core &core)
{
    QString flags;
    for (const JEX::Field<Core> &field : JEX::fieldsOf<Core>()) {
        if (field.kind == JEX::FlagField)
            flags += core.*field.flag ? '1' : '0';
    }
    return flags;
}

} // namespace

// Each test runs over the pages of both editors.
class CapturePagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data()
    {
        QTest::addColumn<bool>("standard");
        QTest::newRow("Standard") << true;
        QTest::newRow("Lite") << false;
    }

    void init()
    {
        QFETCH_GLOBAL(bool, standard);
        this->standard = standard;
    }

    void loadsAndSaves()
    {
        const Device device(true);
        CapturePage page(standard, "g:group_0[1:0]=both{s:top/clk,^s:top/rst} s:top/u0/ready !s:top/x");
        JEX::AoCore &ao = page.aoCore;
        JEX::AOCore_Lite &lite = page.liteCore;
        QList<QPair<qint32 *, qint32>> numbers{
            {standard ? &ao.sampleEdge : &lite.sampleEdge, JEX::FallingEdge},
            {&page.implementationField, 2},
            {standard ? &ao.captureAmount : &lite.captureAmount, 512}};
        if (standard)
            numbers << qMakePair(&ao.storageSize, 4096) << qMakePair(&ao.windowNumber, 3)
                    << qMakePair(&ao.triggerPosition, 77);
        bool &flag = standard ? ao.forceTriggerByFallingEdge : lite.enableCaptureDataInputRegister;
        bool &initial = standard ? ao.captureInitialData : lite.captureInitialData;
        QString &clock = standard ? ao.sampleClock : lite.sampleClock;
        QList<JEX::SignalItem> rows = page.stored;
        clock = "top/clk";
        flag = true;
        for (const auto &number : numbers)
            *number.first = number.second;
        page.open();
        QVERIFY(page.child<QRadioButton>("radioButtonFalling")->isChecked());
        QCOMPARE(page.rows(), QString("both(2),top/u0/ready,-top/x"));
        QVERIFY(!page.child<QPushButton>("btnRemove")->isEnabled());

        page.tree()->addTopLevelItem(new QTreeWidgetItem(QStringList("no record")));
        page.tree()->setCurrentItem(page.tree()->topLevelItem(1));
        page.tree()->onChangeName(); // and saves while typing
        page.tree()->findChild<QLineEdit *>()->setText(rows[1].alias = "ready");
        page.stored.clear();
        clock.clear();
        flag = false;
        initial = true;
        for (const auto &number : numbers)
            *number.first = -1;
        page.save();
        QCOMPARE(clock, QString("top/clk"));
        for (const auto &number : numbers)
            QCOMPARE(*number.first, number.second);
        QVERIFY(flag);
        QVERIFY(!initial);
        QCOMPARE(toText(page.stored), toText(rows));
        QCOMPARE(toText(standard ? ao.enabledCaptureSignals : lite.enabledCaptureSignals),
                 toText(rows.mid(0, 2)));
    }

    // Whatever boxes a page has.
    void boxesAreFlags()
    {
        QFETCH_GLOBAL(bool, standard);
        CapturePage page(standard);
        const auto saved = [&] {
            page.save();
            return standard ? flagsOf(page.aoCore) : flagsOf(page.liteCore);
        };
        for (QCheckBox *box : page.open().widget->findChildren<QCheckBox *>()) {
            const QString before = saved();
            page.modified->clear();
            box->click();
            QCOMPARE(page.modified->size(), 1);
            QVERIFY2(saved() != before, qPrintable(box->objectName()));
        }
    }

    void implementations()
    {
        // Shadow memory, bits at the smallest number of samples, what is stored, offered and saved.
        const Rows<bool, int, int, const char *, int> rows = {
            {true, 1, 0, "BSRAM SSRAM REG:BSRAM", 0},
            {true, 1, 2, "BSRAM SSRAM REG:SSRAM", 2},
            {false, 1, 2, "BSRAM REG:BSRAM", 0}, // not on this device
            {true, 1, 9, "BSRAM SSRAM REG:BSRAM", 0},
            // The Lite page does not find registers again.
            {false, standard ? 127 : 256, 1, standard ? "BSRAM REG:REG" : "BSRAM REG:BSRAM",
             standard ? 1 : 0},
            {false, standard ? 128 : 257, 1, "BSRAM:BSRAM", 0},
        };
        for (const auto &[ssram, bits, stored, offered, saved] : rows) {
            const Device device(ssram);
            CapturePage page(standard, nets(bits), standard ? 4 : 2);
            page.implementationField = stored;
            page.open();
            QCOMPARE(Page::offered(page.implementation()), QString(offered));
            page.save();
            QCOMPARE(page.implementationField, saved);
        }
    }

    void inputRegisterFollowsInitialData()
    {
        if (standard)
            return; // has no such flag
        const Device device(true);
        CapturePage page(false, QString(), 2);
        const QCheckBox *reg = page.open().child<QCheckBox>("enableInputRegCheckBox");
        page.implementation()->addItem("Other"); // which stands for nothing, and changes nothing
        QString states;
        for (const char *step : {"", "REG", "BSRAM", "Other", "SSRAM", "BSRAM", "", "REG"}) {
            if (*step)
                Page::choose(page.implementation(), step);
            else
                page.child<QCheckBox>("capIniDataCheckBox")->click();
            states += QString(reg->isChecked() ? "on" : "off") + (reg->isEnabled() ? " " : "! ");
        }
        QCOMPARE(states, QString("on! off! on! on! off! on! on on "));
    }

    void edits()
    {
        CapturePage page(standard, "s:top/u0/ready !s:top/gone !s:top/rst", 65536);
        const QLineEdit *clock = page.open().child<QLineEdit>("editSampleClock");
        page.pick("btnSampleClock", {"top/clk"});
        page.pick("btnSampleClock", {"top/rst"}, QDialogButtonBox::Cancel);
        for (int searches = 0; searches < 2; ++searches) // whatever comes of them
            QTest::ignoreMessage(QtDebugMsg, "get infor from search");
        page.pick("btnAdd", {"top/clk"}, QDialogButtonBox::Cancel);
        QCOMPARE(clock->text(), QString("top/clk"));
        QCOMPARE(page.modified->size(), 1);

        // Buses first, then single nets, after the enabled rows; what is there already is enabled.
        page.pick("btnAdd", {"top/clk", "top/rst", "top/data[7:0]"});
        QCOMPARE(page.rows(), QString("top/u0/ready,top/data[7:0](8),top/clk,top/rst,-top/gone"));
        QVERIFY(page.modified->size() > 1);
        const int required = standard ? JEX_TOOL::bsramNumberRequiredWithAdjust(11, 65536)
                                      : JEX_TOOL::bsramNumberRequired(11, 65536);
        QCOMPARE(page.usage(), QString("BSRAM Usage : <font color = red>%1</font>/0").arg(required));
    }

    void removesRows()
    {
        CapturePage page(standard, "s:top/clk " + QString(data8) + nets(50000));
        QTreeWidgetItem *data = page.open().tree()->topLevelItem(1);
        const QPushButton *remove = page.child<QPushButton>("btnRemove");
        data->setSelected(true);
        QVERIFY(remove->isEnabled());
        data->child(3)->setSelected(true);
        QVERIFY(!remove->isEnabled());
        data->setSelected(false);
        QMetaObject::invokeMethod(page.widget.get(), "onRemoveSignals"); // a member stays with its bus
        QCOMPARE(page.tree()->topLevelItemCount(), 50002);
        QCOMPARE(page.modified->size(), 0);
        page.tree()->topLevelItem(2)->setSelected(true);
        QMetaObject::invokeMethod(page.widget.get(), "onRemoveSignals");
        QCOMPARE(page.tree()->topLevelItemCount(), 50001);
        QCOMPARE(page.modified->size(), 1);

        // Quadratic work would take minutes here.
        page.tree()->selectAll(); // members that nobody sees are left out
        page.tree()->topLevelItem(0)->setSelected(false);
        data->child(3)->setSelected(false);
        page.tree()->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(page.widget.get()));
        QTest::keyClick(page.tree(), Qt::Key_Delete);
        QCOMPARE(page.rows(), QString("top/clk"));
        QVERIFY(!page.modified->isEmpty());
        QVERIFY(!remove->isEnabled());
    }

    void deviceChange()
    {
        Device device(false);
        CapturePage page(standard, "!s:top/rst s:top/clk " + QString(data8), 32);
        Page::choose(page.open().implementation(), "REG");
        QCOMPARE(page.usage().section('/', 0, 0),
                 QString("Register Usage : %1").arg((standard ? 10 : 9) * 32));
        page.modified->clear();
        device.change(true);
        QCOMPARE(Page::offered(page.implementation()), QString("BSRAM SSRAM REG:REG"));
        QCOMPARE(page.rows().startsWith("-top/rst"), standard); // the Lite page sorts
        QVERIFY(!page.modified->isEmpty());
        Page::choose(page.implementation(), "SSRAM");
        page.modified->clear();
        QUtil::EventManager::instance()->post("TE.Device.Change", {}); // which offers nothing new
        QCOMPARE(page.modified->size(), standard ? 0 : 1);
        QCOMPARE(page.usage().section('/', 0, 0),
                 QString("SSRAM Usage : %1").arg(JEX_TOOL::ssramNumberRequiredWithAdjust(9, 32, standard)));
        device.change(false);
        QCOMPARE(Page::offered(page.implementation()), QString("BSRAM REG:BSRAM"));

        page.widget.reset();
        device.change(true); // nobody is left to hear of it
    }

    void dialogOutlivesPage()
    {
        for (const char *opener : {"btnAdd", "btnSampleClock", "btnAddFromTp"}) {
            CapturePage page(standard);
            page.aoCore.triggerPorts[0]->signalItems = signalsFromText("s:top/clk");
            page.user.then([&](QDialog *) { page.widget.reset(); });
            if (QPushButton *button = page.open().child<QPushButton>(opener)) {
                button->click();
                QVERIFY(!page.widget);
            }
        }
    }

    void everyControlReportsAChange()
    {
        const Device device(true);
        CapturePage page(standard, QString(), 64);
        page.open();
        const auto reports = [&](const QWidget *control) {
            QVERIFY2(!page.modified->isEmpty(), qPrintable(control->objectName()));
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
        Q_EMIT page.tree()->model()->layoutChanged();
        reports(page.tree());
        QMetaObject::invokeMethod(page.tree(), "CapSignalChange"); // only the figures follow
        QCOMPARE(page.modified->size(), 0);
    }

private:
    bool standard = false; // the editor whose page is tested
};

QTEST_MAIN(CapturePagesTest)
#include "tst_capturepages.moc"
