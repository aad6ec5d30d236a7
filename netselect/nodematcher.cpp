#include "netselect/nodematcher.h"

#include "model/quarry/rtlmodule.h"

#include <algorithm>
#include <cstring>

using QUARRY::RtlModule;

namespace RTLJEX {

namespace {

bool isAscii(const QChar *text, int length)
{
    return std::all_of(text, text + length, [](QChar c) { return c.unicode() < 128; });
}

int nameRoom(const RtlModule::Entry &entry)
{
    return int(entry.textLength) + (entry.isBus ? RtlModule::rangeRoom : 0);
}

// The short name at `out`, which has nameRoom() units of room; gives its length.
int writeName(const RtlModule &module, const RtlModule::Entry &entry, QChar *out)
{
    const int length = int(entry.textLength);
    memcpy(out, module.text(entry), size_t(length) * sizeof(QChar));
    return entry.isBus ? length + RtlModule::writeRange(entry, out + length) : length;
}

QString shortName(const RtlModule &module, const RtlModule::Entry &entry)
{
    return entry.isBus ? module.busName(entry, nullptr) : module.netName(entry.firstSlot, nullptr);
}

// A leading ".*" and nothing that looks at its surroundings.
bool beginsAnywhere(const SearchOptions &options)
{
    const QRegExp looks(QLatin1String("[$^]|\\(\\?[^:]|\\\\[bB0-9]"));
    return options.usePatternSyntax && options.patternSyntax == QRegExp::RegExp &&
           options.pattern.startsWith(QLatin1String(".*")) && options.pattern.size() > 2 &&
           looks.indexIn(options.pattern) < 0;
}

} // namespace

NodeMatcher::NodeMatcher(const SearchOptions &options) : m_options(options), m_pattern(options)
{
    if (options.usePatternSyntax)
        m_regExp = QRegExp(options.pattern, options.caseSensitivity, options.patternSyntax);
    if (m_pattern.usable() && beginsAnywhere(options))
        m_rest = QRegExp(options.pattern.mid(2), options.caseSensitivity);
}

void NodeMatcher::addMatches(const QUARRY::Hierachy *node, QList<QUARRY::RtlNet *> &nets,
                             QList<QUARRY::RtlNetBus *> &buses)
{
    if ((node->nets.isEmpty() && node->buses.isEmpty()) || !m_regExp.isValid())
        return;
    const RtlModule &module = node->declarations();
    setPath(node->fullPathName());
    bool mustAsk = true;
    for (quint32 number : candidates(module, mustAsk)) {
        if (mustAsk && !matches(compose(module, number)))
            continue;
        const RtlModule::Entry &entry = module.entries()[number];
        if (entry.isBus)
            buses.append(node->buses.at(int(entry.ordinal)));
        else
            nets.append(node->nets.at(int(entry.ordinal)));
    }
}

NodeMatcher::ModuleFacts &NodeMatcher::factsOf(const RtlModule &module)
{
    ModuleFacts &facts = m_facts[&module];
    if (facts.all.size() == module.entries().size())
        return facts;
    for (const RtlModule::Entry &entry : module.entries()) {
        facts.all.push_back(quint32(facts.all.size()));
        facts.isAscii = facts.isAscii && isAscii(module.text(entry), int(entry.textLength));
    }
    return facts;
}

// The entries that fit the pattern's pieces, all where the pieces say nothing. They are matches already
// unless the pattern must be asked.
const NodeMatcher::Numbers &NodeMatcher::candidates(const RtlModule &module, bool &mustAsk)
{
    ModuleFacts &facts = factsOf(module);
    mustAsk = true;
    const bool isPlain = facts.isAscii && isAscii(m_beginning.constData(), m_beginning.size());
    if (!m_pattern.usable() || (m_pattern.onlyAscii() && !isPlain))
        return facts.all;
    mustAsk = !m_pattern.exact();
    if (mustAsk && !m_rest.isEmpty() && !mayStraddle()) {
        mustAsk = false;
        return matchingNumbers(module);
    }
    NamePattern::State state;
    const NamePattern::Lead lead = m_pattern.lead(m_folded, state);
    if (lead == NamePattern::Closed) {
        QHash<int, Numbers>::iterator it = facts.fitting.find(int(state.piece));
        if (it == facts.fitting.end()) {
            state.from = 0;
            it = facts.fitting.insert(int(state.piece), fittingNumbers(module, QString(), state));
        }
        return *it;
    }
    m_open = lead == NamePattern::Open ? fittingNumbers(module, m_folded, state) : Numbers();
    return m_open;
}

// Whether what follows the leading ".*" can begin in the instance's path and end in a short name. QRegExp
// tells how much of a text it followed.
bool NodeMatcher::mayStraddle() const
{
    for (int from = 0; from < m_beginning.size(); ++from) {
        const QString end = m_beginning.mid(from);
        if (m_rest.exactMatch(end) || m_rest.matchedLength() == end.size())
            return true;
    }
    return false;
}

const NodeMatcher::Numbers &NodeMatcher::matchingNumbers(const RtlModule &module)
{
    ModuleFacts &facts = factsOf(module);
    if (facts.isAsked)
        return facts.matching;
    facts.isAsked = true;
    for (quint32 number : fittingNumbers(module, QString(), NamePattern::State())) {
        if (matches(shortName(module, module.entries()[number])))
            facts.matching.push_back(number);
    }
    return facts.matching;
}

// The entries whose names, with `beginning` in front, fit from the state on.
NodeMatcher::Numbers NodeMatcher::fittingNumbers(const RtlModule &module, const QString &beginning,
                                                 NamePattern::State state)
{
    Numbers numbers;
    const int lead = beginning.size();
    std::vector<QChar> buffer(beginning.constBegin(), beginning.constEnd());
    for (quint32 number = 0; number < module.entries().size(); ++number) {
        const RtlModule::Entry &entry = module.entries()[number];
        const QChar *name = module.text(entry);
        int length = int(entry.textLength);
        if (lead > 0 || entry.isBus || m_pattern.folds()) {
            const int room = lead + nameRoom(entry);
            if (buffer.size() < size_t(room))
                buffer.resize(size_t(room));
            length = writeName(module, entry, buffer.data() + lead);
            if (m_pattern.folds())
                NamePattern::fold(buffer.data() + lead, length);
            length += lead;
            name = buffer.data();
        }
        if (m_pattern.fits(name, length, state))
            numbers.push_back(number);
    }
    return numbers;
}

void NodeMatcher::setPath(const QString &path)
{
    m_beginning = path + QLatin1Char('/');
    m_folded = m_beginning;
    if (m_pattern.folds())
        NamePattern::fold(m_folded.data(), m_folded.size());
    for (QString &name : m_names) {
        name.reserve(m_beginning.size() + 64);
        name.replace(0, qMin(name.size(), m_beginning.size()), m_beginning);
    }
}

const QString &NodeMatcher::compose(const RtlModule &module, quint32 number)
{
    const RtlModule::Entry &entry = module.entries()[number];
    m_turn = 1 - m_turn;
    QString &name = m_names[m_turn];
    const int lead = m_beginning.size();
    name.resize(lead + nameRoom(entry));
    const int length = writeName(module, entry, name.data() + lead);
    if (entry.isBus)
        name.resize(lead + length);
    return name;
}

bool NodeMatcher::matches(const QString &fullName) const
{
    return m_options.usePatternSyntax ? m_regExp.exactMatch(fullName)
                                      : fullName.contains(m_options.pattern, m_options.caseSensitivity);
}

} // namespace RTLJEX
