#include "netselect/namepattern.h"

#include <algorithm>

namespace RTLJEX {

namespace {

bool isAscii(const QString &text)
{
    return std::all_of(text.constBegin(), text.constEnd(), [](QChar c) { return c.unicode() < 128; });
}

bool isOneOf(QChar c, const char *set)
{
    return QString::fromLatin1(set).contains(c);
}

// Behind the set of characters that begins at `from` with '['; -1 when it is unusual.
int setEnd(const QString &pattern, int from, bool escapes)
{
    int i = from + 1;
    if (i < pattern.size() && pattern.at(i) == QLatin1Char('^'))
        ++i;
    if (i < pattern.size() && pattern.at(i) == QLatin1Char(']'))
        return -1;
    for (; i < pattern.size(); ++i) {
        const QChar c = pattern.at(i);
        if (c == QLatin1Char(']'))
            return i + 1;
        if (c == QLatin1Char('[') || (c == QLatin1Char('\\') && !escapes))
            return -1;
        if (c == QLatin1Char('\\'))
            ++i;
    }
    return -1;
}

// Behind the group that begins at `from` with '('; -1 when it does not end.
int groupEnd(const QString &pattern, int from)
{
    int depth = 0;
    for (int i = from; i < pattern.size(); ++i) {
        const QChar c = pattern.at(i);
        if (c == QLatin1Char('\\')) {
            ++i;
        } else if (c == QLatin1Char('[')) {
            i = setEnd(pattern, i, true) - 1;
            if (i < 0)
                return -1;
        } else if (c == QLatin1Char('(')) {
            ++depth;
        } else if (c == QLatin1Char(')') && --depth == 0) {
            return i + 1;
        }
    }
    return -1;
}

} // namespace

NamePattern::NamePattern(const SearchOptions &options)
    : m_caseSensitive(options.caseSensitivity == Qt::CaseSensitive)
{
    if (!options.usePatternSyntax)
        m_usable = readSubstring(options.pattern);
    else if (options.patternSyntax == QRegExp::WildcardUnix)
        m_usable = readWildcard(options.pattern);
    else if (options.patternSyntax == QRegExp::RegExp)
        m_usable = readRegExp(options.pattern);
    if (m_gapBefore)
        m_anchoredEnd = false;
    // QRegExp compares letters by their lower and upper forms and not by their folded ones. Both agree on
    // ASCII only.
    m_onlyAscii = options.usePatternSyntax && !m_caseSensitive;
    if (m_onlyAscii && !isAscii(options.pattern))
        m_usable = false;
}

int NamePattern::fold(QChar unit) const
{
    const int c = unit.unicode();
    if (m_caseSensitive)
        return c;
    if (c < 128)
        return 'A' <= c && c <= 'Z' ? c + ('a' - 'A') : c;
    return unit.toCaseFolded().unicode();
}

void NamePattern::addUnit(int unit)
{
    if (m_pieces.empty() || m_gapBefore)
        m_pieces.push_back(Piece());
    m_gapBefore = false;
    m_pieces.back().push_back(unit);
}

void NamePattern::addGap()
{
    if (m_pieces.empty())
        m_anchoredStart = false;
    m_gapBefore = true;
}

bool NamePattern::readSubstring(const QString &pattern)
{
    addGap();
    for (QChar c : pattern) {
        if (c.isSurrogate() && !m_caseSensitive)
            return false;
        addUnit(fold(c));
    }
    addGap();
    return true;
}

bool NamePattern::readWildcard(const QString &pattern)
{
    for (int i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern.at(i);
        if (c == QLatin1Char('*')) {
            addGap();
        } else if (c == QLatin1Char('?')) {
            addUnit(anyUnit);
        } else if (c == QLatin1Char('[')) {
            i = setEnd(pattern, i, false) - 1;
            if (i < 0)
                return false;
            addUnit(anyUnit);
            m_exact = false;
        } else if (c == QLatin1Char(']')) {
            return false;
        } else if (c == QLatin1Char('\\')) {
            if (++i == pattern.size() || !isOneOf(pattern.at(i), "*?[]"))
                return false;
            addUnit(fold(pattern.at(i)));
        } else {
            addUnit(fold(c));
        }
    }
    return true;
}

// Reads one atom: its end, or -1 when it is none or an unusual one. `unit` becomes the text unit or
// anyUnit, gapUnit when the atom can stand for any text.
static const int gapUnit = -2;

int NamePattern::atomEnd(const QString &pattern, int from, int &unit)
{
    const QChar c = pattern.at(from);
    unit = anyUnit;
    if (c == QLatin1Char('.'))
        return from + 1;
    if (isOneOf(c, "|)*+?{}]"))
        return -1;
    if (c != QLatin1Char('\\') && !isOneOf(c, "[(^$")) {
        unit = fold(c);
        return from + 1;
    }
    if (c == QLatin1Char('\\') && from + 1 < pattern.size()) {
        const QChar escaped = pattern.at(from + 1);
        if (escaped.unicode() < 128 && !escaped.isLetterOrNumber()) {
            unit = fold(escaped);
            return from + 2;
        }
        m_exact = false;
        return isOneOf(escaped, "dDwWsS") ? from + 2 : -1;
    }
    m_exact = false;
    if (c == QLatin1Char('['))
        return setEnd(pattern, from, true);
    unit = gapUnit;
    if (c == QLatin1Char('('))
        return groupEnd(pattern, from);
    return c == QLatin1Char('\\') ? -1 : from + 1;
}

bool NamePattern::readRegExp(const QString &pattern)
{
    int i = 0;
    while (i < pattern.size()) {
        int unit = 0;
        i = atomEnd(pattern, i, unit);
        if (i < 0)
            return false;
        const QChar quantifier = i < pattern.size() ? pattern.at(i) : QChar();
        const bool isQuantified = isOneOf(quantifier, "*+?{");
        const bool isOptional = isQuantified && quantifier != QLatin1Char('+');
        if (unit != gapUnit && !isOptional)
            addUnit(unit);
        if (unit == gapUnit || isQuantified)
            addGap();
        if (!isQuantified)
            continue;
        if (unit != anyUnit || isOneOf(quantifier, "?{"))
            m_exact = false;
        i = quantifier == QLatin1Char('{') ? pattern.indexOf(QLatin1Char('}'), i) + 1 : i + 1;
        if (i == 0)
            return false;
    }
    return !pattern.isEmpty();
}

bool NamePattern::fitsAt(const Piece &piece, const QChar *name, int count) const
{
    for (int i = 0; i < count; ++i)
        if (piece[size_t(i)] != anyUnit && piece[size_t(i)] != fold(name[i]))
            return false;
    return true;
}

int NamePattern::find(const Piece &piece, const QChar *name, int length, int from) const
{
    const int size = int(piece.size());
    for (int at = from; at + size <= length; ++at)
        if (fitsAt(piece, name + at, size))
            return at;
    return -1;
}

// Whether a piece that is not in `beginning` can begin in it and end in what follows.
bool NamePattern::mayStraddle(const Piece &piece, const QString &beginning, int from) const
{
    const int most = qMin(int(piece.size()) - 1, beginning.size() - from);
    for (int count = 1; count <= most; ++count)
        if (fitsAt(piece, beginning.constData() + beginning.size() - count, count))
            return true;
    return false;
}

// The leftmost place for each piece is the best one: it leaves the most room for the pieces behind it.
NamePattern::Lead NamePattern::lead(const QString &beginning, State &state) const
{
    const QChar *name = beginning.constData();
    if (m_anchoredStart) {
        const int size = int(m_pieces.front().size());
        if (!fitsAt(m_pieces.front(), name, qMin(size, beginning.size())))
            return Never;
        if (size > beginning.size() || endsAnchored(0))
            return Open;
        state.piece = 1;
        state.from = size;
    }
    while (state.piece < m_pieces.size()) {
        const Piece &piece = m_pieces[state.piece];
        const int at = endsAnchored(state.piece) ? -1 : find(piece, name, beginning.size(), state.from);
        if (at < 0) {
            if (mayStraddle(piece, beginning, state.from))
                return Open;
            break;
        }
        state.from = at + int(piece.size());
        ++state.piece;
    }
    state.from = qMax(state.from, beginning.size());
    return Closed;
}

bool NamePattern::fits(const QChar *name, int length, State state) const
{
    for (; state.piece < m_pieces.size(); ++state.piece) {
        const Piece &piece = m_pieces[state.piece];
        const int size = int(piece.size());
        if (endsAnchored(state.piece)) {
            const bool isWhole = m_anchoredStart && state.piece == 0;
            const int at = length - size;
            return at >= state.from && (!isWhole || at == 0) && fitsAt(piece, name + at, size);
        }
        const bool isFirst = m_anchoredStart && state.piece == 0;
        const int at = isFirst ? (size <= length && fitsAt(piece, name, size) ? 0 : -1)
                               : find(piece, name, length, state.from);
        if (at < 0)
            return false;
        state.from = at + size;
    }
    return true;
}

} // namespace RTLJEX
