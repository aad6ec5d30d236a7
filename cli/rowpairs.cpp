#include "cli/rowpairs.h"

#include <QHash>

#include <algorithm>
#include <vector>

#include "check/netname.h"

namespace Cli {
namespace {

using Positions = std::vector<int>;

// For each row of the newer list its row in the older one, or -1; the first of equal names for the first.
Positions matchNames(const QStringList &older, const QStringList &newer)
{
    QHash<QString, QList<int>> places;
    for (int i = 0; i < older.size(); ++i)
        places[older.at(i)].append(i);
    Positions match;
    for (const QString &name : newer) {
        QList<int> &left = places[name];
        match.push_back(left.isEmpty() ? -1 : left.takeFirst());
    }
    return match;
}

// Marks the rows of the newer list that are in order with as many others as possible.
std::vector<bool> inOrder(const Positions &match)
{
    std::vector<int> ends;                       // by length: the row that ends the best chain so far
    std::vector<int> previous(match.size(), -1); // in the chain of each row
    for (size_t i = 0; i < match.size(); ++i) {
        if (match[i] < 0)
            continue;
        const auto place = std::lower_bound(ends.begin(), ends.end(), match[i], [&](int row, int position) {
            return match[size_t(row)] < position;
        });
        previous[i] = place == ends.begin() ? -1 : *(place - 1);
        if (place == ends.end())
            ends.push_back(int(i));
        else
            *place = int(i);
    }
    std::vector<bool> marks(match.size());
    for (int row = ends.empty() ? -1 : ends.back(); row >= 0; row = previous[size_t(row)])
        marks[size_t(row)] = true;
    return marks;
}

bool areAlike(const QString &a, const QString &b)
{
    const RTLJEX::NetName first(a);
    const RTLJEX::NetName second(b);
    const bool sameWidth =
        first.isBus() == second.isBus() &&
        QUARRY::rangeWidth(first.left, first.right) == QUARRY::rangeWidth(second.left, second.right);
    return sameWidth || first.fullBase() == second.fullBase();
}

} // namespace

QList<RowPair> pairRows(const QStringList &older, const QStringList &newer)
{
    const Positions match = matchNames(older, newer);
    const std::vector<bool> fixed = inOrder(match);
    enum Fate { Gone, Moved, Fixed };
    std::vector<Fate> fates(size_t(older.size()), Gone);
    for (size_t to = 0; to < match.size(); ++to) {
        if (match[to] >= 0)
            fates[size_t(match[to])] = fixed[to] ? Fixed : Moved;
    }
    QList<RowPair> pairs;
    int next = 0; // of the older list
    const auto addRemovedUntil = [&](int end) {
        for (; next < end; ++next) {
            if (fates[size_t(next)] == Gone)
                pairs.append({next, -1, false});
        }
    };
    for (int to = 0; to < newer.size(); ++to) {
        const int from = match[size_t(to)];
        if (from >= 0) {
            if (fixed[size_t(to)])
                addRemovedUntil(from);
            pairs.append({from, to, !fixed[size_t(to)]});
            next = fixed[size_t(to)] ? from + 1 : next;
            continue;
        }
        while (next < older.size() && fates[size_t(next)] == Moved)
            ++next;
        const bool takesPlace =
            next < older.size() && fates[size_t(next)] == Gone && areAlike(older.at(next), newer.at(to));
        pairs.append({takesPlace ? next++ : -1, to, false});
    }
    addRemovedUntil(older.size());
    return pairs;
}

} // namespace Cli
