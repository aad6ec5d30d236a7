#include "insertion/insertiontexts.h"

#include <QRegularExpression>

#include <nlohmann/json.hpp>

#include "elaboration/tools/toolprocess.h"
#include "host/utf8.h"
#include "insertion/analyzer.h"
#include "insertion/flatnetlist.h"
#include "insertion/insertionjob.h"
#include "insertion/outputfolder.h"
#include "insertion/tapping.h"
#include "model/jex/devicetable.h"
#include "model/jex/resourcetable.h"
#include "model/jex/storageneed.h"

namespace Insertion {
namespace {

typedef nlohmann::ordered_json Json;

QByteArray jsonText(const Json &json)
{
    return QByteArray::fromStdString(json.dump(2, ' ', false, Json::error_handler_t::replace)) + '\n';
}

Json listed(const QStringList &sentences)
{
    Json list = Json::array();
    for (const QString &sentence : sentences)
        list.push_back(QUtil::toUtf8(sentence));
    return list;
}

// "\u_uart.count", the name of a tap's wire in the flattened netlist.
QByteArray flatName(const Tap &tap)
{
    QByteArray name = "\\";
    for (const QByteArray &cell : tap.cells)
        name += cell.mid(1) + '.';
    return name + tap.wire.mid(1);
}

bool isRegister(const QByteArray &type)
{
    static const QRegularExpression pattern("^\\$(s|al|a)?dffs?(r|e|re)?$");
    return pattern.match(type).hasMatch();
}

QSet<int> registeredNets(const FlatNetlist &netlist)
{
    QSet<int> nets;
    for (const FlatNetlist::Cell &cell : netlist.cells()) {
        if (!isRegister(netlist.text(cell.type)))
            continue;
        for (const FlatNetlist::Port &port : cell.ports) {
            for (int bit = 0; netlist.text(port.name) == "\\Q" && bit < port.width; ++bit)
                nets.insert(netlist.netOf(netlist.cellBit(port, bit)));
        }
    }
    return nets;
}

// By a gate, a port of the design or an instance without insides, which may drive whatever it is connected
// to.
QSet<int> drivenNets(const FlatNetlist &netlist)
{
    QSet<int> nets;
    for (const FlatNetlist::Wire &wire : netlist.wires()) {
        for (int bit = 0; (wire.port == "input" || wire.port == "inout") && bit < wire.width; ++bit)
            nets.insert(netlist.netOf(wire.firstBit + bit));
    }
    for (const FlatNetlist::Cell &cell : netlist.cells()) {
        const bool isGate = netlist.text(cell.type).startsWith('$');
        for (const FlatNetlist::Port &port : cell.ports) {
            const QByteArray &name = netlist.text(port.name);
            const bool drives = name == "\\Y" || name == "\\Q" || name == "\\DATA" || name == "\\RD_DATA";
            for (int bit = 0; (drives || !isGate) && bit < port.width; ++bit)
                nets.insert(netlist.netOf(netlist.cellBit(port, bit)));
        }
    }
    return nets;
}

Json bitJson(const Analyzer &analyzer, const TapBit &bit)
{
    const Tap &tap = analyzer.taps().taps().at(bit.tap);
    return {{"net", QUtil::toUtf8(bitName(tap, bit))}, {"tap", bit.tap}, {"bit", bit.place}};
}

Json rowsJson(const QList<JEX::SignalItem> &rows)
{
    Json list = Json::array();
    for (const JEX::SignalItem &row : rows) {
        Json json{{"name", QUtil::toUtf8(row.name)},
                  {"display", QUtil::toUtf8(row.alias.isEmpty() ? row.name : row.alias)}};
        if (!row.members.isEmpty())
            json["members"] = rowsJson(row.members);
        list.push_back(json);
    }
    return list;
}

bool isLacked(const JEX_TOOL::Resource &resource, const QString &family)
{
    return QString(resource.lackedBy).split(' ', Qt::SkipEmptyParts).contains(family);
}

QString resourceLine(const RTLJEX::AnyCore &core, const RTLJEX::CoreLayout &layout,
                     const JEX_TOOL::Device *device)
{
    const JEX_TOOL::Resource &resource = *JEX_TOOL::resourceOf(core.implementation);
    QString line = "Core " + QString::number(core.number) + ": " + QString::number(layout.dataWidth) +
                   (layout.dataWidth == 1 ? " bit, " : " bits, ") + QString::number(core.depth) +
                   " samples in " + resource.name;
    if (!device)
        return line;
    const JEX_TOOL::StorageNeed need = JEX_TOOL::storageNeed(*device->family, core.implementation,
                                                             layout.dataWidth, core.depth, layout.hasMark);
    return line + ", by estimate " + QString::number(need.required) + ' ' +
           (need.required == 1 ? resource.one : resource.many) + " of the " + device->device;
}

QString counted(int count, const char *one, const char *many)
{
    return QString::number(count) + ' ' + (count == 1 ? one : many);
}

} // namespace

void InsertionReport::noteTaps(const Analyzer &analyzer, const FlatNetlist &original)
{
    const QList<Tap> &taps = analyzer.taps().taps();
    const QSet<int> registered = registeredNets(original);
    for (const Analyzer::Core &core : analyzer.cores()) {
        const Tap &tap = taps.at(core.clock.tap);
        const auto wire = original.wires().constFind(flatName(tap));
        if (wire != original.wires().constEnd() &&
            registered.contains(original.netOf(wire->firstBit + tap.low + core.clock.place)))
            warnings
                << "WARNING: The sample clock " + bitName(tap, core.clock) + " of core " +
                       QString::number(core.core.number) +
                       " is made by a register. Its samples are only good where the clock is one for the "
                       "whole design, on a net for clocks.";
    }
    const QSet<int> driven = drivenNets(original);
    for (const Tap &tap : taps) {
        const auto wire = original.wires().constFind(flatName(tap));
        const int width = tap.width();
        if (wire == original.wires().constEnd() || tap.low + width > wire->width) {
            warnings << "WARNING: What drives " + tap.net + tap.range() + " is not known.";
            continue;
        }
        int constants = 0, open = 0;
        for (int bit = 0; bit < width; ++bit) {
            const int net = original.netOf(wire->firstBit + tap.low + bit);
            constants += original.constantsOf(net) != 0;
            open += original.constantsOf(net) == 0 && !driven.contains(net);
        }
        if (constants == width)
            warnings << "WARNING: " + tap.net + tap.range() + " never changes: it is a constant.";
        else if (open > 0)
            warnings << "WARNING: Nothing drives " + tap.net + tap.range() +
                            (open < width ? " as a whole." : ".");
    }
}

void InsertionReport::noteFamily(const Analyzer &analyzer, const QString &family)
{
    for (const Analyzer::Core &core : analyzer.cores()) {
        const JEX_TOOL::Resource &resource = *JEX_TOOL::resourceOf(core.core.implementation);
        if (!isLacked(resource, family))
            continue;
        QStringList others;
        for (const JEX_TOOL::Resource &other : JEX_TOOL::resources) {
            if (!isLacked(other, family))
                others << other.name;
        }
        warnings << "WARNING: Core " + QString::number(core.core.number) + " keeps its samples in " +
                        resource.name + ", which the family " + family +
                        " does not have, so it cannot be synthesized for it. Choose " + others.join(" or ") +
                        '.';
    }
}

// A tap is one more reader of its net, so it shows the check what nothing drives.
void InsertionReport::noteProblems(const QStringList &problems)
{
    for (const QString &problem : problems) {
        if (!problemsBefore.contains(problem) && !problem.endsWith("is used but has no driver."))
            differences << "Yosys' check finds something new: " + problem;
    }
}

void InsertionReport::noteEquivalence(const QUARRY::ToolResult &result, int seconds)
{
    const QByteArray words = result.output + result.errors;
    if (result.outcome == QUARRY::ToolResult::Stopped)
        equivalence =
            "not known: it took more than " + QString::number(seconds) + " seconds or too much memory";
    else if (result.outcome == QUARRY::ToolResult::NoRoom)
        equivalence = "not known: " + result.message.section(": ", 1);
    else if (result.isGood())
        equivalence = "proven";
    else if (words.contains("unproven $equiv"))
        equivalence = "not proven";
    else
        equivalence = "not known: Yosys gave up." + QUARRY::lastLine(result.errors);
}

void InsertionReport::noteCounts(const QByteArray &output, bool isOriginal)
{
    const Json json = Json::parse(output.begin(), output.end(), nullptr, false);
    if (!json.is_object() || !json.contains("design"))
        return;
    const Json cells = json["design"].value("num_cells_by_type", Json::object());
    for (auto it = cells.begin(); it != cells.end(); ++it)
        counts[isOriginal ? 0 : 1].insert(QUtil::fromUtf8(it.key()), it.value().get<int>());
}

QByteArray proofText(const InsertionReport &report)
{
    const Json json{{"unchanged", report.differences.isEmpty()},
                    {"cells", report.cells},
                    {"nets", report.nets},
                    {"memories", report.memories},
                    {"differences", listed(report.differences)},
                    {"problemsOfTheOriginal", listed(report.problemsBefore)},
                    {"equivalence", QUtil::toUtf8(report.equivalence)}};
    return jsonText(json);
}

QByteArray mapText(const Analyzer &analyzer, const Surgery &surgery, const QString &topModule)
{
    Json json{{makerMember, makerText},
              {"top", QUtil::toUtf8(topModule)},
              {"taps", Json::array()},
              {"cores", Json::array()}};
    const QList<Tap> &taps = analyzer.taps().taps();
    for (int i = 0; i < taps.size(); ++i)
        json["taps"].push_back({{"tap", i},
                                {"net", QUtil::toUtf8(taps.at(i).net + taps.at(i).range())},
                                {"wire", surgery.tapName(i).toStdString()}});
    for (const Analyzer::Core &core : analyzer.cores()) {
        Json entry{{"core", core.core.number},
                   {"module", core.module.name.toStdString()},
                   {"clock", bitJson(analyzer, core.clock)},
                   {"ports", Json::object()},
                   {"rows", rowsJson(*core.core.enabledRows)}};
        for (const Analyzer::Port &port : core.ports) {
            for (const TapBit &bit : port.bits)
                entry["ports"][port.name.toStdString()].push_back(bitJson(analyzer, bit));
        }
        json["cores"].push_back(entry);
    }
    return jsonText(json);
}

QByteArray reportText(const InsertionReport &report, const Analyzer &analyzer,
                      const InsertionOptions &options, bool hasDesign)
{
    QStringList lines;
    for (const Analyzer::Core &core : analyzer.cores()) {
        const Tap &clock = analyzer.taps().taps().at(core.clock.tap);
        const qint32 edge = core.core.edge;
        lines << resourceLine(core.core, core.module.layout, options.device)
              << "    samples at the " + QString(edge == JEX::FallingEdge ? "falling" : "rising") +
                     " edge of " + bitName(clock, core.clock);
    }
    if (hasDesign)
        lines << QString("Proof: %1, %2 and %3 of the original are in design.v, unchanged.")
                     .arg(counted(report.cells, "cell", "cells"), counted(report.nets, "net", "nets"),
                          counted(report.memories, "memory", "memories"))
              << "Equivalence: " + report.equivalence;
    if (!report.counts[1].isEmpty())
        lines << "Cells counted by Yosys for " + options.family + ", without and with the analyzer:";
    for (auto it = report.counts[1].begin(); it != report.counts[1].end(); ++it)
        lines << QString("    %1 %2 %3")
                     .arg(it.key(), -16)
                     .arg(report.counts[0].value(it.key()), 8)
                     .arg(it.value(), 8);
    return (lines + report.warnings).join('\n').toUtf8() + '\n';
}

} // namespace Insertion
