#pragma once

#include "elaboration/reading/verilatortypes.h"
#include "model/netlist/netlistbuilder.h"

#include <pugixml.hpp>

#include <cstring>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace QUARRY {

struct VerilatorModule;
struct VerilatorScope;

inline bool is(const pugi::xml_node &node, const char *name)
{
    return std::strcmp(node.name(), name) == 0;
}

const char interfaceReference[] =
    "__Viftop"; // behind the name of an interface's instance, where it is connected

// A node below a scope: an instance, an array of instances, or a generate scope.
struct VerilatorChild
{
    QString name;
    pugi::xml_node node;                      // <instance>; null for a generate scope
    VerilatorModule *module = nullptr;        // of the instance; null for a generate scope
    const VerilatorScope *generate = nullptr; // owned by the module
    bool isArray = false;
    int left = 0;
    int right = 0;

    int count() const { return isArray ? rangeWidth(left, right) : 1; }
    int index(int fromRight) const { return left < right ? right - fromRight : right + fromRight; }
};

// An unpacked array of which each element is a net.
struct VerilatorElements
{
    int first = 0; // number in VerilatorModule::nets; the others follow in declared order
    int count = 0;
    std::vector<VerilatorArray::Dimension> dimensions;
};

// The body of a module, or of one generate scope in it.
struct VerilatorScope
{
    const VerilatorScope *outer = nullptr;
    std::string path; // in the module, as Verilator writes it in front of names: "g." or empty
    int builderModule = -1;
    ModuleDecl decl;                                 // emptied once the builder has it
    std::unordered_map<std::string_view, int> names; // to numbers in VerilatorModule::nets
    std::unordered_map<std::string_view, VerilatorElements> arrays;
    std::vector<VerilatorChild> children; // in design order
    std::vector<pugi::xml_node> assigns;  // continuous assignments
};

// One net in any scope of a module.
struct VerilatorNet
{
    VerilatorNet() = default;
    VerilatorNet(const pugi::xml_node &var, const VerilatorType &type);

    std::string_view name; // as Verilator has it
    const VerilatorScope *scope = nullptr;
    int position = -1; // in the scope's ModuleDecl; -1: not shown
    bool isBus = false;
    int left = 0;
    int right = 0;
    bool isPort = false;
    bool isInout = false;
    bool isTied = false; // by its declaration

    int width() const { return isBus ? rangeWidth(left, right) : 1; }
    // Declared index of a bit counted from the least significant one.
    int bit(int fromRight) const { return left < right ? right - fromRight : right + fromRight; }
};

// Per bit of a net or expression, the least significant first: true when the bit is tied to a constant.
// Empty when no bit is.
using TiedBits = std::vector<bool>;
using TiedNets = std::unordered_map<int, TiedBits>; // by number of the net

// What the XML says about one module, shared by its instances.
struct VerilatorModule
{
    pugi::xml_node node;
    QString name; // as the user wrote it
    QString toolName;
    bool isBlackBox = false;
    bool isOpen = false; // an instance of it is being built: another below it would never end

    std::unique_ptr<VerilatorScope> body; // null until it is first needed
    std::vector<std::unique_ptr<VerilatorScope>> generates;
    std::vector<VerilatorNet> nets;
    std::unordered_map<int, std::string_view> pins; // names of ports, by position in the port list, from 1
    // Members of interfaces that the module has or is given, as far as anyone speaks of them: "g.bus.data" to
    // the number in `nets` of what stands for it.
    std::map<std::string, int> members;
    std::set<std::string> interfaces;                                 // "g.bus"
    std::map<std::string, VerilatorArray::Dimension> interfaceArrays; // whose elements are among those
    std::vector<std::string_view> interfacePorts;
    TiedNets driven;              // bits of these, and of an interface's own nets, that have a driver in here
    bool hasContested = false;    // the next member is filled
    TiedNets contested;           // bits with more than one driver, which no constant decides
    TiedNets tied;                // in every instance
    bool passesConstants = false; // one at an input may come out of an output
    // What is tied in instances of which these ports are; filled by VerilatorTies as it is asked for.
    std::map<std::vector<std::pair<int, TiedBits>>, TiedNets> tiedWith;

    void numberInterfacePorts(); // among `pins`, when all others are there

    // Numbers of nets: that of a scalar, or those of an array in declared order.
    struct Span
    {
        int first = -1; // it is no net
        int count = 0;
    };
    // The name of the port that a connection names, by its own name or as "__pinNumber3".
    std::string_view portName(std::string_view connection) const;
    static Span netsNamed(std::string_view name, const VerilatorScope &scope); // in it or around it
    VerilatorElements
    elementsOfPort(std::string_view connection) const; // without dimensions when it is no array
    template <typename Visit>
    void eachScope(Visit visit) const
    {
        visit(*body);
        for (const auto &scope : generates)
            visit(*scope);
    }
    Span netsOfPort(std::string_view connection) const { return netsNamed(portName(connection), *body); }
};

} // namespace QUARRY
