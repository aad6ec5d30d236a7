#include "model/jex/zubreader.h"

#include <QtAlgorithms>

#include "model/jex/zubfields.h"

namespace JEX {

namespace {

const int ElementDepthLimit = 64;

// A unit can be bound to the ports of its core; no other record names one.
TriggerPort *portOf(const MatchUnit &unit, int number)
{
    return unit.core->getTrigger(number);
}

template <class Record>
TriggerPort *portOf(const Record &, int)
{
    return nullptr;
}

// Most files name the fields one after another, so that the search begins behind the last one found. Null
// when there is none of that name.
template <class Record>
const Field<Record> *findField(const FieldTable<Record> &table, const QStringRef &name,
                               const Field<Record> *from)
{
    for (int i = 0; i < table.size; ++i, ++from) {
        from = from == table.end() ? table.begin() : from;
        if (isWord(name, from->name))
            return from;
    }
    return nullptr;
}

QList<SignalItem> enabledOf(const QList<SignalItem> &items)
{
    QList<SignalItem> enabled;
    enabled.reserve(items.size());
    for (const SignalItem &item : items) {
        if (item.capEnable)
            enabled.append(item);
    }
    return enabled;
}

JexMode modeOf(const QXmlStreamReader &xml)
{
    return xml.qualifiedName() == latin("jexconfig")
               ? modeNamed(xml.attributes().value(latin("mode")).toString())
               : InvalidMode;
}

} // namespace

JexMode zubMode(QXmlStreamReader *xml)
{
    // A document type declaration is no part of a configuration, and its entities could blow up the text.
    while (!xml->atEnd() && xml->readNext() != QXmlStreamReader::DTD) {
        if (xml->isStartElement())
            return modeOf(*xml);
    }
    return InvalidMode;
}

JexMode zubMode(const QByteArray &bytes)
{
    QXmlStreamReader xml(bytes);
    return zubMode(&xml);
}

bool ZubReader::isWellFormed(JexMode mode)
{
    if (zubMode(&m_xml) != mode)
        return false;
    // The reader keeps a record for each element that is open.
    for (int depth = 1; !m_xml.atEnd() && depth <= ElementDepthLimit;) {
        m_xml.readNext();
        depth += m_xml.isStartElement() ? 1 : m_xml.isEndElement() ? -1 : 0;
    }
    return m_xml.atEnd() && !m_xml.hasError();
}

CoreList ZubReader::cores(JexMode mode)
{
    CoreList cores = emptyListOf(mode);
    if (readHead(mode) && std::visit([this](auto &list) { return readCores(&list); }, cores) && readToEnd())
        return cores;
    deleteCores(cores);
    return emptyListOf(mode);
}

bool ZubReader::readHead(JexMode mode)
{
    if (!nextChild())
        return false;
    const QXmlStreamAttributes attributes = m_xml.attributes();
    if (!isElement("jexconfig")) {
        return failFile(latin(" is no JEX configuration: its outermost element is ") + element() +
                        latin("."));
    }
    const QString version = attributes.value(latin("version")).toString();
    m_version = version.toInt();
    if (m_version < 1 || m_version > ZubVersion || version != QString::number(m_version)) {
        return failFile(latin(" has the format version ") + quoted(version) +
                        latin("; this editor reads version ") + QString::number(ZubVersion) + latin("."));
    }
    const JexMode found = modeOf(m_xml);
    if (found == InvalidMode) {
        return failFile(latin(" has the mode ") + quoted(attributes.value(latin("mode")).toString()) +
                        latin("; it must be ") + modeNames().join(latin(" or ")) + latin("."));
    }
    if (found != mode) {
        return failFile(latin(" is a ") + latin(modeName(found)) + latin(" configuration, not a ") +
                        latin(modeName(mode)) + latin(" one."));
    }
    for (const QXmlStreamAttribute &attribute : attributes) {
        if (attribute.qualifiedName() != latin("version") && attribute.qualifiedName() != latin("mode"))
            return failUnknownAttribute(attribute);
    }
    return true;
}

template <class Core>
bool ZubReader::readCores(QList<Core *> *cores)
{
    while (nextChild()) {
        if (!isElement("core"))
            return failUnknownElement();
        if (cores->size() == CoreLimit)
            return fail(latin("there are more than ") + QString::number(CoreLimit) + latin(" cores."));
        Core *core = newCore<Core>(0);
        cores->append(core);
        if (!readNumberOnce(fieldsOf<Core>().key().rule, &m_coreNumbers, &core->coreNumber) ||
            !readFields(core) || !readSignalLists(core))
            return false;
    }
    return m_error.isEmpty();
}

template <class Record>
bool ZubReader::readFields(Record *record)
{
    const FieldTable<Record> table = fieldsOf<Record>();
    const QXmlStreamAttributes attributes = m_xml.attributes();
    const Field<Record> *next = table.begin();
    bool hasKey = false;
    for (const QXmlStreamAttribute &attribute : attributes) {
        const Field<Record> *field = findField(table, attribute.qualifiedName(), next);
        if (!field || field->version > m_version)
            return failUnknownAttribute(attribute);
        if (!readField(attribute, *field, record))
            return false;
        hasKey = hasKey || field->part == KeyPart;
        next = field + 1;
    }
    return hasKey || failMissing(table.key().name);
}

template <class Record>
bool ZubReader::readField(const QXmlStreamAttribute &attribute, const Field<Record> &field, Record *record)
{
    int number = 0;
    switch (field.kind) {
    case TextField:
        record->*field.text = attribute.value().toString();
        return field.rule.holds(record->*field.text) || failAttribute(attribute, field.rule.description());
    case FlagField:
        return readFlag(attribute, &(record->*field.flag));
    case NumberField:
        return readNumber(attribute, field.rule, &(record->*field.number));
    case PortField:
        break;
    }
    if (!readNumber(attribute, field.rule, &number))
        return false;
    record->*field.port = portOf(*record, number);
    return true;
}

// The list of enabled signals is the enabled ones of all signals, unless the file says otherwise.
template <class Core>
bool ZubReader::readSignalLists(Core *core)
{
    m_portNumbers = m_unitNumbers = 0;
    m_hasSignals = m_hasEnabled = false;
    while (nextChild()) {
        const bool isSignals = isElement("signals");
        if (!isSignals && !isElement("enabled")) {
            if (!readCoreChild(core))
                return false;
            continue;
        }
        bool &seen = isSignals ? m_hasSignals : m_hasEnabled;
        if (seen)
            return fail(latin("the core has a second ") + element() + latin("."));
        seen = true;
        if (!hasOnly(nullptr) ||
            !readSignals(isSignals ? &core->captureSignals : &core->enabledCaptureSignals, 1))
            return false;
    }
    if (!m_hasEnabled)
        core->enabledCaptureSignals = enabledOf(core->captureSignals);
    return m_error.isEmpty();
}

bool ZubReader::readCoreChild(AoCore *core)
{
    if (isElement("port"))
        return readPort(core);
    if (isElement("unit"))
        return readUnit(core);
    if (isElement("expression"))
        return readExpression(core);
    return failUnknownElement();
}

bool ZubReader::readPort(AoCore *core)
{
    int number = 0;
    if (!readNumberOnce(fieldsOf<TriggerPort>().key().rule, &m_portNumbers, &number))
        return false;
    TriggerPort *port = core->triggerPorts.at(number);
    return readFields(port) && readSignals(&port->signalItems, 1);
}

bool ZubReader::readUnit(AoCore *core)
{
    int number = 0;
    if (!readNumberOnce(fieldsOf<MatchUnit>().key().rule, &m_unitNumbers, &number))
        return false;
    return readFields(core->matchUnits.at(number)) && readNoChildren();
}

bool ZubReader::readExpression(AoCore *core)
{
    if (core->expressions.size() == ExpressionLimit) {
        return fail(latin("the core has more than ") + QString::number(ExpressionLimit) +
                    latin(" expressions."));
    }
    if (!hasOnly("text"))
        return false;
    const QXmlStreamAttributes attributes = m_xml.attributes();
    if (attributes.isEmpty())
        return failMissing("text");
    core->expressions.append(attributes.first().value().toString());
    return readNoChildren();
}

bool ZubReader::readSignals(QList<SignalItem> *items, int depth)
{
    while (nextChild()) {
        if (!isElement("signal"))
            return failUnknownElement();
        if (depth > SignalDepthLimit) {
            return fail(latin("signals are nested more than ") + QString::number(SignalDepthLimit) +
                        latin(" deep."));
        }
        if (items->isEmpty())
            items->reserve(8); // the usual width of a bus
        items->append(SignalItem());
        if (!readFields(&items->last()) || !readSignals(&items->last().members, depth + 1))
            return false;
    }
    return m_error.isEmpty();
}

} // namespace JEX
