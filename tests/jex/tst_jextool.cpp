#include <QSet>
#include <QtTest>

#include "host/project.h"
#include "model/jex/devicetable.h"
#include "model/jex/jextool.h"

using namespace JEX_TOOL;

class JexToolTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parts()
    {
        QSet<QString> parts;
        const QList<DEV::DeviceArg> list = knownDevices();
        for (const DEV::DeviceArg &arg : list) {
            QVERIFY2(!parts.contains(arg.partNumber), qPrintable(arg.partNumber));
            parts.insert(arg.partNumber);
            const Device *device = findDevice(arg.series, arg.device);
            QVERIFY(device);
            QCOMPARE(QLatin1String(device->partNumber), arg.partNumber);
            QVERIFY2(*device->family->source && device->registers > 0, qPrintable(arg.partNumber));
            QVERIFY2(!device->shadows == !device->family->shadowShapes, qPrintable(arg.partNumber));
        }
        QVERIFY(parts.size() >= 25);
    }

    // Kilobits as the data sheets print them, some in units of 1000 and some in units of 1024; the table
    // holds numbers of memories.
    void publishedSizes_data()
    {
        QTest::addColumn<QString>("device");
        QTest::addColumn<int>("blockKilobits");
        QTest::addColumn<int>("shadowKilobits");
        QTest::newRow("iCE40") << "iCE40HX8K" << 128 << 0;
        QTest::newRow("UltraPlus") << "iCE40UP5K" << 120 << 0;
        QTest::newRow("ECP5 45") << "LFE5U-45F" << 1944 << 351;
        QTest::newRow("ECP5 85") << "LFE5U-85F" << 3744 << 669;
        QTest::newRow("MachXO2") << "LCMXO2-7000" << 240 << 54;
        QTest::newRow("MachXO3") << "LCMXO3LF-9400" << 432 << 73;
        QTest::newRow("Artix 35") << "XC7A35T" << 1800 << 400;
        QTest::newRow("Artix 100") << "XC7A100T" << 4860 << 1188;
        QTest::newRow("Artix 200") << "XC7A200T" << 13140 << 2888;
        QTest::newRow("Kintex 325") << "XC7K325T" << 16020 << 4000;
        QTest::newRow("Cyclone IV") << "EP4CE115" << 3888 << 0;
        QTest::newRow("Cyclone V A4") << "5CEA4" << 3080 << 303;
        QTest::newRow("Cyclone V A9") << "5CEA9" << 12200 << 1717;
    }

    void publishedSizes()
    {
        QFETCH(QString, device);
        QFETCH(int, blockKilobits);
        QFETCH(int, shadowKilobits);
        for (const DEV::DeviceArg &arg : knownDevices()) {
            if (arg.device != device) {
                continue;
            }
            const Device *row = findDevice(arg.series, arg.device);
            const auto largest = [](const MemoryShape *shape) {
                int bits = 0;
                for (; shape && shape->depth; ++shape) {
                    bits = qMax(bits, shape->depth * shape->width);
                }
                return bits;
            };
            const auto isPublished = [](int bits, int kilobits) {
                return qAbs(bits / 1024.0 - kilobits) < 1 || qAbs(bits / 1000.0 - kilobits) < 1;
            };
            QVERIFY(isPublished(row->blocks * largest(row->family->blockShapes), blockKilobits));
            // A slice of the 7 series has 256 bits, of which its shapes with two ports give 192.
            const int shadowBits = arg.series.endsWith("-7") ? 256 : largest(row->family->shadowShapes);
            QVERIFY(isPublished(row->shadows * shadowBits, shadowKilobits));
            return;
        }
        QFAIL("no such device");
    }

    void needs_data()
    {
        QTest::addColumn<QString>("device"); // series/device of the project; empty: none
        QTest::addColumn<int>("signalCount");
        QTest::addColumn<int>("depth");
        QTest::addColumn<QList<int>>("needs"); // blocks, adjusted; shadows, adjusted; registers, adjusted
        const auto row = [](const char *name, const char *device, int signalCount, int depth,
                            QList<int> needs) {
            QTest::newRow(name) << device << signalCount << depth << needs;
        };
        row("nothing", "", 0, 1024, {0, 0, 0, 0, 0, 0});
        row("no depth", "", 8, 0, {0, 0, 0, 0, 0, 0});
        row("one bit", "", 1, 2, {1, 1, 1, 1, 2, 4});
        row("18 bits fit one block", "", 18, 1024, {1, 2, 64 * 5, 64 * 5, 18432, 19456});
        row("36 bits of 512", "", 36, 512, {1, 2, 32 * 9, 32 * 10, 18432, 18944});
        row("deep and narrow", "", 1, 65536, {4, 8, 4096, 4096, 65536, 131072});
        row("parity bits", "", 9, 2048, {1, 2, 128 * 3, 128 * 3, 18432, 20480});
        row("no parity at this depth", "", 9, 4096, {2, 3, 256 * 3, 256 * 3, 36864, 40960});
        row("iCE40: 4 Kbit, no parity", "iCE40/iCE40HX8K", 18, 1024, {5, 5, 320, 320, 18432, 19456});
        row("MachXO2: 9 Kbit", "MachXO2/LCMXO2-7000", 18, 1024, {2, 3, 320, 320, 18432, 19456});
        row("Artix-7: slices", "Artix-7/XC7A35T", 6, 64, {1, 1, 2, 3, 384, 448});
        row("Cyclone V: 10 Kbit", "Cyclone V E/5CEA4", 20, 512, {1, 2, 16, 32, 10240, 10752});
        row("unknown device", "Foo/Bar", 18, 1024, {1, 2, 320, 320, 18432, 19456});
        row("beyond an int", "", 2147483647, 65536,
            {2147483647, 2147483647, 2147483647, 2147483647, 2147483647, 2147483647});
    }

    void needs()
    {
        QFETCH(QString, device);
        QFETCH(int, signalCount);
        QFETCH(int, depth);
        QFETCH(QList<int>, needs);
        Core::Project project;
        DEV::DeviceArg arg;
        arg.series = device.section('/', 0, 0);
        arg.device = device.section('/', 1);
        project.setDevice(arg);
        Core::ProjectManager::setCurrentProject(device.isEmpty() ? nullptr : &project);
        const QList<int> found = {
            bsramNumberRequired(signalCount, depth),
            bsramNumberRequiredWithAdjust(signalCount, depth),
            ssramNumberRequiredWithAdjust(signalCount, depth, false),
            ssramNumberRequiredWithAdjust(signalCount, depth, true),
            regNumberRequiredWidthAdjust(signalCount, depth, false),
            regNumberRequiredWidthAdjust(signalCount, depth, true),
        };
        Core::ProjectManager::setCurrentProject(nullptr);
        QCOMPARE(found, needs);
    }

    void amounts()
    {
        QCOMPARE(currentDeviceBsramAmount("ECP5", "LFE5U-25F"), 56);
        QCOMPARE(currentDeviceSsramAmount("ECP5", "LFE5U-25F"), 3036);
        QCOMPARE(currentDeviceRegAmount("ECP5", "LFE5U-25F"), 24288);
        const QStringList unknown = {"ECP5/none", "none/LFE5U-25F", "/"};
        for (const QString &name : unknown) {
            const QString series = name.section('/', 0, 0), device = name.section('/', 1);
            QCOMPARE(currentDeviceBsramAmount(series, device), 0);
            QCOMPARE(currentDeviceSsramAmount(series, device), 0);
            QCOMPARE(currentDeviceRegAmount(series, device), 0);
        }
    }
};

QTEST_GUILESS_MAIN(JexToolTest)
#include "tst_jextool.moc"
