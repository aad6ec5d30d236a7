#pragma once

#include "netselect/netsearch.h"

#include <vector>

namespace RTLJEX {

// A search pattern reduced to pieces of text that must follow each other in a name, with anything between
// them: "*clk?[3]" is the piece "clk", two single units, at the end. A name that does not fit the pieces
// is no match. One that fits is a match if `exact`, otherwise the pattern itself has to be asked.
class NamePattern
{
public:
    explicit NamePattern(const SearchOptions &options);

    // False: nothing can be said from pieces, ask the pattern for each name.
    bool usable() const { return m_usable; }
    bool exact() const { return m_exact; }
    bool onlyAscii() const { return m_onlyAscii; } // of names with other letters nothing can be said

    // How far a name is matched: the next piece and where its search goes on.
    struct State
    {
        size_t piece = 0;
        int from = 0;
    };
    enum Lead {
        Never,  // no name with this beginning fits
        Closed, // what follows the beginning decides alone, from the state's piece on
        Open    // the next piece may begin in the beginning and end behind it
    };
    // Matches the beginning that all names of an instance share, the path with its separator.
    Lead lead(const QString &beginning, State &state) const;
    bool fits(const QChar *name, int length, State state) const;

private:
    static const int anyUnit = -1;
    typedef std::vector<int> Piece; // code units, folded when case does not matter; or anyUnit

    void addUnit(int unit);
    void addGap();
    bool readSubstring(const QString &pattern);
    bool readWildcard(const QString &pattern);
    bool readRegExp(const QString &pattern);
    int atomEnd(const QString &pattern, int from, int &unit);
    bool foldsPlainly(const QString &pattern) const;

    int fold(QChar unit) const;
    bool fitsAt(const Piece &piece, const QChar *name, int count) const;
    int find(const Piece &piece, const QChar *name, int length, int from) const;
    bool mayStraddle(const Piece &piece, const QString &beginning, int from) const;
    bool endsAnchored(size_t piece) const { return m_anchoredEnd && piece + 1 == m_pieces.size(); }

    std::vector<Piece> m_pieces;
    bool m_gapBefore = false; // while reading: the next unit begins a new piece
    bool m_anchoredStart = true;
    bool m_anchoredEnd = true;
    bool m_caseSensitive;
    bool m_usable = false;
    bool m_exact = true;
    bool m_onlyAscii = false;
};

} // namespace RTLJEX
