#include <QtTest>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <functional>
#include <memory>

#include "host/designmanager.h"
#include "host/eventmanager.h"
#include "host/project.h"
#include "model/jex/core.h"
#include "model/jex/jextool.h"
#include "model/quarry/rtlnetlist.h"
#include "options/liteaooptionwidget.h"
#include "options/litecaptureoptionwidget.h"
#include "tests/support/netlisttext.h"
#include "tests/support/netpicker.h"

using namespace RTLJEX;

namespace {

const char design[] = R"(
top
  clk
  rst
  data[7:0]
  u0:uart
    ready
    count[3:0]
)";

JEX::SignalItem single(const QString &name, bool enabled = true)
{
    JEX::SignalItem item;
    item.name = name;
    item.type = 0;
    item.capEnable = enabled;
    return item;
}

JEX::SignalItem bus(const QString &base, int width)
{
    JEX::SignalItem item;
    item.name = QString("%1[%2:0]").arg(base).arg(width - 1);
    item.type = 1;
    for (int bit = width - 1; bit >= 0; --bit) {
        JEX::SignalItem member = single(QString("%1[%2]").arg(base).arg(bit));
        member.type = 1;
        item.members.append(member);
    }
    return item;
}

// One page in a window of its own, on a core and the design above, with its controls by name.
class Page
{
public:
    explicit Page(const JEX::AOCore_Lite &stored = JEX::AOCore_Lite())
        : core(stored),
          netlist(netlistFromText(design)),
          widget(new LiteCaptureOptionWidget(&core, netlist.get())),
          modified(widget.get(), SIGNAL(modified()))
    {
        widget->show();
    }

    template <typename T>
    T *child(const char *name) const
    {
        return widget->findChild<T *>(name);
    }
    QComboBox *amount() const { return child<QComboBox>("comboCapAmount"); }
    QComboBox *implementation() const { return child<QComboBox>("implementation"); }
    QCheckBox *inputRegister() const { return child<QCheckBox>("enableInputRegCheckBox"); }
    QCheckBox *initialData() const { return child<QCheckBox>("capIniDataCheckBox"); }
    QLineEdit *clock() const { return child<QLineEdit>("editSampleClock"); }
    QTreeWidget *tree() const { return child<QTreeWidget>("treeWidgetSignal"); }
    QPushButton *button(const char *name) const { return child<QPushButton>(name); }

    QString offered() const
    {
        QStringList texts;
        for (int i = 0; i < implementation()->count(); ++i)
            texts << implementation()->itemText(i);
        return texts.join(' ');
    }

    // "top/clk,top/data[7:0](8),-top/rst": members counted, disabled rows with a dash.
    QString rows() const
    {
        QStringList texts;
        for (int i = 0; i < tree()->topLevelItemCount(); ++i) {
            const QTreeWidgetItem *row = tree()->topLevelItem(i);
            const bool enabled = row->data(0, Qt::UserRole).value<JEX::SignalItem>().capEnable;
            texts << (enabled ? "" : "-") + row->text(0) +
                         (row->childCount() ? QString("(%1)").arg(row->childCount()) : QString());
        }
        return texts.join(',');
    }

    // Clicks a button that opens the search dialog and picks rows by their text there.
    void pick(const char *opener, const QStringList &names,
              QDialogButtonBox::StandardButton leave = QDialogButtonBox::Ok)
    {
        user.then(pickNets(QString(), names, leave));
        QTest::mouseClick(button(opener), Qt::LeftButton);
        QVERIFY(user.done());
    }

    ModalDriver user;
    JEX::AOCore_Lite core;
    std::unique_ptr<QUARRY::RtlNetlist> netlist;
    std::unique_ptr<LiteCaptureOptionWidget> widget;
    QSignalSpy modified;
};

} // namespace

class TestLiteCapture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void loadsAndSaves();
    void implementationOnLoad_data();
    void implementationOnLoad();
    void offersImplementations_data();
    void offersImplementations();
    void registersGoWithTheSize();
    void inputRegisterFollowsInitialData();
    void picksClock();
    void addsSignals();
    void addedAgain();
    void removesRows();
    void removesManyRows();
    void rebuildTakesTheStoredList();
    void deviceChange();
    void dialogOutlivesPage();
    void corePage();
    void everyControlReportsAChange();

