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

int VerilatorModule::netOfPort(std::string_view port) const
{
    const std::string_view numbered = "__pinNumber";
    if (port.substr(0, numbered.size()) == numbered) {
        const auto pin = pins.find(std::atoi(port.data() + numbered.size()));
        return pin == pins.end() ? -1 : pin->second;
    }
    const auto net = body->names.find(port);
    return net == body->names.end() ? -1 : net->second;
}

} // namespace QUARRY
