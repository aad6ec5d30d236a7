#include <algorithm>

#include "cli/arguments.h"
#include "cli/coreusage.h"
#include "cli/design.h"
#include "cli/json.h"
#include "cli/table.h"
#include "host/designmanager.h"
#include "model/jex/resourcetable.h"

namespace Cli {
namespace {

// True when the implementation that the core has chosen does not fit.
bool isOver(const QList<UsageRow> &rows)
{
    return std::any_of(rows.begin(), rows.end(),
                       [](const UsageRow &row) { return row.isChosen && !row.fits(); });
}

QString tableText(const QList<UsageRow> &rows)
{
    Table table;
    for (const UsageRow &row : rows) {
        const char *const remark = !row.isOffered ? "not offered" : row.fits() ? "" : "too many";
        table.add({row.isChosen ? "*" : "", JEX::implementationName(row.implementation),
                   QString::number(row.required), "of", QString::number(row.available), remark, row.formula});
    }
    return table.text("  ");
}

Json rowJson(const UsageRow &row)
{
    return {{"implementation", QUtil::toUtf8(JEX::implementationName(row.implementation))},
            {"chosen", row.isChosen},
            {"required", row.required},
            {"available", row.available}};
}

Json captureJson(const CaptureNeeds &capture)
{
    Json list = Json::array();
    for (const UsageRow &row : capture.rows) {
        list.push_back(rowJson(row));
        list.back()["shape"] =
            row.shape.depth ? Json{{"depth", row.shape.depth}, {"width", row.shape.width}} : Json();
    }
    return {{"signals", capture.signalCount},
            {"depth", capture.depth},
            {"adjusted", capture.adjusted},
            {"width", capture.width},
            {"usage", list}};
}

// In Dynamic mode there is nothing to count, so that the inputs are missing.
Json triggerJson(const TriggerNeeds &trigger)
{
    Json json{{"mode", trigger.isStatic ? "static" : "dynamic"}};
    if (trigger.isStatic)
        json.update({{"expressions", trigger.expressions}, {"units", trigger.units}});
    json["usage"] = Json::array();
    for (const UsageRow &row : trigger.rows) {
        json["usage"].push_back(rowJson(row));
        json["usage"].back()["offered"] = row.isOffered;
    }
    return json;
}

void printCapture(int core, const CaptureNeeds &capture, Output &out)
{
    out.line(QString("Core %1: %2 captured bits%3, %4 samples")
                 .arg(core)
                 .arg(capture.signalCount)
                 .arg(capture.width > capture.signalCount ? " and the trigger mark" : "")
                 .arg(capture.depth));
    out.line(tableText(capture.rows));
}

void printTrigger(int core, const TriggerNeeds &trigger, Output &out)
{
    if (!trigger.isStatic)
        return out.line(QString("Core %1: dynamic trigger, nothing is counted").arg(core));
    out.line(QString("Core %1: static trigger, valid expressions: %2, enabled match units of M0 to M9: %3")
                 .arg(core)
                 .arg(trigger.expressions)
                 .arg(trigger.units));
    out.line(tableText(trigger.rows));
}

// Prints or adds one core; true when something that it has chosen does not fit.
bool addCore(const RTLJEX::AnyCore &core, const JEX_TOOL::Device &device, Json *json, Output &out)
{
    const CaptureNeeds capture(core, device);
    bool over = isOver(capture.rows);
    Json entry{{"core", core.number}};
    if (json)
        entry.update(captureJson(capture));
    else
        printCapture(core.number, capture, out);
    if (core.standard) {
        const TriggerNeeds trigger(*core.standard, device);
        over = isOver(trigger.rows) || over;
        if (json)
            entry["trigger"] = triggerJson(trigger);
        else
            printTrigger(core.number, trigger, out);
    }
    if (json)
        json->push_back(entry);
    return over;
}

Json deviceJson(const DEV::DeviceArg &device)
{
    return {{"series", QUtil::toUtf8(device.series)},
            {"device", QUtil::toUtf8(device.device)},
            {"package", QUtil::toUtf8(device.package)},
            {"partNumber", QUtil::toUtf8(device.partNumber)}};
}

} // namespace

ExitCode usage(const QStringList &words, Output &out)
{
    Arguments arguments(
        "usage", "FILE [--device DEVICE | --project PROJECT]",
        "Prints what the capture and the static trigger of each core of a configuration (.zub) need of a\n"
        "device, for each implementation: memories or registers required, available, and the formula with\n"
        "its inputs. What the core has chosen is marked; 1 when that needs more than the device has.\n"
        "Without an option the device is that of the only project in the folder of the configuration.");
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
    if (!arguments.accept(options))
        return arguments.result();
    if (options.projectFile.isEmpty() && options.device.isEmpty())
        options.projectFile = CommandLine::projectBeside(arguments.files().first());
    RTLJEX::Configuration configuration;
    Design design;
    if (!design.open(options))
        return CouldNotRun;
    const DEV::DeviceArg device = design.project().data().device;
    if (device.device.isEmpty())
        return arguments.refuse("Name the device with --device, or with --project a project that has one.");
    const JEX_TOOL::Device *known = JEX_TOOL::findDevice(device.series, device.device);
    if (!known)
        return arguments.fail(
            "The device \"" + device.device +
            "\" of the project is not known. Name one that jex devices lists with --device.");
    if (!arguments.open(arguments.files().first(), configuration))
        return CouldNotRun;
    bool over = false;
    Json json{{"device", deviceJson(device)}, {"cores", Json::array()}};
    if (!arguments.json())
        out.line("Device: " + device.device + ", " + device.series);
    for (const RTLJEX::AnyCore &core : configuration.cores())
        over = addCore(core, *known, arguments.json() ? &json["cores"] : nullptr, out) || over;
    if (arguments.json())
        printJson(json, out);
    return over ? Findings : Fine;
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
    QStringList titles = {"series", "device", "part number"};
    for (const Resource &resource : resources)
        titles << resource.amountName;
    table.add(titles);
    for (const DEV::DeviceArg &known : knownDevices()) {
        const Device *row = findDevice(known.series, known.device);
        QStringList cells = {known.series, known.device, known.partNumber};
        Json json = deviceJson(known);
        for (const Resource &resource : resources) {
            cells << QString::number(JEX_TOOL::amountOf(row, resource.code));
            json[QUtil::toUtf8(QString(resource.amountName).toLower())] =
                JEX_TOOL::amountOf(row, resource.code);
        }
        table.add(cells);
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
