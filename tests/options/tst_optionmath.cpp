#include <QtTest>

#include "model/jex/devicetable.h"
#include "options/capturemath.h"
#include "options/triggermath.h"
#include "tests/support/tablerow.h"

using namespace RTLJEX;

class OptionMathTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbers()
    {
        const auto text = [](const QList<int> &numbers) {
            QStringList texts;
            for (int number : numbers)
                texts << QString::number(number);
            return texts.join(' ');
        };
        QList<int> windows;
        for (int count : {0, 1, 2, 3, 5, 6, 8, 9, 16384})
            windows << fixedWindowNum(count);
        const QPair<QList<int>, const char *> rows[] = {
            {doublingNumbers(2, 65536), "2 4 8 16 32 64 128 256 512 1024 2048 4096 8192 16384 32768 65536"},
            {doublingNumbers(4, 31), "4 8 16"},
            {doublingNumbers(1 << 29, 2147483647), "536870912 1073741824"},
            {segmentNumbers(4), "1"},
            {segmentNumbers(16), "1 2 3 4"},
            {captureAmounts(4, 1), "4"},
            {captureAmounts(65536, 3), "4 8 16 32 64 128 256 512 1024 2048 4096 8192 16384"},
            {captureAmounts(8, 3), ""},
            {captureAmounts(8, 0), ""},
            {windows, "0 1 2 4 8 8 8 16 16384"},
        };
        for (const auto &row : rows)
            QCOMPARE(text(row.first), QString(row.second));
        QCOMPARE(segmentNumbers(65536).size(), 16384);
    }

    // What suits device and size, and whether a box that shows something else is filled anew.
    void implementations()
    {
        const Rows<bool, qint64, const char *, int, const char *, bool> rows = {
            {false, 513, "BSRAM", 1, "BSRAM", true},
            {false, Q_INT64_C(0x100000000), "BSRAM", 2, "REG", false},
            {false, 512, "BSRAM REG", 2, "REG", true},
            {false, 0, "BSRAM REG", 2, "BSRAM", false},
            {false, 0, "BSRAM REG", 2, "SSRAM", false},
            {true, 513, "BSRAM SSRAM", 2, "SSRAM", true},
            {true, 513, "BSRAM SSRAM", 3, "SSRAM", false},
            {true, 512, "BSRAM SSRAM REG", 3, "BSRAM", true},
            {true, 0, "BSRAM SSRAM REG", 2, "REG", false},
        };
        const JEX_TOOL::Device *without = JEX_TOOL::findDevice("iCE40", "iCE40HX8K");
        const JEX_TOOL::Device *with = JEX_TOOL::findDevice("ECP5", "LFE5U-25F");
        QCOMPARE(implementationNames(offeredImplementations(nullptr, 0)).join(' '), QString("BSRAM REG"));
        for (const auto &[ssram, bits, texts, count, name, kept] : rows) {
            const auto offered = offeredImplementations(ssram ? with : without, bits);
            QCOMPARE(implementationNames(offered).join(' '), QString(texts));
            const JEX::Implementation current = JEX::implementationNamed(name);
            QCOMPARE(keepsImplementations(offered, count, current), kept);
        }
    }

    void captureUsages()
    {
        QCOMPARE(usageText(10, 8), QString("<font color = red>10</font>/8"));
        QCOMPARE(usageText(8, 8), QString("8/8"));
        QCOMPARE(usageText(0, 0), QString("0/0"));
        QString names;
        for (const char *text : {"BSRAM", "SSRAM", "REG", "Logic"}) {
            const CaptureUsage usage = captureUsage(JEX::implementationNamed(text), nullptr, 9, 1024, false);
            names += usage.name + ';';
            QCOMPARE(usage.required > 0, !usage.name.isEmpty());
            QCOMPARE(usage.available, 0); // there is no device
        }
        QCOMPARE(names, QString("BSRAM Usage :;SSRAM Usage :;Register Usage :;;"));
        const JEX_TOOL::Device *device = JEX_TOOL::findDevice("ECP5", "LFE5U-25F");
        const CaptureUsage usage = captureUsage(JEX::BsramImplementation, device, 36, 1024, true);
        QCOMPARE(usageText(usage.required, usage.available), QString("3/56"));
    }

    // What a page finds in its box for a stored number, and what it stores for the text of the box.
    void implementationCoding()
    {
        QStringList found;
        for (int number : {-1, 0, 1, 2, 7})
            found << implementationText(number) + '/' + liteImplementationText(number);
        QCOMPARE(found.join(' '), QString("BSRAM/BSRAM BSRAM/BSRAM REG/Logic SSRAM/SSRAM BSRAM/BSRAM"));
        QStringList stored;
        for (const char *text : {"BSRAM", "REG", "SSRAM", "Logic", ""})
            stored << QString::number(implementationFromText(text)) + '/' +
                          QString::number(liteImplementationFromText(text));
        QCOMPARE(stored.join(' '), QString("0/0 1/1 2/2 0/1 0/1"));
    }

    void staticExpressions()
    {
        for (const char *good : {"M1&(M2|!M9)", "M16", "m12", ""})
            QVERIFY2(isStaticExpression(good), good);
        for (const char *bad : {"M11&M2", "!M10", "M0^M12", "M13", "M14|M1", "(M15)"})
            QVERIFY2(!isStaticExpression(bad), bad);
    }

    void triggerUsage()
    {
        const Rows<const char *, int, int, int, const char *> rows = {
            {"BSRAM", 56, 3, 6, "BSRAM Usage : 3/56"},
            {"BSRAM", 0, 3, 6, "BSRAM Usage : 3"},
            {"REG", 100, 3, 6, "Register Usage : 15/100"},
            {"REG", 0, 15, 0, "Register Usage : 15/0"},
            {"REG", 9, 16, 0, "Register Usage : 17/9"},
            {"REG", 9, 3, 3, "Register Usage : 4/9"},
            {"REG", 9, 16, 16, "Register Usage : 65552/9"},
            {"SSRAM", 12, 3, 6, "SSRAM Usage : 12/12"},
            {"SSRAM", 12, 3, 4, "SSRAM Usage : 3/12"},
            {"SSRAM", 0, 3, 0, "SSRAM Usage : 3/0"},
            {"", 5, 3, 6, ""},
        };
        for (const auto &[implementation, available, expressions, units, text] : rows)
            QCOMPARE(
                triggerUsageText(JEX::implementationNamed(implementation), available, expressions, units),
                QString(text));
    }
};

QTEST_GUILESS_MAIN(OptionMathTest)
#include "tst_optionmath.moc"
