#include "check/renaming.h"

#include <QCoreApplication>
#include <QSet>
#include <algorithm>

#include "check/netname.h"

namespace RTLJEX {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RTLJEX::Renaming)
};

QString rangeOf(const QString &name)
{
    const NetName parts(name);
    return parts.form == NetName::Plain ? QString() : name.mid(parts.fullBase().size());
}

// Renames what one name after another, and notes each change once.
class Walk
{
public:
    explicit Walk(const Renaming &renaming) : m_renaming(renaming) {}

    Renaming::Changes changes;

    void rename(QString &name)
    {
        const QString now = m_renaming.renamed(name);
        if (now != name && !m_seen.contains(name)) {
            m_seen.insert(name);
            changes.append(qMakePair(name, now));
        }
        name = now;
    }

    void rename(JEX::SignalItem &item)
    {
        const QString old = item.name;
        if (isOfDesign(item))
            rename(item.name);
        // The new name is looked up anew; what the old one was is of no use.
        item.valid = item.valid || item.name != old;
        renameMembers(item, item.name != old);
    }

    void rename(QList<JEX::SignalItem> &items)
    {
        for (JEX::SignalItem &item : items)
            rename(item);
    }

    void renameRow(QList<JEX::SignalItem> &items, const QString &name)
    {
        for (JEX::SignalItem &item : items) {
            if (item.name == name)
                return rename(item);
        }
    }

    void renameAt(const StaleSignal &signal, AnyCore &core)
    {
        const QString row = signal.group.isEmpty() ? signal.name : signal.group;
        if (signal.place == StaleSignal::Clock)
            return rename(*core.clock);
        if (signal.place == StaleSignal::Capture) {
            renameRow(*core.signalRows, row);
            return renameRow(*core.enabledRows, row);
        }
        if (JEX::TriggerPort *port = core.standard ? core.standard->getTrigger(signal.port) : nullptr)
            renameRow(port->signalItems, row);
    }

private:
    // A group has the name that the user gave it, which may look like one of the design, unless its members
    // are what the name says.
    bool isOfDesign(const JEX::SignalItem &item) const
    {
        const auto isRenamed = [this](const JEX::SignalItem &member) {
            return m_renaming.renamed(member.name) != member.name;
        };
        return !item.isGroup() || item.isSingle() ||
               std::any_of(item.members.begin(), item.members.end(), isRenamed);
    }

    // The bits of a bus that was renamed are not worth a line each.
    void renameMembers(JEX::SignalItem &item, bool isSilent)
    {
        for (JEX::SignalItem &member : item.members) {
            const QString old = member.name;
            if (isSilent)
                member.name = m_renaming.renamed(old);
            else
                rename(member.name);
            member.valid = member.valid || member.name != old;
            renameMembers(member, isSilent || member.name != old);
        }
    }

    const Renaming &m_renaming;
    QSet<QString> m_seen;
};

void addBroken(const QList<JEX::SignalItem> &rows, QStringList &broken)
{
    QSet<QString> seen;
    for (const JEX::SignalItem &item : rows) {
        if (seen.contains(item.name))
            broken << Texts::tr("A list would hold %1 twice.").arg(item.name);
        seen.insert(item.name);
        addBroken(item.members, broken);
        const QString base = NetName(item.name).fullBase();
        for (const JEX::SignalItem &member : item.members) {
            if (item.isOfBus() && NetName(member.name).fullBase() != base)
                broken << Texts::tr("The bus %1 would hold %2.").arg(item.name, member.name);
        }
    }
}

} // namespace

bool Renaming::set(const QString &from, const QString &to, QString *error)
{
    const QString range = rangeOf(from), newRange = rangeOf(to);
    if (range != newRange && (range + newRange).contains(':')) {
        *error = Texts::tr("\"%1\" and \"%2\" differ in their range: a renamed signal keeps its width.")
                     .arg(from, to);
        return false;
    }
    // A single bit can be renamed alone, a bus only with its bits.
    const int cut = range.contains(':') ? range.size() : 0;
    m_from = from.left(from.size() - cut);
    m_to = to.left(to.size() - cut);
    if (from == to) {
        *error = "--from and --to are the same.";
        return false;
    }
    if (!m_from.isEmpty() && !m_to.isEmpty() && !m_from.endsWith('/') && !m_to.endsWith('/'))
        return true;
    *error = "--from and --to are paths without a separator at their end, \"top/u0\".";
    return false;
}

bool Renaming::setMove(const QString &name, const QString &now, QString *error)
{
    QStringList from = name.split(QLatin1Char('/')), to = now.split(QLatin1Char('/'));
    while (from.size() > 1 && to.size() > 1 && from.last() == to.last()) {
        from.removeLast();
        to.removeLast();
    }
    return set(from.join(QLatin1String("/")), to.join(QLatin1String("/")), error);
}

QString Renaming::renamed(const QString &name) const
{
    if (!name.startsWith(m_from))
        return name;
    const QString rest = name.mid(m_from.size());
    // "[3]" belongs to a net when nothing follows, and to an instance otherwise.
    const bool isWhole =
        rest.isEmpty() || rest.startsWith('/') || (rest.startsWith('[') && !rest.contains('/'));
    return isWhole ? m_to + rest : name;
}

Renaming::Changes Renaming::apply(Configuration &configuration) const
{
    Walk walk(*this);
    for (AnyCore core : configuration.cores()) {
        walk.rename(*core.clock);
        if (*core.topModule == m_from)
            *core.topModule = m_to;
        for (JEX::TriggerPort *port : core.ports)
            walk.rename(port->signalItems);
        walk.rename(*core.signalRows);
        walk.rename(*core.enabledRows);
    }
    return walk.changes;
}

Renaming::Changes Renaming::applyTo(const QList<StaleSignal> &stale, Configuration &configuration) const
{
    Walk walk(*this);
    QList<AnyCore> cores = configuration.cores();
    for (const StaleSignal &signal : stale) {
        if (signal.core < cores.size())
            walk.renameAt(signal, cores[signal.core]);
    }
    return walk.changes;
}

QStringList brokenRows(const Configuration &configuration)
{
    QStringList broken;
    for (const AnyCore &core : configuration.cores()) {
        addBroken(*core.signalRows, broken);
        for (const JEX::TriggerPort *port : core.ports)
            addBroken(port->signalItems, broken);
    }
    return broken;
}

} // namespace RTLJEX
