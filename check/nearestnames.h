#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

// What a design offers in place of a name that it does not have.
struct NearNames
{
    QString moved; // the one net of the same short name under another instance path; empty: none, or several
    QStringList names; // full names, the best first, mostly at most 3; `moved` leads them
};

// One answer for each of the full names, "top/u0/state[2:0]". Names of the same instance come first, when
// the short name is similar or the width the same, then others of nearly the same short name by how near
// their path is. A bus or bit for which nothing better is found gets all of its width, unless they are many.
// What is excluded from probing is not offered. Looks at each declaration of a module once, however many
// instances it has, and gives up on similar names when very many are missing.
QList<NearNames> nearestNames(const QUARRY::RtlNetlist &netlist, const QStringList &missing);

// Least number of letters to insert, drop or change, case aside; limit + 1 when it is more than the limit.
int editDistance(const QString &a, const QString &b, int limit);

} // namespace RTLJEX
