#include "cli/arguments.h"
#include "cli/configuration.h"
#include "cli/design.h"
#include "cli/table.h"
#include "host/designmanager.h"
#include "model/jex/devicetable.h"
#include "model/jex/jextool.h"
#include "options/capturemath.h"
#include "signals/signalrules.h"

namespace Cli {
namespace {

// What the formulas are given for one core, see jextool.h.
struct Capture
{
    int number = 0;
    int signalCount = 0;
    int depth = 0;
    bool adjusted = false;
    QString chosen;
};

QString implementationName(int implementation)
{
    static const char *const names[] = {"BSRAM", "REG", "SSRAM"};
    return names[qBound(0, implementation, 2)];
}

Capture captureOf(const CoreRecord &core)
{
    Capture capture;
    capture.number = core.number;
    for (const JEX::SignalItem &item : *core.signalRows)
        capture.signalCount += RTLJEX::captureBits(item);
    capture.adjusted = core.standard;
    capture.depth = core.standard ? core.standard->storageSize : core.lite->captureAmount;
    capture.chosen =
        implementationName(core.standard ? core.standard->captureImplementation : core.lite->implementation);
    return capture;
}

// Bits stored for each sample.
int widthOf(const Capture &capture)
{
    return capture.signalCount + (capture.adjusted && capture.signalCount > 0 ? 1 : 0);
}

// The shape of a memory that needs the least of them; {0, 0} for registers, and when nothing is stored.
JEX_TOOL::MemoryShape bestShape(const QString &implementation, const Capture &capture,
                                const DEV::DeviceArg &device)
{
    using namespace JEX_TOOL;
    const Device *row = findDevice(device.series, device.device);
    const DeviceFamily *family = row ? row->family : usualFamily();
    const MemoryShape *shapes = implementation == "BSRAM"   ? family->blockShapes
                                : implementation == "SSRAM" ? family->shadowShapes
                                                            : nullptr;
    if (implementation == "SSRAM" && !shapes)
        shapes = usualFamily()->shadowShapes;
    const int least = shapes ? memoriesRequired(shapes, widthOf(capture), capture.depth) : 0;
    for (; least > 0 && shapes->depth; ++shapes) {
        const MemoryShape alone[] = {*shapes, {0, 0}};
        if (memoriesRequired(alone, widthOf(capture), capture.depth) == least)
            return *shapes;
    }
    return {0, 0};
}

QString formulaText(const JEX_TOOL::MemoryShape &shape, const Capture &capture)
{
    if (shape.depth == 0)
        return QString("%1 x %2").arg(capture.depth).arg(widthOf(capture));
    return QString("ceil(%1 / %2) x ceil(%3 / %4)")
        .arg(capture.depth)
        .arg(shape.depth)
        .arg(widthOf(capture))
        .arg(shape.width);
}

// Prints or adds one core; true when the implementation that it has chosen does not fit.
bool addCore(const Capture &capture, const DEV::DeviceArg &device, Json *json, Output &out)
{
    bool isOver = false;
    Table table;
    Json list = Json::array();
    for (const char *implementation : {"BSRAM", "SSRAM", "REG"}) {
        const RTLJEX::CaptureUsage usage = RTLJEX::captureUsage(implementation, device, capture.signalCount,
                                                                capture.depth, capture.adjusted);
        const bool isChosen = capture.chosen == implementation;
        const bool fits = usage.required <= usage.available;
        isOver = isOver || (isChosen && !fits);
        const JEX_TOOL::MemoryShape shape = bestShape(implementation, capture, device);
        table.add({isChosen ? "*" : "", implementation, QString::number(usage.required), "of",
                   QString::number(usage.available), fits ? "" : "too many", formulaText(shape, capture)});
        Json entry{{"implementation", implementation},
                   {"chosen", isChosen},
                   {"required", usage.required},
                   {"available", usage.available}};
        entry["shape"] = shape.depth ? Json{{"depth", shape.depth}, {"width", shape.width}} : Json(nullptr);
        list.push_back(entry);
    }
    if (json) {
        json->push_back({{"core", capture.number},
                         {"signals", capture.signalCount},
                         {"depth", capture.depth},
                         {"adjusted", capture.adjusted},
                         {"width", widthOf(capture)},
                         {"usage", list}});
        return isOver;
    }
    out.line(QString("Core %1: %2 captured bits%3, %4 samples")
                 .arg(capture.number)
                 .arg(capture.signalCount)
                 .arg(capture.adjusted ? " and the trigger mark" : "")
                 .arg(capture.depth));
    out.line(table.text("  "));
    return isOver;
}

DEV::DeviceArg deviceOf(const Design &design)
{
    return design.project().data().device;
}

Json deviceJson(const DEV::DeviceArg &device)
{
    return {{"series", toStd(device.series)},
            {"device", toStd(device.device)},
            {"package", toStd(device.package)},
            {"partNumber", toStd(device.partNumber)}};
}

} // namespace

ExitCode usage(const QStringList &words, Output &out)
{
    Arguments arguments(
        "usage", "FILE --device DEVICE",
        "Prints what the capture of each core of a configuration (.zub) needs of a device, for each\n"
        "implementation: memories or registers required, available, and the formula with its inputs. The\n"
        "implementation that the core has chosen is marked; 1 when it needs more than the device has.");
    arguments.parser.addPositionalArgument("FILE", "The configuration.");
    arguments.parser.addOptions({
        {"device", "The device, by its part number or name; see jex devices.", "DEVICE"},
        {{"p", "project"}, "The project whose device it is, in place of --device.", "PROJECT"},
    });
    arguments.addJson();
    if (!arguments.read(words, out))
        return arguments.result();
    if (arguments.files().size() != 1)
        return arguments.refuse("Name one configuration (.zub).");
    CommandLine::DesignOptions options;
    options.projectFile = arguments.parser.value("project");
    options.device = arguments.parser.value("device");
    DEV::DeviceArg device;
    if (!options.device.isEmpty() && !CommandLine::findDevice(options.device, device))
        return arguments.refuse("The device \"" + options.device +
                                "\" is not known; jex devices lists those that are.");
    Configuration configuration;
    Design design; // the formulas ask the open project for its device
    QString error;
    if (!design.open(options))
        return CouldNotRun;
    device = deviceOf(design);
    if (device.device.isEmpty())
        return arguments.refuse("Name the device with --device.");
    if (!configuration.read(arguments.files().first(), &error)) {
        say("jex usage: " + error);
        return CouldNotRun;
    }
    bool isOver = false;
    Json json{{"device", deviceJson(device)}, {"cores", Json::array()}};
    if (!arguments.json())
        out.line("Device: " + device.device + ", " + device.series);
    for (const CoreRecord &core : configuration.cores())
        isOver = addCore(captureOf(core), device, arguments.json() ? &json["cores"] : nullptr, out) || isOver;
    if (arguments.json())
        printJson(json, out);
    return isOver ? Findings : Fine;
}

ExitCode devices(const QStringList &words, Output &out)
{
    using namespace JEX_TOOL;
    Arguments arguments("devices", "",
                        "Lists the parts that --device takes, with their memories and registers.");
    arguments.addJson();
    if (!arguments.read(words, out))
        return arguments.result();
    if (!arguments.files().isEmpty())
        return arguments.refuse("It takes no file.");
    Table table;
    Json list = Json::array();
    table.add({"series", "device", "part number", "BSRAM", "SSRAM", "registers"});
    for (const DEV::DeviceArg &known : knownDevices()) {
        const Device *row = findDevice(known.series, known.device);
        table.add({known.series, known.device, known.partNumber, QString::number(row->blocks),
                   QString::number(row->shadows), QString::number(row->registers)});
        Json json = deviceJson(known);
        json["bsram"] = row->blocks;
        json["ssram"] = row->shadows;
        json["registers"] = row->registers;
        json["source"] = row->family->source;
        list.push_back(json);
    }
    if (arguments.json())
        printJson(list, out);
    else
        out.line(table.text(QString()));
    return Fine;
}

} // namespace Cli
