#include <QCheckBox>
#include <QContextMenuEvent>
#include <QListWidget>
#include <QMenu>
#include <QSpinBox>
#include <QTableView>

#include "options/aooptionwidget.h"
#include "options/liteaooptionwidget.h"
#include "options/triggeroptionwidget.h"
#include "tests/options/capturepage.h"
#include "tests/options/devices.h"

using namespace RTLJEX;

namespace {

// The trigger page in a window of its own.
class TriggerPage
{
public:
    void open()
    {
        widget.reset(new TriggerOptionWidget(&core, nullptr));
        modified.reset(new QSignalSpy(widget.get(), SIGNAL(modified())));
        widget->resize(900, 400);
        widget->show();
    }

    template <typename T>
    T *child(const char *name) const
    {
        return widget->findChild<T *>(name);
    }
    QListWidget *list() const { return child<QListWidget>("listExpression"); }
    QTreeWidget *ports() const { return child<QTreeWidget>("treeTrigger"); }
    QTableView *units() const { return child<QTableView>("tableMu"); }
    QComboBox *mode() const { return child<QComboBox>("ModeComboBox"); }
    QComboBox *implementation() const { return child<QComboBox>("ImpleComboBox"); }

    // "Static 10 units: M1,-M11; BSRAM REG:REG; Register Usage : 1/0", grey expressions with a dash.
    QString shown() const
    {
        QStringList expressions;
        for (int i = 0; i < list()->count(); ++i)
            expressions << (list()->item(i)->foreground().color() == QColor(Qt::gray) ? "-" : "") +
                               list()->item(i)->text();
        QString text = QString("%1 %2 units: %3")
                           .arg(mode()->currentText())
                           .arg(units()->model()->rowCount())
                           .arg(expressions.join(','));
        if (child<QWidget>("Implementation")->isVisible())
            text += "; " + CapturePage::offered(implementation());
        if (child<QWidget>("Usage")->isVisible())
            text += "; " + child<QLabel>("UsageValue")->text();
        return text;
    }

    // A view reports a double click only after a click on the same row.
    void doubleClick(QAbstractItemView *view, const QRect &row)
    {
        const QPoint place = row.isNull() ? view->viewport()->rect().bottomRight() : row.center();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, place);
        QCoreApplication::processEvents();
    }
    void addByDoubleClick() { doubleClick(list(), QRect()); }
    void openPort(int i) { doubleClick(ports(), ports()->visualItemRect(ports()->topLevelItem(i))); }
    void openUnit(int i) { doubleClick(units(), units()->visualRect(units()->model()->index(i, 0))); }

    // Asks for the menu of the expressions and chooses a line of it.
    void chooseInMenu(int line)
    {
        QTimer::singleShot(0, [line] {
            QMenu *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            menu->setActiveAction(menu->actions().at(line));
            QTest::keyClick(menu, Qt::Key_Return);
        });
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5));
        QCoreApplication::sendEvent(list()->viewport(), &event);
    }

    JEX::AoCore core{0};
    ModalDriver user;
    std::unique_ptr<TriggerOptionWidget> widget;
    std::unique_ptr<QSignalSpy> modified;
};

// Leaves a dialog after presses of its buttons.
ModalDriver::Step presses(const QStringList &buttons, QDialogButtonBox::StandardButton leave)
{
    return [=](QDialog *dialog) {
        for (const QString &button : buttons)
            dialog->findChild<QAbstractButton *>(button)->click();
        dialog->findChild<QDialogButtonBox *>()->button(leave)->click();
    };
}

} // namespace

class TestStandardPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_devices.none(); }
    void sizes_data();
    void sizes();
    void addsFromTrigger();
    void modes();
    void implementationOnLoad();
    void ports();
    void units();
    void expressions();
    void dialogOutlivesPage();
    void corePages();

private:
    Devices m_devices;
};

// A Standard core's sizes depend on each other.
void TestStandardPages::sizes_data()
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

void TestStandardPages::sizes()
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

