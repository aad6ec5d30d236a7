#include "model/jex/zubreader.h"

#include <QtAlgorithms>

#include "model/jex/matchvalue.h"
#include "model/jex/zubfields.h"

namespace JEX {

namespace {

const int ElementDepthLimit = 64;

const FieldTable<AoCore> &fieldsOf(const AoCore *)
{
    return standardFields();
}

const FieldTable<AOCore_Lite> &fieldsOf(const AOCore_Lite *)
{
    return liteFields();
}

AoCore *makeCore(QList<AoCore *> *cores)
{
    cores->append(new AoCore(0));
    return cores->last();
}

AOCore_Lite *makeCore(QList<AOCore_Lite *> *cores)
{
    cores->append(new AOCore_Lite);
    return cores->last();
}

QList<SignalItem> enabledOf(const QList<SignalItem> &items)
{
    QList<SignalItem> enabled;
    for (const SignalItem &item : items) {
        if (item.capEnable) {
            enabled.append(item);
        }
    }
    return enabled;
}

JexMode modeOf(const QXmlStreamReader &xml)
{
    const QStringRef mode = xml.attributes().value(latin("mode"));
    if (xml.qualifiedName() != latin("jexconfig")) {
        return InvalidMode;
    }
    return mode == latin(modeName(StandardMode)) ? StandardMode
           : mode == latin(modeName(LiteMode))   ? LiteMode
                                                 : InvalidMode;
}

} // namespace

JexMode zubMode(QXmlStreamReader *xml)
{
    // A document type declaration is no part of a configuration, and its entities could blow up the text.
    while (!xml->atEnd() && xml->readNext() != QXmlStreamReader::DTD) {
        if (xml->isStartElement()) {
            return modeOf(*xml);
        }
    }
    return InvalidMode;
}

JexMode zubMode(const QByteArray &bytes)
{
    QXmlStreamReader xml(bytes);
    return zubMode(&xml);
}

QList<AoCore *> ZubReader::standardCores()
{
    return cores<AoCore>(StandardMode);
}

QList<AOCore_Lite *> ZubReader::liteCores()
{
    return cores<AOCore_Lite>(LiteMode);
}

bool ZubReader::isWellFormed(JexMode mode)
{
    if (zubMode(&m_xml) != mode) {
        return false;
    }
    // The reader keeps a record for each element that is open.
    for (int depth = 1; !m_xml.atEnd() && depth <= ElementDepthLimit;) {
        m_xml.readNext();
        depth += m_xml.isStartElement() ? 1 : m_xml.isEndElement() ? -1 : 0;
    }
    return m_xml.atEnd() && !m_xml.hasError();
}

template <class Core>
QList<Core *> ZubReader::cores(JexMode mode)
{
    QList<Core *> cores;
    if (!readHead(mode) || !readCores(&cores) || !readToEnd()) {
        qDeleteAll(cores);
        cores.clear();
    }
    return cores;
}

bool ZubReader::readHead(JexMode mode)
{
    if (!nextChild()) {
        return false;
    }
    const QXmlStreamAttributes attributes = m_xml.attributes();
    if (!isElement("jexconfig")) {
        return failFile(latin(" is no JEX configuration: its outermost element is ") + element() +
                        latin("."));
    }
    const QString version = attributes.value(latin("version")).toString();
    if (version != QString::number(ZubVersion)) {
        return failFile(latin(" has the format version ") + quoted(version) +
                        latin("; this editor reads version ") + QString::number(ZubVersion) + latin("."));
    }
    const JexMode found = modeOf(m_xml);
    if (found == InvalidMode) {
        return failFile(latin(" has the mode ") + quoted(attributes.value(latin("mode")).toString()) +
                        latin("; it must be Standard or Lite."));
    }
    if (found != mode) {
        return failFile(latin(" is a ") + latin(modeName(found)) + latin(" configuration, not a ") +
                        latin(modeName(mode)) + latin(" one."));
    }
    for (const QXmlStreamAttribute &attribute : attributes) {
        if (attribute.qualifiedName() != latin("version") && attribute.qualifiedName() != latin("mode")) {
            return failUnknownAttribute(attribute);
        }
    }
    return true;
}

template <class Core>
bool ZubReader::readCores(QList<Core *> *cores)
{
    while (nextChild()) {
        if (!isElement("core")) {
            return failUnknownElement();
        }
        if (cores->size() == CoreLimit) {
            return fail(latin("there are more than ") + QString::number(CoreLimit) + latin(" cores."));
        }
        Core *core = makeCore(cores);
        if (!readCoreAttributes(core, fieldsOf(core)) || !readSignalLists(core)) {
            return false;
        }
    }
    return m_error.isEmpty();
}

template <class Core>
bool ZubReader::readCoreAttributes(Core *core, const FieldTable<Core> &table)
{
    if (!readNumberOnce(table.begin->rule, &m_coreNumbers, &core->coreNumber)) {
        return false;
    }
    const QXmlStreamAttributes attributes = m_xml.attributes();
    for (const QXmlStreamAttribute &attribute : attributes) {
        const Field<Core> *field = table.begin;
        const Field<Core> *const end = table.begin + table.size;
        while (field != end && attribute.qualifiedName() != latin(field->name)) {
            ++field;
        }
        if (field == end) {
            return failUnknownAttribute(attribute);
        }
        if (field->text) {
            core->*field->text = attribute.value().toString();
        } else if (field->number ? !readNumber(attribute, field->rule, &(core->*field->number))
                                 : !readFlag(attribute, &(core->*field->flag))) {
            return false;
        }
    }
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
            if (!readCoreChild(core)) {
                return false;
            }
            continue;
        }
        bool &seen = isSignals ? m_hasSignals : m_hasEnabled;
        if (seen) {
            return fail(latin("the core has a second ") + element() + latin("."));
        }
        seen = true;
        if (!hasOnly(nullptr) ||
            !readSignals(isSignals ? &core->captureSignals : &core->enabledCaptureSignals, 1)) {
            return false;
        }
    }
    if (!m_hasEnabled) {
        core->enabledCaptureSignals = enabledOf(core->captureSignals);
    }
    return m_error.isEmpty();
}

