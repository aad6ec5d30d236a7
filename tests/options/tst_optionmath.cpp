#include <QtTest>

#include "options/capturemath.h"
#include "options/triggermath.h"

using namespace RTLJEX;

class TestOptionMath : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbers_data();
    void numbers();
    void implementations_data();
    void implementations();
    void usage_data();
    void usage();
    void needs();
    void staticExpressions();
    void triggerUsage_data();
    void triggerUsage();
};

void TestOptionMath::numbers_data()
{
    QTest::addColumn<QList<int>>("numbers");
    QTest::addColumn<QString>("list");

    QTest::newRow("all amounts of a Lite core")
        << doublingNumbers(2, 65536) << "2 4 8 16 32 64 128 256 512 1024 2048 4096 8192 16384 32768 65536";
    QTest::newRow("last is no power of two") << doublingNumbers(4, 31) << "4 8 16";
    QTest::newRow("none") << doublingNumbers(4, 3) << "";
    QTest::newRow("does not run over") << doublingNumbers(1 << 29, 2147483647) << "536870912 1073741824";
    QTest::newRow("segments") << segmentNumbers(16) << "1 2 3 4";
    QTest::newRow("no storage") << segmentNumbers(0) << "";
    QTest::newRow("amounts in one segment") << captureAmounts(32, 1) << "4 8 16 32";
    QTest::newRow("three share like four") << captureAmounts(64, 3) << "4 8 16";
    QTest::newRow("segments too small") << captureAmounts(8, 3) << "";
    QTest::newRow("no segments") << captureAmounts(8, 0) << "";
    QList<int> windows;
    for (int count : {0, 1, 2, 3, 5, 6, 8, 9, 16384})
        windows << fixedWindowNum(count);
    QTest::newRow("windows") << windows << "0 1 2 4 8 8 8 16 16384";
}

void TestOptionMath::numbers()
{
    QFETCH(QList<int>, numbers);
    QStringList texts;
    for (int number : numbers)
        texts << QString::number(number);
    QTEST(texts.join(' '), "list");
}

void TestOptionMath::implementations_data()
{
    QTest::addColumn<bool>("ssram");
    QTest::addColumn<qint64>("bits");
    QTest::addColumn<QString>("offered");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("current");
    QTest::addColumn<bool>("kept");

    QTest::newRow("one of one") << false << Q_INT64_C(513) << "BSRAM" << 1 << "BSRAM" << true;
    QTest::newRow("REG is gone") << false << Q_INT64_C(0x100000000) << "BSRAM" << 2 << "REG" << false;
    QTest::newRow("REG stays") << false << Q_INT64_C(512) << "BSRAM REG" << 2 << "REG" << true;
    QTest::newRow("two, on BSRAM") << false << Q_INT64_C(0) << "BSRAM REG" << 2 << "BSRAM" << false;
    QTest::newRow("SSRAM is gone") << false << Q_INT64_C(0) << "BSRAM REG" << 2 << "SSRAM" << false;
    QTest::newRow("SSRAM stays") << true << Q_INT64_C(513) << "BSRAM SSRAM" << 2 << "SSRAM" << true;
    QTest::newRow("from three to two") << true << Q_INT64_C(513) << "BSRAM SSRAM" << 3 << "SSRAM" << false;
    QTest::newRow("three") << true << Q_INT64_C(512) << "BSRAM SSRAM REG" << 3 << "BSRAM" << true;
    QTest::newRow("from two to three") << true << Q_INT64_C(0) << "BSRAM SSRAM REG" << 2 << "REG" << false;
}

void TestOptionMath::implementations()
{
    QFETCH(bool, ssram);
    QFETCH(qint64, bits);
    QFETCH(int, count);
    QFETCH(QString, current);
    const QStringList offered = offeredImplementations(ssram, bits);
    QTEST(offered.join(' '), "offered");
    QTEST(keepsImplementations(offered, count, current), "kept");
}

void TestOptionMath::usage_data()
{
    QTest::addColumn<int>("required");
    QTest::addColumn<int>("available");
    QTest::addColumn<QString>("text");

    QTest::newRow("over-use") << 10 << 8 << "<font color = red>10</font>/8";
    QTest::newRow("all of it") << 8 << 8 << "8/8";
    QTest::newRow("no device") << 1 << 0 << "<font color = red>1</font>/0";
    QTest::newRow("nothing") << 0 << 0 << "0/0";
}

void TestOptionMath::usage()
{
    QFETCH(int, required);
    QFETCH(int, available);
    QTEST(usageText(required, available), "text");
}

// Every implementation has its own name, and no device offers anything when none is chosen.
void TestOptionMath::needs()
{
    const DEV::DeviceArg none;
    QString names;
    for (const char *text : {"BSRAM", "SSRAM", "REG"}) {
        const CaptureUsage usage = captureUsage(text, none, 9, 1024, false);
        names += usage.name + ';';
        QVERIFY2(usage.required > 0, text);
        QCOMPARE(usage.available, 0);
    }
    QCOMPARE(names, QString("BSRAM Usage :;SSRAM Usage :;Register Usage :;"));
    QCOMPARE(liteImplementationFromText("REG"), 1);
    const CaptureUsage unknown = captureUsage("Logic", none, 9, 1024, false);
    QVERIFY(unknown.name.isEmpty() && unknown.required == 0 && unknown.available == 0);
}

void TestOptionMath::staticExpressions()
{
    for (const char *good : {"M1&(M2|!M9)", "M16", "m12", ""})
        QVERIFY2(isStaticExpression(good), good);
    for (const char *bad : {"M11&M2", "!M10", "M0^M12", "M13", "M14|M1", "(M15)"})
        QVERIFY2(!isStaticExpression(bad), bad);
}

void TestOptionMath::triggerUsage_data()
{
    QTest::addColumn<QString>("implementation");
    QTest::addColumn<int>("available");
    QTest::addColumn<int>("expressions");
    QTest::addColumn<int>("units");
    QTest::addColumn<QString>("text");

    QTest::newRow("BSRAM") << "BSRAM" << 56 << 3 << 6 << "BSRAM Usage : 3/56";
    QTest::newRow("no BSRAM") << "BSRAM" << 0 << 3 << 6 << "BSRAM Usage : 3";
    QTest::newRow("REG") << "REG" << 100 << 3 << 6 << "Register Usage : 15/100";
    QTest::newRow("REG, no units") << "REG" << 0 << 15 << 0 << "Register Usage : 15/0";
    QTest::newRow("REG, a fraction adds up") << "REG" << 9 << 16 << 0 << "Register Usage : 17/9";
    QTest::newRow("REG, half") << "REG" << 9 << 3 << 3 << "Register Usage : 4/9";
    QTest::newRow("REG, all units") << "REG" << 9 << 16 << 16 << "Register Usage : 65552/9";
    QTest::newRow("SSRAM") << "SSRAM" << 12 << 3 << 6 << "SSRAM Usage : 12/12";
    QTest::newRow("SSRAM, four units") << "SSRAM" << 12 << 3 << 4 << "SSRAM Usage : 3/12";
    QTest::newRow("SSRAM, no units") << "SSRAM" << 0 << 3 << 0 << "SSRAM Usage : 3/0";
    QTest::newRow("none") << "" << 5 << 3 << 6 << "";
}

void TestOptionMath::triggerUsage()
{
    QFETCH(QString, implementation);
    QFETCH(int, available);
    QFETCH(int, expressions);
    QFETCH(int, units);
    QTEST(triggerUsageText(implementation, available, expressions, units), "text");
}

QTEST_GUILESS_MAIN(TestOptionMath)
#include "tst_optionmath.moc"
