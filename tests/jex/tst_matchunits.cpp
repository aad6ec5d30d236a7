#include "model/jex/matchunitdialog.h"
#include "model/jex/matchunitmodel.h"
#include "model/jex/matchvalue.h"
#include "tests/support/modaldriver.h"
#include "tests/support/signaltext.h"
#include "tests/support/tablerow.h"

using namespace JEX;

namespace {

// A core with ports of 2 and 6 bits, and the dialog for a unit of it.
struct Desk
{
    Desk()
    {
        core.getTrigger(0)->signalItems = signalsFromText("s:top/b s:top/b");
        core.getTrigger(1)->signalItems =
            signalsFromText("b:top/a[4:0]{top/a[4],top/a[3],top/a[2],top/a[1],top/a[0]} s:top/b");
    }

    void bind(int port, MatchFunction function, const char *value, const char *upper = "")
    {
        *unit = MatchUnit();
        unit->unitNumber = 3;
        unit->triggerPort = core.getTrigger(port);
        unit->function = function;
        unit->value = value;
        unit->upperValue = upper;
        unit->core = &core;
    }

    void open(bool readOnly = false)
    {
        dialog.reset(new MatchUnitDialog(unit, readOnly));
        dialog->show();
        value = dialog->findChild<QLineEdit *>("editValue");
    }

    // Chooses, types or clicks what the text says; OK when no widget has the name.
    void use(const char *name, const char *text)
    {
        QWidget *widget = dialog->findChild<QWidget *>(name);
        if (QComboBox *box = qobject_cast<QComboBox *>(widget)) {
            box->setCurrentIndex(box->findText(text));
        } else if (QLineEdit *field = qobject_cast<QLineEdit *>(widget)) {
            field->selectAll();
            QTest::keyClick(field, Qt::Key_Delete);
            QTest::keyClicks(field, text);
        } else if (QAbstractButton *button = qobject_cast<QAbstractButton *>(widget)) {
            button->click();
        } else {
            QTest::keyClick(value, Qt::Key_Return);
        }
    }

    // The fields, and the sentence below the bits.
    QString shown() const
    {
        const QLineEdit *upper = dialog->findChild<QLineEdit *>("editUpper");
        return value->text() + (upper->isHidden() ? "" : " to " + upper->text()) + " | " +
               dialog->findChild<QLabel *>("labelFault")->text();
    }

    QString stored() const
    {
        return portTitle(unit->triggerPort) + ": " + matchFunctionName(unit->function) + ' ' +
               matchValueText(*unit);
    }

    AoCore core{0};
    MatchUnit *unit = core.matchUnit(3);
    std::unique_ptr<MatchUnitDialog> dialog;
    QLineEdit *value = nullptr;
};

} // namespace

class MatchUnitsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // A host may put any number into a record.
    void unknownFunctions()
    {
        AoCore core(0);
        core.matchUnit(3)->function = 77;
        core.matchUnit(4)->function = -1;
        const MatchUnitModel model(core.matchUnits, nullptr);
        for (int column = 0; column < model.columnCount(); ++column)
            QVERIFY(!model.index(4, column).data().toString().contains("Equal"));
        QCOMPARE(matchFunctionName(77) + matchFunctionName(-1), QString());
    }

    void faults()
    {
        const Rows<MatchFunction, const char *, const char *, const char *> cases = {
            {MatchNotEqual, "FB", "", ""},
            {MatchLess, "10", "", ""},
            {MatchInRange, "10", "10", ""},
            {MatchEqual, "R", "", "The value has 1 bit, but the trigger port has 2."},
            {MatchInRange, "00", "111", "The upper bound has 3 bits, but the trigger port has 2."},
            {MatchEqual, "02", "",
             "The value cannot hold \"2\": each bit is 0, 1, X (any level), R (rising edge), "
             "F (falling edge), B (either edge) or N (no edge)."},
            {MatchInRange, "02", "11", "The lower bound cannot hold \"2\": each bit is 0 or 1."},
            {MatchInRange, "10", "01", "The lower bound 10 is above the upper bound 01."},
        };
        Desk desk;
        for (const auto &[function, value, upper, fault] : cases) {
            desk.bind(0, function, value, upper);
            QCOMPARE(matchUnitFault(*desk.unit), QString(fault));
        }
        desk.bind(9, MatchEqual, "");
        QCOMPARE(matchUnitFault(*desk.unit),
                 QString("Trigger Port 9 holds no signals: fill it first, or choose another one."));
        QCOMPARE(matchUnitFault(*desk.core.matchUnit(0)), QString()); // not bound
    }

    void hexadecimal()
    {
        const QStringList whole = {"1010 A", "110001XXXX1111 31XF", "XXX X", "1 1",
                                   QString(63, '1').prepend('0') + " 7FFFFFFFFFFFFFFF"};
        for (const QString &line : whole) {
            const QString bits = line.section(' ', 0, 0), hex = line.section(' ', 1);
            QCOMPARE(bits + ' ' + hexFromBits(bits), line);
            QCOMPARE(hexFault(hex, bits.size(), "") + bitsFromHex(hex, bits.size()), bits);
        }
        QCOMPARE(hexFromBits("0000X000") + hexFromBits("RRRR"), QString());
        const QStringList faults = {
            "3G has a stray: It cannot hold \"G\": each hexadecimal digit is 0 to 9, A to F, or X for bits "
            "of any level.",
            "F is short: It has 1 hexadecimal digit, but the 6 bits of the trigger port take 2.",
            "4F is large: It begins with 4, but its first digit stands for 2 bits only and is at most 3."};
        for (const QString &line : faults)
            QCOMPARE(hexFault(line.section(' ', 0, 0), 6, "It"), line.mid(line.indexOf("It")));
    }

    // The largest number of a width, and the next one.
    void decimal()
    {
        const Rows<int, const char *, const char *> cases = {
            {1, "1", "2"},
            {63, "9223372036854775807", "9223372036854775808"},
            {64, "18446744073709551615", "18446744073709551616"}};
        for (const auto &[width, largest, next] : cases) {
            QCOMPARE(formFault(largest, DecimalForm, width, "It"), QString());
            QCOMPARE(bitsFromForm(largest, DecimalForm, width), QString(width, '1'));
            QVERIFY(formFault(next, DecimalForm, width, "It")
                        .startsWith(QString("It is larger than ") + largest + ','));
        }
    }

    void model()
    {
        Desk desk;
        MatchUnitModel model(desk.core.matchUnits);
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        desk.bind(1, MatchInRange, "000001", "0000R1");
        QString texts = model.headerData(MatchUnitModel::UnitColumn, Qt::Horizontal).toString();
        for (int i = 0; i < 2 * model.columnCount(); ++i)
            texts += '|' + model.index(i % 2 ? 15 : 3, i / 2).data().toString();
        QCOMPARE(texts, QString("Unit|||3|15|M3|M15|1 (6 bits)|Not bound|In range||"
                                "000001 to 0000R1|"));
        QCOMPARE(model.index(3, MatchUnitModel::ValueColumn).data(Qt::ToolTipRole).toString(),
                 matchUnitFault(*desk.unit));

        QSignalSpy matchChange(&model, SIGNAL(matchChange()));
        QSignalSpy layoutChanged(&model, SIGNAL(layoutChanged()));
        QSignalSpy dataChanged(&model, SIGNAL(dataChanged(QModelIndex, QModelIndex)));
        QVERIFY(model.flags(model.index(3, MatchUnitModel::EnabledColumn)) & Qt::ItemIsUserCheckable);
        for (int i = 0; i < 2; ++i) // the second time nothing changes
            QVERIFY(model.setData(model.index(3, MatchUnitModel::EnabledColumn), Qt::Checked,
                                  Qt::CheckStateRole));
        QCOMPARE(model.index(3, MatchUnitModel::EnabledColumn).data(Qt::CheckStateRole).toInt(),
                 int(Qt::Checked));
        QVERIFY(desk.unit->enabled);
        QVERIFY(!model.setData(model.index(3, MatchUnitModel::ValueColumn), "1"));
        QCOMPARE(matchChange.size(), 1);
        model.updateRow(9);
        model.updateRow(16);
        QCOMPARE(dataChanged.size(), 2);
        QCOMPARE(dataChanged.last().at(0).toModelIndex().row(), 9);

        QSignalSpy reset(&model, SIGNAL(modelReset()));
        model.setMatcherList(desk.core.matchUnits.mid(0, 10));
        QCOMPARE(reset.size(), 1);
        QCOMPARE(model.rowCount(), 10);
        QCOMPARE(model.muFromIndex(model.index(9, MatchUnitModel::PortColumn)), desk.core.matchUnit(9));
        QVERIFY(!model.muFromIndex(QModelIndex()));
        QCOMPARE(matchChange.size() + layoutChanged.size(), 1);
    }

    // A unit of a new core is bound and edited in every kind of entry, and set free again.
    void edit()
    {
        const QString edge =
            "The function \"Less\" compares numbers and takes no \"R\": each bit must be 0 or 1.";
        const QString mixed =
            "The value 0X0001 has no hexadecimal form: the bits of a digit must all be 0 or 1, "
            "or all be X.";
        const QString number =
            "The function \"In range\" compares numbers and takes no \"X\": each bit must be 0 or 1.";
        const QString few = "The value has 2 bits, but the trigger port has 6.";
        const QString large = " is larger than 63, the largest number of 6 bits.";
        const Rows<const char *, const char *, QString, QString> steps = {
            {"comboPort", "Trigger Port 1 (6 bits)", "XXXXXX | ", ""},
            {"comboPort", "Trigger Port 0 (2 bits)", "XX | ", ""},
            {"editValue", "r_x", "R_X | ", ""},
            {"comboFunction", "Less", "R_X | " + edge, ""},
            {"OK", "", "R_X | " + edge, "Not bound: Equal "},
            {"buttonReset", "", "00 | ", ""},
            {"OK", "", "00 | ", "Trigger Port 0 (2 bits): Less 00"},
            {"comboPort", "Trigger Port 1 (6 bits)", "00 | ", ""}, // filled up
            {"comboFunction", "Equal", "00 | ", ""},
            {"editValue", "X1", "X1 | " + few, ""}, // what is no number is not
            {"editValue", "0x0001", "0X0001 | ", ""},
            {"radioHex", "", "0X0001 | ", ""}, // refused
            {"editValue", "000111", "000111 | ", ""},
            {"comboFunction", "In range", "000111 to 111111 | ", ""},
            {"radioHex", "", "07 to 3F | ", ""},
            {"editUpper", "2f", "07 to 2F | ", ""},
            {"editValue", "7", "7 to 2F | ", ""},
            {"OK", "", "7 to 2F | ", "Trigger Port 1 (6 bits): In range 000111 to 101111"},
            {"editUpper", "4F", "7 to 4F | " + hexFault("4F", 6, "The upper bound"), ""},
            {"editUpper", "6", "7 to 6 | The lower bound 000111 is above the upper bound 000110.", ""},
            {"radioDecimal", "", "7 to 6 | The lower bound 000111 is above the upper bound 000110.", ""},
            {"editUpper", "64", "7 to 64 | The upper bound" + large, ""},
            {"editValue", "a",
             "A to 64 | The lower bound cannot hold \"A\": a decimal number has the digits "
             "0 to 9.",
             ""},
            {"editValue", "", " to 64 | The lower bound is empty.", ""},
            {"editValue", "10", "10 to 64 | The upper bound" + large, ""},
            {"editUpper", "47", "10 to 47 | ", ""},
            {"OK", "", "10 to 47 | ", "Trigger Port 1 (6 bits): In range 001010 to 101111"},
            {"comboFunction", "Equal", "001010 | ", ""}, // which is no comparison of numbers
            {"comboFunction", "Less", "001010 | ", ""},
            {"radioDecimal", "", "10 | ", ""},
            {"comboFunction", "In range", "10 to 47 | ", ""},
            {"radioHex", "", "0A to 2F | ", ""},
            {"editValue", "08", "08 to 2F | ", ""},
            {"radioBinary", "", "001000 to 101111 | ", ""},
            {"editUpper", "0x1111", "001000 to 0X1111 | " + number, ""},
            {"comboFunction", "Equal", "001000 | ", ""},
            {"radioHex", "", "08 | ", ""}, // whatever the bound that is not asked for
            {"comboFunction", "In range", "08 to 3F | ", ""},
            {"OK", "", "08 to 3F | ", "Trigger Port 1 (6 bits): In range 001000 to 111111"},
            {"comboPort", "Not bound", "08 to 3F | ", ""},
            {"OK", "", "08 to 3F | ", "Not bound: Equal "},
        };
        Desk desk;
        ModalDriver driver;
        for (int i = 0; i < 2; ++i)
            driver.press(QMessageBox::Ok);
        desk.open();
        QCOMPARE(desk.dialog->windowTitle(), QString("Match Unit M3"));
        QCOMPARE(desk.dialog->findChild<QComboBox *>("comboPort")->count(),
                 3); // those with signals, and none
        QVERIFY(!desk.value->isEnabled());
        for (const auto &[widget, text, shown, stored] : steps) {
            desk.dialog->show();
            desk.use(widget, text);
            QCOMPARE(desk.shown(), shown);
            if (!stored.isEmpty())
                QCOMPARE(desk.stored(), stored);
        }
        QCOMPARE(desk.dialog->result(), int(QDialog::Accepted));
        QCOMPARE(driver.seen, QStringList({"warning | Warning | " + edge + " | OK",
                                           "warning | Warning | " + mixed + " | OK"}));
    }

    // The list of bits follows the text, and a click on a bit selects its digit.
    void bits()
    {
        Desk desk;
        desk.bind(1, MatchEqual, "01X11R");
        desk.open(true);
        QTreeWidget *tree = desk.dialog->findChild<QTreeWidget *>("treeBits");
        QString rows;
        for (int i = 0; i < tree->topLevelItemCount(); ++i)
            rows += tree->topLevelItem(i)->text(0) + ' ' + tree->topLevelItem(i)->text(2) + ' ';
        QCOMPARE(rows, QString("0 top/a[4] 1 top/a[3] X top/a[2] 1 top/a[1] 1 top/a[0] R top/b "));
        desk.value->setCursorPosition(4);
        QCOMPARE(tree->currentItem(), tree->topLevelItem(4));
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier,
                          tree->visualItemRect(tree->topLevelItem(2)).center());
        QCOMPARE(desk.value->selectedText(), QString("X"));
        QTest::keyClicks(desk.value, "0"); // it is only shown
        QCOMPARE(desk.shown(), QString("01X11R | "));
        QCOMPARE(int(desk.dialog->findChild<QDialogButtonBox *>("buttonBox")->standardButtons()),
                 int(QDialogButtonBox::Close));
    }
};

QTEST_MAIN(MatchUnitsTest)
#include "tst_matchunits.moc"
