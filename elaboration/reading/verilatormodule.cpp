#include "elaboration/reading/verilatormodule.h"

#include <cstdlib>

namespace QUARRY {

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
