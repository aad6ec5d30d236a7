#include "elaboration/reading/verilatorvalues.h"

#include "elaboration/reading/verilatormembers.h"

#include <cstring>

namespace QUARRY {
namespace {

// No design has more bits, and what a damaged text says of one expression must not take the memory.
int boundedWidth(int width)
{
    return int(qBound<qint64>(0, width, NetlistBuilder::maxNets));
}

// To a net or an array, an element of an array, or a member of an interface.
bool isReference(const pugi::xml_node &expression)
{
    return is(expression, "varref") || is(expression, "arraysel") || is(expression, "varxref");
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

} // namespace

TiedBits tiedOf(VerilatorModule::Span nets, const TiedNets &tied, const VerilatorModule &module)
{
    TiedBits all;
    bool isTied = false;
    for (int number = nets.first + nets.count - 1; number >= nets.first && nets.count > 0; --number) {
        const auto known = tied.find(number);
        isTied = isTied || known != tied.end();
        const size_t end = all.size() + size_t(module.nets[size_t(number)].width());
        if (known != tied.end())
            all.insert(all.end(), known->second.begin(), known->second.end());
        all.resize(end);
    }
    return isTied ? all : TiedBits();
}

VerilatorValues::VerilatorValues(const VerilatorTypes &types, VerilatorModule &module)
    : m_types(types), m_module(module)
{
}

int VerilatorValues::width(const pugi::xml_node &expression) const
{
    const char *const id = expression.attribute("dtype_id").value();
    const VerilatorType &type = m_types.type(id);
    if (type.isNet)
        return boundedWidth(type.width());
    const VerilatorArray array = m_types.array(id);
    return int(qMin<qint64>(array.count() * boundedWidth(array.element.width()), NetlistBuilder::maxNets));
}

VerilatorModule::Span VerilatorValues::netsOf(const pugi::xml_node &reference,
                                              const VerilatorScope &scope) const
{
    if (is(reference, "varref"))
        return VerilatorModule::netsNamed(reference.attribute("name").value(), scope);
    const int number = is(reference, "varxref") ? InterfaceMembers(m_types, m_module).netOf(reference, scope)
                                                : elementNumber(reference, scope);
    return {number, number < 0 ? 0 : 1};
}

// <arraysel> of an array, or of another one, and a number that counts from the lowest index.
int VerilatorValues::elementNumber(pugi::xml_node select, const VerilatorScope &scope) const
{
    std::vector<int> indices; // from the innermost dimension
    for (; is(select, "arraysel"); select = select.first_child()) {
        const pugi::xml_node index = select.first_child().next_sibling();
        if (!is(index, "const"))
            return -1;
        indices.push_back(number(index));
    }
    if (!is(select, "varref"))
        return -1;
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

TiedBits VerilatorValues::bits(const pugi::xml_node &expression, const VerilatorScope &scope,
                               const TiedNets &tied) const
{
    if (is(expression, "const"))
        return constantBits(expression);
    if (isReference(expression))
        return tied.empty() ? TiedBits() : tiedOf(netsOf(expression, scope), tied, m_module);
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
TiedBits VerilatorValues::selected(const pugi::xml_node &select, const VerilatorScope &scope,
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

TiedBits VerilatorValues::joined(const pugi::xml_node &concat, const VerilatorScope &scope,
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

// '{a, b}: <inititem index="1">, which counts from the lowest index. Lists of lists are left alone.
TiedBits VerilatorValues::listed(const pugi::xml_node &list, const VerilatorElements &elements, int width,
                                 const VerilatorScope &scope, const TiedNets &tied) const
{
    TiedBits all;
    if (elements.dimensions.size() != 1)
        return all;
    const bool isUp = elements.dimensions.front().left < elements.dimensions.front().right;
    for (const pugi::xml_node &item : list.children("inititem")) {
        const int index = item.attribute("index").as_int(-1);
        const int fromRight = isUp ? elements.count - 1 - index : index;
        const TiedBits part = bits(item.first_child(), scope, tied);
        if (index < 0 || index >= elements.count || part.empty())
            continue;
        all.resize(size_t(elements.count) * size_t(width));
        for (size_t i = 0; i < part.size() && i < size_t(width); ++i)
            all[size_t(fromRight) * size_t(width) + i] = part[i];
    }
    return all;
}

TiedBits VerilatorValues::repeated(const pugi::xml_node &replicate, const VerilatorScope &scope,
                                   const TiedNets &tied) const
{
    TiedBits once = bits(replicate.first_child(), scope, tied);
    if (!once.empty())
        once.resize(size_t(width(replicate.first_child())));
    if (once.empty())
        return once;
    TiedBits all(size_t(width(replicate)));
    for (size_t i = 0; i < all.size(); ++i)
        all[i] = once[i % once.size()];
    return all;
}

TiedBits VerilatorValues::extended(const pugi::xml_node &extend, const VerilatorScope &scope,
                                   const TiedNets &tied) const
{
    TiedBits all = bits(extend.first_child(), scope, tied);
    all.resize(size_t(width(extend.first_child())));
    const bool sign = is(extend, "extends") && !all.empty();
    all.resize(size_t(width(extend)), sign ? all.back() : true);
    return all;
}

void VerilatorValues::addNets(VerilatorModule::Span nets, int width, std::vector<Target> &targets) const
{
    if (nets.count <= 1)
        return targets.push_back({nets.first, 0, width});
    for (int net = nets.first + nets.count - 1; net >= nets.first; --net)
        targets.push_back({net, 0, m_module.nets[size_t(net)].width()});
}

void VerilatorValues::addTargets(const pugi::xml_node &left, const VerilatorScope &scope,
                                 std::vector<Target> &targets) const
{
    if (isReference(left)) {
        addNets(netsOf(left, scope), width(left), targets);
    } else if (is(left, "concat")) {
        addTargets(left.last_child(), scope, targets);
        addTargets(left.first_child(), scope, targets);
    } else if (is(left, "sel") && is(left.first_child().next_sibling(), "const") &&
               isReference(left.first_child())) {
        const VerilatorModule::Span nets = netsOf(left.first_child(), scope);
        targets.push_back(
            {nets.count == 1 ? nets.first : -1, number(left.first_child().next_sibling()), width(left)});
    } else {
        targets.push_back({-1, 0, width(left)});
    }
}

TiedBits VerilatorValues::assigned(const pugi::xml_node &assignment, const VerilatorScope &scope,
                                   const TiedNets &tied) const
{
    const pugi::xml_node value = assignment.first_child();
    if (!is(value, "initarray"))
        return bits(value, scope, tied);
    const VerilatorArray array = m_types.array(assignment.attribute("dtype_id").value());
    if (array.count() * boundedWidth(array.element.width()) > NetlistBuilder::maxNets)
        return TiedBits();
    return listed(value, {0, int(array.count()), array.dimensions}, array.element.width(), scope, tied);
}

} // namespace QUARRY
