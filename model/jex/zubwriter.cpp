#include "model/jex/zubwriter.h"

#include <QStringList>
#include <QXmlStreamWriter>
#include <vector>

#include "model/jex/zubfields.h"

namespace JEX {

namespace {

bool isXmlAt(const QString &text, int i)
{
    const ushort c = text.at(i).unicode();
    if (QChar(c).isHighSurrogate())
        return i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
    if (QChar(c).isLowSurrogate())
        return i > 0 && text.at(i - 1).isHighSurrogate();
    return (c >= 0x20 && c < 0xfffe) || c == '\t' || c == '\n' || c == '\r';
}

QString xmlText(const QString &text)
{
    QString clean = text;
    const QChar *const characters = text.constData();
    for (int i = 0; i < text.size(); ++i) {
        const bool isUsual = characters[i] >= QLatin1Char(' ') && characters[i].unicode() < 0xd800;
        if (!isUsual && !isXmlAt(text, i))
            clean[i] = QChar(QChar::ReplacementCharacter);
    }
    return clean;
}

template <class Record>
const Record &newRecord()
{
    static const Record record;
    return record;
}

template <>
const AoCore &newRecord<AoCore>()
{
    static const AoCore core(0);
    return core;
}

// Writes the attributes of one kind of record. What does not depend on the record is made once; there may be
// 100,000 signals.
template <class Record>
class FieldWriter
{
public:
    FieldWriter();

    // False, with a sentence, when a reader would not take a value. Raises the version to that of the fields.
    bool write(const Record &record, QXmlStreamWriter *xml, int *version, QString *error) const;
    bool isNew(const Record &record) const; // says nothing but its key

private:
    struct Attribute
    {
        const Field<Record> *field;
        QString name;
        QStringList words; // of a flag, or of a number that is written as a word
    };

    static QString textOf(const Record &record, const Attribute &attribute);

    std::vector<Attribute> m_attributes; // in the order of the file
    const Record &m_new = newRecord<Record>();
};

template <class Record>
FieldWriter<Record>::FieldWriter()
{
    for (FieldPart part : {KeyPart, NaturePart, SettingPart}) {
        for (const Field<Record> &field : fieldsOf<Record>()) {
            if (field.part != part)
                continue;
            QStringList words;
            if (field.kind == FlagField)
                words << latin("false") << latin("true");
            for (int i = field.rule.low; field.rule.kind == Rule::Words && i <= field.rule.high; ++i)
                words << field.rule.toText(i);
            m_attributes.push_back({&field, latin(field.name), words});
        }
    }
}

template <class Record>
bool FieldWriter<Record>::write(const Record &record, QXmlStreamWriter *xml, int *version,
                                QString *error) const
{
    for (const Attribute &attribute : m_attributes) {
        const Field<Record> &field = *attribute.field;
        if (field.isOptional && field.isSame(record, m_new))
            continue;
        if (!field.isHeld(record)) {
            const QString value =
                field.kind == TextField ? record.*field.text : QString::number(field.numberOf(record));
            *error = QString::fromLatin1("The value %1 of \"%2\" must be %3.")
                         .arg(value, attribute.name, field.rule.description());
            return false;
        }
        *version = qMax(*version, field.version);
        xml->writeAttribute(attribute.name, textOf(record, attribute));
    }
    return true;
}

template <class Record>
QString FieldWriter<Record>::textOf(const Record &record, const Attribute &attribute)
{
    const Field<Record> &field = *attribute.field;
    if (field.kind == TextField)
        return xmlText(record.*field.text);
    if (field.kind == FlagField)
        return attribute.words.at(record.*field.flag);
    const int number = field.numberOf(record);
    return attribute.words.isEmpty() ? QString::number(number) : attribute.words.at(number - field.rule.low);
}

template <class Record>
bool FieldWriter<Record>::isNew(const Record &record) const
{
    for (const Attribute &attribute : m_attributes) {
        if (attribute.field->part != KeyPart && !attribute.field->isSame(record, m_new))
            return false;
    }
    return true;
}

class ZubWriter
{
public:
    ZubWriter(QByteArray *bytes, int version) : m_xml(bytes), m_version(version)
    {
        m_xml.setAutoFormatting(true);
    }

    template <class Core>
    bool write(const QList<Core *> &cores);
    int version() const { return m_version; } // that was said, or the one that is needed

