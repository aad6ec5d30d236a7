#pragma once

#include <QList>
#include <QStringList>

namespace Cli {

// A row of an older list and what became of it in a newer one; -1 where there is none.
struct RowPair
{
    int from = -1;
    int to = -1;
    bool isMoved = false; // relative to most others
};

// Finds each row by its name, and pairs what is left over between the same neighbours when it has the same
// width or base. In the order of the newer list, with what was removed where it stood.
QList<RowPair> pairRows(const QStringList &older, const QStringList &newer);

} // namespace Cli
