#include "model/jex/zubwriter.h"

#include <QXmlStreamWriter>

#include "model/jex/matchvalue.h"
#include "model/jex/zubfields.h"

namespace JEX {

namespace {

inline QString latin(const char *text)
{
    return QString::fromLatin1(text);
}

bool isXmlAt(const QString &text, int i)
{
    const ushort c = text.at(i).unicode();
    if (QChar(c).isHighSurrogate()) {
        return i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
    }
    if (QChar(c).isLowSurrogate()) {
        return i > 0 && text.at(i - 1).isHighSurrogate();
    }
    return (c >= 0x20 && c < 0xfffe) || c == '\t' || c == '\n' || c == '\r';
}

QString xmlText(const QString &text)
{
    QString clean = text;
    for (int i = 0; i < text.size(); ++i) {
        if (!isXmlAt(text, i)) {
            clean[i] = QChar(QChar::ReplacementCharacter);
        }
    }
    return clean;
}

class ZubWriter
{
public:
    explicit ZubWriter(QByteArray *bytes) : m_xml(bytes) { m_xml.setAutoFormatting(true); }

    template <class Core>
    bool write(const QList<Core *> &cores, JexMode mode, const FieldTable<Core> &fields);

    QString error;

private:
    template <class Core>
    bool writeCore(const Core &core, const FieldTable<Core> &fields);
    bool writeTrigger(const AoCore &core);
    bool writeTrigger(const AOCore_Lite &) { return true; }
    bool writeUnit(const MatchUnit &unit);
    bool writeSignals(const QList<SignalItem> &items, int depth);
    bool writeList(const char *element, const QList<SignalItem> &items);
    bool writeNumber(const char *name, const Rule &rule, int value);
    void writeText(const QString &name, const QString &text) { m_xml.writeAttribute(name, xmlText(text)); }
    void writeFlag(const QString &name, bool value) { m_xml.writeAttribute(name, value ? m_true : m_false); }