void TestStandardPages::addsFromTrigger()
{
    CapturePage page(true, "s:top/clk");
    page.aoCore.triggerPorts[2]->signalItems = signalsFromText("s:top/rst s:top/clk b:top/count[1]");
    page.aoCore.triggerPorts[5]->signalItems = signalsFromText("b:top/count[1] s:top/rst s:top/x");
    page.open();
    const auto tick = [&](const QStringList &ports, QDialogButtonBox::StandardButton leave) {
        page.user.then([=](QDialog *dialog) {
            for (QCheckBox *box : dialog->findChildren<QCheckBox *>())
                box->setChecked(ports.contains(box->text()));
            presses({}, leave)(dialog);
        });
        page.child<QPushButton>("btnAddFromTp")->click();
    };
    tick({"Trigger Port 2"}, QDialogButtonBox::Cancel);
    tick({}, QDialogButtonBox::Ok);
    QCOMPARE(page.modified->size(), 0);
    tick({"Trigger Port 2", "Trigger Port 5"}, QDialogButtonBox::Ok);
    QCOMPARE(page.rows(), QString("top/clk,top/count[1],top/rst,top/x"));
    QVERIFY(page.modified->size() > 0);
}

void TestStandardPages::modes()
{
    TriggerPage page;
    page.core.triggerMode = 1;
    page.core.triggerImplementation = JEX::RegImplementation;
    page.core.expressions << "M1&M2"
                          << "M11&M2"
                          << "M3";
    for (int unit : {1, 2, 3, 4, 5, 12})
        page.core.matchUnits[unit]->enabled = true;
    page.open();
    QCOMPARE(page.shown(), QString("Static 10 units: M1&M2,-M11&M2,M3; BSRAM REG:REG; Register Usage : 6/0"));
    page.units()->model()->setData(page.units()->model()->index(6, 0), Qt::Checked, Qt::CheckStateRole);
    QCOMPARE(page.child<QLabel>("UsageValue")->text(), QString("Register Usage : 10/0"));
    QCOMPARE(page.modified->size(), 1);

    // What nobody sees any more is kept.
    page.implementation()->setCurrentIndex(0);
    page.mode()->setCurrentIndex(0);
    QCOMPARE(page.shown(), QString("Dynamic 16 units: M1&M2,M11&M2,M3"));
    QCOMPARE(page.modified->size(), 3);
    page.widget->save();
    QCOMPARE(page.core.triggerMode, 0);
    QCOMPARE(page.core.triggerImplementation, 1);
    QCOMPARE(page.core.expressions.size(), 3);
    QVERIFY(page.core.matchUnits[12]->enabled);

    page.mode()->setCurrentIndex(1);
    m_devices.use(true);
    QVERIFY2(page.shown().contains("BSRAM SSRAM REG:BSRAM; BSRAM Usage : 2/56"), qPrintable(page.shown()));
    page.implementation()->setCurrentIndex(1);
    page.widget->save();
    QCOMPARE(page.core.triggerMode, 1);
    QCOMPARE(page.core.triggerImplementation, 2);
    QCOMPARE(page.core.expressions.join(' '), QString("M1&M2 M3"));
    QVERIFY(!page.core.matchUnits[12]->enabled && page.core.matchUnits[5]->enabled);

    page.modified->clear();
    m_devices.use(false);
    QVERIFY2(page.shown().contains("BSRAM REG:BSRAM"), qPrintable(page.shown()));
    QVERIFY(page.modified->size() > 0);
}

void TestStandardPages::implementationOnLoad()
{
    const char *const shown[] = {"BSRAM SSRAM REG:BSRAM", "BSRAM SSRAM REG:REG", "BSRAM SSRAM REG:SSRAM",
                                 "BSRAM SSRAM REG:BSRAM"};
    for (int stored = 0; stored < 4; ++stored) {
        m_devices.use(true);
        TriggerPage page;
        page.core.triggerMode = 1;
        page.core.triggerImplementation = stored;
        page.open();
        QCOMPARE(CapturePage::offered(page.implementation()), QString(shown[stored]));
        m_devices.use(false); // what it lacks falls back
        QCOMPARE(CapturePage::offered(page.implementation()),
                 QString(stored == 1 ? "BSRAM REG:REG" : "BSRAM REG:BSRAM"));
    }
}

