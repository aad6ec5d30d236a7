#include "check/nearestnames.h"

#include <QHash>

#include <algorithm>
#include <bitset>
#include <map>
#include <tuple>
#include <vector>

#include "check/netname.h"
#include "model/netlist/rtlmodule.h"

using QUARRY::Hierachy;
using QUARRY::RtlModule;

namespace RTLJEX {

namespace {

const size_t nameLimit = 3;

// Buses of a width that may be offered on the strength of that alone.
const size_t alikeLimit = 8;

// Letters in a row that make two names similar: "framing_error", "frame_fault".
const int runLimit = 4;

// Work that looking for similar names may take: about a second, which only very many missing names in
// a very large design come to. The same names elsewhere are found in any case.
const int patience = 40 * 1000 * 1000;
const int comparisonWork = 32;
const int lettersPerWork = 16; // pairs of letters that an edit distance looks at

// The less, the better: whether it is of another instance, letters that differ (another width weighs as half
// of the name), whether the width differs, how far its path is, and the order of the design.
typedef std::tuple<bool, int, bool, int, int> Rank;

struct Candidate
{
    Rank rank;
    const Hierachy *node;
    quint32 entry;
};

bool operator<(const Candidate &a, const Candidate &b)
{
    return a.rank < b.rank;
}

struct Wanted
{
    NetName name;
    const Hierachy *node = nullptr; // its instance, when the design still has it
    std::vector<Candidate> best;    // sorted, at most `limit`
    size_t limit = nameLimit;
    std::vector<quint32> alike; // entries of the instance with the same width only, when no other will do
    int sameCount = 0;          // nets of the same short name elsewhere
    QString same;
};

// A short name without its range that one or more of the missing have.
struct Base
{
    QString text;
    quint64 letters; // one bit for each of its letters
    std::vector<size_t> wanted;
};

quint64 lettersOf(const QChar *text, int length)
{
    quint64 letters = 0;
    for (int i = 0; i < length; ++i)
        letters |= quint64(1) << (text[i].toLower().unicode() % 64);
    return letters;
}

// Letters that may differ in a name of another instance, where similar names abound.
int limitElsewhere(int length)
{
    return qMin(length / 4, 3);
}

// Calls visit(run) with each run of letters of the name, case aside, as one number; until it says true.
template <typename Visit>
bool visitRuns(const QString &name, Visit visit)
{
    quint64 run = 0; // its letters fill the number: older ones fall out
    for (int i = 0; i < name.size(); ++i) {
        run = run << 16 | name.at(i).toCaseFolded().unicode();
        if (i + 1 >= runLimit && visit(run))
            return true;
    }
    return false;
}

std::vector<quint64> sortedRuns(const QString &name)
{
    std::vector<quint64> runs;
    visitRuns(name, [&runs](quint64 run) {
        runs.push_back(run);
        return false;
    });
    std::sort(runs.begin(), runs.end());
    return runs;
}

bool isExcluded(const Hierachy *node, const RtlModule::Entry &entry)
{
    return entry.isBus ? node->buses.at(int(entry.ordinal))->excluded
                       : node->nets.at(int(entry.ordinal))->excluded;
}

// The length of what two paths do not share at their ends.
int pathDistance(const QString &a, const QString &b)
{
    const int shorter = qMin(a.size(), b.size());
    int common = 0;
    while (common < shorter && a.at(common) == b.at(common))
        ++common;
    int tail = 0;
    while (tail < shorter - common && a.at(a.size() - 1 - tail) == b.at(b.size() - 1 - tail))
        ++tail;
    return qMax(a.size(), b.size()) - common - tail;
}

class Search
{
public:
    Search(const QUARRY::RtlNetlist &netlist, const QStringList &missing)
    {
        for (const QString &name : missing) {
            Wanted wanted;
            wanted.name = NetName(name);
            addBase(wanted.name.base);
            m_bases[size_t(m_baseNumbers.value(wanted.name.base))].wanted.push_back(m_wanted.size());
            m_wantedByPath[wanted.name.path].append(int(m_wanted.size()));
            m_wanted.push_back(wanted);
        }
        if (netlist.topHierarchy)
            visit(netlist.topHierarchy);
    }