    QXmlStreamWriter m_xml;
    // Made once; there may be 100,000 signals.
    const QString m_signal = latin("signal");
    const QString m_name = latin("name");
    const QString m_type = latin("type");
    const QString m_true = latin("true");
    const QString m_false = latin("false");
    const QString m_types[3] = {signalTypeRule.toText(-1), signalTypeRule.toText(0),
                                signalTypeRule.toText(1)};
};

bool isFilterOf(const QList<SignalItem> &enabled, const QList<SignalItem> &all)
{
    int next = 0;
    for (const SignalItem &item : all) {
        if (item.capEnable && (next == enabled.size() || enabled.at(next++) != item)) {
            return false;
        }
    }
    return next == enabled.size();
}

// Whether the unit says nothing that one of a new core does not.
bool isDefault(const MatchUnit &unit)
{
    return !unit.enabled && !unit.triggerPort && unit.function == 0 && unit.value.isEmpty() &&
           unit.upperValue.isEmpty();
}

template <class Core>
bool ZubWriter::write(const QList<Core *> &cores, JexMode mode, const FieldTable<Core> &fields)
{
    if (cores.size() > CoreLimit) {
        error = latin("There are more than %1 cores.").arg(int(CoreLimit));
        return false;
    }
    m_xml.writeStartDocument();
    m_xml.writeStartElement(latin("jexconfig"));
    m_xml.writeAttribute(latin("version"), QString::number(ZubVersion));
    m_xml.writeAttribute(latin("mode"), latin(modeName(mode)));
    quint32 seen = 0;
    for (const Core *core : cores) {
        if (!writeCore(*core, fields)) {
            return false;
        }
        if (seen & (1u << core->coreNumber)) {
            error = latin("There are two cores of the number %1.").arg(core->coreNumber);
            return false;
        }
        seen |= 1u << core->coreNumber;
    }
    m_xml.writeEndDocument();
    return true;
}

template <class Core>
bool ZubWriter::writeCore(const Core &core, const FieldTable<Core> &fields)
{
    m_xml.writeStartElement(latin("core"));
    for (const Field<Core> *field = fields.begin; field != fields.begin + fields.size; ++field) {
        if (field->text) {
            writeText(latin(field->name), core.*field->text);
        } else if (field->flag) {
            writeFlag(latin(field->name), core.*field->flag);
        } else if (!writeNumber(field->name, field->rule, core.*field->number)) {
            return false;
        }
    }
    if (!writeTrigger(core) || !writeList("signals", core.captureSignals)) {
        return false;
    }
    if (!isFilterOf(core.enabledCaptureSignals, core.captureSignals) &&
        !writeList("enabled", core.enabledCaptureSignals)) {
        return false;
    }
    m_xml.writeEndElement();
    return true;
}

bool ZubWriter::writeTrigger(const AoCore &core)
{
    if (core.expressions.size() > ExpressionLimit) {
        error = latin("A core has more than %1 expressions.").arg(int(ExpressionLimit));
        return false;
    }
    for (const TriggerPort *port : core.availableTriggers()) {
        m_xml.writeStartElement(latin("port"));
        if (!writeNumber("number", portNumberRule, port->portNumber) || !writeSignals(port->signalItems, 1)) {
            return false;
        }
        m_xml.writeEndElement();
    }
    for (const MatchUnit *unit : core.matchUnits) {
        if (!isDefault(*unit) && !writeUnit(*unit)) {
            return false;
        }
    }
    for (const QString &expression : core.expressions) {
        m_xml.writeEmptyElement(latin("expression"));
        writeText(latin("text"), expression);
    }
    return true;
}

bool ZubWriter::writeUnit(const MatchUnit &unit)
{
    m_xml.writeEmptyElement(latin("unit"));
    if (!writeNumber("number", unitNumberRule, unit.unitNumber)) {
        return false;
    }
    if (!isBitText(unit.value + unit.upperValue)) {
        error = latin("The value of M%1 must be made of 0, 1, X, R, F, B and N.").arg(unit.unitNumber);
        return false;
    }
    writeFlag(latin("enabled"), unit.enabled);
    if (unit.triggerPort && !writeNumber("port", portNumberRule, unit.triggerPort->portNumber)) {
        return false;
    }
    if (!writeNumber("function", matchFunctionRule, unit.function)) {
        return false;
    }
    writeText(latin("value"), unit.value);
    if (!unit.upperValue.isEmpty()) {
        writeText(latin("upperValue"), unit.upperValue);
    }
    return true;
}

bool ZubWriter::writeList(const char *element, const QList<SignalItem> &items)
{
    m_xml.writeStartElement(latin(element));
    const bool done = writeSignals(items, 1);
    m_xml.writeEndElement();
    return done;
}

bool ZubWriter::writeSignals(const QList<SignalItem> &items, int depth)
{
    if (depth > SignalDepthLimit && !items.isEmpty()) {
        error = latin("Signals are nested more than %1 deep.").arg(int(SignalDepthLimit));
        return false;
    }
    for (const SignalItem &item : items) {
        if (!signalTypeRule.holds(item.type)) {
            error = latin("A signal has the type %1.").arg(item.type);
            return false;
        }
        const bool isSingle = item.members.isEmpty();
        if (isSingle) {
            m_xml.writeEmptyElement(m_signal);
        } else {
            m_xml.writeStartElement(m_signal);
        }
        writeText(m_name, item.name);
        m_xml.writeAttribute(m_type, m_types[item.type + 1]);
        if (!item.alias.isEmpty()) {
            writeText(latin("alias"), item.alias);
        }
        if (!item.capEnable) {
            writeFlag(latin("capture"), false);
        }
        if (!item.valid) {
            writeFlag(latin("valid"), false);
        }
        if (!item.auxFlag) {
            writeFlag(latin("aux"), false);
        }
        if (!isSingle) {
            if (!writeSignals(item.members, depth + 1)) {
                return false;
            }
            m_xml.writeEndElement();
        }
    }
    return true;
}

bool ZubWriter::writeNumber(const char *name, const Rule &rule, int value)
{
    if (!rule.holds(value)) {
        error = latin("The value %1 of \"%2\" must be %3.")
                    .arg(QString::number(value), latin(name), rule.description());
        return false;
    }
    m_xml.writeAttribute(latin(name), rule.toText(value));
    return true;
}

template <class Core>
bool makeBytes(const QList<Core *> &cores, JexMode mode, const FieldTable<Core> &fields, QByteArray *bytes,
               QString *error)
{
    ZubWriter writer(bytes);
    const bool done = writer.write(cores, mode, fields);
    *error = writer.error;
    return done;
}

} // namespace

bool zubFromCores(const QList<AoCore *> &cores, QByteArray *bytes, QString *error)
{
    return makeBytes(cores, StandardMode, standardFields(), bytes, error);
}

bool zubFromCores(const QList<AOCore_Lite *> &cores, QByteArray *bytes, QString *error)
{
    return makeBytes(cores, LiteMode, liteFields(), bytes, error);
}

} // namespace JEX
