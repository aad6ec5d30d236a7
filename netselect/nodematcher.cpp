#include "netselect/nodematcher.h"

#include <QVarLengthArray>

#include <algorithm>
#include <cstring>

using QUARRY::RtlModule;

namespace RTLJEX {

namespace {

const size_t letters = 128; // of ASCII
const int pathRoom = 256;

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
    memcpy(out, module.nameOf(entry), size_t(length) * sizeof(QChar));
    return entry.isBus ? length + RtlModule::writeRange(entry, out + length) : length;
}

// A leading ".*" and nothing that looks at its surroundings.
bool beginsAnywhere(const SearchOptions &options)
{
    const QRegExp looks(QLatin1String("[$^]|\\(\\?[^:]|\\\\[bB0-9]"));
    return options.usePatternSyntax && options.patternSyntax == QRegExp::RegExp &&
           options.pattern.startsWith(QLatin1String(".*")) && options.pattern.size() > 2 &&
           looks.indexIn(options.pattern) < 0;
}

// False for what is made of letters and digits, their sets and repetitions alone.
bool mayFitSeparator(const QString &regExp)
{
    const QRegExp harmless(QLatin1String("(?:\\w|[:;|()*+?{},]|\\\\[dw]|\\[\\w(?:-?\\w)*\\])*"));
    return !harmless.exactMatch(regExp);
}

} // namespace

NodeMatcher::NodeMatcher(const SearchOptions &options) : m_options(options), m_pattern(options)
{
    if (options.usePatternSyntax)
        m_regExp = QRegExp(options.pattern, options.caseSensitivity, options.patternSyntax);
    if (m_pattern.usable() && beginsAnywhere(options))
        m_rest = QRegExp(options.pattern.mid(2), options.caseSensitivity);
    m_crosses = mayFitSeparator(m_rest.pattern());
    m_beginsAtSeparator = m_rest.exactMatch(QLatin1String("/")) || m_rest.matchedLength() == 1;
    m_pairs.resize(m_crosses ? letters * letters : 0, NotAsked);
    // Paths are then put into the room that is there.
    m_beginning.reserve(pathRoom);
    m_folded.reserve(pathRoom);
    for (size_t piece = 0; piece <= m_pattern.pieceCount(); ++piece)
        m_literals.push_back(QStringMatcher(m_pattern.literal(piece)));
}

void NodeMatcher::addMatches(const QUARRY::Hierachy *node, QList<QUARRY::RtlNet *> &nets,
                             QList<QUARRY::RtlNetBus *> &buses)
{
    if ((node->nets.isEmpty() && node->buses.isEmpty()) || !m_regExp.isValid())
        return;
    const RtlModule &module = node->declarations();
    setPath(node->fullPathName());
    bool mustAsk = true;
    for (const Fit &fit : candidates(module, mustAsk)) {
        if (mustAsk && !matches(compose(module, module.entries()[fit.number])))
            continue;
        if (fit.isBus)
            buses.append(node->buses.at(int(fit.place)));
        else
            nets.append(node->netOfSlot(fit.place));
    }
}

// The entries that fit the pattern's pieces, all where the pieces say nothing. They are matches already
// unless the pattern must be asked.
const NodeMatcher::Fits &NodeMatcher::candidates(const RtlModule &module, bool &mustAsk)
{
    mustAsk = true;
    const auto isPlain = [&] {
        return module.isAscii() && isAscii(m_beginning.constData(), m_beginning.size());
    };
    if (!m_pattern.usable() || (m_pattern.onlyAscii() && !isPlain()))
        return fitsAlone(module, m_pattern.pieceCount());
    mustAsk = !m_pattern.exact();
    if (mustAsk && !m_rest.isEmpty() && !mayStraddle()) {
        mustAsk = false;
        return matchesAlone(module);
    }
    NamePattern::State state;
    const NamePattern::Lead lead = m_pattern.lead(folded(), state);
    if (lead == NamePattern::Closed)
        return fitsAlone(module, state.piece);
    m_open = lead == NamePattern::Open ? fitsBehindPath(module, state) : Fits();
    return m_open;
}

// Whether what follows the leading ".*" can begin in the instance's path and end in a short name. QRegExp
// tells how much of a text it followed.
bool NodeMatcher::mayStraddle()
{
    for (int from = 0; m_crosses && from < m_beginning.size(); ++from) {
        if (from + 1 < m_beginning.size() ? !mayBeginRest(from) : !m_beginsAtSeparator)
            continue;
        const QString end = m_beginning.mid(from);
        if (m_rest.exactMatch(end) || m_rest.matchedLength() == end.size())
            return true;
    }
    return false;
}

// By the two letters there, about which the pattern is asked once for all instances.
bool NodeMatcher::mayBeginRest(int from)
{
    const size_t first = m_beginning.constData()[from].unicode();
    const size_t second = m_beginning.constData()[from + 1].unicode();
    if (first >= letters || second >= letters)
        return true;
    PairState &state = m_pairs[first * letters + second];
    if (state == NotAsked) {
        const bool fits = m_rest.exactMatch(m_beginning.mid(from, 2)) || m_rest.matchedLength() == 2;
        state = fits ? CanBegin : CannotBegin;
    }
    return state == CanBegin;
}

