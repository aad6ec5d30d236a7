#include "tests/gateware/coremodel.h"

#include <optional>

using namespace RTLJEX;

namespace coremodel {
namespace {

bool isKnown(char bit)
{
    return bit == '0' || bit == '1';
}

// Whether a bit is as the character of a value wants it; nothing when that cannot be told.
std::optional<bool> bitFits(char wanted, char now, std::optional<char> before)
{
    if (wanted == 'X')
        return true;
    std::optional<bool> level;
    if (isKnown(now))
        level = wanted == '0' || wanted == 'F' ? now == '0' : now == '1';
    if (wanted == '0' || wanted == '1')
        return level;
    std::optional<bool> changed;
    if (!before)
        changed = false; // nothing to have changed from
    else if (isKnown(now) && isKnown(*before))
        changed = now != *before;
    if (wanted == 'N' || wanted == 'B')
        return changed ? std::optional<bool>(*changed == (wanted == 'B')) : std::nullopt;
    if ((level && !*level) || (changed && !*changed))
        return false;
    return level && changed ? std::optional<bool>(true) : std::nullopt;
}

bool unitMatches(const JEX::MatchUnit &unit, const QByteArray &now, const QByteArray *before)
{
    if (JEX::matchFunctions[unit.function].comparesNumbers) {
        if (now.contains('x') || now.contains('z'))
            return false;
        const QByteArray value = unit.value.toLatin1(); // as long as the port, so that texts order as numbers
        if (JEX::matchFunctions[unit.function].hasUpper)
            return value <= now && now <= unit.upperValue.toLatin1();
        return unit.function == JEX::MatchLess ? now < value : now > value;
    }
    bool isUnknown = false;
    for (int i = 0; i < now.size(); ++i) {
        const std::optional<bool> fits = bitFits(unit.value.at(i).toLatin1(), now.at(i),
                                                 before ? std::optional<char>(before->at(i)) : std::nullopt);
        if (fits && !*fits)
            return unit.function == JEX::MatchNotEqual;
        isUnknown = isUnknown || !fits;
    }
    return unit.function == JEX::MatchEqual && !isUnknown;
}

// By recursive descent, from the loosest operator to the tightest.
class Evaluation
{
public:
    Evaluation(const QString &text, quint32 matches) : m_text(text), m_matches(matches) {}
    bool result() { return binary(0); }

private:
    bool binary(int tightness)
    {
        if (tightness == 3)
            return operand();
        bool value = binary(tightness + 1);
        while (m_at < m_text.size() && m_text[m_at] == "|^&"[tightness]) {
            ++m_at;
            const bool right = binary(tightness + 1);
            value = tightness == 0 ? value || right : tightness == 1 ? value != right : value && right;
        }
        return value;
    }

    bool operand()
    {
        const QChar first = m_text[m_at++];
        if (first == '!')
            return !operand();
        if (first == '(') {
            const bool value = binary(0);
            ++m_at;
            return value;
        }
        int number = 0;
        for (; m_at < m_text.size() && m_text[m_at].isDigit(); ++m_at)
            number = number * 10 + m_text[m_at].digitValue();
        return m_matches >> number & 1;
    }

    QString m_text;
    int m_at = 0;
    quint32 m_matches;
};

// Bit u: unit u matches; bit 16 + e: expression e holds.
quint32 judged(const JEX::AoCore &core, const QList<Sample> &samples, int at)
{
    quint32 bits = 0;
    for (const JEX::MatchUnit *unit : core.enabledMatchUnits()) {
        const int port = unit->triggerPort->portNumber;
        const QByteArray before = at ? samples[at - 1].ports[port] : QByteArray();
        if (unitMatches(*unit, samples[at].ports[port], at ? &before : nullptr))
            bits |= 1u << unit->unitNumber;
    }
    for (int i = 0; i < core.expressions.size(); ++i) {
        if (Evaluation(core.expressions[i], bits & 0xffff).result())
            bits |= 0x10000u << i;
    }
    return bits;
}

class Capture
{
public:
    Capture(const JEX::AoCore &core, const CoreOptions &options, const Story &story)
        : m_core(core), m_samples(story.samples), m_any(options.triggerByAny)
    {
        bool isHigh = false;
        for (const Command &command : story.commands) {
            if (command.kind == Command::Arm)
                continue;
            const bool wasHigh = isHigh;
            isHigh = command.kind == Command::ForceHigh;
            if (isHigh != wasHigh && isHigh != core.forceTriggerByFallingEdge)
                m_forced += command.sample;
        }
    }

    // From one sample up to before another one, where the capture is begun anew or the story ends.
    CapturedCore windows(int first, int end, bool isInitial)
    {
        CapturedCore captured;
        int begin = first; // of the window
        while (captured.windows.size() < m_core.windowNumber) {
            CapturedWindow window;
            int from = begin;
            if (!isInitial) {
                const int trigger = triggerFrom(begin, end, &captured.level);
                if (trigger < 0)
                    break;
                window.trigger = m_core.triggerPosition;
                from = trigger - m_core.triggerPosition;
            }
            captured.level = 0;
            isInitial = false;
            if (from + m_core.captureAmount > end)
                break;
            for (int i = 0; i < m_core.captureAmount; ++i)
                window.samples += m_samples[from + i].data;
            captured.windows += window;
            begin = from + m_core.captureAmount;
        }
        captured.isDone = captured.windows.size() == m_core.windowNumber;
        for (int at = first; at < (captured.isDone ? begin : end); ++at)
            captured.seen |= judged(m_core, m_samples, at);
        return captured;
    }

private:
    int triggerFrom(int begin, int end, int *level) const
    {
        *level = 0;
        for (int at = begin; at < end; ++at) {
            const quint32 holding = judged(m_core, m_samples, at) >> 16;
            const bool isLast = m_any || *level == m_core.expressions.size() - 1;
            const bool holds = m_any ? holding != 0 : holding >> *level & 1;
            const bool mayTrigger = at - begin >= m_core.triggerPosition;
            if (mayTrigger && ((holds && isLast) || m_forced.contains(at)))
                return at;
            if (holds && !isLast)
                ++*level;
        }
        return -1;
    }

    const JEX::AoCore &m_core;
    const QList<Sample> &m_samples;
    bool m_any;
    QList<int> m_forced;
};

CapturedCore liteWindow(const JEX::AOCore_Lite &core, const Story &story, int first)
{
    CapturedCore captured;
    if (first < 0 || first + core.captureAmount > story.samples.size())
        return captured;
    captured.isDone = true;
    captured.windows += CapturedWindow();
    for (int i = 0; i < core.captureAmount; ++i)
        captured.windows.last().samples += story.samples[first + i].data;
    return captured;
}

} // namespace

CapturedCore run(const AnyCore &core, const CoreOptions &options, const Story &story)
{
    int armed = -1;
    for (const Command &command : story.commands) {
        if (command.kind == Command::Arm)
            armed = command.sample;
    }
    if (!core.standard) {
        const JEX::AOCore_Lite &lite = core.as<JEX::AOCore_Lite>();
        const bool startsAtOnce = lite.captureInitialData || options.startsArmed;
        return liteWindow(lite, story, armed >= 0 ? armed : startsAtOnce ? 0 : -1);
    }
    return Capture(*core.standard, options, story)
        .windows(qMax(armed, 0), story.samples.size(), armed < 0 && core.standard->captureInitialData);
}

} // namespace coremodel
