#include "tests/gateware/randomcores.h"

#include "gateware/coretaps.h"
#include "gateware/unitsettings.h"

using namespace RTLJEX;
using coremodel::Command;
using coremodel::Sample;

namespace {

// Of all units, as one number that is loaded through the control port with the last digit first.
QByteArray loadedSettings(const JEX::AoCore &core)
{
    QByteArray all;
    for (const JEX::MatchUnit *unit : coreUnits(core)) {
        for (const UnitSetting &setting : unitSettings(*unit))
            all += setting.digits;
    }
    return all;
}

class Drawing
{
public:
    Drawing(unsigned number, bool unknowns) : m_random(number), m_unknowns(unknowns) {}

    RandomCore draw(bool isLite)
    {
        RandomCore core;
        if (isLite)
            drawLite(&core);
        else
            drawStandard(&core);
        return core;
    }

private:
    int below(int limit) { return int(m_random() % unsigned(limit)); }
    bool oneIn(int times) { return below(times) == 0; }
    int among(std::initializer_list<int> values) { return values.begin()[below(int(values.size()))]; }

    QList<JEX::SignalItem> bits(int count)
    {
        QList<JEX::SignalItem> items;
        while (count > 0) {
            JEX::SignalItem item;
            item.name = QString("top/s%1").arg(++m_names);
            const int width = qMin(count, oneIn(2) ? 1 : 1 + below(12));
            for (int bit = width - 1; width > 1 && bit >= 0; --bit) {
                item.members += JEX::SignalItem();
                item.members.last().name = QString("%1[%2]").arg(item.name).arg(bit);
            }
            items += item;
            count -= width;
        }
        return items;
    }

    // Bits that mostly stay as they are, so that there is something to match.
    QByteArray next(const QByteArray &bits, int restlessness)
    {
        QByteArray changed = bits;
        for (char &bit : changed) {
            if (oneIn(restlessness))
                bit = m_unknowns && oneIn(12) ? (oneIn(4) ? 'z' : 'x') : oneIn(2) ? '1' : '0';
        }
        return changed;
    }

    void drawInputs(RandomCore *core, int samples, int dataBits, const QMap<int, int> &portWidths)
    {
        Sample sample;
        sample.data = next(QByteArray(dataBits, '0'), 1);
        for (auto it = portWidths.begin(); it != portWidths.end(); ++it)
            sample.ports[it.key()] = next(QByteArray(it.value(), '0'), 1);
        for (int half = 0; half < 2 * samples; ++half) {
            core->halves += sample;
            sample.data = next(sample.data, 3);
            for (QByteArray &bits : sample.ports)
                bits = next(bits, qMax(3, bits.size()));
        }
    }

    void drawLite(RandomCore *core)
    {
        core->lite.reset(new JEX::AOCore_Lite);
        JEX::AOCore_Lite &lite = *core->lite;
        lite.sampleEdge = below(2);
        lite.implementation = below(3);
        lite.captureAmount = 2 << below(lite.implementation == JEX::RegImplementation ? 5 : 9);
        lite.enableCaptureDataInputRegister = oneIn(2);
        lite.captureInitialData = oneIn(3);
        const int width = among({1, 2, 31, 32, 33, 1 + below(100)});
        lite.captureSignals = lite.enabledCaptureSignals = bits(width);
        core->options.startsArmed = oneIn(3);
        drawInputs(core, lite.captureAmount + 20, width, {});
        if (oneIn(2))
            core->commands += {Command::Arm, below(12)};
    }

    void drawStandard(RandomCore *core)
    {
        core->standard.reset(new JEX::AoCore(0));
        JEX::AoCore &standard = *core->standard;
        standard.sampleEdge = below(2);
        standard.triggerMode = below(2);
        standard.triggerImplementation = below(3);
        standard.captureImplementation = below(3);
        standard.forceTriggerByFallingEdge = oneIn(2);
        standard.captureInitialData = oneIn(4);
        drawWindows(&standard);
        const int width = among({1, 30, 31, 32, 1 + below(80)});
        standard.captureSignals = standard.enabledCaptureSignals = bits(width);
        QMap<int, int> widths;
        for (int i = 1 + below(4); i > 0; --i)
            widths[below(JEX::PortCount)] = among({1, 2, 5, 16, 64});
        for (auto it = widths.begin(); it != widths.end(); ++it)
            standard.triggerPorts[it.key()]->signalItems = bits(it.value());
        drawInputs(core, standard.windowNumber * standard.captureAmount * 3 / 2 + 120, width, widths);
        drawUnits(&standard, *core);
        core->options.triggerByAny = oneIn(5);
        drawCommands(core);
    }

    void drawWindows(JEX::AoCore *core)
    {
        core->storageSize = 4 << below(core->captureImplementation == JEX::RegImplementation ? 5 : 9);
        core->windowNumber = 1 + below(qMin(16, core->storageSize / 4));
        int depth = core->storageSize;
        for (int parts = 1; parts < core->windowNumber; parts *= 2)
            depth /= 2;
        if (depth < 4) {
            core->windowNumber = 1;
            depth = core->storageSize;
        }
        core->captureAmount = depth;
        while (core->captureAmount > 4 && oneIn(3))
            core->captureAmount /= 2;
        const int last = core->captureAmount - 4;
        core->triggerPosition = among({0, last, below(last + 1)});
    }

