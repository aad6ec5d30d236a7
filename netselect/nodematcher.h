#pragma once

#include "netselect/namepattern.h"

#include <QHash>
#include <QRegExp>

namespace QUARRY {
class RtlModule;
}

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
    typedef std::vector<quint32> Numbers; // of entries of a module
    struct ModuleFacts
    {
        bool isAscii = true;
        bool isAsked = false; // the next member is filled
        Numbers matching;     // whose short names match alone
        Numbers all;
        QHash<int, Numbers> fitting; // by the piece that matching goes on with
    };

    ModuleFacts &factsOf(const QUARRY::RtlModule &module);
    const Numbers &candidates(const QUARRY::RtlModule &module, bool &mustAsk);
    Numbers fittingNumbers(const QUARRY::RtlModule &module, const QString &beginning,
                           NamePattern::State state);
    bool mayStraddle() const;
    const Numbers &matchingNumbers(const QUARRY::RtlModule &module);
    void setPath(const QString &path);
    const QString &compose(const QUARRY::RtlModule &module, quint32 number);
    bool matches(const QString &fullName) const;

    SearchOptions m_options;
    NamePattern m_pattern;
    QRegExp m_regExp;
    QRegExp m_rest; // the pattern behind a leading ".*"; empty when that says nothing
    QHash<const QUARRY::RtlModule *, ModuleFacts> m_facts;
    QString m_beginning; // of the instance's full names: path and separator
    QString m_folded;    // the same as the pattern wants it
    Numbers m_open;      // what fits in this instance alone

    // Full names are composed in turn in two strings: QRegExp keeps the last one that it was asked about, so
    // changing that one would copy it.
    QString m_names[2];
    int m_turn = 0;
};

} // namespace RTLJEX
