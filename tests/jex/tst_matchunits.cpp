#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTreeWidget>
#include <QtTest>

#include "model/jex/matchunitdialog.h"
#include "model/jex/matchunitmodel.h"
#include "model/jex/matchvalue.h"
#include "tests/support/modaldriver.h"

using namespace JEX;

namespace {

void fill(TriggerPort *port, int width)
{
    port->signalItems.append(SignalItem());
    for (int i = width - 1; i > 0; --i) {
        port->signalItems[0].members.append(SignalItem());
        port->signalItems[0].members.last().name = QString("top/a[%1]").arg(i);
    }
    port->signalItems.append(SignalItem()); // a single net after the bus
    port->signalItems[1].name = "top/b";
}

QString describe(const MatchUnit &unit)
{
    return QString("%1 %2 %3")
        .arg(portTitle(unit.triggerPort), matchFunctionName(unit.function), matchValueText(unit));
}

// A core with ports of 2, 6 and 64 bits, and the dialog for a unit of it.
struct Desk
{
    Desk()
    {
        const int widths[] = {2, 6, 64};
        for (int i = 0; i < 3; ++i)
            fill(core.getTrigger(i), widths[i]);
    }

    void open(bool readOnly = false)
    {
        dialog.reset(new MatchUnitDialog(unit, readOnly));
        dialog->show();
    }
    template <class Widget>
    Widget *find(const char *name)
    {
        return dialog->findChild<Widget *>(name);
    }
    void choose(const char *box, const char *text)
    {
        const int index = find<QComboBox>(box)->findText(text);
        QVERIFY2(index >= 0, text);
        find<QComboBox>(box)->setCurrentIndex(index);
    }
    void type(const char *field, const QString &text)
    {
        find<QLineEdit>(field)->selectAll();
        QTest::keyClicks(find<QLineEdit>(field), text);
    }
    // What the user sees: the text of the value and of the sentence below the bits.
    QString shown()
    {
        return find<QLineEdit>("editValue")->text() + " | " + find<QLabel>("labelFault")->text();
    }

    AoCore core{0};
    MatchUnit *unit = core.matchUnit(3);
    std::unique_ptr<MatchUnitDialog> dialog;
};

} // namespace

class MatchUnitsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void faults_data()
    {
        QTest::addColumn<int>("function");
        QTest::addColumn<int>("width");
        QTest::addColumn<QString>("lower");
        QTest::addColumn<QString>("upper");
        QTest::addColumn<QString>("fault");
        const auto row = [](const char *name, int function, int width, const char *lower, const char *upper,
                            const char *fault) {
            QTest::newRow(name) << function << width << lower << upper << fault;
        };
        row("all characters", MatchEqual, 7, "01XRFBN", "", "");
        row("edges differ", MatchNotEqual, 2, "RX", "", "");
        row("number", MatchLess, 2, "10", "", "");
        row("range of one", MatchInRange, 2, "10", "10", "");
        row("short", MatchEqual, 2, "0", "", "The value has 1 bit, but the trigger port has 2.");
        row("long upper bound", MatchInRange, 2, "00", "111",
            "The upper bound has 3 bits, but the trigger port has 2.");
        row("strange", MatchEqual, 2, "02", "",
            "The value cannot hold \"2\": each bit is 0, 1, X (any level), R (rising edge), F (falling "
            "edge), "
            "B (either edge) or N (no edge).");
        row("strange number", MatchInRange, 2, "02", "11",
            "The lower bound cannot hold \"2\": each bit is 0 or 1.");
        row("edge in a number", MatchGreater, 2, "0R", "",
            "The function \"Greater\" compares numbers and takes no \"R\": each bit must be 0 or 1.");
        row("any level in a range", MatchInRange, 2, "00", "X1",
            "The function \"In range\" compares numbers and takes no \"X\": each bit must be 0 or 1.");
        row("turned", MatchInRange, 2, "10", "01", "The lower bound 10 is above the upper bound 01.");
    }

    void faults()
    {
        QFETCH(int, width);
        TriggerPort port;
        MatchUnit unit;
        QFETCH(int, function);
        unit.function = function;
        QFETCH(QString, lower);
        unit.value = lower;
        QFETCH(QString, upper);
        unit.upperValue = upper;
        QCOMPARE(matchUnitFault(unit), QString()); // not bound
        unit.triggerPort = &port;
        QCOMPARE(matchUnitFault(unit),
                 QString("Trigger Port 0 holds no signals: fill it first, or choose another one."));
        fill(&port, width);
        QTEST(matchUnitFault(unit), "fault");
    }

    void hexadecimal_data()
    {
        QTest::addColumn<QString>("bits"); // as many as the port has
        QTest::addColumn<QString>("hex");  // what stands for them; empty: nothing does
        QTest::newRow("digit") << "1010"
                               << "A";
        QTest::newRow("short first digit") << "110001XXXX1111"
                                           << "31XF";
        QTest::newRow("any level") << "XXX"
                                   << "X";
        QTest::newRow("one bit") << "1"
                                 << "1";
        QTest::newRow("64 bits") << QString(63, '1').prepend('0') << "7FFFFFFFFFFFFFFF";
        QTest::newRow("mixed digit") << "0000X000"
                                     << "";
        QTest::newRow("edge") << "RRRR"
                              << "";
    }

    void hexadecimal()
    {
        QFETCH(QString, bits);
        QFETCH(QString, hex);
        QCOMPARE(hexFromBits(bits), hex);
        if (!hex.isEmpty()) {
            QCOMPARE(hexFault(hex, bits.size(), "It"), QString());
            QCOMPARE(bitsFromHex(hex, bits.size()), bits);
        }
    }

    void hexFaults()
    {
        QCOMPARE(
            hexFault("3G", 6, "It"),
            QString("It cannot hold \"G\": each hexadecimal digit is 0 to 9, A to F, or X for bits of any "
                    "level."));
        QCOMPARE(hexFault("F", 6, "It"),
                 QString("It has 1 hexadecimal digit, but the 6 bits of the trigger port take 2."));
        QCOMPARE(hexFault("4F", 6, "It"),
                 QString("It begins with 4, but its first digit stands for 2 bits only and is at most 3."));
    }

    void model()
    {
        Desk desk;
        MatchUnitModel model(desk.core.matchUnits);
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        *desk.unit =
            MatchUnit{3, true, desk.core.getTrigger(1), MatchInRange, "000001", "0000R1", &desk.core};
        const auto row = [&model](int row) {
            QStringList texts;
            for (int column = 0; column < model.columnCount(); ++column)
                texts << model.index(row, column).data().toString();
            return texts.join("|");
        };
        QCOMPARE(row(3), QString("|3|M3|Trigger Port 1 (6 bits)|In range|000001 to 0000R1"));
        QCOMPARE(row(15), QString("|15|M15|Not bound||"));
        QCOMPARE(model.index(3, 5).data(Qt::ToolTipRole).toString(), matchUnitFault(*desk.unit));
        QCOMPARE(model.headerData(2, Qt::Horizontal).toString(), QString("Match Unit"));

        QSignalSpy matchChange(&model, SIGNAL(matchChange()));
        QSignalSpy layoutChanged(&model, SIGNAL(layoutChanged()));
        QSignalSpy dataChanged(&model, SIGNAL(dataChanged(QModelIndex, QModelIndex)));
        QCOMPARE(model.index(3, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
        QVERIFY(model.flags(model.index(3, 0)) & Qt::ItemIsUserCheckable);
        for (int i = 0; i < 2; ++i) // the second time nothing changes
            QVERIFY(model.setData(model.index(3, 0), Qt::Unchecked, Qt::CheckStateRole));
        QVERIFY(!desk.unit->enabled && !model.setData(model.index(3, 5), "1"));
        QCOMPARE(matchChange.size(), 1);
        QCOMPARE(dataChanged.size(), 1);
        model.updateRow(9);
        model.updateRow(16);
        QCOMPARE(dataChanged.size(), 2);
        QCOMPARE(dataChanged.last().at(0).toModelIndex().row(), 9);

        QSignalSpy reset(&model, SIGNAL(modelReset()));
        model.setMatcherList(desk.core.matchUnits.mid(0, 10));
        QCOMPARE(reset.size(), 1);
        QCOMPARE(model.rowCount(), 10);
        QCOMPARE(model.muFromIndex(model.index(9, 3)), desk.core.matchUnit(9));
        QVERIFY(!model.muFromIndex(QModelIndex()));
        QCOMPARE(matchChange.size() + layoutChanged.size(), 1);
    }

    // From a unit of a new core to one that is bound, in every kind of entry, and back.
    void edit()
    {
        Desk desk;
        ModalDriver driver;
        desk.open();
        QCOMPARE(desk.dialog->windowTitle(), QString("Match Unit M3"));
        QCOMPARE(desk.find<QComboBox>("comboPort")->count(), 4); // the ports that hold signals
        QVERIFY(!desk.find<QLineEdit>("editValue")->isEnabled());
        desk.choose("comboPort", "Trigger Port 1 (6 bits)");
        QCOMPARE(desk.shown(), QString("XXXXXX | "));
        desk.choose("comboPort", "Trigger Port 0 (2 bits)");
        desk.type("editValue", "r_x");
        QCOMPARE(desk.shown(), QString("R_X | "));
        desk.choose("comboFunction", "Less");
        const QString edges =
            matchUnitFault({0, false, desk.core.getTrigger(0), MatchLess, "RX", "", nullptr});
        QCOMPARE(desk.shown(), "R_X | " + edges);
        driver.press(QMessageBox::Ok);
        desk.dialog->accept();
        QVERIFY(desk.dialog->isVisible());
        QCOMPARE(driver.seen, QStringList("warning | Warning | " + edges + " | OK"));
        QCOMPARE(describe(*desk.unit), QString("Not bound Equal "));
        QTest::mouseClick(desk.find<QPushButton>("buttonReset"), Qt::LeftButton);
        QCOMPARE(desk.shown(), QString("00 | "));
        QTest::keyClick(desk.find<QLineEdit>("editValue"), Qt::Key_Return);
        QCOMPARE(desk.dialog->result(), int(QDialog::Accepted));
        QCOMPARE(describe(*desk.unit), QString("Trigger Port 0 (2 bits) Less 00"));

        desk.unit->enabled = true;
        desk.open();
        desk.choose("comboPort", "Not bound");
        desk.dialog->accept();
        QCOMPARE(describe(*desk.unit), QString("Not bound Equal "));
        QVERIFY(desk.unit->enabled);
    }

    void formats()
    {
        Desk desk;
        ModalDriver driver;
        *desk.unit = MatchUnit{3, false, desk.core.getTrigger(1), MatchEqual, "01X111", "", &desk.core};
        desk.open();
        driver.press(QMessageBox::Ok);
        desk.find<QRadioButton>("radioHex")->click();
        QCOMPARE(driver.seen.last(),
                 QString("warning | Warning | The value 01X111 has no hexadecimal form: the bits "
                         "of a digit must all be 0 or 1, or all be X. | OK"));
        QVERIFY(desk.find<QRadioButton>("radioBinary")->isChecked());
        desk.choose("comboFunction", "In range");
        desk.type("editValue", "000111");
        QCOMPARE(desk.find<QLineEdit>("editUpper")->text(), QString("111111"));
        desk.find<QRadioButton>("radioHex")->click();
        QCOMPARE(desk.shown(), QString("07 | "));
        desk.type("editUpper", "2f");
        desk.type("editValue", "7");
        QCOMPARE(desk.shown(), "7 | " + hexFault("7", 6, "The lower bound"));
        desk.type("editValue", "08");
        desk.find<QRadioButton>("radioBinary")->click();
        QCOMPARE(desk.shown(), QString("001000 | "));
        desk.dialog->accept();
        QCOMPARE(describe(*desk.unit), QString("Trigger Port 1 (6 bits) In range 001000 to 101111"));
    }

    // The list of bits follows the text, and a click on a bit selects its digit.
    void bits()
    {
        Desk desk;
        *desk.unit = MatchUnit{3, false, desk.core.getTrigger(1), MatchEqual, "01X11R", "", &desk.core};
        desk.open(true);
        QTreeWidget *tree = desk.find<QTreeWidget>("treeBits");
        QCOMPARE(tree->topLevelItemCount(), 6);
        QCOMPARE(tree->topLevelItem(2)->text(0) + tree->topLevelItem(2)->text(2), QString("Xtop/a[3]"));
        QCOMPARE(tree->topLevelItem(5)->text(0) + tree->topLevelItem(5)->text(2), QString("Rtop/b"));
        QLineEdit *value = desk.find<QLineEdit>("editValue");
        value->setCursorPosition(4);
        QCOMPARE(tree->currentItem(), tree->topLevelItem(4));
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier,
                          tree->visualItemRect(tree->topLevelItem(2)).center());
        QCOMPARE(value->selectedText(), QString("X"));
        QTest::keyClicks(value, "0"); // it is only shown
        QCOMPARE(value->text(), QString("01X11R"));
        QCOMPARE(desk.find<QDialogButtonBox>("buttonBox")->standardButtons(),
                 QDialogButtonBox::StandardButtons(QDialogButtonBox::Close));
    }
};

QTEST_MAIN(MatchUnitsTest)
#include "tst_matchunits.moc"
