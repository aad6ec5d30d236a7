#pragma once

#include <pugixml.hpp>

#include <string_view>
#include <unordered_set>

namespace QUARRY {

// The integers that a module declares outside of procedures and uses for nothing but to count loops: no
// hardware holds them. The names belong to the document.
std::unordered_set<std::string_view> verilatorLoopVariables(const pugi::xml_node &module);

} // namespace QUARRY
