#include "check/configuration.h"
#include "cli/arguments.h"
#include "cli/fieldtext.h"
#include "cli/table.h"
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

template <class Record>
QStringList cellsOf(const Record &record)
{
    static const QList<JEX::Field<Record>> columns = columnsOf<Record>();
    QStringList cells;
    for (const JEX::Field<Record> &field : columns)
        cells << cellText(field, record);
    return cells;
}

void addRows(const QList<JEX::SignalItem> &items, const QString &indent, Table &table)
{
    for (JEX::SignalItem item : items) {
        item.name.prepend(indent);
        table.add(QStringList(QString::number(item.width())) + cellsOf(item));
        if (areMembersShown(item))
            addRows(item.members, indent + "  ", table);
    }
}

void printSignals(const QString &title, const QList<JEX::SignalItem> &items, Output &out)
{
    out.line("\n  " + title + QString(", rows: %1, bits: %2").arg(items.size()).arg(JEX::widthOf(items)));
    if (items.isEmpty())
        return;
    QStringList heading("bits");
    for (const JEX::Field<JEX::SignalItem> &field : columnsOf<JEX::SignalItem>())
        heading << field.title;
    Table table;
    table.add(heading);
    addRows(items, QString(), table);
    out.line(table.text("    "));
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
            units.add(cellsOf(*unit));
    }
    out.line("\n  Match units");
    out.line(units.text("    "));
    out.line("\n  Expressions");
    for (const QString &expression : core.expressions)
        out.line("    " + expression);
}

template <class Core>
QString fieldsText(const Core &core)
{
    Table table;
    for (const JEX::Field<Core> &field : JEX::fieldsOf<Core>()) {
        if (field.part != JEX::KeyPart)
            table.add({field.name, cellText(field, core)});
    }
    return table.text("  ");
}

template <class Core>
void printTrigger(const Core &, Output &)
{
}

void printCore(const RTLJEX::AnyCore &core, Output &out)
{
    out.line("\nCore " + QString::number(core.number));
    core.visit([&out](const auto &record) {
        out.line(fieldsText(record));
        printTrigger(record, out);
    });
    int captured = 0;
    for (const JEX::SignalItem &item : *core.signalRows)
        captured += RTLJEX::captureBits(item);
    printSignals(QString("Capture signals, bits captured: %1").arg(captured), *core.signalRows, out);
}

Json signalsJson(const QList<JEX::SignalItem> &items)
{
    Json list = Json::array();
    for (const JEX::SignalItem &item : items) {
        list.push_back(fieldsJson(item));
        list.back()["members"] = signalsJson(item.members);
    }
    return list;
}

void addTrigger(const JEX::AoCore &core, Json &json)
{
    json["ports"] = Json::array();
    for (const JEX::TriggerPort *port : core.triggerPorts) {
        json["ports"].push_back(fieldsJson(*port));
        json["ports"].back()["signals"] = signalsJson(port->signalItems);
    }
    json["units"] = Json::array();
    for (const JEX::MatchUnit *unit : core.matchUnits)
        json["units"].push_back(fieldsJson(*unit));
    json["expressions"] = toJson(core.expressions);
}

template <class Core>
void addTrigger(const Core &, Json &)
{
}

Json coreJson(const RTLJEX::AnyCore &core)
{
    Json json = core.visit([](const auto &record) {
        Json fields = fieldsJson(record);
        addTrigger(record, fields);
        return fields;
    });
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
    RTLJEX::Configuration configuration;
    if (!arguments.open(arguments.files().first(), configuration))
        return CouldNotRun;
    const QList<RTLJEX::AnyCore> cores = configuration.cores();
    if (arguments.json()) {
        Json json;
        json["mode"] = QUtil::toUtf8(configuration.modeName());
        json["cores"] = Json::array();
        for (const RTLJEX::AnyCore &core : cores)
            json["cores"].push_back(coreJson(core));
        printJson(json, out);
        return Fine;
    }
    out.line(arguments.files().first() + ": " + configuration.modeName() +
             QString(", cores: %1").arg(cores.size()));
    for (const RTLJEX::AnyCore &core : cores)
        printCore(core, out);
    return Fine;
}

} // namespace Cli