private:
    void useDevice(bool withSsram);

    std::unique_ptr<Core::Project> m_project;
};

void TestLiteCapture::init()
{
    m_project.reset(new Core::Project);
    Core::ProjectManager::setCurrentProject(m_project.get());
}

void TestLiteCapture::cleanup()
{
    Core::ProjectManager::setCurrentProject(nullptr);
    m_project.reset();
}

void TestLiteCapture::useDevice(bool withSsram)
{
    DEV::DeviceArg device;
    device.series = withSsram ? "ECP5" : "iCE40";
    device.device = withSsram ? "LFE5U-25F" : "iCE40HX8K";
    QVERIFY(JEX_TOOL::currentDeviceBsramAmount(device.series, device.device) > 0);
    QCOMPARE(JEX_TOOL::currentDeviceSsramAmount(device.series, device.device) > 0, withSsram);
    m_project->setDevice(device);
}

void TestLiteCapture::loadsAndSaves()
{
    JEX::AOCore_Lite core;
    core.coreNumber = 3;
    core.sampleClock = "top/clk";
    core.sampleEdge = 1;
    core.implementation = JEX::BsramImplementation;
    core.captureAmount = 4096;
    core.enableCaptureDataInputRegister = true;
    core.captureSignals << bus("top/data", 8) << single("top/u0/ready") << single("top/rst", false);
    core.captureSignals[0].alias = "bytes";
    core.captureSignals[0].members[2].auxFlag = false;

    Page page(core);
    QCOMPARE(page.clock()->text(), QString("top/clk"));
    QVERIFY(page.child<QRadioButton>("radioButtonFalling")->isChecked());
    QCOMPARE(page.amount()->currentText(), QString("4096"));
    QVERIFY(page.inputRegister()->isChecked() && page.inputRegister()->isEnabled());
    QVERIFY(!page.initialData()->isChecked());
    QCOMPARE(page.rows(), QString("bytes(8),top/u0/ready,-top/rst"));
    QVERIFY(!page.button("btnRemove")->isEnabled());

    page.tree()->addTopLevelItem(new QTreeWidgetItem(QStringList("no record")));
    page.widget->save();
    QCOMPARE(page.core.coreNumber, 3);
    QCOMPARE(page.core.sampleClock, core.sampleClock);
    QCOMPARE(page.core.sampleEdge, 1);
    QCOMPARE(page.core.implementation, 0);
    QCOMPARE(page.core.captureAmount, 4096);
    QCOMPARE(page.core.enableCaptureDataInputRegister, true);
    QCOMPARE(page.core.captureInitialData, false);
    QVERIFY(page.core.captureSignals == core.captureSignals);
    QVERIFY(page.core.enabledCaptureSignals == core.captureSignals.mid(0, 2));
}

void TestLiteCapture::implementationOnLoad_data()
{
    QTest::addColumn<bool>("ssram");
    QTest::addColumn<int>("stored");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("saved");

    QTest::newRow("BSRAM") << true << 0 << "BSRAM" << 0;
    QTest::newRow("registers are not found again") << true << 1 << "BSRAM" << 0;
    QTest::newRow("SSRAM") << true << 2 << "SSRAM" << 2;
    QTest::newRow("SSRAM on a device without") << false << 2 << "BSRAM" << 0;
    QTest::newRow("unknown") << true << 9 << "BSRAM" << 0;
}

void TestLiteCapture::implementationOnLoad()
{
    QFETCH(bool, ssram);
    QFETCH(int, stored);
    useDevice(ssram);
    JEX::AOCore_Lite core;
    core.implementation = stored;
    Page page(core);
    QTEST(page.implementation()->currentText(), "shown");
    page.widget->save();
    QTEST(page.core.implementation, "saved");
}

