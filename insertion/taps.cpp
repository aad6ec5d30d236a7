#include "insertion/taps.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

#include "host/designmanager.h"
#include "insertion/rtlildesign.h"
#include "insertion/vhdlrounds.h"
#include "model/netlist/rtlmodule.h"

namespace Insertion {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Insertion::Taps)
};

QByteArray userName(const QStringList &words)
{
    return '\\' + words.join('.').toUtf8();
}

// "mem" of its element "mem[3][0]"
QString arrayOf(const QString &name)
{
    return name.endsWith(']') ? name.section('[', 0, 0) : name;
}

// "genblk2" and "genblk2[0]", which is another "genblk" for another tool.
bool isUnnamedScope(const QString &name)
{
    static const QRegularExpression pattern("^genblk\\d+(\\[-?\\d+\\])?$");
    return pattern.match(name).hasMatch();
}

// The name as a pattern in which the numbers of unnamed scopes are open.
QRegularExpression openName(const QStringList &words)
{
    QStringList parts;
    for (const QString &word : words) {
        QString part = QRegularExpression::escape(word);
        if (isUnnamedScope(word))
            part.replace(QRegularExpression("^genblk\\d+"), "genblk\\d+");
        parts << part;
    }
    return QRegularExpression("^\\\\" + parts.join("\\.") + '$');
}

// Looks for a tap below one module of the text.
class Search
{
public:
    Search(RtlilDesign &design, VhdlRounds &rounds, Tap &tap) : m_design(design), m_rounds(rounds), m_tap(tap)
    {
    }

    bool find(const QByteArray &module, int from)
    {
        const RtlilModule *body = m_design.module(module);
        if (!body)
            return false;
        const QStringList &path = m_tap.path;
        for (int end = path.size(); end > from; --end) {
            for (const QByteArray &cell : namesIn(body->cells, path.mid(from, end - from), from)) {
                m_tap.cells << cell;
                m_deepest = qMax(m_deepest, end);
                if (find(body->cells.value(cell).type, end))
                    return true;
                m_tap.cells.removeLast();
            }
        }
        for (const WholeWire &whole : m_tap.wholes) {
            if (findWire(*body, path.mid(from) << whole.name, from, whole.width)) {
                m_tap.low = whole.low;
                return m_tap.isPart = true;
            }
        }
        return findWire(*body, path.mid(from) << m_tap.shortName, from, m_tap.width());
    }

    int deepest() const { return m_deepest; } // how much of the path was found
    bool isMemory() const { return m_isMemory; }
    int foundWidth() const { return m_foundWidth; }

private:
    // Exactly so; or, where VHDL or an unnamed scope is on the way, the one that it must be.
    template <class Map>
    QList<QByteArray> namesIn(const Map &map, const QStringList &words, int from) const
    {
        if (map.contains(userName(words)))
            return {userName(words)};
        QList<QByteArray> found;
        const QString key = m_tap.isVhdl ? m_rounds.key(m_tap, words, from) : QString();
        if (!key.isEmpty() && map.contains('\\' + key.toUtf8()))
            return {'\\' + key.toUtf8()};
        if (!std::any_of(words.begin(), words.end(), isUnnamedScope))
            return found;
        const QRegularExpression pattern = openName(words);
        for (auto it = map.begin(); it != map.end(); ++it) {
            if (pattern.match(QString::fromUtf8(it.key())).hasMatch())
                found << it.key();
        }
        return found;
    }

    bool findWire(const RtlilModule &body, const QStringList &words, int from, int width)
    {
        const QList<QByteArray> found = namesIn(body.widths, words, from);
        m_isMemory = m_isMemory || body.memories.contains(
                                       userName(words.mid(0, words.size() - 1) << arrayOf(words.last())));
        // Several: nothing says which of the unnamed scopes it is.
        if (found.size() != 1)
            return false;
        m_foundWidth = body.widths.value(found.first());
        m_tap.wire = found.first();
        return m_foundWidth == width;
    }

    RtlilDesign &m_design;
    VhdlRounds &m_rounds;
    Tap &m_tap;
    int m_deepest = 0;
    int m_foundWidth = 0;
    bool m_isMemory = false;
};

QString reasonOf(const Search &search, const Tap &tap, const QSet<QString> &blackBoxes)
{
    for (const QUARRY::Hierachy *node : tap.nodes) {
        if (blackBoxes.contains(node->moduleName))
            return Texts::tr("it is inside %1, a module without a definition").arg(node->moduleName);
    }
    if (search.isMemory())
        return Texts::tr("it is a word of a memory, and these are no nets");
    if (search.foundWidth() > 0)
        return Texts::tr("it has %1 bits there and %2 for Yosys").arg(tap.width()).arg(search.foundWidth());
    if (tap.isVhdl)
        return Texts::tr("GHDL keeps no net of this name when it translates %1").arg(tap.module);
    const QString missing = tap.path.value(search.deepest());
    return missing.isEmpty() ? Texts::tr("Yosys does not have a net of this name there")
                             : Texts::tr("Yosys does not have the scope \"%1\" there").arg(missing);
}

} // namespace

int Tap::width() const
{
    return isBus ? QUARRY::rangeWidth(left, right) : 1;
}

QByteArray Tap::signal() const
{
    return isPart ? wire + " [" + QByteArray::number(low + width() - 1) + ':' + QByteArray::number(low) + ']'
                  : wire;
}

QString Tap::range() const
{
    return isBus ? '[' + QString::number(left) + ':' + QString::number(right) + ']' : QString();
}

TapBit TapList::add(const QString &bit)
{
    const QUARRY::RtlNet *net = m_netlist.findNet(bit);
    if (!net)
        return {};
    const QUARRY::RtlModule &declarations = net->module()->declarations();
    const QUARRY::RtlModule::Entry &entry = declarations.entryOfSlot(net->slot());
    const QString shortName(declarations.nameOf(entry), int(entry.textLength));
    const QString full = net->module()->fullPathName() + '/' + shortName;
    if (!m_numbers.contains(full)) {
        Tap tap;
        tap.net = full;
        tap.shortName = shortName;
        tap.isBus = entry.isBus;
        tap.left = entry.left;
        tap.right = entry.right;
        tap.isVhdl = TE::fileTypeFromName(net->declaration().file) == TE::VhdlFile;
        for (const QUARRY::Hierachy *node = net->module(); node->parent; node = node->parent) {
            tap.nodes.prepend(node);
            tap.path.prepend(node->instanceName);
        }
        tap.module = net->module()->moduleName;
        if (tap.isVhdl)
            tap.wholes = wholeWires(declarations, declarations.entryNumber(net->slot()));
        tap.file = net->declaration().file;
        m_numbers.insert(full, m_taps.size());
        m_taps << tap;
    }
    const Tap &tap = m_taps.at(m_numbers.value(full));
    return {m_numbers.value(full), tap.isBus ? tap.placeOf(entry.bitOfSlot(net->slot())) : 0};
}

QStringList TapList::resolve(RtlilDesign &design, const QSet<QString> &blackBoxes)
{
    QStringList sentences;
    VhdlRounds rounds;
    for (Tap &tap : m_taps) {
        Search search(design, rounds, tap);
        if (!search.find(design.topModule(), 0))
            sentences << Texts::tr("%1 cannot be tapped: %2.")
                             .arg(tap.net + tap.range(), reasonOf(search, tap, blackBoxes));
    }
    return sentences;
}

} // namespace Insertion
