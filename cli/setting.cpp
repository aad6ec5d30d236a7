#include "cli/setting.h"

#include <QRegularExpression>
#include <type_traits>

#include "cli/arguments.h"
#include "cli/corerows.h"
#include "model/jex/zubfields.h"
#include "trigger/expressionrules.h"

namespace Cli {
namespace {

// Words for a flag, in any case.
bool readFlag(const QString &text, bool *flag)
{
    const QString word = text.toLower();
    *flag = QStringList{"true", "yes", "on", "1"}.contains(word);
    return *flag || QStringList{"false", "no", "off", "0"}.contains(word);
}

// The number behind "M" or "port"; -1 when the place is another.
int numberBehind(const QString &word, const QString &place)
{
    bool isNumber = false;
    const int number = place.startsWith(word) ? place.mid(word.size()).toInt(&isNumber) : -1;
    return isNumber ? number : -1;
}

// What a user sets, and not what the design or another field says.
template <class Record>
bool isSettable(const JEX::Field<Record> &field)
{
    return field.part == JEX::SettingPart && field.isColumn;
}

template <class Record>
QStringList settableNames()
{
    QStringList names;
    for (const JEX::Field<Record> &field : JEX::fieldsOf<Record>()) {
        if (isSettable(field))
            names << field.name;
    }
    return names;
}

// Empty when the field took the value, else what it holds.
template <class Record>
QString take(const JEX::Field<Record> &field, const QString &text, JEX::AoCore *core, Record &record)
{
    if (field.kind == JEX::FlagField)
        return readFlag(text, &(record.*field.flag)) ? QString() : "true or false";
    if (field.kind == JEX::TextField) {
        if (!field.rule.holds(text))
            return field.rule.description();
        record.*field.text = text;
        return {};
    }
    int number = -1;
    if (field.kind == JEX::PortField && text == "none") {
        record.*field.port = nullptr;
        return {};
    }
    if (!field.rule.fromText(QStringRef(&text), &number))
        return field.rule.description() + (field.kind == JEX::PortField ? ", or none" : "");
    if (field.kind == JEX::PortField)
        record.*field.port = core->getTrigger(number);
    else
        record.*field.number = number;
    return {};
}

} // namespace

bool Setting::read(const QString &word, QString *error)
{
    // The name of a signal may hold dots, and what a user calls it anything.
    static const QRegularExpression form(
        "^core(\\d+)\\.(?:(capture|port\\d+)\\.(.+)\\.|(M\\d+)\\.)?([^.=]+)$");
    const int sign = word.indexOf('=');
    m_key = word.left(sign);
    m_value = word.mid(sign + 1);
    const QRegularExpressionMatch match = form.match(m_key);
    if (sign < 0 || !match.hasMatch()) {
        *error = "\"" + word +
                 "\" is no KEY=VALUE with a key like core0.clock, core0.M3.value, "
                 "core0.expression1 or core0.capture.top/ready.alias.";
        return false;
    }
    m_core = match.captured(1).toInt();
    m_place = match.captured(2) + match.captured(4);
    m_signal = match.captured(3);
    m_field = match.captured(5);
    if (m_place.isEmpty() && numberBehind("expression", m_field) >= 0)
        std::swap(m_place, m_field);
    return true;
}

bool Setting::fail(const QString &sentence, QString *error) const
{
    *error = m_key + ": " + sentence;
    return false;
}

bool Setting::apply(const RTLJEX::Configuration &configuration, QString *error) const
{
    const RTLJEX::AnyCore core = coreNumbered(configuration, m_core);
    if (!core.signalRows)
        return fail("There is no core " + QString::number(m_core) + ": the file has cores " +
                        coreNumbers(configuration) + '.',
                    error);
    return setInCore(core, error);
}

bool Setting::setInCore(const RTLJEX::AnyCore &core, QString *error) const
{
    if (!m_signal.isEmpty())
        return setSignal(core, error);
    if (m_place.isEmpty())
        return core.visit([&](auto &record) { return setField(record, core.standard, error); });
    if (!core.standard)
        return fail("The core has no match units and expressions.", error);
    return m_place.startsWith('M') ? setUnit(*core.standard, error) : setExpression(*core.standard, error);
}

bool Setting::setUnit(JEX::AoCore &core, QString *error) const
{
    JEX::MatchUnit *unit = core.matchUnit(numberBehind("M", m_place));
    return unit ? setField(*unit, &core, error)
                : fail(QString("Match units are M0 to M%1.").arg(JEX::UnitCount - 1), error);
}

bool Setting::setExpression(JEX::AoCore &core, QString *error) const
{
    const int row = numberBehind("expression", m_place) - 1;
    const int count = core.expressions.size();
    if (row < 0 || row > count || row >= JEX::ExpressionLimit)
        return fail(QString("The core has %1 expressions, and %2 at most; the next one is expression%3.")
                        .arg(count)
                        .arg(int(JEX::ExpressionLimit))
                        .arg(count + 1),
                    error);
    const QStringList tokens = RTLJEX::expressionTokens(m_value);
    if (!m_value.trimmed().isEmpty() && !RTLJEX::isExpression(tokens))
        return fail("\"" + m_value + "\" is no expression of match units, like M0&(M1|!M2).", error);
    if (tokens.isEmpty() && row < count)
        core.expressions.removeAt(row);
    else if (row < count)
        core.expressions[row] = tokens.join(QString());
    else if (!tokens.isEmpty())
        core.expressions << tokens.join(QString());
    return true;
}

bool Setting::setSignal(const RTLJEX::AnyCore &core, QString *error) const
{
    const int port = numberBehind("port", m_place);
    const bool isPort = m_place != "capture";
    if (isPort && (!core.standard || port >= JEX::PortCount))
        return fail(core.standard ? QString("Trigger ports have the numbers 0 to %1.").arg(JEX::PortCount - 1)
                                  : QString("The core has no trigger ports."),
                    error);
    QList<JEX::SignalItem> rows = isPort ? core.standard->getTrigger(port)->signalItems : *core.signalRows;
    int row = 0;
    while (row < rows.size() && rows.at(row).name != m_signal)
        ++row;
    if (row == rows.size())
        return fail("The list has no signal " + m_signal + '.', error);
    JEX::SignalItem item = rows.at(row);
    if (isPort && m_field == "capture")
        return fail("What is captured is said in the capture list.", error);
    if (!setField(item, nullptr, error))
        return false;
    rows[row].alias = item.alias == item.name ? QString() : item.alias;
    if (isPort)
        core.standard->getTrigger(port)->signalItems = rows;
    else
        setCaptureRows(core, RTLJEX::withEnabled(rows, row, item.capEnable));
    return true;
}

template <class Record>
bool Setting::setField(Record &record, JEX::AoCore *core, QString *error) const
{
    const QStringList names = settableNames<Record>();
    for (const JEX::Field<Record> &field : JEX::fieldsOf<Record>()) {
        if (!isSettable(field) || m_field != field.name)
            continue;
        const QString held = take(field, m_value, core, record);
        return held.isEmpty() || fail("\"" + m_value + "\" is not " + held + '.', error);
    }
    return fail("There is no field \"" + m_field + "\"." + nearWord(m_field, names) + " It can be " +
                    names.join(", ") + '.',
                error);
}

} // namespace Cli