    QList<NearNames> run()
    {
        for (Wanted &wanted : m_wanted) {
            if (wanted.node)
                lookInside(wanted);
        }
        for (const RtlModule *module : m_modules)
            lookElsewhere(*module);
        for (Wanted &wanted : m_wanted) {
            if (wanted.sameCount != 1)
                addAlike(wanted);
        }
        QList<NearNames> result;
        for (const Wanted &wanted : m_wanted)
            result.append(resultOf(wanted));
        return result;
    }

private:
    void addBase(const QString &text)
    {
        if (m_baseNumbers.contains(text))
            return;
        const int number = int(m_bases.size());
        m_baseNumbers.insert(text, number);
        m_bases.push_back({text, lettersOf(text.constData(), text.size()), {}});
        const int limit = limitElsewhere(text.size());
        for (int length = text.size() - limit; length <= text.size() + limit; ++length)
            m_basesByLength[length].push_back(number);
    }

    void visit(const Hierachy *node)
    {
        for (int number : m_wantedByPath.value(node->fullPathName()))
            m_wanted[size_t(number)].node = node;
        const RtlModule *module = &node->declarations();
        if (!m_instances.contains(module))
            m_modules.push_back(module);
        m_instances[module].append(node);
        for (const Hierachy *child : node->children)
            visit(child);
    }

    static void add(Wanted &wanted, bool elsewhere, int distance, const Hierachy *node, quint32 number,
                    int order)
    {
        const RtlModule::Entry &entry = node->declarations().entries()[number];
        if (isExcluded(node, entry))
            return;
        const int far = elsewhere ? pathDistance(wanted.name.path, node->fullPathName()) : 0;
        const Candidate candidate = {Rank(elsewhere, distance, !wanted.name.hasShapeOf(entry), far, order),
                                     node, number};
        const auto place = std::upper_bound(wanted.best.begin(), wanted.best.end(), candidate);
        wanted.best.insert(place, candidate);
        if (wanted.best.size() > wanted.limit)
            wanted.best.pop_back();
    }

    void lookInside(Wanted &wanted)
    {
        const RtlModule &module = wanted.node->declarations();
        const QString base = wanted.name.base;
        const std::vector<quint64> runs = sortedRuns(base);
        bool isSure = wanted.name.form == NetName::Plain;
        for (quint32 i = 0; i < module.entries().size() && spend(comparisonWork); ++i) {
            const RtlModule::Entry &entry = module.entries()[i];
            const QString name = QString::fromRawData(module.nameOf(entry), int(entry.textLength));
            const bool hasShape = wanted.name.hasShapeOf(entry) && !isExcluded(wanted.node, entry);
            const int half = qMax(1, qMax(name.size(), base.size()) / 2);
            const int limit = isSimilar(name, base, runs) ? qMax(name.size(), base.size()) : half;
            const int distance = distanceOf(base, name, limit);
            if (distance <= limit)
                add(wanted, false, distance + (hasShape ? 0 : half), wanted.node, i, int(i));
            else if (hasShape && wanted.alike.size() <= alikeLimit)
                wanted.alike.push_back(i);
            isSure = isSure || (hasShape && distance <= half);
        }
        if (isSure || wanted.alike.size() > alikeLimit || m_patience <= 0)
            wanted.alike.clear();
    }

    // Whether one name holds the other, or they share a part.
    static bool isSimilar(const QString &a, const QString &b, const std::vector<quint64> &runsOfB)
    {
        const auto isOfB = [&runsOfB](quint64 run) {
            return std::binary_search(runsOfB.begin(), runsOfB.end(), run);
        };
        return qMin(a.size(), b.size()) >= 2 && (a.contains(b, Qt::CaseInsensitive) ||
                                                 b.contains(a, Qt::CaseInsensitive) || visitRuns(a, isOfB));
    }

    // A register that got quite another name: all buses of its width, where they are few.
    static void addAlike(Wanted &wanted)
    {
        const auto isInside = [](const Candidate &candidate) { return !std::get<0>(candidate.rank); };
        const auto near = std::count_if(wanted.best.begin(), wanted.best.end(), isInside);
        wanted.limit = qMax(nameLimit, size_t(near) + wanted.alike.size());
        for (quint32 number : wanted.alike) {
            const RtlModule &module = wanted.node->declarations();
            const RtlModule::Entry &entry = module.entries()[number];
            const QString name = QString::fromRawData(module.nameOf(entry), int(entry.textLength));
            const int distance = editDistance(wanted.name.base, name, name.size() + wanted.name.base.size());
            add(wanted, false, distance, wanted.node, number, int(number));
        }
    }

