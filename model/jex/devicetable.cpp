#include "model/jex/devicetable.h"

#include "model/jex/resourcetable.h"

namespace JEX_TOOL {

namespace {

const MemoryShape shapes4K[] = {{2048, 2}, {1024, 4}, {512, 8}, {256, 16}, {0, 0}};
const MemoryShape shapes9K[] = {{8192, 1}, {4096, 2}, {2048, 4}, {1024, 9}, {512, 18}, {0, 0}};
const MemoryShape shapes9KWide[] = {{8192, 1}, {4096, 2}, {2048, 4}, {1024, 9}, {512, 18}, {256, 36}, {0, 0}};
const MemoryShape shapes10K[] = {{8192, 1}, {4096, 2}, {2048, 5}, {1024, 10}, {512, 20}, {256, 40}, {0, 0}};
const MemoryShape shapes18K[] = {{16384, 1}, {8192, 2}, {4096, 4}, {2048, 9}, {1024, 18}, {512, 36}, {0, 0}};

const MemoryShape shadow16x4[] = {{16, 4}, {0, 0}};           // one of a logic block of eight cells
const MemoryShape shadowSlice[] = {{32, 6}, {64, 3}, {0, 0}}; // one slice with memory
const MemoryShape shadow32x20[] = {{32, 20}, {0, 0}};         // one logic block that can be a memory

const DeviceFamily ice40 = {
    "iCE40", {shapes4K, nullptr, nullptr}, "iCE40 LP/HX Family Data Sheet, FPGA-DS-02029"};
const DeviceFamily ultraPlus = {
    "iCE40UP", {shapes4K, nullptr, nullptr}, "iCE40 UltraPlus Family Data Sheet, FPGA-DS-02008"};
constexpr DeviceFamily ecp5 = {
    "ECP5", {shapes18K, nullptr, shadow16x4}, "ECP5 and ECP5-5G Family Data Sheet, FPGA-DS-02012"};
const DeviceFamily machXo2 = {
    "MachXO2", {shapes9K, nullptr, shadow16x4}, "MachXO2 Family Data Sheet, FPGA-DS-02056"};
const DeviceFamily machXo3 = {
    "MachXO3", {shapes9K, nullptr, shadow16x4}, "MachXO3 Family Data Sheet, FPGA-DS-02032"};
const DeviceFamily artix7 = {
    "Artix-7", {shapes18K, nullptr, shadowSlice}, "7 Series FPGAs Data Sheet: Overview, DS180"};
const DeviceFamily kintex7 = {
    "Kintex-7", {shapes18K, nullptr, shadowSlice}, "7 Series FPGAs Data Sheet: Overview, DS180"};
const DeviceFamily cyclone4 = {
    "Cyclone IV E", {shapes9KWide, nullptr, nullptr}, "Cyclone IV FPGA Device Family Overview, CYIV-51001"};
const DeviceFamily cyclone5 = {
    "Cyclone V E", {shapes10K, nullptr, shadow32x20}, "Cyclone V Device Overview, CV-51001"};

constexpr bool hasAllMemories(const DeviceFamily &family)
{
    for (const Resource &resource : resources) {
        if (resource.isMemory != (family.shapes[resource.code] != nullptr))
            return false;
    }
    return true;
}
static_assert(hasAllMemories(ecp5), "the usual family has shapes for each memory, and for nothing else");

// Family, device, package, part; then block memories, registers, shadow memories, by JEX::Implementation.
// Blocks of the 7 series are counted as those of 18 Kbit, two of which make one of 36.
const Device devices[] = {
    // FPGA-DS-02029: logic cells with one register each, EBR4K blocks; no distributed memory
    {&ice40, "iCE40LP384", "SG32", "ICE40LP384-SG32", {0, 384, 0}},
    {&ice40, "iCE40LP1K", "CM36", "ICE40LP1K-CM36", {16, 1280, 0}},
    {&ice40, "iCE40LP4K", "CM81", "ICE40LP4K-CM81", {20, 3520, 0}},
    {&ice40, "iCE40LP8K", "CM81", "ICE40LP8K-CM81", {32, 7680, 0}},
    {&ice40, "iCE40HX1K", "TQ144", "ICE40HX1K-TQ144", {16, 1280, 0}},
    {&ice40, "iCE40HX4K", "TQ144", "ICE40HX4K-TQ144", {20, 3520, 0}},
    {&ice40, "iCE40HX8K", "CT256", "ICE40HX8K-CT256", {32, 7680, 0}},
    // FPGA-DS-02008
    {&ultraPlus, "iCE40UP3K", "UWG30", "ICE40UP3K-UWG30", {20, 2800, 0}},
    {&ultraPlus, "iCE40UP5K", "SG48", "ICE40UP5K-SG48", {30, 5280, 0}},
    // FPGA-DS-02012: distributed memory of 97, 194, 351 and 669 kbit is one 16x4 memory for eight LUT4
    {&ecp5, "LFE5U-12F", "BG256", "LFE5U-12F-6BG256C", {32, 12144, 1518}},
    {&ecp5, "LFE5U-25F", "BG256", "LFE5U-25F-6BG256C", {56, 24288, 3036}},
    {&ecp5, "LFE5U-45F", "BG256", "LFE5U-45F-6BG256C", {108, 43848, 5481}},
    {&ecp5, "LFE5U-85F", "BG381", "LFE5U-85F-6BG381C", {208, 83640, 10455}},
    // FPGA-DS-02056: LUT4, each with a register; eight LUT4 give one 16x4 memory
    {&machXo2, "LCMXO2-256", "TG100", "LCMXO2-256HC-4TG100C", {0, 256, 32}},
    {&machXo2, "LCMXO2-640", "TG100", "LCMXO2-640HC-4TG100C", {2, 640, 80}},
    {&machXo2, "LCMXO2-1200", "TG100", "LCMXO2-1200HC-4TG100C", {7, 1280, 160}},
    {&machXo2, "LCMXO2-2000", "TG100", "LCMXO2-2000HC-4TG100C", {8, 2112, 264}},
    {&machXo2, "LCMXO2-4000", "TG144", "LCMXO2-4000HC-4TG144C", {10, 4320, 540}},
    {&machXo2, "LCMXO2-7000", "TG144", "LCMXO2-7000HC-4TG144C", {26, 6864, 858}},
    // FPGA-DS-02032: as before
    {&machXo3, "LCMXO3LF-1300", "MG121", "LCMXO3LF-1300E-5MG121C", {7, 1280, 160}},
    {&machXo3, "LCMXO3LF-2100", "BG256", "LCMXO3LF-2100C-5BG256C", {8, 2112, 264}},
    {&machXo3, "LCMXO3LF-4300", "BG256", "LCMXO3LF-4300C-5BG256C", {10, 4320, 540}},
    {&machXo3, "LCMXO3LF-6900", "BG256", "LCMXO3LF-6900C-5BG256C", {26, 6864, 858}},
    {&machXo3, "LCMXO3LF-9400", "BG256", "LCMXO3LF-9400C-5BG256C", {48, 9400, 1175}},
    // DS180: distributed memory in Kbit is 256 bit a slice with memory
    {&artix7, "XC7A12T", "CPG238", "XC7A12T-1CPG238C", {40, 16000, 684}},
    {&artix7, "XC7A15T", "CPG236", "XC7A15T-1CPG236C", {50, 20800, 800}},
    {&artix7, "XC7A25T", "CPG238", "XC7A25T-1CPG238C", {90, 29200, 1252}},
    {&artix7, "XC7A35T", "CPG236", "XC7A35T-1CPG236C", {100, 41600, 1600}},
    {&artix7, "XC7A50T", "CPG236", "XC7A50T-1CPG236C", {150, 65200, 2400}},
    {&artix7, "XC7A75T", "CSG324", "XC7A75T-1CSG324C", {210, 94400, 3568}},
    {&artix7, "XC7A100T", "CSG324", "XC7A100T-1CSG324C", {270, 126800, 4752}},
    {&artix7, "XC7A200T", "SBG484", "XC7A200T-1SBG484C", {730, 269200, 11552}},
    {&kintex7, "XC7K70T", "FBG484", "XC7K70T-1FBG484C", {270, 82000, 3352}},
    {&kintex7, "XC7K160T", "FBG484", "XC7K160T-1FBG484C", {650, 202800, 8752}},
    {&kintex7, "XC7K325T", "FFG900", "XC7K325T-2FFG900C", {890, 407600, 16000}},
    {&kintex7, "XC7K410T", "FBG676", "XC7K410T-1FBG676C", {1590, 508400, 22652}},
    // CYIV-51001: logic elements with one register each, M9K blocks; no distributed memory
    {&cyclone4, "EP4CE6", "E144", "EP4CE6E22C8N", {30, 6272, 0}},
    {&cyclone4, "EP4CE10", "F256", "EP4CE10F17C8N", {46, 10320, 0}},
    {&cyclone4, "EP4CE15", "F256", "EP4CE15F17C8N", {56, 15408, 0}},
    {&cyclone4, "EP4CE22", "F256", "EP4CE22F17C6N", {66, 22320, 0}},
    {&cyclone4, "EP4CE30", "F484", "EP4CE30F23C8N", {66, 28848, 0}},
    {&cyclone4, "EP4CE40", "F484", "EP4CE40F23C8N", {126, 39600, 0}},
    {&cyclone4, "EP4CE55", "F484", "EP4CE55F23C8N", {260, 55856, 0}},
    {&cyclone4, "EP4CE75", "F484", "EP4CE75F23C8N", {305, 75408, 0}},
    {&cyclone4, "EP4CE115", "F780", "EP4CE115F29C7N", {432, 114480, 0}},
    // CV-51001: M10K blocks, MLABs of 640 bit, four registers an ALM
    {&cyclone5, "5CEA2", "F256", "5CEBA2F17C8N", {176, 37736, 314}},
    {&cyclone5, "5CEA4", "F484", "5CEBA4F23C7N", {308, 73920, 485}},
    {&cyclone5, "5CEA5", "F484", "5CEBA5F23C8N", {446, 116320, 679}},
    {&cyclone5, "5CEA7", "F484", "5CEBA7F23C8N", {686, 225920, 1338}},
    {&cyclone5, "5CEA9", "F484", "5CEBA9F23C8N", {1220, 454240, 2748}},
};

} // namespace

const DeviceFamily &usualFamily()
{
    return ecp5;
}

const DeviceFamily &familyOf(const Device *device)
{
    return device ? *device->family : usualFamily();
}

int amountOf(const Device *device, JEX::Implementation implementation)
{
    return device && resourceOf(implementation) ? device->amounts[implementation] : 0;
}

const Device *findDevice(const QString &series, const QString &device)
{
    for (const Device &row : devices) {
        if (device == QLatin1String(row.device) && series == QLatin1String(row.family->series))
            return &row;
    }
    return nullptr;
}

QList<DEV::DeviceArg> knownDevices()
{
    QList<DEV::DeviceArg> list;
    for (const Device &row : devices) {
        DEV::DeviceArg arg;
        arg.series = QLatin1String(row.family->series);
        arg.device = QLatin1String(row.device);
        arg.package = QLatin1String(row.package);
        arg.partNumber = QLatin1String(row.partNumber);
        list.append(arg);
    }
    return list;
}

} // namespace JEX_TOOL
