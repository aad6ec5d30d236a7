#include "elaboration/reading/verilatormembers.h"

#include <cstring>

namespace QUARRY {
namespace {

// Of an array of interfaces or instances: what passes through others is not known.
const int mostElements = 1000;

bool isInterface(const VerilatorChild &child)
{
    return child.module && is(child.module->node, "iface");
}

std::string nameOf(const VerilatorChild &child)
{
    return child.node.attribute("name").value();
}

// "bus__BRA__1__KET__", as Verilator writes "bus[1]"; a minus is "__02D" there.
std::string elementOf(const std::string &array, int index)
{
    const std::string number = (index < 0 ? "__02D" : "") + std::to_string(qAbs(qint64(index)));
    return array + "__BRA__" + number + "__KET__";
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
            if (isInterface(child) && !child.isArray)
                m_module.interfaces.insert(scope.path + nameOf(child));
            else if (isInterface(child))
                m_module.interfaceArrays.emplace(scope.path + nameOf(child),
                                                 VerilatorArray::Dimension{child.left, child.right});
        }
    });
    for (const auto &array : m_module.interfaceArrays) {
        m_module.interfaces.erase(array.first);
        const Interfaces elements = interfacesAt(m_module, array.first);
        for (int i = 0; i < elements.count; ++i)
            m_module.interfaces.insert(elements.path(i));
    }
    if (!m_module.interfaces.empty())
        m_module.eachScope([this](const VerilatorScope &scope) { addMembers(scope); });
}

int InterfaceMembers::elementCount(const VerilatorChild &child)
{
    return qMin(child.count(), mostElements);
}

std::string InterfaceMembers::Interfaces::path(int position) const
{
    return isArray ? elementOf(name, left < right ? left + position : left - position) : name;
}

InterfaceMembers::Interfaces InterfaceMembers::interfacesAt(const VerilatorModule &module,
                                                            const std::string &path)
{
    const auto array = module.interfaceArrays.find(path);
    if (array == module.interfaceArrays.end())
        return {path, 1, false, 0, 0};
    const int left = array->second.left;
    const int right = array->second.right;
    return {path, qMin(rangeWidth(left, right), mostElements), true, left, right};
}

// The interfaces of this module that a port is given; none when it is given anything else.
InterfaceMembers::Interfaces InterfaceMembers::givenTo(const pugi::xml_node &port,
                                                       const VerilatorScope &scope) const
{
    const pugi::xml_node value = port.first_child();
    const bool isElement = is(value, "arraysel");
    const pugi::xml_node reference = isElement ? value.first_child() : value;
    if (port.attribute("direction") || !is(reference, "varref"))
        return {};
    const std::string name = reference.attribute("name").value();
    const std::string path = interfaceNamed(name.substr(0, name.find(interfaceReference)), scope);
    if (!isElement)
        return path.empty() ? Interfaces() : interfacesAt(m_module, path);
    const auto array = m_module.interfaceArrays.find(path);
    const pugi::xml_node index = reference.next_sibling();
    if (array == m_module.interfaceArrays.end() || !is(index, "const"))
        return {};
    const qint64 lowest = qMin(array->second.left, array->second.right); // from which the index counts
    const std::string element =
        elementOf(path, int(lowest + VerilatorConstant(index.attribute("name").value()).number()));
    return m_module.interfaces.count(element) ? interfacesAt(m_module, element) : Interfaces();
}

// An array is dealt out to an array of instances, or given to each as a whole; of the latter the first
// instances alone are looked at, since the pairs are those of all of them.
std::vector<std::pair<std::string, std::string>> InterfaceMembers::given(const VerilatorChild &child,
                                                                         const pugi::xml_node &port,
                                                                         const VerilatorScope &scope,
                                                                         int fromRight) const
{
    const Interfaces outside = givenTo(port, scope);
    std::vector<std::pair<std::string, std::string>> pairs;
    if (outside.count == 0 || !child.module)
        return pairs;
    const Interfaces inside =
        interfacesAt(*child.module, std::string(child.module->portName(port.attribute("name").value())));
    const qint64 before = qint64(inside.count) * fromRight;
    const bool isDealt = outside.count == qint64(inside.count) * child.count();
    if ((!isDealt && outside.count != inside.count) || before >= mostElements)
        return pairs;
    const int first = isDealt ? outside.count - inside.count - int(before) : 0;
    for (int i = 0; i < inside.count; ++i)
        pairs.emplace_back(outside.path(first + i), inside.path(i));
    return pairs;
}

// Those that expressions name, and those that instances name which are given the interface.
void InterfaceMembers::addMembers(const VerilatorScope &scope) const
{
    for (const pugi::xml_node &assignment : scope.assigns)
        addMembersIn(assignment, scope);
    for (const VerilatorChild &child : scope.children) {
        for (const pugi::xml_node &port : child.node.children("port")) {
            addMembersIn(port, scope);
            const int count = givenTo(port, scope).count > 0 ? elementCount(child) : 0;
            for (int i = 0; i < count; ++i) {
                for (const auto &pair : given(child, port, scope, i)) {
                    for (const auto &member : membersOf(*child.module, pair.second))
                        addMember(pair.first + member.first, child.module->nets[size_t(member.second)]);
                }
            }
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
        if (m_module.interfaces.count(at->path + name) || m_module.interfaceArrays.count(at->path + name))
            return at->path + name;
    }
    return std::string();
}

std::vector<InterfaceMembers::Shared>
InterfaceMembers::sharedWith(const VerilatorChild &child, const VerilatorScope &scope, int fromRight) const
{
    std::vector<Shared> shared;
    if (m_module.members.empty() || !child.module || fromRight >= elementCount(child))
        return shared;
    const VerilatorModule &module = *child.module;
    const auto add = [&](int outside, int inside) {
        if (m_module.nets[size_t(outside)].width() == module.nets[size_t(inside)].width())
            shared.push_back({outside, inside});
    };
    if (isInterface(child)) {
        const std::string path = scope.path + nameOf(child);
        for (const auto &member :
             membersOf(m_module, child.isArray ? elementOf(path, child.index(fromRight)) : path)) {
            const VerilatorModule::Span nets =
                VerilatorModule::netsNamed(member.first.c_str() + 1, *module.body);
            if (nets.count == 1)
                add(member.second, nets.first);
        }
    }
    for (const pugi::xml_node &port : child.node.children("port")) {
        for (const auto &pair : given(child, port, scope, fromRight)) {
            for (const auto &member : membersOf(module, pair.second)) {
                const auto outside = m_module.members.find(pair.first + member.first);
                if (outside != m_module.members.end())
                    add(outside->second, member.second);
            }
        }
    }
    return shared;
}

} // namespace QUARRY