void TestStandardPages::ports()
{
    TriggerPage page;
    page.core.triggerPorts[1]->signalItems = signalsFromText("s:top/clk b:top/a[1:0]{top/a[1],top/a[0]}");
    page.open();
    QTreeWidgetItem *row = page.ports()->topLevelItem(1);
    QCOMPARE(page.ports()->topLevelItemCount(), 16);
    QCOMPARE(row->text(0), QString("Trigger Port 1"));
    QCOMPARE(row->type(), 1001);
    QCOMPARE(row->child(1)->type(), 1002);
    QCOMPARE(toText(recordOf(row->child(1))), toText(page.core.triggerPorts[1]->signalItems[1]));

    page.user.then(presses({}, QDialogButtonBox::Cancel));
    page.openPort(1);
    QVERIFY(!row->isExpanded());
    QCOMPARE(page.modified->size(), 0);
    page.user.then([](QDialog *dialog) {
        QTreeWidget *tree = dialog->findChild<QTreeWidget *>("treeWidget");
        tree->topLevelItem(0)->setSelected(true);
        presses({"btnRemove"}, QDialogButtonBox::Ok)(dialog);
    });
    page.openPort(1);
    QVERIFY(row->isExpanded() && page.ports()->currentItem() == row);
    QCOMPARE(row->childCount(), 1);
    QCOMPARE(page.modified->size(), 1);

    // A signal stands for its port.
    page.user.then(presses({}, QDialogButtonBox::Ok));
    page.doubleClick(page.ports(), page.ports()->visualItemRect(row->child(0)));
    QVERIFY(row->isExpanded() && page.user.done());
    delete page.core.triggerPorts.takeLast();
    page.openPort(15); // there is no such port any more
    QCOMPARE(page.user.seen.size(), 3);
}

void TestStandardPages::units()
{
    TriggerPage page;
    page.core.triggerMode = 1;
    page.core.triggerPorts[0]->signalItems = signalsFromText("s:top/clk");
    page.open();
    QVERIFY(page.units()->isColumnHidden(1));
    page.user.then(presses({}, QDialogButtonBox::Cancel));
    page.openUnit(3);
    QCOMPARE(page.modified->size(), 0);
    page.user.then(presses({}, QDialogButtonBox::Ok));
    page.openUnit(3);
    QVERIFY(!page.core.matchUnits[3]->enabled); // not bound
    page.user.then([](QDialog *dialog) {
        dialog->findChild<QComboBox *>("comboPort")->setCurrentIndex(1);
        dialog->findChild<QLineEdit *>("editValue")->setText("1");
        presses({}, QDialogButtonBox::Ok)(dialog);
    });
    page.openUnit(3);
    QVERIFY(page.core.matchUnits[3]->enabled);
    QCOMPARE(page.core.matchUnits[3]->triggerPort, page.core.triggerPorts[0]);
    QCOMPARE(page.modified->size(), 2);
    QCOMPARE(page.user.seen.size(), 3);
}