    QString error;

private:
    template <class Core>
    bool writeCore(const Core &core, const FieldWriter<Core> &fields);
    bool writeTrigger(const AoCore &core);
    template <class Core>
    bool writeTrigger(const Core &)
    {
        return true;
    }
    bool writePort(const TriggerPort &port);
    bool writeUnit(const MatchUnit &unit);
    bool writeSignals(const QList<SignalItem> &items, int depth);
    bool writeList(const char *element, const QList<SignalItem> &items);

    QXmlStreamWriter m_xml;
    int m_version;
    const FieldWriter<TriggerPort> m_port;
    const FieldWriter<MatchUnit> m_unit;
    const FieldWriter<SignalItem> m_signal;
    const QString m_signalElement = QLatin1String("signal");
};

bool isFilterOf(const QList<SignalItem> &enabled, const QList<SignalItem> &all)
{
    int next = 0;
    for (const SignalItem &item : all) {
        if (item.capEnable && (next == enabled.size() || enabled.at(next++) != item))
            return false;
    }
    return next == enabled.size();
}

template <class Core>
bool ZubWriter::write(const QList<Core *> &cores)
{
    if (cores.size() > CoreLimit) {
        error = QString::fromLatin1("There are more than %1 cores.").arg(int(CoreLimit));
        return false;
    }
    m_xml.writeStartDocument();
    m_xml.writeStartElement(latin("jexconfig"));
    m_xml.writeAttribute(latin("version"), QString::number(m_version));
    m_xml.writeAttribute(latin("mode"), latin(modeName(modeOf<Core>())));
    const FieldWriter<Core> fields;
    quint32 seen = 0;
    for (const Core *core : cores) {
        if (!writeCore(*core, fields))
            return false;
        if (seen & (1u << core->coreNumber)) {
            error = QString::fromLatin1("There are two cores of the number %1.").arg(core->coreNumber);
            return false;
        }
        seen |= 1u << core->coreNumber;
    }
    m_xml.writeEndDocument();
    return true;
}

template <class Core>
bool ZubWriter::writeCore(const Core &core, const FieldWriter<Core> &fields)
{
    m_xml.writeStartElement(latin("core"));
    if (!fields.write(core, &m_xml, &m_version, &error) || !writeTrigger(core) ||
        !writeList("signals", core.captureSignals))
        return false;
    if (!isFilterOf(core.enabledCaptureSignals, core.captureSignals) &&
        !writeList("enabled", core.enabledCaptureSignals))
        return false;
    m_xml.writeEndElement();
    return true;
}

bool ZubWriter::writeTrigger(const AoCore &core)
{
    if (core.expressions.size() > ExpressionLimit) {
        error = QString::fromLatin1("A core has more than %1 expressions.").arg(int(ExpressionLimit));
        return false;
    }
    for (const TriggerPort *port : core.availableTriggers()) {
        if (!writePort(*port))
            return false;
    }
    for (const MatchUnit *unit : core.matchUnits) {
        if (!m_unit.isNew(*unit) && !writeUnit(*unit))
            return false;
    }
    for (const QString &expression : core.expressions) {
        m_xml.writeEmptyElement(latin("expression"));
        m_xml.writeAttribute(latin("text"), xmlText(expression));
    }
    return true;
}

bool ZubWriter::writePort(const TriggerPort &port)
{
    m_xml.writeStartElement(latin("port"));
    const bool done = m_port.write(port, &m_xml, &m_version, &error) && writeSignals(port.signalItems, 1);
    m_xml.writeEndElement();
    return done;
}

bool ZubWriter::writeUnit(const MatchUnit &unit)
{
    m_xml.writeEmptyElement(latin("unit"));
    return m_unit.write(unit, &m_xml, &m_version, &error);
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
        error = QString::fromLatin1("Signals are nested more than %1 deep.").arg(int(SignalDepthLimit));
        return false;
    }
    for (const SignalItem &item : items) {
        if (item.isSingle())
            m_xml.writeEmptyElement(m_signalElement);
        else
            m_xml.writeStartElement(m_signalElement);
        if (!m_signal.write(item, &m_xml, &m_version, &error))
            return false;
        if (!item.isSingle()) {
            if (!writeSignals(item.members, depth + 1))
                return false;
            m_xml.writeEndElement();
        }
    }
    return true;
}

} // namespace

// A field of a later version makes the head another one.
bool zubFromCores(const CoreList &cores, QByteArray *bytes, QString *error)
{
    for (int version = 1;;) {
        ZubWriter writer(bytes, version);
        const bool done = std::visit([&writer](const auto &list) { return writer.write(list); }, cores);
        *error = writer.error;
        if (!done || writer.version() == version)
            return done;
        version = writer.version();
        bytes->clear();
    }
}

} // namespace JEX
