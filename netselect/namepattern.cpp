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
    for (const Piece &piece : m_pieces) {
        QString text;
        bool mayStraddle = false;
        for (int unit : piece) {
            text += QChar(ushort(unit));
            mayStraddle = mayStraddle || mayBe(unit, '/');
        }
        const bool isText = std::all_of(piece.begin(), piece.end(), [](int unit) { return unit >= 0; });
        m_texts.push_back(QStringMatcher(isText ? text : QString()));
        m_isText.push_back(isText);
        m_mayStraddle.push_back(mayStraddle);
    }
    // QRegExp compares letters by their lower and upper forms and not by their folded ones: both agree on
    // ASCII only. Sets are only known there, too.
    m_onlyAscii = (options.usePatternSyntax && !m_caseSensitive) || !m_sets.empty();
    if (m_onlyAscii && !isAscii(options.pattern))
        m_usable = false;
}

void NamePattern::fold(QChar *text, int length)
{
    for (QChar *unit = text; unit != text + length; ++unit) {
        const int c = unit->unicode();
        if (c >= 128)
            *unit = unit->toCaseFolded();
        else if ('A' <= c && c <= 'Z')
            *unit = QLatin1Char(char(c + ('a' - 'A')));
    }
}

int NamePattern::textUnit(QChar unit) const
{
    if (!m_caseSensitive)
        fold(&unit, 1);
    return unit.unicode();
}

// QRegExp itself is asked what is in the set.
int NamePattern::setUnit(const QString &regExp)
{
    const QRegExp asked(regExp, m_caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive);
    Set set;
    for (size_t c = 0; c < set.size(); ++c)
        set[c] = asked.exactMatch(QString(QLatin1Char(char(c))));
    m_sets.push_back(set);
    return firstSet - int(m_sets.size() - 1);
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

// Matching such a pair depends on how Qt takes surrogates together when it folds.
bool NamePattern::readSubstring(const QString &pattern)
{
    addGap();
    for (QChar c : pattern) {
        if ((c.isHighSurrogate() || c.isLowSurrogate()) && !m_caseSensitive)
            return false;
        addUnit(textUnit(c));
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
            const int end = setEnd(pattern, i, false);
            if (end < 0)
                return false;
            addUnit(setUnit(pattern.mid(i, end - i)));
            i = end - 1;
        } else if (c == QLatin1Char(']')) {
            return false;
        } else if (c == QLatin1Char('\\')) {
            if (++i == pattern.size() || !isOneOf(pattern.at(i), "*?[]"))
                return false;
            addUnit(textUnit(pattern.at(i)));
        } else {
            addUnit(textUnit(c));
        }
    }
    return true;
}

// Reads one atom of a regular expression: its end, or -1 when it is none or an unusual one. What can stand
// for text of any length is a gapUnit.
int NamePattern::atomEnd(const QString &pattern, int from, int &unit)
{
    const QChar c = pattern.at(from);
    int end = from + 1;
    unit = anyUnit;
    if (c == QLatin1Char('.'))
        return end;
    if (isOneOf(c, "|)*+?{}]"))
        return -1;
    if (c == QLatin1Char('[')) {
        end = setEnd(pattern, from, true);
    } else if (c == QLatin1Char('\\')) {
        const QChar escaped = ++end <= pattern.size() ? pattern.at(from + 1) : QChar();
        if (escaped.unicode() < 128 && escaped.isPrint() && !escaped.isLetterOrNumber()) {
            unit = textUnit(escaped);
            return end;
        }
        if (!isOneOf(escaped, "dDwWsS"))
            return -1;
    } else if (isOneOf(c, "(^$")) {
        m_exact = false;
        unit = gapUnit;
        return c == QLatin1Char('(') ? groupEnd(pattern, from) : end;
    } else {
        unit = textUnit(c);
        return end;
    }
    if (end > 0)
        unit = setUnit(pattern.mid(from, end - from));
    return end;
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

bool NamePattern::mayBe(int unit, char c) const
{
    return unit <= firstSet ? m_sets[size_t(firstSet - unit)][size_t(c)] : unit == anyUnit || unit == c;
}

bool NamePattern::fitsAt(const Piece &piece, const QChar *name, int count) const
{
    for (int i = 0; i < count; ++i) {
        const int unit = piece[size_t(i)];
        const size_t c = name[i].unicode();
        if (unit <= firstSet ? c >= 128 || !m_sets[size_t(firstSet - unit)][c]
                             : unit != anyUnit && unit != int(c))
            return false;
    }
    return true;
}

int NamePattern::find(size_t number, const QChar *name, int length, int from) const
{
    const Piece &piece = m_pieces[number];
    if (m_isText[number])
        return m_texts[number].indexIn(name, length, from);
    const int first = piece.front();
    const int size = int(piece.size());
    for (int at = from; at + size <= length; ++at) {
        if ((first < 0 || first == name[at].unicode()) && fitsAt(piece, name + at, size))
            return at;
    }
    return -1;
}

// Whether a piece that is not in `beginning` can begin in it and end in what follows. What must stand at the
// end of a name may be in the beginning as a whole: a short name may be empty.
bool NamePattern::mayStraddle(size_t number, const QString &beginning, int from) const
{
    const Piece &piece = m_pieces[number];
    if (!m_mayStraddle[number])
        return false;
    const int most = qMin(int(piece.size()), beginning.size() - from);
    for (int count = 1; count <= most; ++count) {
        if (fitsAt(piece, beginning.constData() + beginning.size() - count, count))
            return true;
    }
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
    for (; state.piece < m_pieces.size(); ++state.piece) {
        const size_t piece = state.piece;
        const int at = endsAnchored(piece) ? -1 : find(piece, name, beginning.size(), state.from);
        if (at < 0)
            return mayStraddle(piece, beginning, state.from) ? Open : Closed;
        state.from = at + int(m_pieces[piece].size());
    }
    return Closed;
}

// Where the piece is, not before `from`; -1 when it is not there.
int NamePattern::place(size_t number, const QChar *name, int length, int from) const
{
    const Piece &piece = m_pieces[number];
    const int last = length - int(piece.size());
    if (!beginsAnchored(number) && !endsAnchored(number))
        return find(number, name, length, from);
    const int at = beginsAnchored(number) ? 0 : last;
    const bool isThere = from <= at && at <= last && (at == last || !endsAnchored(number));
    return isThere && fitsAt(piece, name + at, int(piece.size())) ? at : -1;
}

// A run of text units cannot reach into a range without its '[', and is no part of one when it holds
// anything but what ranges are made of.
QString NamePattern::literal(size_t piece) const
{
    QString longest;
    for (; piece < m_pieces.size(); ++piece) {
        QString run;
        bool mayBeOfRange = true;
        for (int unit : m_pieces[piece]) {
            if (unit < 0 || unit == '[') {
                run.clear();
                mayBeOfRange = true;
                continue;
            }
            run += QChar(ushort(unit));
            mayBeOfRange = mayBeOfRange && isOneOf(run.at(run.size() - 1), "0123456789:-]");
            if (!mayBeOfRange && run.size() > longest.size())
                longest = run;
        }
    }
    return longest;
}

bool NamePattern::fits(const QChar *name, int length, State state) const
{
    for (; state.piece < m_pieces.size(); ++state.piece) {
        const int at = place(state.piece, name, length, state.from);
        if (at < 0)
            return false;
        state.from = at + int(m_pieces[state.piece].size());
    }
    return true;
}

} // namespace RTLJEX