    void lookElsewhere(const RtlModule &module)
    {
        for (quint32 i = 0; i < module.entries().size(); ++i) {
            const RtlModule::Entry &entry = module.entries()[i];
            const auto bases = m_basesByLength.find(int(entry.textLength));
            if (bases == m_basesByLength.end())
                continue;
            const QString name = QString::fromRawData(module.nameOf(entry), int(entry.textLength));
            const int same = m_baseNumbers.value(name, -1);
            if (same >= 0)
                addInstances(m_bases[size_t(same)], 0, module, i);
            const quint64 letters = lettersOf(name.constData(), name.size());
            for (int number : bases->second) {
                if (!spend(1))
                    break;
                const Base &base = m_bases[size_t(number)];
                const int limit = limitElsewhere(base.text.size());
                // Each letter that is changed makes at most two differ.
                if (number == same || int(std::bitset<64>(letters ^ base.letters).count()) > 2 * limit)
                    continue;
                const int distance = qMax(1, distanceOf(base.text, name, limit));
                if (distance <= limit)
                    addInstances(base, distance, module, i);
            }
        }
    }

    // False when so much was compared that the user should not wait for more of it.
    bool spend(qint64 work)
    {
        m_patience -= work;
        return m_patience > 0;
    }

    int distanceOf(const QString &a, const QString &b, int limit)
    {
        const qint64 work = comparisonWork + qint64(a.size()) * b.size() / lettersPerWork;
        return spend(work) ? editDistance(a, b, limit) : limit + 1;
    }

    void addInstances(const Base &base, int distance, const RtlModule &module, quint32 number)
    {
        const RtlModule::Entry &entry = module.entries()[number];
        for (const Hierachy *node : m_instances.value(&module)) {
            ++m_order;
            for (size_t index : base.wanted) {
                Wanted &wanted = m_wanted[index];
                if (node == wanted.node)
                    continue;
                if (spend(1))
                    add(wanted, true, distance, node, number, m_order);
                if (distance == 0 && wanted.name.isPartOf(entry) && !isExcluded(node, entry)) {
                    ++wanted.sameCount;
                    wanted.same = wanted.name.in(*node, entry);
                }
            }
        }
    }

    static NearNames resultOf(const Wanted &wanted)
    {
        NearNames result;
        if (wanted.sameCount == 1)
            result.names.append(result.moved = wanted.same);
        for (const Candidate &candidate : wanted.best) {
            const QString name =
                wanted.name.in(*candidate.node, candidate.node->declarations().entries()[candidate.entry]);
            if (name != result.moved && result.names.size() < int(wanted.limit))
                result.names.append(name);
        }
        return result;
    }

    std::vector<Wanted> m_wanted;
    QHash<QString, QList<int>> m_wantedByPath;
    std::vector<Base> m_bases;
    QHash<QString, int> m_baseNumbers;
    std::map<int, std::vector<int>> m_basesByLength; // of the names that may be near them
    std::vector<const RtlModule *> m_modules;        // in the order of the design
    QHash<const RtlModule *, QList<const Hierachy *>> m_instances;
    int m_order = 0;
    qint64 m_patience = patience;
};

} // namespace

int editDistance(const QString &a, const QString &b, int limit)
{
    if (qAbs(a.size() - b.size()) > limit)
        return limit + 1;
    std::vector<int> row(size_t(b.size()) + 1);
    for (size_t j = 0; j < row.size(); ++j)
        row[j] = int(j);
    for (int i = 0; i < a.size(); ++i) {
        const QChar letter = a.at(i).toLower();
        int diagonal = row[0]; // the value left above
        int least = row[0] = i + 1;
        for (int j = 0; j < b.size(); ++j) {
            const int change = diagonal + (letter == b.at(j).toLower() ? 0 : 1);
            diagonal = row[size_t(j) + 1];
            row[size_t(j) + 1] = qMin(change, 1 + qMin(diagonal, row[size_t(j)]));
            least = qMin(least, row[size_t(j) + 1]);
        }
        if (least > limit)
            return limit + 1;
    }
    return qMin(row.back(), limit + 1);
}

QList<NearNames> nearestNames(const QUARRY::RtlNetlist &netlist, const QStringList &missing)
{
    return missing.isEmpty() ? QList<NearNames>() : Search(netlist, missing).run();
}

} // namespace RTLJEX
