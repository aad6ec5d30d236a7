#include "elaboration/reading/verilatorloops.h"

#include <cstring>

namespace QUARRY {
namespace {

bool is(const pugi::xml_node &node, const char *name)
{
    return std::strcmp(node.name(), name) == 0;
}

bool isInteger(const pugi::xml_node &var)
{
    const char *type = var.attribute("vartype").value();
    return (std::strcmp(type, "integer") == 0 || std::strcmp(type, "int") == 0) && !var.attribute("dir");
}

// The node behind this one and what is below it, in the order of the text; null at the end of `root`.
pugi::xml_node next(pugi::xml_node node, const pugi::xml_node &root)
{
    if (node.first_child())
        return node.first_child();
    while (node != root && !node.next_sibling())
        node = node.parent();
    return node == root ? pugi::xml_node() : node.next_sibling();
}

// The name of what an assignment writes to as a whole; empty for anything else.
std::string_view target(const pugi::xml_node &assignment)
{
    const pugi::xml_node left = assignment.first_child().next_sibling();
    if (!is(assignment, "assign") || !is(left, "varref"))
        return std::string_view();
    return left.attribute("name").value();
}

// Whether the loop counts by that variable: the assignment before it starts it, the last in it steps it.
bool counts(const pugi::xml_node &loop, std::string_view name)
{
    return is(loop, "while") && target(loop.previous_sibling()) == name &&
           target(loop.last_child().last_child()) == name;
}

bool isCounting(const pugi::xml_node &reference, const pugi::xml_node &module)
{
    const std::string_view name = reference.attribute("name").value();
    const pugi::xml_node assignment = reference.parent();
    if (target(assignment) == name && counts(assignment.next_sibling(), name))
        return true;
    for (pugi::xml_node outer = assignment; outer != module; outer = outer.parent()) {
        if (counts(outer, name))
            return true;
    }
    return false;
}

} // namespace

std::unordered_set<std::string_view> verilatorLoopVariables(const pugi::xml_node &module)
{
    std::unordered_set<std::string_view> integers;
    std::unordered_set<std::string_view> counting;
    for (pugi::xml_node node = module.first_child(); node; node = next(node, module)) {
        if (is(node, "var") && isInteger(node))
            integers.insert(node.attribute("name").value());
    }
    for (pugi::xml_node node = module.first_child(); node; node = next(node, module)) {
        const std::string_view name = node.attribute("name").value();
        if ((!is(node, "varref") && !is(node, "varxref")) || !integers.count(name))
            continue;
        counting.insert(name);
        if (!isCounting(node, module))
            integers.erase(name);
    }
    for (auto name = integers.begin(); name != integers.end();)
        name = counting.count(*name) ? std::next(name) : integers.erase(name);
    return integers;
}

} // namespace QUARRY
