#include "signals/repeatrules.h"

#include "signals/groupnames.h"
#include "signals/signallistindex.h"
#include "signals/signalrules.h"

namespace RTLJEX {

namespace {

RowVerdict judgeBitRow(JEX::SignalItem &row, SignalListIndex &buses)
{
    if (buses.firstHolding(row.name) < buses.firstNamed(row.name))
        return RowGone;
    return judgeSingleRow(row, buses);
}

// The list is gone through in order and left at the bus itself: bits behind it stay.
RowVerdict judgeWholeBusRow(JEX::SignalItem &row, SignalListIndex &buses)
{
    const int same = buses.firstNamed(row.name);
    bool found = same != SignalListIndex::noRank;
    for (const JEX::SignalItem &member : row.members) {
        for (int bit : buses.named(member.name)) {
            if (bit < same) {
                buses.remove(bit);
                found = true;
            }
        }
    }
    if (same != SignalListIndex::noRank)
        buses.remove(same);
    if (!found)
        return RowKept;
    row.capEnable = true;
    setBusCapEnable(row);
    return RowChanged;
}

void judgeSingleMember(JEX::SignalItem &member, JEX::SignalItem &group, SignalListIndex &others)
{
    judgeSingleRow(member, others);
    if (member.capEnable)
        group.capEnable = true;
}

// False when a new bus takes the member over. New single entries of its name in front of that bus are
// dropped, and the group is enabled for them.
bool keepsMember(const JEX::SignalItem &member, JEX::SignalItem &group, SignalListIndex &buses)
{
    const int holder = member.isSingle() ? buses.firstHolding(member.name) : int(SignalListIndex::noRank);
    for (int same : buses.named(member.name)) {
        if (same < holder && buses.isSingle(same)) {
            buses.remove(same);
            group.capEnable = true;
        }
    }
    return holder == SignalListIndex::noRank;
}

} // namespace

RowVerdict judgeSingleRow(JEX::SignalItem &row, SignalListIndex &others)
{
    const int same = others.firstNamed(row.name);
    if (same == SignalListIndex::noRank)
        return RowKept;
    others.remove(same);
    row.capEnable = true;
    return RowChanged;
}

RowVerdict judgeBusRow(JEX::SignalItem &row, SignalListIndex &buses)
{
    return row.isSingle() ? judgeBitRow(row, buses) : judgeWholeBusRow(row, buses);
}

RowVerdict judgeGroupRow(JEX::SignalItem &row, SignalListIndex &others, SignalListIndex &buses)
{
    const JEX::SignalItem before = row;
    QList<JEX::SignalItem> kept;
    for (JEX::SignalItem &member : row.members) {
        if (member.isNet())
            judgeSingleMember(member, row, others);
        else if (!keepsMember(member, row, buses))
            continue;
        kept.append(member);
    }
    if (kept.size() == before.members.size())
        return row == before ? RowKept : RowChanged;
    if (kept.size() == 1) {
        buses.prepend(kept.first());
    } else if (!kept.isEmpty()) {
        row.name = groupNameForWidth(row.name, kept.size());
        row.members = kept;
        buses.prepend(row);
    }
    return RowGone;
}

RowVerdict judgeRow(JEX::SignalItem &row, SignalListIndex &others, SignalListIndex &buses)
{
    if (row.isNet())
        return judgeSingleRow(row, others);
    return row.isGroup() ? judgeGroupRow(row, others, buses) : judgeBusRow(row, buses);
}

} // namespace RTLJEX
