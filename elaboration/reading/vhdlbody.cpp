#include "elaboration/reading/vhdlbody.h"

#include "elaboration/reading/vhdldeclarations.h"

#include "host/utf8.h"

namespace QUARRY {

namespace {

QString lower(std::string_view name)
{
    return QUtil::fromUtf8(name).toLower();
}

NetDecl declaration(const QString &name, bool isBus, int left, int right)
{
    NetDecl decl;
    decl.name = name;
    decl.isBus = isBus;
    decl.left = left;
    decl.right = right;
    return decl;
}

int signalWidth(const VhdlSignal &signal)
{
    return signal.isBus ? rangeWidth(signal.left, signal.right) : 1;
}

const int lookLimit = 1 << 20; // half a second

bool isRound(const VhdlScope &scope)
{
    return scope.label() != scope.name;
}

// Of the loop that the child is the first round of; any other child stands alone.
size_t endOfRounds(const VhdlScope &scope, size_t first)
{
    const QString label = scope.children[first]->label();
    size_t end = first + 1;
    while (isRound(*scope.children[first]) && end < scope.children.size() && isRound(*scope.children[end]) &&
           scope.children[end]->label() == label)
        ++end;
    return end;
}

QString roundKey(const QString &prefix, const QString &label, int round)
{
    return prefix + label.toLower() + QLatin1String("_n") + QString::number(round);
}

} // namespace

VhdlBody::VhdlBody(const VerilatorModule &module, const VhdlPlaceTable &places)
    : m_module(module), m_places(places)
{
    for (size_t i = 0; i < module.nets.size(); ++i)
        m_nets.insert(lower(module.nets[i].name), int(i));
    for (const VerilatorChild &child : module.body->children)
        m_instances.insert(child.name.toLower(), &child);
}

const VerilatorChild *VhdlBody::instance(const QString &key) const
{
    return m_instances.value(key);
}

VhdlBody::Signals VhdlBody::declared(const VhdlScope &scope, const VhdlPlaces *places, const QString &prefix,
                                     const QString &name) const
{
    Signals result;
    result.decl.name = name;
    for (const VhdlSignal &signal : scope.signalList) {
        const Declaration place = places ? places->place(signal.name) : Declaration();
        const QString shown = places ? places->spelled(signal.name) : signal.name;
        const QString key = prefix + signal.name.toLower();
        const int number = m_nets.value(key, -1);
        const int width = number < 0 ? 0 : m_module.nets[size_t(number)].width();
        const bool isKnown = signal.hasShape && (number < 0 || width == signalWidth(signal));
        if (signal.elements && (number < 0 || width == signal.width || signal.width == 0)) {
            addElements(signal, shown, place, key, result);
        } else if (number < 0 && !isKnown) {
            addRecordPort(shown, place, result);
        } else {
            if (isKnown) {
                result.decl.nets.append(declaration(shown, signal.isBus, signal.left, signal.right));
            } else {
                const VerilatorNet &net = m_module.nets[size_t(number)];
                result.decl.nets.append(declaration(shown, net.isBus, net.left, net.right));
            }
            result.decl.nets.last().info = place;
            result.decl.nets.last().info.type = isKnown && signal.isBus
                                                    ? knownType(place.type, signal.left, signal.right)
                                                    : knownType(place.type);
            result.nets.push_back({number, 0});
        }
    }
    return result;
}

VhdlBody::Signals::Net VhdlBody::net(const QString &key, int width) const
{
    const int number = m_nets.value(key, -1);
    return {number >= 0 && m_module.nets[size_t(number)].width() == width ? number : -1, 0};
}

// They are parts of one net, or, of a port, of the nets that GHDL makes of its members.
void VhdlBody::addElements(const VhdlSignal &signal, const QString &name, const Declaration &place,
                           const QString &key, Signals &result) const
{
    const Signals::Net whole = net(key, signal.width);
    for (const VhdlElement &element : *signal.elements) {
        result.decl.nets.append(declaration(name + m_places.spelledPath(element.name), element.isBus,
                                            element.left, element.right));
        Declaration &info = result.decl.nets.last().info;
        info = place;
        info.type = element.type;
        info.enumLabels = element.labels;
        Signals::Net part = whole;
        part.offset = element.offset;
        if (whole.number < 0 && !element.member.isEmpty()) {
            part = net(key + QLatin1Char('_') + element.member.toLower(), element.memberWidth);
            part.offset = element.offset - element.memberOffset;
        }
        result.nets.push_back(part);
    }
}

// A port "r" of a record type has become one port for each element, "r_valid" and so on, whose types the
// declaration of the port does not say.
void VhdlBody::addRecordPort(const QString &name, Declaration place, Signals &result) const
{
    place.type.clear();
    const QString prefix = name.toLower() + QLatin1Char('_');
    for (size_t i = 0; i < m_module.nets.size(); ++i) {
        const VerilatorNet &net = m_module.nets[i];
        const QString element = lower(net.name);
        if (!net.isPort || !element.startsWith(prefix))
            continue;
        const QString shown = name + m_places.spelledPath(QLatin1Char('.') + element.mid(prefix.size()));
        result.decl.nets.append(declaration(shown, net.isBus, net.left, net.right));
        result.decl.nets.last().info = place;
        result.nets.push_back({int(i), 0});
    }
}

// How much of the scope and what is below it the module has under such names. Loops in loops, where either
// order of each is tried with either order of the others, would take for ever: there comes a point from which
// only the scope's own signals count.
int VhdlBody::known(const VhdlScope &scope, const QString &key) const
{
    if (m_instances.contains(key))
        return 1;
    int found = 0;
    for (const VhdlSignal &signal : scope.signalList)
        found += fits(signal, m_nets.value(key + QLatin1Char('_') + signal.name.toLower(), -1)) ? 1 : 0;
    if (m_looked >= lookLimit)
        return found;
    ++m_looked;
    const QString prefix = key + QLatin1Char('_');
    for (size_t first = 0, end = 0; first < scope.children.size(); first = end) {
        end = endOfRounds(scope, first);
        const VhdlScope &child = *scope.children[first];
        bool isDownwards = false;
        found += isRound(child) ? knownRounds(scope, first, end, prefix, isDownwards)
                                : known(child, prefix + child.name.toLower());
    }
    return found;
}

bool VhdlBody::fits(const VhdlSignal &signal, int net) const
{
    return net >= 0 && (!signal.hasShape || m_module.nets[size_t(net)].width() == signalWidth(signal));
}

// GHDL numbers the rounds of a loop in the order of the loop and its waveforms have them in the order of the
// index. Its own wave file says which that is; for a VCD, what fits better is right.
int VhdlBody::knownRounds(const VhdlScope &scope, size_t first, size_t end, const QString &prefix,
                          bool &isDownwards) const
{
    const QString label = scope.children[first]->label();
    const VhdlScope::Order order = scope.children[first]->order;
    const int rounds = int(end - first);
    int upwards = 0;
    int downwards = 0;
    for (int i = 0; i < rounds; ++i) {
        const VhdlScope &round = *scope.children[first + size_t(i)];
        if (order != VhdlScope::Downwards)
            upwards += known(round, roundKey(prefix, label, i + 1));
        if (order == VhdlScope::Downwards || (order == VhdlScope::NotKnown && rounds > 1))
            downwards += known(round, roundKey(prefix, label, rounds - i));
    }
    isDownwards = order == VhdlScope::Downwards || downwards > upwards;
    return qMax(upwards, downwards);
}

std::vector<QString> VhdlBody::childKeys(const VhdlScope &scope, const QString &prefix) const
{
    std::vector<QString> keys;
    for (size_t first = 0, end = 0; first < scope.children.size(); first = end) {
        end = endOfRounds(scope, first);
        const VhdlScope &child = *scope.children[first];
        if (!isRound(child)) {
            keys.push_back(prefix + child.name.toLower());
            continue;
        }
        bool isDownwards = false;
        knownRounds(scope, first, end, prefix, isDownwards);
        const int rounds = int(end - first);
        for (int i = 0; i < rounds; ++i)
            keys.push_back(roundKey(prefix, child.label(), isDownwards ? rounds - i : i + 1));
    }
    return keys;
}

} // namespace QUARRY
