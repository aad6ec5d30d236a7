#include "elaboration/reading/verilatormembers.h"

#include <cstring>

namespace QUARRY {
namespace {

bool isInterface(const VerilatorChild &child)
{
    return child.module && is(child.module->node, "iface") && !child.isArray;
}

// The name of the interface that a port is given as a whole.
std::string givenInterface(const pugi::xml_node &port)
{
    const std::string name = port.first_child().attribute("name").value();
    const bool isWhole = is(port.first_child(), "varref") && !port.attribute("direction");
    return isWhole ? name.substr(0, name.find(interfaceReference)) : std::string();
}

} // namespace

InterfaceMembers::InterfaceMembers(const VerilatorTypes &types, VerilatorModule &module)
    : m_types(types), m_module(module)
{
}

void InterfaceMembers::find() const
{
    const std::vector<std::string_view> &ports = m_module.interfacePorts;
    m_module.interfaces = std::set<std::string>(ports.begin(), ports.end());
    m_module.eachScope([this](const VerilatorScope &scope) {
        for (const VerilatorChild &child : scope.children) {
            if (isInterface(child))
                m_module.interfaces.insert(scope.path + child.node.attribute("name").value());
        }
    });
    if (!m_module.interfaces.empty())
        m_module.eachScope([this](const VerilatorScope &scope) { addMembers(scope); });
}

// Those that expressions name, and those that instances name which are given the interface.
void InterfaceMembers::addMembers(const VerilatorScope &scope) const
{
    for (const pugi::xml_node &assignment : scope.assigns)
        addMembersIn(assignment, scope);
    for (const VerilatorChild &child : scope.children) {
        for (const pugi::xml_node &port : child.node.children("port")) {
            addMembersIn(port, scope);
            const std::string interface = interfaceNamed(givenInterface(port), scope);
            if (interface.empty() || !child.module)
                continue;
            const std::string inside(child.module->portName(port.attribute("name").value()));
            for (const auto &member : membersOf(*child.module, inside))
                addMember(interface + member.first, child.module->nets[size_t(member.second)]);
        }
    }
}

void InterfaceMembers::addMembersIn(const pugi::xml_node &expression, const VerilatorScope &scope) const
{
    expression.find_node([this, &scope](const pugi::xml_node &node) {
        const VerilatorType &type = m_types.type(node.attribute("dtype_id").value());
        if (!is(node, "varxref") || !type.isNet || type.width() > NetlistBuilder::maxNets)
            return false;
        const std::string interface = interfaceNamed(node.attribute("dotted").value(), scope);
        if (!interface.empty())
            addMember(interface + '.' + node.attribute("name").value(), VerilatorNet(pugi::xml_node(), type));
        return false;
    });
}

void InterfaceMembers::addMember(const std::string &path, const VerilatorNet &shape) const
{
    if (!m_module.members.emplace(path, int(m_module.nets.size())).second)
        return;
    VerilatorNet net;
    net.isBus = shape.isBus;
    net.left = shape.left;
    net.right = shape.right;
    m_module.nets.push_back(net);
}

// ".data" and the like of that interface, with the numbers of their nets.
std::vector<std::pair<std::string, int>> InterfaceMembers::membersOf(const VerilatorModule &module,
                                                                     const std::string &interface)
{
    std::vector<std::pair<std::string, int>> members;
    const std::string start = interface + '.';
    for (auto at = module.members.lower_bound(start);
         at != module.members.end() && at->first.compare(0, start.size(), start) == 0; ++at)
        members.emplace_back(at->first.substr(interface.size()), at->second);
    return members;
}

int InterfaceMembers::netOf(const pugi::xml_node &varxref, const VerilatorScope &scope) const
{
    const std::string interface = interfaceNamed(varxref.attribute("dotted").value(), scope);
    const auto member = m_module.members.find(interface + '.' + varxref.attribute("name").value());
    return member == m_module.members.end() ? -1 : member->second;
}

std::string InterfaceMembers::interfaceNamed(const std::string &name, const VerilatorScope &scope) const
{
    for (const VerilatorScope *at = &scope; at && !name.empty(); at = at->outer) {
        if (m_module.interfaces.count(at->path + name))
            return at->path + name;
    }
    return std::string();
}

std::vector<InterfaceMembers::Shared> InterfaceMembers::sharedWith(const VerilatorChild &child,
                                                                   const VerilatorScope &scope) const
{
    std::vector<Shared> shared;
    if (m_module.members.empty() || !child.module || child.isArray)
        return shared;
    const VerilatorModule &module = *child.module;
    const auto add = [&](int outside, int inside) {
        if (m_module.nets[size_t(outside)].width() == module.nets[size_t(inside)].width())
            shared.push_back({outside, inside});
    };
    if (isInterface(child)) {
        const std::string path = scope.path + child.node.attribute("name").value();
        for (const auto &member : membersOf(m_module, path)) {
            const VerilatorModule::Span nets =
                VerilatorModule::netsNamed(member.first.c_str() + 1, *module.body);
            if (nets.count == 1)
                add(member.second, nets.first);
        }
    }
    for (const pugi::xml_node &port : child.node.children("port")) {
        const std::string interface = interfaceNamed(givenInterface(port), scope);
        if (interface.empty())
            continue;
        const std::string inside(module.portName(port.attribute("name").value()));
        for (const auto &member : membersOf(module, inside)) {
            const auto outside = m_module.members.find(interface + member.first);
            if (outside != m_module.members.end())
                add(outside->second, member.second);
        }
    }
    return shared;
}

} // namespace QUARRY
