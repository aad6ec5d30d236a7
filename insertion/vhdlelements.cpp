#include "insertion/vhdlelements.h"

#include <QRegularExpression>
#include <QStringList>

#include <vector>

#include "model/netlist/rtlmodule.h"

namespace Insertion {
namespace {

struct Leaf
{
    QStringList steps; // "[2]", ".valid"
    int width = 1;
    int low = 0;
    // Of the record member that it is in, where the signal is a record.
    int memberLow = 0;
    int memberWidth = 0;
};

QString nameOf(const QUARRY::RtlModule &declarations, quint32 entry)
{
    const QUARRY::RtlModule::Entry &found = declarations.entries()[entry];
    return QString(declarations.nameOf(found), int(found.textLength));
}

QString baseOf(const QString &name)
{
    return name.left(name.indexOf(QRegularExpression("[.\\[]")));
}

QStringList stepsOf(const QString &path)
{
    static const QRegularExpression step("\\.[^.\\[]+|\\[-?\\d+\\]");
    QStringList steps;
    for (auto found = step.globalMatch(path); found.hasNext();)
        steps << found.next().captured();
    return steps;
}

// The first member of a record has the lowest bits, the first element of an array the highest. Gives the
// width of all these leaves, which are alike in the steps before that one.
int place(std::vector<Leaf> &leaves, size_t begin, size_t end, int step, int low)
{
    if (end - begin == 1 && leaves[begin].steps.size() == step) {
        leaves[begin].low = low;
        return leaves[begin].width;
    }
    if (leaves[begin].steps.size() <= step)
        return -1;
    std::vector<size_t> starts;
    for (size_t i = begin; i < end; ++i) {
        if (i == begin || leaves[i].steps.value(step) != leaves[i - 1].steps.value(step))
            starts.push_back(i);
    }
    starts.push_back(end);
    const bool isArray = leaves[begin].steps.at(step).startsWith('[');
    const size_t groups = starts.size() - 1;
    int width = 0;
    for (size_t i = 0; i < groups; ++i) {
        const size_t group = isArray ? groups - 1 - i : i;
        const int part = place(leaves, starts[group], starts[group + 1], step + 1, low + width);
        if (part < 0)
            return -1;
        for (size_t leaf = starts[group]; step == 0 && !isArray && leaf < starts[group + 1]; ++leaf) {
            leaves[leaf].memberLow = width;
            leaves[leaf].memberWidth = part;
        }
        width += part;
    }
    return width;
}

} // namespace

QList<WholeWire> wholeWires(const QUARRY::RtlModule &declarations, quint32 entry)
{
    const QString name = nameOf(declarations, entry), base = baseOf(name);
    if (base == name || base.isEmpty())
        return {};
    quint32 first = entry, end = entry + 1;
    const auto isBeside = [&](quint32 number) {
        const QString other = nameOf(declarations, number);
        return other != base && baseOf(other) == base;
    };
    while (first > 0 && isBeside(first - 1))
        --first;
    while (end < declarations.entries().size() && isBeside(end))
        ++end;
    std::vector<Leaf> leaves;
    for (quint32 number = first; number < end; ++number) {
        Leaf leaf;
        leaf.steps = stepsOf(nameOf(declarations, number).mid(base.size()));
        leaf.width = declarations.entries()[number].width();
        leaves.push_back(leaf);
    }
    const int width = place(leaves, 0, leaves.size(), 0, 0);
    const Leaf &own = leaves[entry - first];
    if (width < 0)
        return {};
    QList<WholeWire> wires{{base, width, own.low}};
    if (own.memberWidth > 0)
        wires << WholeWire{base + '_' + own.steps.first().mid(1), own.memberWidth, own.low - own.memberLow};
    return wires;
}

} // namespace Insertion