void TestStandardPages::expressions()
{
    TriggerPage page;
    page.core.triggerMode = 1;
    page.open();
    page.user.then(presses({"btnM1", "btnAND", "btnM11", "btnM2"}, QDialogButtonBox::Ok)); // M11 is disabled
    page.addByDoubleClick();
    page.user.then(presses({"btnM3"}, QDialogButtonBox::Cancel));
    page.addByDoubleClick();
    page.user.then(presses({"btnM3"}, QDialogButtonBox::Ok));
    page.chooseInMenu(0);
    QCOMPARE(page.shown(), QString("Static 10 units: M1&M2,M3; BSRAM REG:BSRAM; BSRAM Usage : 2"));
    QCOMPARE(page.modified->size(), 2);

    // Editing starts from nothing, and the result is checked anew.
    page.list()->item(0)->setForeground(QColor(Qt::gray));
    const QRect first = page.list()->visualItemRect(page.list()->item(0));
    page.user.then(presses({"btnM4"}, QDialogButtonBox::Cancel));
    page.doubleClick(page.list(), first);
    QVERIFY(page.shown().contains("-M1&M2,M3"));
    page.list()->setFocus();
    page.widget->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(page.widget.get()));
    page.user.then(presses({"btnM5"}, QDialogButtonBox::Ok));
    QTest::keyClick(page.list(), Qt::Key_Return); // as a double click would
    QTRY_VERIFY(page.user.done());
    QCOMPARE(page.shown(), QString("Static 10 units: M5,M3; BSRAM REG:BSRAM; BSRAM Usage : 2"));
    QCOMPARE(page.modified->size(), 3);

    page.chooseInMenu(1);
    QCOMPARE(page.shown(), QString("Static 10 units: M3; BSRAM REG:BSRAM; BSRAM Usage : 1"));
    QCOMPARE(page.modified->size(), 4);
    page.user.seen.clear();
    while (page.list()->count() < 16)
        page.list()->addItem("M0");
    page.user.press(QMessageBox::Ok);
    QCoreApplication::postEvent(page.list()->viewport(),
                                new QMouseEvent(QEvent::MouseButtonDblClick, QPoint(5, 2000), Qt::LeftButton,
                                                Qt::LeftButton, Qt::NoModifier)); // below all rows
    QTRY_VERIFY(page.user.done());
    page.user.press(QMessageBox::Ok);
    page.chooseInMenu(0);
    QCOMPARE(page.user.seen.join('\n'), QString("warning | Error | Support 16 expressions at most. | OK\n"
                                                "warning | Warning | Support 16 expressions at most. | OK"));
    QCOMPARE(page.list()->count(), 16);
}

void TestStandardPages::dialogOutlivesPage()
{
    const std::function<void(TriggerPage &)> openers[] = {
        [](TriggerPage &page) { page.openPort(0); },
        [](TriggerPage &page) { page.openUnit(0); },
        [](TriggerPage &page) { page.addByDoubleClick(); },
        [](TriggerPage &page) { page.chooseInMenu(0); },
        [](TriggerPage &page) {
            page.doubleClick(page.list(), page.list()->visualItemRect(page.list()->item(0)));
        },
    };
    for (const auto &open : openers) {
        TriggerPage page;
        page.core.expressions << "M1";
        page.open();
        page.user.then([&](QDialog *) { page.widget.reset(); });
        open(page);
        QVERIFY(!page.widget);
    }
    CapturePage capture(true);
    capture.aoCore.triggerPorts[0]->signalItems = signalsFromText("s:top/clk");
    capture.open();
    capture.user.then([&](QDialog *) { capture.widget.reset(); });
    capture.child<QPushButton>("btnAddFromTp")->click();
    QVERIFY(!capture.widget);
}

// The pages of a core, of both editors.
void TestStandardPages::corePages()
{
    CapturePage design(true, "g:top/clk");
    design.liteCore.captureSignals = design.stored;
    AoOptionWidget page(&design.aoCore, nullptr);
    LiteAoOptionWidget lite(&design.liteCore, nullptr);
    QCOMPARE(page.tabText(0) + "," + page.tabText(1) + ";" + lite.tabText(0),
             QString("Trigger Options,Capture Options;Capture Options"));
    QCOMPARE(page.count() + lite.count(), 3);

    QSignalSpy modified(&page, SIGNAL(modifed()));
    QSignalSpy liteModified(&lite, SIGNAL(modified()));
    page.setNlsdata(design.netlist.get());
    lite.setNlsData(design.netlist.get());
    QCOMPARE(toText(design.aoCore.captureSignals + design.liteCore.captureSignals),
             QString("s:top/clk s:top/clk"));
    QCOMPARE(modified.size() + liteModified.size(), 0);
    page.findChild<QLineEdit *>("editSampleClock")->setText("top/rst");
    QCOMPARE(modified.size(), 1);
    page.findChild<QComboBox *>("ModeComboBox")->setCurrentIndex(1);
    QCOMPARE(modified.size(), 2);
    lite.findChild<QLineEdit *>("editSampleClock")->setText("top/rst");
    QCOMPARE(liteModified.size(), 1);
    page.save();
    lite.save();
    QCOMPARE(design.aoCore.triggerMode, 1);
    QCOMPARE(design.aoCore.sampleClock + design.liteCore.sampleClock, QString("top/rsttop/rst"));
}

QTEST_MAIN(TestStandardPages)
#include "tst_standardpages.moc"
