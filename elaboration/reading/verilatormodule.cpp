#include "elaboration/reading/verilatormodule.h"

#include <cstdlib>
#include <cstring>

namespace QUARRY {

VerilatorNet::VerilatorNet(const pugi::xml_node &var, const VerilatorType &type)
    : name(var.attribute("name").value()),
      isBus(type.isVector),
      left(type.left),
      right(type.right),
      isPort(var.attribute("dir")),
      isInout(std::strcmp(var.attribute("dir").value(), "inout") == 0)
{
}

// The tool does not number the ports that are interfaces: they are the ones that no other port is.
void VerilatorModule::numberInterfacePorts()
{
    int number = 1;
    for (const std::string_view &port : interfacePorts) {
        while (pins.count(number))
            ++number;
        pins[number] = port;
    }
}

std::string_view VerilatorModule::portName(std::string_view connection) const
{
    const std::string_view numbered = "__pinNumber";
    if (connection.substr(0, numbered.size()) != numbered)
        return connection;
    const auto pin = pins.find(std::atoi(connection.data() + numbered.size()));
    return pin == pins.end() ? std::string_view() : pin->second;
}

VerilatorModule::Span VerilatorModule::netsNamed(std::string_view name, const VerilatorScope &scope)
{
    for (const VerilatorScope *at = &scope; at; at = at->outer) {
        const auto net = at->names.find(name);
        if (net != at->names.end())
            return {net->second, 1};
        const auto array = at->arrays.find(name);
        if (array != at->arrays.end())
            return {array->second.first, array->second.count};
    }
    return {};
}

VerilatorElements VerilatorModule::elementsOfPort(std::string_view connection) const
{
    const auto array = body->arrays.find(portName(connection));
    return array == body->arrays.end() ? VerilatorElements() : array->second;
}

} // namespace QUARRY
