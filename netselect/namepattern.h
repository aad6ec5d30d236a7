#pragma once

#include "netselect/netsearch.h"

#include <QStringMatcher>

#include <bitset>
#include <vector>

namespace RTLJEX {

// A search pattern reduced to pieces of text that must follow each other in a name, with anything between
// them: "*clk?[3]" is one piece at the end, "clk", any unit, a set. A name that does not fit the pieces is
// no match. One that fits is a match if exact(), otherwise the pattern itself has to be asked.
class NamePattern
{
public:
    explicit NamePattern(const SearchOptions &options);

    // False: the pieces say nothing, ask the pattern for each name.
    bool usable() const { return m_usable; }
    bool exact() const { return m_exact; }
    size_t pieceCount() const { return m_pieces.size(); }
    bool onlyAscii() const { return m_onlyAscii; } // says nothing about names with other letters

    // Names are given to the functions below as this leaves them, when case does not matter.
    bool folds() const { return !m_caseSensitive; }
    static void fold(QChar *text, int length);

    // How far a name is matched: the next piece, and where its search goes on.
    struct State
    {
        size_t piece = 0;
        int from = 0;
    };
    enum Lead {
        Never,  // no name with this beginning fits
        Closed, // the rest of the name decides alone, from the state's piece on
        Open    // the next piece may begin in the beginning and end in the rest
    };
    // Matches the beginning that all names of an instance share, the path with its separator.
    Lead lead(const QString &beginning, State &state) const;
    bool fits(const QChar *name, int length, State state) const;

    // Text, as folds() wants it, that each name holds before its range when it fits from `piece` on: a quick
    // look for it in many names at once tells most of those that do not fit. May be empty.
    QString literal(size_t piece) const;

private:
    // What one unit of a name must be: this code unit; anything; one of m_sets[firstSet - unit].
    enum SpecialUnit { anyUnit = -1, gapUnit = -2, firstSet = -3 };
    typedef std::vector<int> Piece;
    typedef std::bitset<128> Set; // of ASCII

    void addUnit(int unit);
    void addGap();
    int textUnit(QChar unit) const;
    int setUnit(const QString &regExp);
    bool readSubstring(const QString &pattern);
    bool readWildcard(const QString &pattern);
    bool readRegExp(const QString &pattern);
    int atomEnd(const QString &pattern, int from, int &unit);

    bool fitsAt(const Piece &piece, const QChar *name, int count) const;
    int find(size_t piece, const QChar *name, int length, int from) const;
    int place(size_t number, const QChar *name, int length, int from) const;
    bool mayStraddle(size_t piece, const QString &beginning, int from) const;
    bool mayBe(int unit, char c) const;
    bool beginsAnchored(size_t piece) const { return m_anchoredStart && piece == 0; }
    bool endsAnchored(size_t piece) const { return m_anchoredEnd && piece + 1 == m_pieces.size(); }

    std::vector<Piece> m_pieces;
    std::vector<QStringMatcher> m_texts;      // of the pieces that are nothing but text, whether they
    std::vector<unsigned char> m_isText;      // are that, and whether
    std::vector<unsigned char> m_mayStraddle; // they may fit the separator at the end of a path
    std::vector<Set> m_sets;
    bool m_gapBefore = false; // while reading: the next unit begins a new piece
    bool m_anchoredStart = true;
    bool m_anchoredEnd = true;
    bool m_caseSensitive;
    bool m_usable = false;
    bool m_exact = true;
    bool m_onlyAscii = false;
};

} // namespace RTLJEX
