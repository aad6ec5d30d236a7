#pragma once

#include "elaboration/reading/verilatormembers.h"
#include "elaboration/reading/verilatorvalues.h"

namespace QUARRY {

// Finds the nets of a module that are tied to a constant: by their declaration, by a continuous
// assignment, through another tied net, or by what a port is connected to, outside or inside an instance.
// Logic is not folded, and a bit with a second driver is not tied. Refers to both, owns neither.
class VerilatorTies
{
public:
    // `depth`: of instances that were gone into already, to learn what passes through them.
    VerilatorTies(const VerilatorTypes &types, VerilatorModule &module, int depth = 0);

    // Fills what the module has of ties that depend on nothing outside.
    void findOwn() const;
    // All ties of an instance of which these ports are tied. Kept in the module.
    const TiedNets &withPorts(const TiedNets &ports) const;
    // The inputs of an instance that are tied outside of it. Of an array, those of the element
    // that stands at `fromRight`: a connection that is as wide as the ports of all elements together is dealt
    // out to them, the rightmost element taking the lowest bits; a narrower one goes to each.
    TiedNets portsOf(const VerilatorChild &child, const VerilatorScope &scope, const TiedNets &tied,
                     int fromRight) const;

private:
    // Whether anything in the module is a constant at all; of most modules no more needs to be known.
    bool anyConstant() const;
    // Bits that more than one declaration, assignment or output port drives.
    TiedNets contested() const;
    // Ties that hold in every instance.
    TiedNets inEveryInstance() const;
    // Adds what follows from ties that are known already, such as those of an instance's ports.
    void follow(TiedNets &tied) const;
    bool passesConstants() const;
    const TiedNets &tiedIn(const VerilatorChild &child, const VerilatorScope &scope, const TiedNets &tied,
                           int fromRight) const;
    using Drivers = std::unordered_map<int, std::vector<int>>; // drivers of each bit, by number of the net

    void findContested() const;
    void findDriven() const; // of the members of interfaces
    void count(const pugi::xml_node &left, const VerilatorScope &scope, Drivers &drivers) const;
    void addDrivers(int net, const TiedBits &driven, Drivers &drivers) const;
    void countScope(const VerilatorScope &scope, Drivers &drivers) const;
    bool assign(const pugi::xml_node &assignment, const VerilatorScope &scope, TiedNets &tied) const;
    bool drive(const pugi::xml_node &left, const TiedBits &value, const VerilatorScope &scope,
               TiedNets &tied) const;
    TiedBits outputOf(const VerilatorChild &child, const pugi::xml_node &port,
                      const std::vector<const TiedNets *> &inside) const;
    bool takeOutputs(const VerilatorScope &scope, TiedNets &tied) const;
    bool assignAll(const VerilatorScope &scope, TiedNets &tied) const;
    bool set(int net, qint64 bit, TiedNets &tied) const;

    const VerilatorTypes &m_types;
    VerilatorModule &m_module;
    const VerilatorValues m_values;
    const InterfaceMembers m_members;
    const int m_depth;
};

} // namespace QUARRY