void TestLiteCapture::offersImplementations_data()
{
    QTest::addColumn<bool>("ssram");
    QTest::addColumn<int>("amount");
    QTest::addColumn<int>("bits");
    QTest::addColumn<QString>("offered");

    QTest::newRow("512 bits") << false << 2 << 256 << "BSRAM REG";
    QTest::newRow("514 bits") << false << 2 << 257 << "BSRAM";
    QTest::newRow("512 bits, SSRAM") << true << 2 << 256 << "BSRAM SSRAM REG";
    QTest::newRow("514 bits, SSRAM") << true << 2 << 257 << "BSRAM SSRAM";
    QTest::newRow("no signals") << false << 65536 << 0 << "BSRAM REG";
    QTest::newRow("2^32 bits") << false << 65536 << 65536 << "BSRAM";
}

void TestLiteCapture::offersImplementations()
{
    QFETCH(bool, ssram);
    QFETCH(int, amount);
    QFETCH(int, bits);
    useDevice(ssram);
    JEX::AOCore_Lite core;
    core.captureAmount = amount;
    if (bits > 1000) {
        core.captureSignals << bus("top/wide", bits);
    } else {
        for (int i = 0; i < bits; ++i)
            core.captureSignals << single(QString("top/n%1").arg(i));
    }
    Page page(core);
    QTEST(page.offered(), "offered");
}

void TestLiteCapture::registersGoWithTheSize()
{
    useDevice(false);
    JEX::AOCore_Lite core;
    core.captureAmount = 64;
    core.captureSignals << bus("top/data", 8);
    Page page(core);
    QLabel *name = page.child<QLabel>("label_3");
    page.implementation()->setCurrentIndex(page.implementation()->findText("REG"));
    QCOMPARE(name->text(), QString("Register Usage :"));
    page.modified.clear();

    page.amount()->setCurrentIndex(page.amount()->findText("128"));
    QCOMPARE(page.offered(), QString("BSRAM"));
    QCOMPARE(name->text(), QString("BSRAM Usage :"));
    QVERIFY(page.modified.size() > 0);

    page.amount()->setCurrentIndex(page.amount()->findText("64"));
    QCOMPARE(page.offered(), QString("BSRAM REG"));
    QCOMPARE(page.implementation()->currentText(), QString("BSRAM"));
}

void TestLiteCapture::inputRegisterFollowsInitialData()
{
    useDevice(true);
    JEX::AOCore_Lite core;
    core.captureAmount = 2;
    Page page(core);
    const auto state = [&] {
        return QString(page.inputRegister()->isChecked() ? "checked" : "unchecked") +
               (page.inputRegister()->isEnabled() ? "" : " locked");
    };
    const auto choose = [&](const char *text) {
        page.implementation()->setCurrentIndex(page.implementation()->findText(text));
    };
    QCOMPARE(state(), QString("unchecked"));
    page.initialData()->click();
    QCOMPARE(state(), QString("checked locked"));
    choose("REG");
    QCOMPARE(state(), QString("unchecked locked"));
    choose("BSRAM");
    QCOMPARE(state(), QString("checked locked"));
    choose("SSRAM");
    QCOMPARE(state(), QString("unchecked locked"));
    choose("BSRAM");
    page.initialData()->click();
    QCOMPARE(state(), QString("checked"));
    choose("REG");
    QCOMPARE(state(), QString("checked"));
}

void TestLiteCapture::picksClock()
{
    Page page;
    page.pick("btnSampleClock", {"top/clk"});
    QCOMPARE(page.clock()->text(), QString("top/clk"));
    QCOMPARE(page.modified.size(), 1);
    page.pick("btnSampleClock", {"top/data[7:0]"});
    QCOMPARE(page.clock()->text(), QString("top/data[7]"));
    page.pick("btnSampleClock", {"top/u0/count[2]"});
    QCOMPARE(page.clock()->text(), QString("top/u0/count[2]"));
    page.modified.clear();
    page.pick("btnSampleClock", {});
    page.pick("btnSampleClock", {"top/clk"}, QDialogButtonBox::Cancel);
    QCOMPARE(page.clock()->text(), QString("top/u0/count[2]"));
    QCOMPARE(page.modified.size(), 0);
}

