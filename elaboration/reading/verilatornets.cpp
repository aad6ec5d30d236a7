#include "elaboration/reading/verilatordesign.h"

#include "elaboration/reading/verilatorloops.h"
#include "elaboration/reading/verilatornames.h"

#include <cstring>

// Which variables are nets of the design, and which only the language's or a tool's.

namespace QUARRY {

namespace {

// The loop variables of generate loops stand among the variables; the user's own are marked public.
bool isGenvar(const pugi::xml_node &var)
{
    return std::strcmp(var.attribute("vartype").value(), "integer") == 0 && !var.attribute("public");
}

} // namespace

bool VerilatorDesign::isNet(const pugi::xml_node &var, const VerilatorModule &module)
{
    return !var.attribute("param") && !var.attribute("localparam") && !isGenvar(var) &&
           !isVerilatorOwnName(var.attribute("origName").value()) && !isLoopVariable(var, module);
}

bool VerilatorDesign::isLoopVariable(const pugi::xml_node &var, const VerilatorModule &module)
{
    const char *type = var.attribute("vartype").value();
    if (std::strcmp(type, "integer") != 0 && std::strcmp(type, "int") != 0)
        return false;
    if (!m_loopVariablesKnown)
        m_loopVariables = verilatorLoopVariables(module.node);
    m_loopVariablesKnown = true;
    return m_loopVariables.count(var.attribute("name").value());
}

bool VerilatorDesign::isMadeUp(const pugi::xml_node &var) const
{
    const VerilogMaker *maker = fileOf(var).maker;
    if (!maker || var.attribute("dir"))
        return false;
    const QString name = QString::fromUtf8(var.attribute("name").value());
    return (maker->isOwnName && maker->isOwnName(name)) || m_outputWires.contains(name);
}

void VerilatorDesign::findOutputWires(const pugi::xml_node &body)
{
    for (const pugi::xml_node &instance : body.children("instance")) {
        for (const pugi::xml_node &port : instance.children("port")) {
            const QString wire = QString::fromUtf8(instance.attribute("name").value()) + QLatin1Char('_') +
                                 QString::fromUtf8(port.attribute("name").value());
            if (std::strcmp(port.attribute("direction").value(), "in") != 0)
                m_outputWires.insert(wire);
        }
    }
}

} // namespace QUARRY
