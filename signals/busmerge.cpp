#include "signals/busmerge.h"

namespace RTLJEX {

BusMerge::BusMerge(const QList<JEX::SignalItem> &list)
{
    for (const JEX::SignalItem &item : list)
        append(item);
}

void BusMerge::add(const JEX::SignalItem &item)
{
    if (item.isSingle() && m_busBits.contains(item.name))
        return;
    for (const JEX::SignalItem &member : item.members) {
        for (int position : m_singles.take(member.name))
            m_dropped.insert(position);
    }
    append(item);
}

void BusMerge::append(const JEX::SignalItem &item)
{
    if (item.isSingle())
        m_singles[item.name].append(m_records.size());
    for (const JEX::SignalItem &member : item.members)
        m_busBits.insert(member.name);
    m_records.append(item);
}

QList<JEX::SignalItem> BusMerge::records() const
{
    if (m_dropped.isEmpty())
        return m_records;
    QList<JEX::SignalItem> kept;
    for (int i = 0; i < m_records.size(); ++i) {
        if (!m_dropped.contains(i))
            kept.append(m_records.at(i));
    }
    return kept;
}

} // namespace RTLJEX