// The entries whose short names fit from the piece on, all of them behind the last piece.
const NodeMatcher::Fits &NodeMatcher::fitsAlone(const RtlModule &module, size_t piece)
{
    std::map<size_t, Fits> &known = fitsOf(module).fromPiece;
    const std::map<size_t, Fits>::iterator it = known.find(piece);
    if (it != known.end())
        return it->second;
    QString text = module.names();
    if (m_pattern.folds())
        NamePattern::fold(text.data(), text.size());
    Fits &fits = known[piece];
    NamePattern::State state;
    state.piece = piece;
    QVarLengthArray<QChar, 256> name;
    visitWithLiteral(module, text, piece, [&](quint32 number) {
        const RtlModule::Entry &entry = module.entries()[number];
        const QChar *begin = text.constData() + entry.textBegin;
        int length = int(entry.textLength);
        if (entry.isBus) {
            name.resize(nameRoom(entry));
            std::copy_n(begin, length, name.data());
            length += RtlModule::writeRange(entry, name.data() + length);
            begin = name.constData();
        }
        if (m_pattern.fits(begin, length, state))
            fits.push_back(Fit(number, entry));
    });
    return fits;
}

// Visits the entries whose names may hold the literal of the piece; `text` is the module's as the pattern
// wants it.
template <typename Visit>
void NodeMatcher::visitWithLiteral(const RtlModule &module, const QString &text, size_t piece,
                                   Visit visit) const
{
    const std::vector<RtlModule::Entry> &entries = module.entries();
    const QStringMatcher &literal = m_literals[piece];
    const int size = literal.pattern().size();
    if (size == 0) {
        for (quint32 number = 0; number < entries.size(); ++number)
            visit(number);
        return;
    }
    quint32 number = 0;
    int at = literal.indexIn(text, 0);
    while (at >= 0) {
        while (number + 1 < entries.size() && entries[number + 1].textBegin <= quint32(at))
            ++number;
        const RtlModule::Entry &entry = entries[number];
        const int end = int(entry.textBegin + entry.textLength);
        if (at + size <= end) // and not across two names
            visit(number);
        at = literal.indexIn(text, end);
    }
}

const NodeMatcher::Fits &NodeMatcher::matchesAlone(const RtlModule &module)
{
    ModuleFits &known = fitsOf(module);
    if (known.isAsked)
        return known.matching;
    known.isAsked = true;
    for (const Fit &fit : fitsAlone(module, 0)) {
        if (matches(module.shortName(module.entries()[fit.number])))
            known.matching.push_back(fit);
    }
    return known.matching;
}

// The entries whose names fit from the state on, a piece lying across the path and the short name.
NodeMatcher::Fits NodeMatcher::fitsBehindPath(const RtlModule &module, NamePattern::State state) const
{
    Fits fits;
    const int lead = folded().size();
    QVarLengthArray<QChar, 256> name(lead);
    std::copy_n(folded().constData(), lead, name.data());
    for (quint32 number = 0; number < module.entries().size(); ++number) {
        const RtlModule::Entry &entry = module.entries()[number];
        name.resize(lead + nameRoom(entry));
        const int length = writeName(module, entry, name.data() + lead);
        if (m_pattern.folds())
            NamePattern::fold(name.data() + lead, length);
        if (m_pattern.fits(name.constData(), lead + length, state))
            fits.push_back(Fit(number, entry));
    }
    return fits;
}

void NodeMatcher::setPath(const QString &path)
{
    const int length = path.size();
    if (m_beginning.size() != length + 1) // of most instances it is that of the last one
        m_beginning.resize(length + 1);
    QChar *const beginning = m_beginning.data();
    memcpy(beginning, path.constData(), size_t(length) * sizeof(QChar));
    beginning[length] = QLatin1Char('/');
    if (!m_pattern.folds())
        return;
    m_folded.resize(length + 1);
    memcpy(m_folded.data(), beginning, size_t(length + 1) * sizeof(QChar));
    NamePattern::fold(m_folded.data(), m_folded.size());
}

NodeMatcher::ModuleFits &NodeMatcher::fitsOf(const RtlModule &module)
{
    if (m_lastModule != &module) {
        m_lastModule = &module;
        m_lastFits = &m_fits[&module];
    }
    return *m_lastFits;
}

const QString &NodeMatcher::compose(const RtlModule &module, const RtlModule::Entry &entry)
{
    m_turn = 1 - m_turn;
    QString &name = m_names[m_turn];
    const int lead = m_beginning.size();
    name.resize(lead + nameRoom(entry));
    QChar *out = name.data();
    memcpy(out, m_beginning.constData(), size_t(lead) * sizeof(QChar));
    name.resize(lead + writeName(module, entry, out + lead));
    return name;
}

bool NodeMatcher::matches(const QString &fullName) const
{
    return m_options.usePatternSyntax ? m_regExp.exactMatch(fullName)
                                      : fullName.contains(m_options.pattern, m_options.caseSensitivity);
}

} // namespace RTLJEX
