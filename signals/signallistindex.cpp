#include "signals/signallistindex.h"

namespace RTLJEX {

SignalListIndex::SignalListIndex(const QList<JEX::SignalItem> &list)
{
    m_back.reserve(size_t(list.size()));
    for (const JEX::SignalItem &item : list) {
        enter(int(m_back.size()), item);
        m_back.push_back({item, true});
    }
}

void SignalListIndex::enter(int rank, const JEX::SignalItem &item)
{
    const auto add = [rank](QList<int> &ranks) {
        if (rank < 0)
            ranks.prepend(rank);
        else
            ranks.append(rank);
    };
    add(m_byName[item.name]);
    for (const JEX::SignalItem &member : item.members)
        add(m_byMember[member.name]);
}

const SignalListIndex::Entry &SignalListIndex::entry(int rank) const
{
    return rank < 0 ? m_front[size_t(-1 - rank)] : m_back[size_t(rank)];
}

QList<int> SignalListIndex::alive(const QList<int> &ranks) const
{
    QList<int> result;
    for (int rank : ranks) {
        if (entry(rank).alive)
            result.append(rank);
    }
    return result;
}

int SignalListIndex::first(const QList<int> &ranks) const
{
    for (int rank : ranks) {
        if (entry(rank).alive)
            return rank;
    }
    return noRank;
}

void SignalListIndex::remove(int rank)
{
    (rank < 0 ? m_front[size_t(-1 - rank)] : m_back[size_t(rank)]).alive = false;
}

void SignalListIndex::prepend(const JEX::SignalItem &item)
{
    enter(-1 - int(m_front.size()), item);
    m_front.push_back({item, true});
}

QList<JEX::SignalItem> SignalListIndex::records() const
{
    QList<JEX::SignalItem> result;
    for (auto it = m_front.rbegin(); it != m_front.rend(); ++it) {
        if (it->alive)
            result.append(it->item);
    }
    for (const Entry &entry : m_back) {
        if (entry.alive)
            result.append(entry.item);
    }
    return result;
}

} // namespace RTLJEX