void TestLiteCapture::addsSignals()
{
    JEX::AOCore_Lite core;
    core.captureSignals << single("top/u0/ready") << single("top/rst", false);
    Page page(core);
    page.pick("btnAdd", {"top/clk"}, QDialogButtonBox::Cancel);
    QCOMPARE(page.modified.size(), 0);

    // Buses and bits first, then single nets, after the enabled rows.
    page.pick("btnAdd", {"top/clk", "top/data[7:0]", "top/u0/count[3]", "top/u0/count[1]"});
    QCOMPARE(page.rows(), QString("top/u0/ready,top/data[7:0](8),top/u0/count[3],top/u0/count[1],top/clk,"
                                  "-top/rst"));
    QVERIFY(page.modified.size() > 0);
    QCOMPARE(page.child<QLabel>("label_8")->text(),
             QString("<font color = red>%1</font>/0").arg(JEX_TOOL::bsramNumberRequired(12, 1024)));
}

void TestLiteCapture::addedAgain()
{
    JEX::AOCore_Lite core;
    core.captureSignals << single("top/clk") << single("top/u0/ready", false) << single("top/rst", false);
    Page page(core);
    page.pick("btnAdd", {"top/clk", "top/rst"});
    QCOMPARE(page.rows(), QString("top/clk,top/rst,-top/u0/ready"));
}

void TestLiteCapture::removesRows()
{
    JEX::AOCore_Lite core;
    core.captureSignals << single("top/clk") << bus("top/data", 8) << single("top/rst");
    Page page(core);
    QTreeWidgetItem *data = page.tree()->topLevelItem(1);
    data->setExpanded(true);
    QPushButton *remove = page.button("btnRemove");

    data->setSelected(true);
    QVERIFY(remove->isEnabled());
    data->child(3)->setSelected(true);
    QVERIFY(!remove->isEnabled());
    data->setSelected(false);
    QVERIFY(!remove->isEnabled());
    QMetaObject::invokeMethod(page.widget.get(), "onRemoveSignals");
    QCOMPARE(page.rows(), QString("top/clk,top/data[7:0](8),top/rst"));
    QCOMPARE(page.modified.size(), 0);

    page.tree()->clearSelection();
    data->setSelected(true);
    page.tree()->topLevelItem(0)->setSelected(true);
    QTest::mouseClick(remove, Qt::LeftButton);
    QCOMPARE(page.rows(), QString("top/rst"));
    QVERIFY(page.modified.size() > 0);
    QVERIFY(!remove->isEnabled());
    QCOMPARE(page.child<QLabel>("label_8")->text(),
             QString("<font color = red>%1</font>/0").arg(JEX_TOOL::bsramNumberRequired(1, 1024)));
}

// Quadratic work would take minutes here.
void TestLiteCapture::removesManyRows()
{
    JEX::AOCore_Lite core;
    for (int i = 0; i < 50000; ++i)
        core.captureSignals << single(QString("top/n%1").arg(i));
    Page page(core);
    page.tree()->selectAll();
    QSignalSpy selection(page.tree(), SIGNAL(itemSelectionChanged()));
    QTest::mouseClick(page.button("btnRemove"), Qt::LeftButton);
    QCOMPARE(page.rows(), QString());
    QCOMPARE(selection.size(), 1);
}

