#include "elaboration/reading/verilatorties.h"

#include "elaboration/reading/verilatortypes.h"

#include <algorithm>
#include <cstring>

namespace QUARRY {

namespace {

bool hasTie(const TiedBits &bits)
{
    return std::find(bits.begin(), bits.end(), true) != bits.end();
}

} // namespace

VerilatorTies::VerilatorTies(const VerilatorTypes &types, VerilatorModule &module, int depth)
    : m_types(types), m_module(module), m_values(types, module), m_members(types, module), m_depth(depth)
{
}

void VerilatorTies::findOwn() const
{
    m_members.find();
    if (!m_module.members.empty() || is(m_module.node, "iface"))
        findDriven();
    m_module.passesConstants = passesConstants();
    if (!anyConstant())
        return;
    findContested();
    m_module.tied = inEveryInstance();
}

void VerilatorTies::findDriven() const
{
    Drivers drivers;
    m_module.eachScope([this, &drivers](const VerilatorScope &scope) { countScope(scope, drivers); });
    for (const auto &net : drivers)
        m_module.driven.emplace(net.first, TiedBits(net.second.begin(), net.second.end()));
}

void VerilatorTies::findContested() const
{
    if (!m_module.hasContested)
        m_module.contested = contested();
    m_module.hasContested = true;
}

const TiedNets &VerilatorTies::withPorts(const TiedNets &ports) const
{
    const int mostLevels = 64; // of instances in instances; a damaged text may hold an endless number
    if (ports.empty() || m_depth > mostLevels)
        return m_module.tied;
    std::vector<std::pair<int, TiedBits>> key(ports.begin(), ports.end());
    std::sort(key.begin(), key.end());
    const auto known = m_module.tiedWith.find(key);
    if (known != m_module.tiedWith.end())
        return known->second;
    findContested();
    TiedNets tied = ports;
    for (const auto &own : m_module.tied)
        tied.insert(own);
    follow(tied);
    return m_module.tiedWith[key] = std::move(tied);
}

TiedNets VerilatorTies::portsOf(const VerilatorChild &child, const VerilatorScope &scope,
                                const TiedNets &tied, int fromRight) const
{
    const int count = child.count();
    TiedNets result;
    const VerilatorModule &module = *child.module;
    for (const pugi::xml_node &port : child.node.children("port")) {
        const char *const name = port.attribute("name").value();
        const VerilatorModule::Span nets = module.netsOfPort(name);
        if (nets.count == 0 || std::strcmp(port.attribute("direction").value(), "in") != 0)
            continue;
        const pugi::xml_node value = port.first_child();
        const int elementWidth = module.nets[size_t(nets.first)].width();
        const TiedBits all = is(value, "initarray") ? m_values.listed(value, module.elementsOfPort(name),
                                                                      elementWidth, scope, tied)
                                                    : m_values.bits(value, scope, tied);
        const size_t whole = size_t(nets.count) * size_t(elementWidth);
        const size_t width = size_t(elementWidth);
        size_t first = all.size() == whole * size_t(count) ? whole * size_t(fromRight) : 0;
        for (int net = nets.first + nets.count - 1; net >= nets.first; --net, first += width) {
            TiedBits part(width);
            for (size_t i = 0; i < width && first + i < all.size(); ++i)
                part[i] = all[first + i];
            if (hasTie(part))
                result.emplace(net, part);
        }
    }
    for (const InterfaceMembers::Shared &shared : m_members.sharedWith(child, scope, fromRight)) {
        const auto known = tied.find(shared.outside);
        if (known != tied.end())
            result.emplace(shared.inside, known->second);
    }
    return result;
}

void VerilatorTies::count(const pugi::xml_node &left, const VerilatorScope &scope, Drivers &drivers) const
{
    std::vector<VerilatorValues::Target> targets;
    m_values.addTargets(left, scope, targets);
    for (const VerilatorValues::Target &target : targets) {
        if (target.net < 0)
            continue;
        std::vector<int> &counts = drivers[target.net];
        counts.resize(size_t(m_module.nets[size_t(target.net)].width()));
        const qint64 end = qMin(target.lowest + target.width, qint64(counts.size()));
        for (qint64 bit = qMax<qint64>(0, target.lowest); bit < end; ++bit)
            ++counts[size_t(bit)];
    }
}

void VerilatorTies::countScope(const VerilatorScope &scope, Drivers &drivers) const
{
    for (const pugi::xml_node &assignment : scope.assigns)
        count(assignment.first_child().next_sibling(), scope, drivers);
    for (const VerilatorChild &child : scope.children) {
        for (const pugi::xml_node &port : child.node.children("port")) {
            if (std::strcmp(port.attribute("direction").value(), "in") != 0)
                count(port.first_child(), scope, drivers);
        }
        for (int i = 0; i < InterfaceMembers::elementCount(child); ++i) {
            for (const InterfaceMembers::Shared &shared : m_members.sharedWith(child, scope, i)) {
                const auto driven = child.module->driven.find(shared.inside);
                if (driven != child.module->driven.end())
                    addDrivers(shared.outside, driven->second, drivers);
            }
        }
    }
}

void VerilatorTies::addDrivers(int net, const TiedBits &driven, Drivers &drivers) const
{
    std::vector<int> &counts = drivers[net];
    counts.resize(driven.size());
    for (size_t bit = 0; bit < driven.size(); ++bit)
        counts[bit] += driven[bit] ? 1 : 0;
}

bool VerilatorTies::anyConstant() const
{
    for (const VerilatorNet &net : m_module.nets) {
        if (net.isTied)
            return true;
    }
    bool found = false;
    m_module.eachScope([this, &found](const VerilatorScope &scope) {
        for (const VerilatorChild &child : scope.children) {
            const int count = child.module ? InterfaceMembers::elementCount(child) : 0;
            for (int i = 0; i < count && !found; ++i)
                found = !tiedIn(child, scope, TiedNets(), i).empty();
        }
        for (const pugi::xml_node &assignment : scope.assigns)
            found = found || hasTie(m_values.assigned(assignment, scope, TiedNets()));
    });
    return found;
}

TiedNets VerilatorTies::contested() const
{
    Drivers drivers;
    m_module.eachScope([this, &drivers](const VerilatorScope &scope) { countScope(scope, drivers); });
    TiedNets result;
    for (const auto &driven : drivers) {
        const bool declared = m_module.nets[size_t(driven.first)].isTied;
        TiedBits bits;
        for (int count : driven.second)
            bits.push_back(count + (declared ? 1 : 0) > 1);
        if (hasTie(bits))
            result.emplace(driven.first, std::move(bits));
    }
    return result;
}

TiedNets VerilatorTies::inEveryInstance() const
{
    TiedNets tied;
    for (size_t i = 0; i < m_module.nets.size(); ++i) {
        if (m_module.nets[i].isTied) {
            for (int bit = 0; bit < m_module.nets[i].width(); ++bit)
                set(int(i), bit, tied);
        }
    }
    follow(tied);
    return tied;
}

// Assignments stand in any order, so it takes as many rounds as the longest chain against that order.
// Real chains are short; the limit keeps a generated one from taking quadratic time.
void VerilatorTies::follow(TiedNets &tied) const
{
    bool grown = true;
    for (int round = 0; grown && round < 16; ++round) {
        grown = false;
        m_module.eachScope([this, &tied, &grown](const VerilatorScope &scope) {
            grown = takeOutputs(scope, tied) || grown;
            grown = assignAll(scope, tied) || grown;
        });
    }
}

bool VerilatorTies::assignAll(const VerilatorScope &scope, TiedNets &tied) const
{
    bool grown = false;
    for (const pugi::xml_node &assignment : scope.assigns)
        grown = assign(assignment, scope, tied) || grown;
    return grown;
}

bool VerilatorTies::assign(const pugi::xml_node &assignment, const VerilatorScope &scope,
                           TiedNets &tied) const
{
    const TiedBits value = m_values.assigned(assignment, scope, tied);
    return hasTie(value) && drive(assignment.first_child().next_sibling(), value, scope, tied);
}

bool VerilatorTies::drive(const pugi::xml_node &left, const TiedBits &value, const VerilatorScope &scope,
                          TiedNets &tied) const
{
    std::vector<VerilatorValues::Target> targets;
    m_values.addTargets(left, scope, targets);
    bool grown = false;
    size_t at = 0;
    for (const VerilatorValues::Target &target : targets) {
        for (int i = 0; i < target.width; ++i, ++at) {
            if (target.net >= 0 && at < value.size() && value[at])
                grown = set(target.net, target.lowest + i, tied) || grown;
        }
    }
    return grown;
}

// Whether a constant may reach an output without any logic. Says yes too often rather than too rarely.
bool VerilatorTies::passesConstants() const
{
    bool found = false;
    m_module.eachScope([&found](const VerilatorScope &scope) {
        for (const pugi::xml_node &assignment : scope.assigns) {
            const pugi::xml_node value = assignment.first_child();
            for (const char *kind : {"varref", "varxref", "sel", "concat", "replicate", "extend", "extends",
                                     "arraysel", "initarray"})
                found = found || is(value, kind);
        }
        for (const VerilatorChild &child : scope.children)
            found = found || (child.module && child.module->passesConstants);
    });
    return found;
}

// What is tied in an instance: in every one of the module, and behind the ports that are tied here.
const TiedNets &VerilatorTies::tiedIn(const VerilatorChild &child, const VerilatorScope &scope,
                                      const TiedNets &tied, int fromRight) const
{
    if (!child.module->passesConstants)
        return child.module->tied;
    return VerilatorTies(m_types, *child.module, m_depth + 1)
        .withPorts(portsOf(child, scope, tied, fromRight));
}

// What an output drives, of an array those of all elements: the rightmost one has the lowest bits.
TiedBits VerilatorTies::outputOf(const VerilatorChild &child, const pugi::xml_node &port,
                                 const std::vector<const TiedNets *> &inside) const
{
    const VerilatorModule &module = *child.module;
    const VerilatorModule::Span nets = module.netsOfPort(port.attribute("name").value());
    TiedBits value(size_t(m_values.width(port.first_child())));
    const size_t width =
        nets.count == 0 ? 0 : size_t(nets.count) * size_t(module.nets[size_t(nets.first)].width());
    // Where all drive the same net, none decides.
    if (width == 0 || (child.count() > 1 && value.size() != width * size_t(child.count())))
        return value;
    for (size_t element = 0; element < size_t(child.count()); ++element) {
        const TiedBits bits = tiedOf(nets, element < inside.size() ? *inside[element] : module.tied, module);
        for (size_t i = 0; i < bits.size() && element * width + i < value.size(); ++i)
            value[element * width + i] = bits[i];
    }
    return value;
}

// What is tied in an instance is tied behind its outputs, too.
bool VerilatorTies::takeOutputs(const VerilatorScope &scope, TiedNets &tied) const
{
    bool grown = false;
    for (const VerilatorChild &child : scope.children) {
        if (!child.module)
            continue;
        std::vector<const TiedNets *> inside; // of elements from the right
        bool anyTied = false;
        for (int i = 0; i < InterfaceMembers::elementCount(child); ++i) {
            inside.push_back(&tiedIn(child, scope, tied, i));
            anyTied = anyTied || !inside.back()->empty();
        }
        if (!anyTied)
            continue;
        for (const pugi::xml_node &port : child.node.children("port")) {
            if (std::strcmp(port.attribute("direction").value(), "out") == 0)
                grown = drive(port.first_child(), outputOf(child, port, inside), scope, tied) || grown;
        }
        for (size_t element = 0; element < inside.size(); ++element) {
            for (const auto &shared : m_members.sharedWith(child, scope, int(element))) {
                const auto net = inside[element]->find(shared.inside);
                for (size_t i = 0; net != inside[element]->end() && i < net->second.size(); ++i)
                    grown = (net->second[i] && set(shared.outside, qint64(i), tied)) || grown;
            }
        }
    }
    return grown;
}

bool VerilatorTies::set(int net, qint64 bit, TiedNets &tied) const
{
    const int width = m_module.nets[size_t(net)].width();
    const auto contested = m_module.contested.find(net);
    if (bit < 0 || bit >= width || (contested != m_module.contested.end() && contested->second[size_t(bit)]))
        return false;
    TiedBits &bits = tied[net];
    bits.resize(size_t(width));
    if (bits[size_t(bit)])
        return false;
    bits[size_t(bit)] = true;
    return true;
}

} // namespace QUARRY
