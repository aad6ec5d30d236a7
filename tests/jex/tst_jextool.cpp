#include "host/project.h"
#include "model/jex/devicetable.h"
#include "model/jex/jextool.h"
#include "model/jex/storageneed.h"
#include "tests/support/tablerow.h"

using namespace JEX_TOOL;

namespace {

int bitsIn(const Device &device, JEX::Implementation implementation)
{
    int most = 0;
    for (const MemoryShape *shape = device.family->shapes[implementation]; shape && shape->depth; ++shape)
        most = qMax(most, shape->depth * shape->width);
    return most * device.amounts[implementation];
}

// Data sheets print some sizes in units of 1000 bits and some in units of 1024.
bool isKilobits(int bits, const QString &kilobits)
{
    return qAbs(bits / 1024.0 - kilobits.toInt()) < 1 || qAbs(bits / 1000.0 - kilobits.toInt()) < 1;
}

// Blocks, adjusted; shadows, adjusted; registers, adjusted.
QString needs(int signalCount, int depth)
{
    return QString(" %1 %2 %3 %4 %5 %6")
        .arg(bsramNumberRequired(signalCount, depth))
        .arg(bsramNumberRequiredWithAdjust(signalCount, depth))
        .arg(ssramNumberRequiredWithAdjust(signalCount, depth, false))
        .arg(ssramNumberRequiredWithAdjust(signalCount, depth, true))
        .arg(regNumberRequiredWidthAdjust(signalCount, depth, false))
        .arg(regNumberRequiredWidthAdjust(signalCount, depth, true));
}

} // namespace

class JexToolTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parts()
    {
        QSet<QString> parts;
        for (const DEV::DeviceArg &arg : knownDevices()) {
            QVERIFY2(!parts.contains(arg.partNumber), qPrintable(arg.partNumber));
            parts.insert(arg.partNumber);
            const Device *device = findDevice(arg.series, arg.device);
            QVERIFY2(device, qPrintable(arg.partNumber));
            QCOMPARE(QString(device->partNumber), arg.partNumber);
            QVERIFY2(*device->family->source, device->partNumber);
            QVERIFY2(device->amounts[JEX::RegImplementation] > 0, device->partNumber);
            QCOMPARE(!device->amounts[JEX::SsramImplementation],
                     !device->family->shapes[JEX::SsramImplementation]);
        }
        QVERIFY(parts.size() >= 25);
    }

    // Series, device, kilobits of block memory and of shadow memory.
    void publishedSizes()
    {
        const QStringList rows = {
            "iCE40/iCE40HX8K/128/0",        "iCE40UP/iCE40UP5K/120/0",      "ECP5/LFE5U-45F/1944/351",
            "ECP5/LFE5U-85F/3744/669",      "MachXO2/LCMXO2-7000/240/54",   "MachXO3/LCMXO3LF-9400/432/73",
            "Artix-7/XC7A35T/1800/400",     "Artix-7/XC7A100T/4860/1188",   "Artix-7/XC7A200T/13140/2888",
            "Kintex-7/XC7K325T/16020/4000", "Cyclone IV E/EP4CE115/3888/0", "Cyclone V E/5CEA4/3080/303",
            "Cyclone V E/5CEA9/12200/1717"};
        for (const QString &row : rows) {
            const QStringList cells = row.split('/');
            const Device *device = findDevice(cells[0], cells[1]);
            if (!device)
                QFAIL(qPrintable(row));
            QVERIFY2(isKilobits(bitsIn(*device, JEX::BsramImplementation), cells[2]), qPrintable(row));
            // A slice of the 7 series has 256 bits, of which its shapes with two ports give 192.
            const int shadows = device->amounts[JEX::SsramImplementation];
            QVERIFY2(isKilobits(cells[0].endsWith("-7") ? shadows * 256
                                                        : bitsIn(*device, JEX::SsramImplementation),
                                cells[3]),
                     qPrintable(row));
        }
    }

    // The name of a row with a slash is the project's device.
    void requirements_data()
    {
        columns<int, int, QString>("signalCount", "depth", "needs");
        row("nothing", 0, 1024, " 0 0 0 0 0 0");
        row("no depth", 8, 0, " 0 0 0 0 0 0");
        row("one bit", 1, 2, " 1 1 1 1 2 4");
        row("18 bits fit one block", 18, 1024, " 1 2 320 320 18432 19456");
        row("36 bits of 512", 36, 512, " 1 2 288 320 18432 18944");
        row("deep and narrow", 1, 65536, " 4 8 4096 4096 65536 131072");
        row("parity bits", 9, 2048, " 1 2 384 384 18432 20480");
        row("no parity at this depth", 9, 4096, " 2 3 768 768 36864 40960");
        row("iCE40/iCE40HX8K", 18, 1024, " 5 5 320 320 18432 19456"); // 4 Kbit, no parity
        row("MachXO2/LCMXO2-7000", 18, 1024, " 2 3 320 320 18432 19456");
        row("Artix-7/XC7A35T", 6, 64, " 1 1 2 3 384 448"); // shadow memories are slices
        row("Cyclone V E/5CEA4", 20, 512, " 1 2 16 32 10240 10752");
        row("unknown/device", 18, 1024, " 1 2 320 320 18432 19456");
        row("beyond an int", INT_MAX, 65536, QString(" 2147483647").repeated(6));
    }
    void requirements()
    {
        auto [signalCount, depth] = cells<int, int>("signalCount", "depth");
        const QString device = QTest::currentDataTag();
        const DeviceFamily &family = familyOf(findDevice(device.section('/', 0, 0), device.section('/', 1)));
        QString plain;
        for (JEX::Implementation memory :
             {JEX::BsramImplementation, JEX::SsramImplementation, JEX::RegImplementation}) {
            for (bool adjusted : {false, true})
                plain +=
                    ' ' + QString::number(storageNeed(family, memory, signalCount, depth, adjusted).required);
        }
        QTEST(plain, "needs");
        Core::Project project;
        DEV::DeviceArg arg;
        arg.series = device.section('/', 0, 0);
        arg.device = device.section('/', 1);
        project.setDevice(arg);
        Core::ProjectManager::setCurrentProject(device.contains('/') ? &project : nullptr);
        const QString found = ::needs(signalCount, depth);
        Core::ProjectManager::setCurrentProject(nullptr);
        QTEST(found, "needs");
    }

    // Of several shapes that need as many memories the first one of the family counts.
    void shapes()
    {
        const Rows<JEX::Implementation, int, int, const char *> rows = {
            {JEX::BsramImplementation, 18, 1024, "1024x18"}, {JEX::BsramImplementation, 9, 2048, "2048x9"},
            {JEX::BsramImplementation, 1, 4, "16384x1"},     {JEX::BsramImplementation, 4, 512, "4096x4"},
            {JEX::SsramImplementation, 4, 32, "16x4"},       {JEX::RegImplementation, 4, 32, "0x0"},
            {JEX::BsramImplementation, 0, 32, "0x0"},
        };
        for (const auto &[implementation, signalCount, depth, text] : rows) {
            const MemoryShape shape =
                storageNeed(usualFamily(), implementation, signalCount, depth, false).shape;
            QCOMPARE(QString("%1x%2").arg(shape.depth).arg(shape.width), QString(text));
        }
    }

    void amounts()
    {
        const QString rows[][3] = {{"ECP5", "LFE5U-25F", "56 3036 24288"},
                                   {"ECP5", "none", "0 0 0"},
                                   {"none", "LFE5U-25F", "0 0 0"},
                                   {"", "", "0 0 0"}};
        for (const auto &row : rows)
            QCOMPARE(QString("%1 %2 %3")
                         .arg(currentDeviceBsramAmount(row[0], row[1]))
                         .arg(currentDeviceSsramAmount(row[0], row[1]))
                         .arg(currentDeviceRegAmount(row[0], row[1])),
                     row[2]);
    }
};

QTEST_GUILESS_MAIN(JexToolTest)
#include "tst_jextool.moc"
