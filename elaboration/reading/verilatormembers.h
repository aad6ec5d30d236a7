#pragma once

#include "elaboration/reading/verilatormodule.h"

namespace QUARRY {

// The members of the interfaces that a module has or is given. What is said of them in the module is kept
// like what is said of its own nets: VerilatorModule::members. Refers to both, owns neither.
class InterfaceMembers
{
public:
    // A net of this module, and the net of an instance that is the same through an interface.
    struct Shared
    {
        int outside;
        int inside;
    };

    InterfaceMembers(const VerilatorTypes &types, VerilatorModule &module);

    void find() const; // those that the module speaks of; its instances' modules must have been asked
    // The net that stands for a member, which a <varxref> names; -1 when none does.
    int netOf(const pugi::xml_node &varxref, const VerilatorScope &scope) const;
    // Of an array of instances, with the element that stands there.
    std::vector<Shared> sharedWith(const VerilatorChild &child, const VerilatorScope &scope,
                                   int fromRight) const;
    static int elementCount(const VerilatorChild &child); // those that are looked at

private:
    // An interface, "g.bus", or those of an array in declared order.
    struct Interfaces
    {
        std::string path(int position) const;

        std::string name;
        int count = 0;
        bool isArray = false;
        int left = 0;
        int right = 0;
    };
    static Interfaces interfacesAt(const VerilatorModule &module, const std::string &path);
    Interfaces givenTo(const pugi::xml_node &port, const VerilatorScope &scope) const;
    // What a port of that element is given, and what it is inside.
    std::vector<std::pair<std::string, std::string>> given(const VerilatorChild &child,
                                                           const pugi::xml_node &port,
                                                           const VerilatorScope &scope, int fromRight) const;
    void addMembers(const VerilatorScope &scope) const;
    void addMembersIn(const pugi::xml_node &expression, const VerilatorScope &scope) const;
    void addMember(const std::string &path, const VerilatorNet &shape) const;
    static std::vector<std::pair<std::string, int>> membersOf(const VerilatorModule &module,
                                                              const std::string &interface);
    // Where the module has the interface of that name; empty when it has none.
    std::string interfaceNamed(const std::string &name, const VerilatorScope &scope) const;

    const VerilatorTypes &m_types;
    VerilatorModule &m_module;
};

} // namespace QUARRY
