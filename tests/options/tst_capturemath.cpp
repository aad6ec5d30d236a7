#include <QtTest>

#include "options/capturemath.h"

using namespace RTLJEX;

class TestCaptureMath : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbers_data();
    void numbers();
    void implementations_data();
    void implementations();
    void choice_data();
    void choice();
    void usage_data();
    void usage();
    void liteCoding();
    void needs();
};

void TestCaptureMath::numbers_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<QString>("list");

    QTest::newRow("all amounts of a Lite core")
        << 2 << 65536 << "2 4 8 16 32 64 128 256 512 1024 2048 4096 8192 16384 32768 65536";
    QTest::newRow("one") << 4 << 4 << "4";
    QTest::newRow("last is no power of two") << 4 << 31 << "4 8 16";
    QTest::newRow("none") << 4 << 3 << "";
    QTest::newRow("does not run over") << (1 << 29) << 2147483647 << "536870912 1073741824";
}

void TestCaptureMath::numbers()
{
    QFETCH(int, first);
    QFETCH(int, last);
    QStringList texts;
    for (int number : doublingNumbers(first, last))
        texts << QString::number(number);
    QTEST(texts.join(' '), "list");
}

void TestCaptureMath::implementations_data()
{
    QTest::addColumn<bool>("ssram");
    QTest::addColumn<qint64>("bits");
    QTest::addColumn<QString>("offered");

    QTest::newRow("no SSRAM, large") << false << Q_INT64_C(513) << "BSRAM";
    QTest::newRow("no SSRAM, small") << false << Q_INT64_C(512) << "BSRAM REG";
    QTest::newRow("SSRAM, large") << true << Q_INT64_C(513) << "BSRAM SSRAM";
    QTest::newRow("SSRAM, small") << true << Q_INT64_C(512) << "BSRAM SSRAM REG";
    QTest::newRow("nothing to capture") << true << Q_INT64_C(0) << "BSRAM SSRAM REG";
    QTest::newRow("2^32 bits") << false << Q_INT64_C(0x100000000) << "BSRAM";
}

void TestCaptureMath::implementations()
{
    QFETCH(bool, ssram);
    QFETCH(qint64, bits);
    QTEST(offeredImplementations(ssram, bits).join(' '), "offered");
}

void TestCaptureMath::choice_data()
{
    QTest::addColumn<QString>("offered");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("current");
    QTest::addColumn<bool>("kept");
    QTest::addColumn<QString>("restored");

    QTest::newRow("one of one") << "BSRAM" << 1 << "BSRAM" << true << "BSRAM";
    QTest::newRow("REG is gone") << "BSRAM" << 2 << "REG" << false << "BSRAM";
    QTest::newRow("REG stays") << "BSRAM REG" << 2 << "REG" << true << "REG";
    QTest::newRow("two, on BSRAM") << "BSRAM REG" << 2 << "BSRAM" << false << "BSRAM";
    QTest::newRow("SSRAM is gone") << "BSRAM REG" << 2 << "SSRAM" << false << "BSRAM";
    QTest::newRow("SSRAM stays") << "BSRAM SSRAM" << 2 << "SSRAM" << true << "SSRAM";
    QTest::newRow("from three to two") << "BSRAM SSRAM" << 3 << "SSRAM" << false << "SSRAM";
    QTest::newRow("three") << "BSRAM SSRAM REG" << 3 << "REG" << true << "REG";
    QTest::newRow("from two to three") << "BSRAM SSRAM REG" << 2 << "REG" << false << "REG";
    QTest::newRow("unknown") << "BSRAM SSRAM" << 0 << "" << false << "BSRAM";
}

void TestCaptureMath::choice()
{
    QFETCH(QString, offered);
    QFETCH(int, count);
    QFETCH(QString, current);
    const QStringList list = offered.split(' ');
    QTEST(keepsImplementations(list, count, current), "kept");
    QTEST(list.at(restoredImplementation(list, current)), "restored");
}

void TestCaptureMath::usage_data()
{
    QTest::addColumn<int>("required");
    QTest::addColumn<int>("available");
    QTest::addColumn<QString>("text");

    QTest::newRow("over-use") << 10 << 8 << "<font color = red>10</font>/8";
    QTest::newRow("all of it") << 8 << 8 << "8/8";
    QTest::newRow("no device") << 1 << 0 << "<font color = red>1</font>/0";
    QTest::newRow("nothing") << 0 << 0 << "0/0";
}

void TestCaptureMath::usage()
{
    QFETCH(int, required);
    QFETCH(int, available);
    QTEST(usageText(required, available), "text");
}

void TestCaptureMath::liteCoding()
{
    QCOMPARE(liteImplementationFromText("BSRAM"), 0);
    QCOMPARE(liteImplementationFromText("SSRAM"), 2);
    QCOMPARE(liteImplementationFromText("REG"), 1);
    QCOMPARE(liteImplementationFromText(""), 1);
    QCOMPARE(liteImplementationText(0), QString("BSRAM"));
    QCOMPARE(liteImplementationText(1), QString("Logic"));
    QCOMPARE(liteImplementationText(2), QString("SSRAM"));
    QCOMPARE(liteImplementationText(7), QString("BSRAM"));
}

// Every implementation has its own name, and no device offers anything when none is chosen.
void TestCaptureMath::needs()
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
    const CaptureUsage unknown = captureUsage("Logic", none, 9, 1024, false);
    QVERIFY(unknown.name.isEmpty() && unknown.required == 0 && unknown.available == 0);
}

QTEST_GUILESS_MAIN(TestCaptureMath)
#include "tst_capturemath.moc"
