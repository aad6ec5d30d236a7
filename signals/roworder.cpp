#include "signals/roworder.h"

#include <QSet>

namespace RTLJEX {

QList<int> enabledFirstOrder(const QList<bool> &enabled)
{
    QList<int> order;
    for (bool wanted : {true, false}) {
        for (int row = 0; row < enabled.size(); ++row) {
            if (enabled.at(row) == wanted)
                order.append(row);
        }
    }
    return order;
}

QList<int> orderAfterMove(int count, const QList<int> &moved, int before)
{
    QSet<int> leaving;
    for (int row : moved)
        leaving.insert(row);
    QList<int> order;
    for (int row = 0; row <= count; ++row) {
        if (row == before)
            order += moved;
        if (row < count && !leaving.contains(row))
            order.append(row);
    }
    return order;
}

QList<int> orderAfterEnabling(QList<bool> enabled, const QList<int> &toEnable)
{
    QList<QList<int>> inFront; // by row: those put in front of it
    for (int row = 0; row < enabled.size(); ++row)
        inFront.append(QList<int>());
    QSet<int> leaving;
    int firstDisabled = 0;
    for (int row : toEnable) {
        while (enabled.at(firstDisabled)) // ends at `row` at the latest
            ++firstDisabled;
        inFront[firstDisabled].append(row);
        leaving.insert(row);
        enabled[row] = true;
    }
    QList<int> order;
    for (int row = 0; row < enabled.size(); ++row) {
        order += inFront.at(row);
        if (!leaving.contains(row))
            order.append(row);
    }
    return order;
}

int dropRow(int row, int y, int top, int height)
{
    return 2 * (y - top) < height ? row : row + 1;
}

} // namespace RTLJEX