void TestLiteCapture::rebuildTakesTheStoredList()
{
    JEX::AOCore_Lite core;
    core.captureSignals << single("top/u0/ready") << single("top/clk") << single("top/gone")
                        << bus("top/data", 8) << bus("group_0", 2) << single("top/rst", false);
    core.captureSignals[4].members[0].name = "top/rst";
    core.captureSignals[4].members[1].name = "top/data[1]";
    for (JEX::SignalItem &item : core.captureSignals)
        item.type = -1;
    Page page(core);
    page.tree()->topLevelItem(0)->setSelected(true);
    QTest::mouseClick(page.button("btnRemove"), Qt::LeftButton);
    page.modified.clear();

    page.widget->updateTree();
    QCOMPARE(page.rows(), QString("top/u0/ready,top/clk,top/gone,top/data[7:0](8),group_0[1:0](2),-top/rst"));
    QString types;
    for (const JEX::SignalItem &item : page.core.captureSignals) {
        types += QString::number(item.type) + ' ';
        for (const JEX::SignalItem &member : item.members)
            types += QString::number(member.type);
        types += item.members.isEmpty() ? "" : " ";
    }
    QCOMPARE(types, QString("0 0 1 1 11111111 -1 01 0 "));
    QVERIFY(page.tree()->topLevelItem(3)->data(0, Qt::UserRole).value<JEX::SignalItem>() ==
            page.core.captureSignals[3]);
    QCOMPARE(page.modified.size(), 0);

    // Without a design nothing is known about the rows, and nothing is judged.
    page.widget->setNlsdata(nullptr);
    page.core.captureSignals[2].type = 0;
    page.widget->updateTree();
    QCOMPARE(page.core.captureSignals[2].type, 0);
}

void TestLiteCapture::deviceChange()
{
    useDevice(false);
    JEX::AOCore_Lite core;
    core.captureAmount = 2;
    core.captureSignals << single("top/rst", false) << single("top/clk");
    Page page(core);
    page.modified.clear();
    useDevice(true);
    QCOMPARE(page.offered(), QString("BSRAM SSRAM REG"));
    QCOMPARE(page.rows(), QString("top/clk,-top/rst"));
    QVERIFY(page.modified.size() > 0);

    page.modified.clear();
    QUtil::EventManager::instance()->post("TE.Option.Change", {});
    QCOMPARE(page.modified.size(), 0);
    page.widget.reset();
    useDevice(false); // nobody is left to hear of it
}

void TestLiteCapture::dialogOutlivesPage()
{
    for (const char *opener : {"btnAdd", "btnSampleClock"}) {
        Page page;
        page.user.then([&](QDialog *) { page.widget.reset(); });
        QTest::mouseClick(page.button(opener), Qt::LeftButton);
        QVERIFY(!page.widget);
    }
}

void TestLiteCapture::corePage()
{
    const std::unique_ptr<QUARRY::RtlNetlist> netlist(netlistFromText(design));
    JEX::AOCore_Lite core;
    core.captureSignals << single("top/clk");
    core.captureSignals[0].type = -1;
    LiteAoOptionWidget page(&core, nullptr);
    QCOMPARE(page.count(), 1);
    QCOMPARE(page.tabText(0), QString("Capture Options"));

    QSignalSpy modified(&page, SIGNAL(modified()));
    page.setNlsData(netlist.get());
    QCOMPARE(core.captureSignals[0].type, 0);
    QCOMPARE(modified.size(), 0);
    page.findChild<QLineEdit *>("editSampleClock")->setText("top/rst");
    QCOMPARE(modified.size(), 1);
    QCOMPARE(core.sampleClock, QString());
    page.save();
    QCOMPARE(core.sampleClock, QString("top/rst"));
}

void TestLiteCapture::everyControlReportsAChange()
{
    Page page;
    const std::function<void()> changes[] = {
        [&] { page.clock()->setText("top/clk"); },
        [&] { page.child<QRadioButton>("radioButtonFalling")->click(); },
        [&] { page.amount()->setCurrentIndex(0); },
        [&] { page.implementation()->setCurrentIndex(1); },
        [&] { page.inputRegister()->click(); },
        [&] { page.initialData()->click(); },
        [&] { QMetaObject::invokeMethod(page.tree(), "itemDragged"); },
    };
    for (size_t i = 0; i < sizeof(changes) / sizeof(changes[0]); ++i) {
        page.modified.clear();
        changes[i]();
        QVERIFY2(page.modified.size() > 0, QByteArray::number(int(i)));
    }
    page.modified.clear();
    QMetaObject::invokeMethod(page.tree(), "CapSignalChange"); // only the figures follow
    QCOMPARE(page.modified.size(), 0);
}

QTEST_MAIN(TestLiteCapture)
#include "tst_litecapture.moc"
