#include "elaboration/reading/verilatorties.h"

#include "elaboration/reading/verilatortypes.h"

#include <algorithm>
#include <cstring>

namespace QUARRY {

namespace {

bool is(const pugi::xml_node &node, const char *name)
{
    return std::strcmp(node.name(), name) == 0;
}

// No design has more bits, and what a damaged text says of one expression must not take the memory.
int boundedWidth(int width)
{
    return int(qBound<qint64>(0, width, NetlistBuilder::maxNets));
}

// To a net, or to an element of an array.
bool isReference(const pugi::xml_node &expression)
{
    return is(expression, "varref") || is(expression, "arraysel");
}

int number(const pugi::xml_node &constant)
{
    return int(VerilatorConstant(constant.attribute("name").value()).number());
}

// A bit that is left floating ("1'bz") is tied to nothing.
TiedBits constantBits(const pugi::xml_node &constant)
{
    const VerilatorConstant value(constant.attribute("name").value());
    TiedBits bits(size_t(boundedWidth(value.width)), true);
    if (value.base != 'b')
        return bits;
    const size_t digits = std::strlen(value.digits);
    for (size_t i = 0; i < bits.size() && i < digits; ++i)
        bits[i] = value.digits[digits - 1 - i] != 'z';
    return bits;
}

bool hasTie(const TiedBits &bits)
{
    return std::find(bits.begin(), bits.end(), true) != bits.end();
}

} // namespace

VerilatorTies::VerilatorTies(const VerilatorTypes &types, VerilatorModule &module, int depth)
    : m_types(types), m_module(module), m_depth(depth)
{
}

void VerilatorTies::findOwn() const
{
    m_module.passesConstants = passesConstants();
    if (!anyConstant())
        return;
    findContested();
    m_module.tied = inEveryInstance();
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
                                const TiedNets &tied, int fromRight, int count) const
{
    TiedNets result;
    const VerilatorModule &module = *child.module;
    for (const pugi::xml_node &port : child.node.children("port")) {
        const int net = module.netOfPort(port.attribute("name").value());
        if (net < 0 || std::strcmp(port.attribute("direction").value(), "in") != 0)
            continue;
        const TiedBits all = bits(port.first_child(), scope, tied);
        const size_t width = size_t(module.nets[size_t(net)].width());
        const size_t first = all.size() == width * size_t(count) ? width * size_t(fromRight) : 0;
        TiedBits part(width);
        for (size_t i = 0; i < width && first + i < all.size(); ++i)
            part[i] = all[first + i];
        if (hasTie(part))
            result.emplace(net, part);
    }
    return result;
}

template <typename Visit>
void VerilatorTies::eachScope(Visit visit) const
{
    visit(*m_module.body);
    for (const auto &scope : m_module.generates)
        visit(*scope);
}

int VerilatorTies::width(const pugi::xml_node &expression) const
{
    return boundedWidth(m_types.type(expression.attribute("dtype_id").value()).width());
}

int VerilatorTies::netNumber(const pugi::xml_node &varref, const VerilatorScope &scope) const
{
    if (is(varref, "arraysel"))
        return elementNumber(varref, scope);
    const std::string_view name = varref.attribute("name").value();
    for (const VerilatorScope *at = &scope; at; at = at->outer) {
        const auto found = at->names.find(name);
        if (found != at->names.end())
            return found->second;
    }
    return -1;
}

// <arraysel> of an array, or of another one, and a number that counts from the lowest index.
int VerilatorTies::elementNumber(pugi::xml_node select, const VerilatorScope &scope) const
{
    std::vector<int> indices; // from the innermost dimension
    for (; is(select, "arraysel"); select = select.first_child()) {
        const pugi::xml_node index = select.first_child().next_sibling();
        if (!is(index, "const"))
            return -1;
        indices.push_back(number(index));
    }
    const std::string_view name = select.attribute("name").value();
    for (const VerilatorScope *at = &scope; at; at = at->outer) {
        const auto found = at->arrays.find(name);
        if (found == at->arrays.end())
            continue;
        const auto &dimensions = found->second.dimensions;
        if (dimensions.size() != indices.size())
            return -1;
        qint64 position = 0;
        for (size_t i = 0; i < dimensions.size(); ++i) {
            const int width = rangeWidth(dimensions[i].left, dimensions[i].right);
            const int index = indices[indices.size() - 1 - i];
            if (index < 0 || index >= width)
                return -1;
            position =
                position * width + (dimensions[i].left < dimensions[i].right ? index : width - 1 - index);
        }
        const qint64 number = found->second.first + position;
        return number < qint64(m_module.nets.size()) ? int(number) : -1;
    }
    return -1;
}

TiedBits VerilatorTies::bits(const pugi::xml_node &expression, const VerilatorScope &scope,
                             const TiedNets &tied) const
{
    if (is(expression, "const"))
        return constantBits(expression);
    if (isReference(expression)) {
        const auto known = tied.find(netNumber(expression, scope));
        return known == tied.end() ? TiedBits() : known->second;
    }
    if (is(expression, "sel"))
        return selected(expression, scope, tied);
    if (is(expression, "concat"))
        return joined(expression, scope, tied);
    if (is(expression, "replicate"))
        return repeated(expression, scope, tied);
    if (is(expression, "extend") || is(expression, "extends"))
        return extended(expression, scope, tied);
    return TiedBits();
}

// <sel> of value, lowest bit and width, both counted from the least significant bit
TiedBits VerilatorTies::selected(const pugi::xml_node &select, const VerilatorScope &scope,
                                 const TiedNets &tied) const
{
    const pugi::xml_node value = select.first_child();
    const pugi::xml_node lowest = value.next_sibling();
    const TiedBits whole = bits(value, scope, tied);
    const size_t from = size_t(qMax(0, number(lowest)));
    if (!is(lowest, "const") || from >= whole.size())
        return TiedBits();
    TiedBits part(whole.begin() + std::ptrdiff_t(from), whole.end());
    part.resize(size_t(width(select)));
    return part;
}

TiedBits VerilatorTies::joined(const pugi::xml_node &concat, const VerilatorScope &scope,
                               const TiedNets &tied) const
{
    const pugi::xml_node high = concat.first_child();
    const pugi::xml_node low = high.next_sibling();
    TiedBits all = bits(low, scope, tied);
    const TiedBits upper = bits(high, scope, tied);
    if (all.empty() && upper.empty())
        return TiedBits();
    all.resize(size_t(width(low)));
    all.insert(all.end(), upper.begin(), upper.end());
    all.resize(size_t(width(concat)));
    return all;
}

TiedBits VerilatorTies::repeated(const pugi::xml_node &replicate, const VerilatorScope &scope,
                                 const TiedNets &tied) const
{
    TiedBits once = bits(replicate.first_child(), scope, tied);
    if (once.empty())
        return once;
    once.resize(size_t(width(replicate.first_child())));
    TiedBits all(size_t(width(replicate)));
    for (size_t i = 0; i < all.size(); ++i)
        all[i] = once[i % once.size()];
    return all;
}

TiedBits VerilatorTies::extended(const pugi::xml_node &extend, const VerilatorScope &scope,
                                 const TiedNets &tied) const
{
    TiedBits all = bits(extend.first_child(), scope, tied);
    all.resize(size_t(width(extend.first_child())));
    const bool sign = is(extend, "extends");
    all.resize(size_t(width(extend)), sign ? all.back() : true);
    return all;
}

void VerilatorTies::addTargets(const pugi::xml_node &left, const VerilatorScope &scope,
                               std::vector<Target> &targets) const
{
    if (isReference(left)) {
        targets.push_back({netNumber(left, scope), 0, width(left)});
    } else if (is(left, "concat")) {
        addTargets(left.last_child(), scope, targets);
        addTargets(left.first_child(), scope, targets);
    } else if (is(left, "sel") && is(left.first_child().next_sibling(), "const") &&
               isReference(left.first_child())) {
        targets.push_back(
            {netNumber(left.first_child(), scope), number(left.first_child().next_sibling()), width(left)});
    } else {
        targets.push_back({-1, 0, width(left)});
    }
}

void VerilatorTies::count(const pugi::xml_node &left, const VerilatorScope &scope, Drivers &drivers) const
{
    std::vector<Target> targets;
    addTargets(left, scope, targets);
    for (const Target &target : targets) {
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
    }
}

bool VerilatorTies::anyConstant() const
{
    for (const VerilatorNet &net : m_module.nets) {
        if (net.isTied)
            return true;
    }
    bool found = false;
    eachScope([this, &found](const VerilatorScope &scope) {
        for (const VerilatorChild &child : scope.children)
            found = found || (child.module && !tiedIn(child, scope, TiedNets()).empty());
        for (const pugi::xml_node &assignment : scope.assigns)
            found = found || hasTie(bits(assignment.first_child(), scope, TiedNets()));
    });
    return found;
}

TiedNets VerilatorTies::contested() const
{
    Drivers drivers;
    eachScope([this, &drivers](const VerilatorScope &scope) { countScope(scope, drivers); });
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
        eachScope([this, &tied, &grown](const VerilatorScope &scope) {
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
    const TiedBits value = bits(assignment.first_child(), scope, tied);
    return hasTie(value) && drive(assignment.first_child().next_sibling(), value, scope, tied);
}

bool VerilatorTies::drive(const pugi::xml_node &left, const TiedBits &value, const VerilatorScope &scope,
                          TiedNets &tied) const
{
    std::vector<Target> targets;
    addTargets(left, scope, targets);
    bool grown = false;
    size_t at = 0;
    for (const Target &target : targets) {
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
    eachScope([&found](const VerilatorScope &scope) {
        for (const pugi::xml_node &assignment : scope.assigns) {
            const pugi::xml_node value = assignment.first_child();
            for (const char *kind : {"varref", "sel", "concat", "replicate", "extend", "extends", "arraysel"})
                found = found || is(value, kind);
        }
        for (const VerilatorChild &child : scope.children)
            found = found || (child.module && child.module->passesConstants);
    });
    return found;
}

// What is tied in an instance: in every one of the module, and behind the ports that are tied here.
const TiedNets &VerilatorTies::tiedIn(const VerilatorChild &child, const VerilatorScope &scope,
                                      const TiedNets &tied) const
{
    if (child.isArray || !child.module->passesConstants)
        return child.module->tied;
    return VerilatorTies(m_types, *child.module, m_depth + 1).withPorts(portsOf(child, scope, tied, 0, 1));
}

// What is tied in an instance is tied behind its outputs, too.
bool VerilatorTies::takeOutputs(const VerilatorScope &scope, TiedNets &tied) const
{
    bool grown = false;
    for (const VerilatorChild &child : scope.children) {
        if (!child.module)
            continue;
        const TiedNets &inside = tiedIn(child, scope, tied);
        if (inside.empty())
            continue;
        for (const pugi::xml_node &port : child.node.children("port")) {
            const auto net = inside.find(child.module->netOfPort(port.attribute("name").value()));
            if (net == inside.end() || std::strcmp(port.attribute("direction").value(), "out") != 0)
                continue;
            TiedBits value(size_t(width(port.first_child())));
            for (size_t i = 0; i < value.size(); ++i) // an array of instances repeats it
                value[i] = (child.isArray || i < net->second.size()) && net->second[i % net->second.size()];
            grown = drive(port.first_child(), value, scope, tied) || grown;
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
