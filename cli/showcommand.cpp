#include "cli/arguments.h"
#include "cli/configuration.h"
#include "cli/table.h"
#include "model/jex/zubfields.h"
#include "signals/signalrules.h"

namespace Cli {
namespace {

// The bits of a bus say nothing new unless the user changed one.
bool areMembersShown(const JEX::SignalItem &item)
{
    bool areSpecial = !item.isOfBus();
    for (const JEX::SignalItem &member : item.members)
        areSpecial = areSpecial || !member.alias.isEmpty() || member.capEnable != item.capEnable;
    return areSpecial;
}

void addRows(const QList<JEX::SignalItem> &items, const QString &indent, Table &table)
{
    for (const JEX::SignalItem &item : items) {
        table.add({QString::number(item.width()), JEX::signalTypeRule.toText(item.type),
                   item.capEnable ? "yes" : "no", indent + item.name, item.alias});
        if (areMembersShown(item))
            addRows(item.members, indent + "  ", table);
    }
}

void printSignals(const QString &title, const QList<JEX::SignalItem> &items, Output &out)
{
    out.line("\n  " + title + QString(", rows: %1, bits: %2").arg(items.size()).arg(JEX::widthOf(items)));
    if (items.isEmpty())
        return;
    Table table;
    table.add({"bits", "type", "capture", "signal", "shown as"});
    addRows(items, QString(), table);
    out.line(table.text("    "));
}

QStringList unitRow(const JEX::MatchUnit &unit)
{
    return {'M' + QString::number(unit.unitNumber),
            unit.enabled ? "enabled" : "disabled",
            unit.triggerPort ? "port " + QString::number(unit.triggerPort->portNumber) : "not bound",
            JEX::matchFunctionRule.toText(unit.function),
            unit.value,
            unit.upperValue};
}

bool isUsed(const JEX::MatchUnit &unit)
{
    return unit.enabled || unit.triggerPort || !unit.value.isEmpty();
}

void printTrigger(const JEX::AoCore &core, Output &out)
{
    for (const JEX::TriggerPort *port : core.availableTriggers())
        printSignals("Trigger port " + QString::number(port->portNumber), port->signalItems, out);
    Table units;
    for (const JEX::MatchUnit *unit : core.matchUnits) {
        if (isUsed(*unit))
            units.add(unitRow(*unit));
    }
    out.line("\n  Match units");
    out.line(units.text("    "));
    out.line("\n  Expressions");
    for (const QString &expression : core.expressions)
        out.line("    " + expression);
}

void printCore(const CoreRecord &core, Output &out)
{
    out.line("\nCore " + QString::number(core.number));
    Table table;
    for (const Setting &setting : core.settings)
        table.add({setting.name, settingText(setting.value)});
    out.line(table.text("  "));
    if (core.standard)
        printTrigger(*core.standard, out);
    int captured = 0;
    for (const JEX::SignalItem &item : *core.signalRows)
        captured += RTLJEX::captureBits(item);
    printSignals(QString("Capture signals, bits captured: %1").arg(captured), *core.signalRows, out);
}

Json signalsJson(const QList<JEX::SignalItem> &items)
{
    Json list = Json::array();
    for (const JEX::SignalItem &item : items) {
        Json json;
        json["name"] = toStd(item.name);
        json["alias"] = toStd(item.alias);
        json["type"] = toStd(JEX::signalTypeRule.toText(item.type));
        json["capture"] = item.capEnable;
        json["valid"] = item.valid;
        json["aux"] = item.auxFlag;
        json["members"] = signalsJson(item.members);
        list.push_back(json);
    }
    return list;
}

Json unitJson(const JEX::MatchUnit &unit)
{
    Json json;
    json["number"] = unit.unitNumber;
    json["enabled"] = unit.enabled;
    json["port"] = unit.triggerPort ? Json(unit.triggerPort->portNumber) : Json(nullptr);
    json["function"] = toStd(JEX::matchFunctionRule.toText(unit.function));
    json["value"] = toStd(unit.value);
    json["upperValue"] = toStd(unit.upperValue);
    return json;
}

Json coreJson(const CoreRecord &core)
{
    Json json;
    json["number"] = core.number;
    for (const Setting &setting : core.settings)
        json[toStd(setting.name)] = setting.value;
    if (core.standard) {
        json["ports"] = Json::array();
        for (const JEX::TriggerPort *port : core.standard->triggerPorts)
            json["ports"].push_back(
                {{"number", port->portNumber}, {"signals", signalsJson(port->signalItems)}});
        json["units"] = Json::array();
        for (const JEX::MatchUnit *unit : core.standard->matchUnits)
            json["units"].push_back(unitJson(*unit));
        json["expressions"] = toJson(core.standard->expressions);
    }
    json["signals"] = signalsJson(*core.signalRows);
    json["enabled"] = signalsJson(*core.enabledRows);
    return json;
}

} // namespace

ExitCode show(const QStringList &words, Output &out)
{
    Arguments arguments("show", "FILE", "Prints a configuration (.zub) as tables; --json prints all of it.");
    arguments.parser.addPositionalArgument("FILE", "The configuration.");
    arguments.addJson();
    if (!arguments.read(words, out))
        return arguments.result();
    if (arguments.files().size() != 1)
        return arguments.refuse("Name one configuration (.zub).");
    Configuration configuration;
    QString error;
    if (!configuration.read(arguments.files().first(), &error)) {
        say("jex show: " + error);
        return CouldNotRun;
    }
    const QList<CoreRecord> cores = configuration.cores();
    if (arguments.json()) {
        Json json;
        json["mode"] = toStd(configuration.modeName());
        json["cores"] = Json::array();
        for (const CoreRecord &core : cores)
            json["cores"].push_back(coreJson(core));
        printJson(json, out);
        return Fine;
    }
    out.line(arguments.files().first() + ": " + configuration.modeName() +
             QString(", cores: %1").arg(cores.size()));
    for (const CoreRecord &core : cores)
        printCore(core, out);
    return Fine;
}

} // namespace Cli
