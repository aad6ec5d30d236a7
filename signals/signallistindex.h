#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <vector>

#include "model/jex/signalitem.h"

namespace RTLJEX {

// A list of new records that is asked by name while it shrinks and grows at its front. An entry is known by
// its rank: ranks rise along the list, an entry keeps its rank for life, entries put in front have negative
// ones.
class SignalListIndex
{
public:
    static const int noRank = 0x7fffffff; // behind every entry

    explicit SignalListIndex(const QList<JEX::SignalItem> &list);

    // The entries of that name, and of them, or of the buses that have a member of that name, the first.
    QList<int> named(const QString &name) const { return alive(m_byName.value(name)); }
    int firstNamed(const QString &name) const { return first(m_byName.value(name)); }
    int firstHolding(const QString &memberName) const { return first(m_byMember.value(memberName)); }

    bool isSingle(int rank) const { return entry(rank).item.isSingle(); }
    void remove(int rank);
    void prepend(const JEX::SignalItem &item);

    QList<JEX::SignalItem> records() const;

private:
    struct Entry
    {
        JEX::SignalItem item;
        bool alive;
    };

    const Entry &entry(int rank) const;
    QList<int> alive(const QList<int> &ranks) const;
    int first(const QList<int> &ranks) const;
    void enter(int rank, const JEX::SignalItem &item);

    std::vector<Entry> m_back;  // by rank
    std::vector<Entry> m_front; // by -1 - rank
    QHash<QString, QList<int>> m_byName;
    QHash<QString, QList<int>> m_byMember;
};

} // namespace RTLJEX
