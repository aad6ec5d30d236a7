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

} // namespace

NodeMatcher::NodeMatcher(const SearchOptions &options) : m_options(options), m_pattern(options)
{
    if (options.usePatternSyntax)
        m_regExp = QRegExp(options.pattern, options.caseSensitivity, options.patternSyntax);
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
    NamePattern::State state;
    const NamePattern::Lead lead = m_pattern.lead(m_beginning, state);
    if (lead == NamePattern::Closed) {
        QHash<int, Numbers>::iterator it = facts.fitting.find(int(state.piece));
        if (it == facts.fitting.end())
            it = facts.fitting.insert(int(state.piece), fittingNumbers(module, state));
        return *it;
    }
    m_open = lead == NamePattern::Open ? fittingNumbers(module, state) : Numbers();
    return m_open;
}

NodeMatcher::Numbers NodeMatcher::fittingNumbers(const RtlModule &module, NamePattern::State state)
{
    Numbers numbers;
    for (quint32 number = 0; number < module.entries().size(); ++number) {
        const QString &name = compose(module, number);
        if (m_pattern.fits(name.constData(), name.size(), state))
            numbers.push_back(number);
    }
    return numbers;
}

void NodeMatcher::setPath(const QString &path)
{
    m_beginning = path + QLatin1Char('/');
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
    name.resize(lead + writeName(module, entry, name.data() + lead));
    return name;
}

bool NodeMatcher::matches(const QString &fullName) const
{
    return m_options.usePatternSyntax ? m_regExp.exactMatch(fullName)
                                      : fullName.contains(m_options.pattern, m_options.caseSensitivity);
}

} // namespace RTLJEX