    // A character that suits the bit at some sample, most of the time.
    QChar character(char before, char now, bool isNumber)
    {
        if (isNumber)
            return QChar(oneIn(4) ? '0' + below(2) : now == '1' ? '1' : '0');
        if (oneIn(12))
            return QString("01XRFBN")[below(7)];
        if (before == now && !oneIn(3))
            return 'X';
        if (before == now)
            return oneIn(3) ? 'N' : now == '1' ? '1' : '0';
        return oneIn(3) ? 'B' : now == '1' ? (oneIn(2) ? 'R' : '1') : oneIn(2) ? 'F' : '0';
    }

    void drawValue(JEX::MatchUnit *unit, const RandomCore &core)
    {
        const int port = unit->triggerPort->portNumber;
        const int half = 2 + below(core.halves.size() - 2);
        const QByteArray before = core.halves[half - 2].ports[port];
        const QByteArray now = core.halves[half].ports[port];
        const bool isNumber = JEX::matchFunctions[unit->function].comparesNumbers;
        unit->value = unit->upperValue = QString();
        for (int i = 0; i < now.size(); ++i)
            unit->value += character(before[i], now[i], isNumber);
        if (!JEX::matchFunctions[unit->function].hasUpper)
            return;
        for (int i = 0; i < now.size(); ++i)
            unit->upperValue += QChar(oneIn(3) ? '1' : now[i] == '1' ? '1' : '0');
        if (unit->upperValue < unit->value)
            qSwap(unit->upperValue, unit->value);
    }

    void drawUnits(JEX::AoCore *standard, const RandomCore &core)
    {
        QStringList names;
        const QList<JEX::TriggerPort *> ports = standard->availableTriggers();
        for (JEX::MatchUnit *unit : standard->matchUnits) {
            if (!oneIn(3) || (standard->isStatic() && unit->unitNumber > 9))
                continue;
            names += QString("M%1").arg(unit->unitNumber);
            bind(unit, ports[below(ports.size())], core);
        }
        if (names.isEmpty()) {
            names += "M0";
            bind(standard->matchUnits[0], ports[0], core);
        }
        for (int i = oneIn(3) ? 1 + below(16) : 1 + below(3); i > 0; --i)
            standard->expressions += expression(names, oneIn(3) ? 3 : 1);
    }

    void bind(JEX::MatchUnit *unit, JEX::TriggerPort *port, const RandomCore &core)
    {
        unit->enabled = true;
        unit->triggerPort = port;
        unit->function = below(JEX::MatchFunctionCount);
        drawValue(unit, core);
    }

    QString expression(const QStringList &names, int depth)
    {
        if (depth == 0 || oneIn(4))
            return names[below(names.size())];
        const QString inner = expression(names, depth - 1);
        if (oneIn(3))
            return oneIn(2) ? "!(" + inner + ")" : "(" + inner + ")";
        return inner + QString("|^&")[below(3)] + expression(names, depth - 1);
    }

    void drawCommands(RandomCore *core)
    {
        const int halves = core->halves.size();
        if (oneIn(2)) {
            core->commands += {Command::ForceHigh, below(halves / 3)};
            core->commands += {Command::ForceLow, halves / 3 + below(halves / 3)};
        }
        const bool loads = !core->standard->isStatic() && oneIn(2);
        if (loads || oneIn(4))
            core->commands += {Command::Arm, below(halves / 2)};
        std::sort(core->commands.begin(), core->commands.end(),
                  [](const RandomCore::At &a, const RandomCore::At &b) { return a.half < b.half; });
        if (loads)
            drawLoaded(core);
    }

    // The same ports, other values and functions.
    void drawLoaded(RandomCore *core)
    {
        const JEX::AoCore &from = *core->standard;
        core->loaded.reset(new JEX::AoCore(0));
        JEX::AoCore &to = *core->loaded;
        to.storageSize = from.storageSize;
        to.windowNumber = from.windowNumber;
        to.captureAmount = from.captureAmount;
        to.triggerPosition = from.triggerPosition;
        to.forceTriggerByFallingEdge = from.forceTriggerByFallingEdge;
        to.expressions = from.expressions;
        for (int i = 0; i < JEX::PortCount; ++i)
            to.triggerPorts[i]->signalItems = from.triggerPorts[i]->signalItems;
        for (const JEX::MatchUnit *unit : from.enabledMatchUnits())
            bind(to.matchUnits[unit->unitNumber], to.triggerPorts[unit->triggerPort->portNumber], *core);
        core->settings = loadedSettings(to);
    }

    std::mt19937 m_random;
    bool m_unknowns;
    int m_names = 0;
};

} // namespace

AnyCore RandomCore::any() const
{
    if (standard)
        return anyCores(QList<JEX::AoCore *>{standard.get()}).first();
    return anyCores(QList<JEX::AOCore_Lite *>{lite.get()}).first();
}

coremodel::Story RandomCore::story(int edges) const
{
    const int first = (standard ? standard->sampleEdge : lite->sampleEdge) == JEX::FallingEdge ? 1 : 0;
    // A core takes no note of its last samples: three clocks pass until one is judged and stored. A Lite core
    // stores it at the next clock, or the one after.
    const int late = standard ? 3 : lite->enableCaptureDataInputRegister ? 2 : 1;
    coremodel::Story story;
    for (int half = first; half < edges && (half + 2 * late - first) < edges; half += 2)
        story.samples += halves.value(half, halves.last());
    for (const At &command : commands)
        story.commands += {command.kind, (command.half - first + 1) / 2 + (lite ? 2 : 0)};
    return story;
}

CapturedCore RandomCore::expected(int edges) const
{
    AnyCore core = any();
    if (loaded)
        core.standard = loaded.get();
    return coremodel::run(core, options, story(edges));
}

RandomCore randomCore(unsigned number, bool unknowns)
{
    return Drawing(number, unknowns).draw(number % 4 == 0);
}
