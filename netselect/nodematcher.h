#pragma once

#include "model/netlist/rtlmodule.h"
#include "netselect/namepattern.h"

#include <QRegExp>
#include <QStringMatcher>

#include <map>

namespace RTLJEX {

// Finds the own nets and buses of nodes whose full names match, the same that checkNetForHierarchy() finds
// one by one. The path is matched once for an instance and the short names once for a module, as far as
// the pattern lets; only what remains is composed and asked. Made for one search; the netlist must outlive
// it.
class NodeMatcher
{
public:
    explicit NodeMatcher(const SearchOptions &options);

    // Appends in the node's order.
    void addMatches(const QUARRY::Hierachy *node, QList<QUARRY::RtlNet *> &nets,
                    QList<QUARRY::RtlNetBus *> &buses);

private:
    struct Fit
    {
        Fit(quint32 number, const QUARRY::RtlModule::Entry &entry)
            : number(number), place(entry.isBus ? entry.ordinal : entry.firstSlot), isBus(entry.isBus)
        {
        }
        quint32 number;     // of the entry in the module
        quint32 place : 31; // of a bus its ordinal, of a net its slot
        quint32 isBus : 1;
    };
    typedef std::vector<Fit> Fits;
    enum PairState : unsigned char { NotAsked, CanBegin, CannotBegin };
    struct ModuleFits
    {
        std::map<size_t, Fits> fromPiece; // by the piece that matching goes on with
        bool isAsked = false;             // the next member is filled
        Fits matching;                    // whose short names match alone
    };

    const Fits &candidates(const QUARRY::RtlModule &module, bool &mustAsk);
    const Fits &fitsAlone(const QUARRY::RtlModule &module, size_t piece);
    const Fits &matchesAlone(const QUARRY::RtlModule &module);
    Fits fitsBehindPath(const QUARRY::RtlModule &module, NamePattern::State state) const;
    template <typename Visit>
    void visitWithLiteral(const QUARRY::RtlModule &module, const QString &text, size_t piece,
                          Visit visit) const;
    bool mayStraddle();
    bool mayBeginRest(int from);
    void setPath(const QString &path);
    const QString &folded() const { return m_pattern.folds() ? m_folded : m_beginning; }
    ModuleFits &fitsOf(const QUARRY::RtlModule &module);
    const QString &compose(const QUARRY::RtlModule &module, const QUARRY::RtlModule::Entry &entry);
    bool matches(const QString &fullName) const;

    SearchOptions m_options;
    NamePattern m_pattern;
    QRegExp m_regExp;
    QRegExp m_rest;                         // the pattern behind a leading ".*"; empty when that says nothing
    bool m_crosses = true;                  // whether it may fit a separator
    bool m_beginsAtSeparator = true;        // whether it may begin with one
    std::vector<PairState> m_pairs;         // of ASCII, by first and second letter
    std::vector<QStringMatcher> m_literals; // by the piece that matching goes on with
    std::map<const QUARRY::RtlModule *, ModuleFits> m_fits;
    const QUARRY::RtlModule *m_lastModule = nullptr; // instances of one module come together
    ModuleFits *m_lastFits = nullptr;
    QString m_beginning; // of the instance's full names: path and separator
    QString m_folded;    // the same as the pattern wants it, when that is another; see folded()
    Fits m_open;         // what fits in this instance alone

    // Full names are composed in turn in two strings: QRegExp keeps the last one that it was asked about, so
    // changing that one would copy it.
    QString m_names[2];
    int m_turn = 0;
};

} // namespace RTLJEX
