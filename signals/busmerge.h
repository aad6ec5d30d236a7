#pragma once

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

#include "model/jex/signalitem.h"

namespace RTLJEX {

// A list under the rule of CheckBus(): a bit whose bus is there is not added, a bus takes the place of its
// bits. Hashes of the names make a long list cost one look a record.
class BusMerge
{
public:
    explicit BusMerge(const QList<JEX::SignalItem> &list);

    void add(const JEX::SignalItem &item);
    QList<JEX::SignalItem> records() const;

private:
    void append(const JEX::SignalItem &item);

    QList<JEX::SignalItem> m_records;
    QSet<int> m_dropped;                  // positions in m_records
    QHash<QString, QList<int>> m_singles; // their positions, by name
    QSet<QString> m_busBits;              // names of the members of all buses
};

} // namespace RTLJEX