bool ZubReader::readCoreChild(AOCore_Lite *)
{
    return failUnknownElement();
}

bool ZubReader::readCoreChild(AoCore *core)
{
    if (isElement("port")) {
        return readPort(core);
    }
    if (isElement("unit")) {
        return readUnit(core);
    }
    if (isElement("expression")) {
        return readExpression(core);
    }
    return failUnknownElement();
}

bool ZubReader::readPort(AoCore *core)
{
    int number = 0;
    if (!readNumberOnce(portNumberRule, &m_portNumbers, &number)) {
        return false;
    }
    return hasOnly("number") && readSignals(&core->triggerPorts.at(number)->signalItems, 1);
}

bool ZubReader::readUnit(AoCore *core)
{
    int number = 0;
    if (!readNumberOnce(unitNumberRule, &m_unitNumbers, &number)) {
        return false;
    }
    MatchUnit *unit = core->matchUnits.at(number);
    const QXmlStreamAttributes attributes = m_xml.attributes();
    for (const QXmlStreamAttribute &attribute : attributes) {
        if (!readUnitAttribute(core, unit, attribute)) {
            return false;
        }
    }
    return readNoChildren();
}

bool ZubReader::readUnitAttribute(AoCore *core, MatchUnit *unit, const QXmlStreamAttribute &attribute)
{
    const QStringRef key = attribute.qualifiedName();
    if (key == latin("number")) {
        return true;
    }
    if (key == latin("enabled")) {
        return readFlag(attribute, &unit->enabled);
    }
    if (key == latin("function")) {
        return readNumber(attribute, matchFunctionRule, &unit->function);
    }
    if (key == latin("port")) {
        int port = 0;
        const bool done = readNumber(attribute, portNumberRule, &port);
        unit->triggerPort = done ? core->triggerPorts.at(port) : nullptr;
        return done;
    }
    if (key != latin("value") && key != latin("upperValue")) {
        return failUnknownAttribute(attribute);
    }
    const QString bits = attribute.value().toString();
    (key == latin("value") ? unit->value : unit->upperValue) = bits;
    return isBitText(bits) || failAttribute(attribute, latin("made of 0, 1, X, R, F, B and N"));
}

bool ZubReader::readExpression(AoCore *core)
{
    if (core->expressions.size() == ExpressionLimit) {
        return fail(latin("the core has more than ") + QString::number(ExpressionLimit) +
                    latin(" expressions."));
    }
    if (!hasOnly("text")) {
        return false;
    }
    const QXmlStreamAttributes attributes = m_xml.attributes();
    if (attributes.isEmpty()) {
        return fail(element() + latin(" has no \"text\"."));
    }
    core->expressions.append(attributes.first().value().toString());
    return readNoChildren();
}

bool ZubReader::readSignals(QList<SignalItem> *items, int depth)
{
    while (nextChild()) {
        if (!isElement("signal")) {
            return failUnknownElement();
        }
        if (depth > SignalDepthLimit) {
            return fail(latin("signals are nested more than ") + QString::number(SignalDepthLimit) +
                        latin(" deep."));
        }
        items->append(SignalItem());
        if (!readSignal(&items->last(), depth)) {
            return false;
        }
    }
    return m_error.isEmpty();
}

bool ZubReader::readSignal(SignalItem *item, int depth)
{
    return readSignalAttributes(item) && readSignals(&item->members, depth + 1);
}

bool ZubReader::readSignalAttributes(SignalItem *item)
{
    const QXmlStreamAttributes attributes = m_xml.attributes();
    bool hasName = false;
    for (const QXmlStreamAttribute &attribute : attributes) {
        const QStringRef key = attribute.qualifiedName();
        bool done = true;
        if (key == latin("name")) {
            hasName = true;
            item->name = attribute.value().toString();
        } else if (key == latin("type")) {
            done = readNumber(attribute, signalTypeRule, &item->type);
        } else if (key == latin("alias")) {
            item->alias = attribute.value().toString();
        } else if (key == latin("capture")) {
            done = readFlag(attribute, &item->capEnable);
        } else if (key == latin("valid")) {
            done = readFlag(attribute, &item->valid);
        } else if (key == latin("aux")) {
            done = readFlag(attribute, &item->auxFlag);
        } else {
            done = failUnknownAttribute(attribute);
        }
        if (!done) {
            return false;
        }
    }
    return hasName || fail(latin("<signal> has no \"name\"."));
}

} // namespace JEX
