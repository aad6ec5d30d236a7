#include "insertion/netlistproof.h"

#include <algorithm>

namespace Insertion {
namespace {

const int maxDifferences = 20;
const int maxRounds = 24; // of colouring; chains of gates without names are shorter

quint64 mixed(quint64 a, quint64 b)
{
    quint64 x = a ^ (b + 0x9e3779b97f4a7c15ull + (a << 6) + (a >> 2));
    x ^= x >> 33;
    x *= 0xff51afd7ed558ccdull;
    return x ^ (x >> 29);
}

quint64 hashOf(const QByteArray &text)
{
    return mixed(qHash(text, 17), qHash(text, 4711));
}

// Not of the variables of a function, which Yosys names by the place of the call in the file that it reads.
bool isUserName(const QByteArray &name)
{
    return name.startsWith('\\') && !name.contains("$func$");
}

// "$add$design.v:9$7" before "$add$design.v:10$8": in the order in which they were made.
bool isBefore(const QByteArray &a, const QByteArray &b)
{
    int i = 0, j = 0;
    const auto number = [](const QByteArray &text, int &at) {
        quint64 value = 0;
        while (at < text.size() && isdigit(uchar(text.at(at))))
            value = value * 10 + quint64(text.at(at++) - '0');
        return value;
    };
    while (i < a.size() && j < b.size()) {
        if (isdigit(uchar(a.at(i))) && isdigit(uchar(b.at(j)))) {
            const quint64 left = number(a, i), right = number(b, j);
            if (left != right)
                return left < right;
        } else if (a.at(i) != b.at(j)) {
            return a.at(i) < b.at(j);
        } else {
            ++i;
            ++j;
        }
    }
    return a.size() - i < b.size() - j;
}

QString shown(const QByteArray &name)
{
    return QString::fromUtf8(name.startsWith('\\') ? name.mid(1) : name);
}

} // namespace

bool Added::isAdded(const QByteArray &name) const
{
    return name.startsWith('\\' + prefix + '_') || name.contains('.' + prefix + '_');
}

NetlistProof::NetlistProof(const FlatNetlist &original, const FlatNetlist &tapped, const Added &added)
    : m_original(original),
      m_tapped(tapped),
      m_added(added),
      m_tappedOf(size_t(original.bitCount()), -1),
      m_originalOf(size_t(tapped.bitCount()), -1)
{
    for (int bit = 0; bit < original.bitCount(); ++bit)
        m_netCount += original.netOf(bit) == bit;
}

QStringList NetlistProof::run()
{
    pairWires();
    if (m_original.memories() != m_tapped.memories())
        report("The memories are not those of the original.");
    pairCells();
    compareConstants();
    checkCores();
    return m_differences;
}

void NetlistProof::report(const QString &sentence)
{
    if (m_differences.size() < maxDifferences && !m_differences.contains(sentence))
        m_differences << sentence;
}

void NetlistProof::pairWires()
{
    for (auto it = m_original.wires().begin(); it != m_original.wires().end(); ++it) {
        if (!isUserName(it.key()))
            continue;
        const auto found = m_tapped.wires().constFind(it.key());
        if (found == m_tapped.wires().constEnd() || found->width != it->width || found->port != it->port) {
            report("Net " + shown(it.key()) +
                   " of the original is missing, or has another width or direction.");
            continue;
        }
        if (found->init != it->init)
            report("Net " + shown(it.key()) + " has another initial value.");
        for (int bit = 0; bit < it->width; ++bit)
            pairNets(m_original.netOf(it->firstBit + bit), m_tapped.netOf(found->firstBit + bit), it.key());
    }
    for (auto it = m_tapped.wires().begin(); it != m_tapped.wires().end(); ++it) {
        if (isUserName(it.key()) && !m_added.isAdded(it.key()) && !m_original.wires().contains(it.key()))
            report("Net " + shown(it.key()) + " is not in the original.");
    }
}

void NetlistProof::pairNets(int original, int tapped, const QByteArray &where)
{
    int &there = m_tappedOf[size_t(original)];
    int &back = m_originalOf[size_t(tapped)];
    if ((there >= 0 && there != tapped) || (back >= 0 && back != original))
        report("What is connected at " + shown(where) + " is not what is connected there in the original.");
    there = tapped;
    back = original;
}

// Paired nets get the same colour, all others none.
NetlistProof::Colors NetlistProof::namedColors(const FlatNetlist &netlist, bool isOriginal) const
{
    Colors colors(size_t(netlist.bitCount()));
    for (size_t net = 0; net < colors.size(); ++net) {
        const int number = isOriginal ? (m_tappedOf[net] >= 0 ? int(net) : -1) : m_originalOf[net];
        colors[net] = number >= 0 ? mixed(quint64(number) + 1, 99) : 0;
    }
    return colors;
}

// By type, parameters and what is connected; wires without names get theirs of what they are connected to,
// from round to round.
std::vector<quint64> NetlistProof::cellColors(const FlatNetlist &netlist, Colors nets) const
{
    const auto &cells = netlist.cells();
    std::vector<quint64> base, colors(cells.size());
    for (const FlatNetlist::Cell &cell : cells)
        base.push_back(mixed(hashOf(netlist.text(cell.type)), hashOf(netlist.text(cell.parameters))));
    std::vector<bool> isNamed(nets.size());
    for (size_t net = 0; net < nets.size(); ++net)
        isNamed[net] = nets[net] != 0;
    std::vector<bool> isSettled(cells.size()); // has no unnamed wire, so its colour stays
    for (int round = 0; round < maxRounds; ++round) {
        Colors sums(nets.size());
        for (size_t i = 0; i < cells.size(); ++i) {
            if (isSettled[i])
                continue;
            quint64 color = base[i];
            bool anyUnnamed = false;
            for (const FlatNetlist::Port &port : cells[i].ports) {
                color = mixed(color, hashOf(netlist.text(port.name)));
                for (int bit = 0; bit < port.width; ++bit) {
                    const int net = netlist.netOf(netlist.cellBit(port, bit));
                    color = mixed(color, net < 0 ? quint64(-net) : nets[size_t(net)]);
                    anyUnnamed = anyUnnamed || (net >= 0 && !isNamed[size_t(net)]);
                }
            }
            isSettled[i] = !anyUnnamed;
            colors[i] = color;
            for (const FlatNetlist::Port &port : cells[i].ports) {
                for (int bit = 0; anyUnnamed && bit < port.width; ++bit) {
                    const int net = netlist.netOf(netlist.cellBit(port, bit));
                    if (net >= 0)
                        sums[size_t(net)] +=
                            mixed(color, mixed(hashOf(netlist.text(port.name)), quint64(bit)));
                }
            }
        }
        bool anyChange = false;
        for (size_t net = 0; net < nets.size(); ++net) {
            if (isNamed[net] || sums[net] == 0)
                continue;
            anyChange = true;
            nets[net] = mixed(nets[net], sums[net]);
        }
        if (!anyChange)
            break;
    }
    return colors;
}

void NetlistProof::pairCells()
{
    const std::vector<quint64> left = cellColors(m_original, namedColors(m_original, true));
    const std::vector<quint64> right = cellColors(m_tapped, namedColors(m_tapped, false));
    const int cores = [this] {
        for (size_t i = 0; i < m_tapped.cells().size(); ++i) {
            if (m_tapped.text(m_tapped.cells()[i].type) == m_added.coresType)
                return int(i);
        }
        return -1;
    }();
    const auto sorted = [](const FlatNetlist &netlist, const std::vector<quint64> &colors, int without) {
        std::vector<int> order;
        for (size_t i = 0; i < colors.size(); ++i) {
            if (int(i) != without)
                order.push_back(int(i));
        }
        std::sort(order.begin(), order.end(), [&](int a, int b) {
            if (colors[size_t(a)] != colors[size_t(b)])
                return colors[size_t(a)] < colors[size_t(b)];
            return isBefore(netlist.cells()[size_t(a)].name, netlist.cells()[size_t(b)].name);
        });
        return order;
    };
    const std::vector<int> ours = sorted(m_original, left, -1), theirs = sorted(m_tapped, right, cores);
    size_t i = 0, j = 0;
    while (i < ours.size() || j < theirs.size()) {
        const bool anyOurs = i < ours.size(), anyTheirs = j < theirs.size();
        const quint64 a = anyOurs ? left[size_t(ours[i])] : 0, b = anyTheirs ? right[size_t(theirs[j])] : 0;
        if (anyOurs && anyTheirs && a == b)
            comparePair(m_original.cells()[size_t(ours[i++])], m_tapped.cells()[size_t(theirs[j++])]);
        else if (anyOurs && (!anyTheirs || a < b))
            report("Cell " + shown(m_original.cells()[size_t(ours[i++])].name) +
                   " of the original is missing, or is another one, or is connected otherwise.");
        else
            report("Cell " + shown(m_tapped.cells()[size_t(theirs[j++])].name) + " is not in the original.");
    }
}

void NetlistProof::comparePair(const FlatNetlist::Cell &original, const FlatNetlist::Cell &tapped)
{
    bool isSame = m_original.text(original.type) == m_tapped.text(tapped.type) &&
                  m_original.text(original.parameters) == m_tapped.text(tapped.parameters) &&
                  original.ports.size() == tapped.ports.size();
    for (size_t i = 0; isSame && i < original.ports.size(); ++i) {
        const FlatNetlist::Port &ours = original.ports[i], &theirs = tapped.ports[i];
        isSame = m_original.text(ours.name) == m_tapped.text(theirs.name) && ours.width == theirs.width;
        for (int bit = 0; isSame && bit < ours.width; ++bit) {
            const int a = m_original.netOf(m_original.cellBit(ours, bit));
            const int b = m_tapped.netOf(m_tapped.cellBit(theirs, bit));
            isSame = a < 0 || b < 0 ? a == b : true;
            if (a >= 0 && b >= 0)
                pairNets(a, b, original.name);
        }
    }
    if (!isSame)
        report("Cell " + shown(original.name) + " is not as in the original.");
}

void NetlistProof::compareConstants()
{
    for (auto it = m_original.wires().begin(); it != m_original.wires().end(); ++it) {
        for (int bit = 0; bit < it->width; ++bit) {
            const int net = m_original.netOf(it->firstBit + bit), there = m_tappedOf[size_t(net)];
            if (there >= 0 && m_original.constantsOf(net) != m_tapped.constantsOf(there))
                report("Net " + shown(it.key()) + " is tied to other constants than in the original.");
        }
    }
}

void NetlistProof::checkCores()
{
    int count = 0;
    for (const FlatNetlist::Cell &cell : m_tapped.cells()) {
        if (m_tapped.text(cell.type) != m_added.coresType)
            continue;
        ++count;
        for (const FlatNetlist::Port &port : cell.ports) {
            for (int bit = 0; bit < port.width; ++bit) {
                const int net = m_tapped.netOf(m_tapped.cellBit(port, bit));
                const bool reads = m_added.coresInputs.contains(m_tapped.text(port.name));
                if (!reads && (net < 0 || m_originalOf[size_t(net)] >= 0))
                    report("The analyzer drives a net of the design at its port " +
                           shown(m_tapped.text(port.name)) + '.');
            }
        }
    }
    if (count != 1)
        report("The analyzer is " + QString::number(count) + " times in the design.");
}

} // namespace Insertion
