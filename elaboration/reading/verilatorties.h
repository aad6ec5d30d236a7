#pragma once

#include "elaboration/reading/verilatormodule.h"

namespace QUARRY {

class VerilatorTypes;

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
    // The inputs of an instance that are tied outside of it. Of an array of `count`, those of the element
    // that stands at `fromRight`: a connection that is as wide as the ports of all elements together is dealt
    // out to them, the rightmost element taking the lowest bits; a narrower one goes to each.
    TiedNets portsOf(const VerilatorChild &child, const VerilatorScope &scope, const TiedNets &tied,
                     int fromRight, int count) const;

private:
    // Whether anything in the module is a constant at all; of most modules no more needs to be known.
    bool anyConstant() const;
    // Bits that more than one declaration, assignment or output port drives.
    TiedNets contested() const;
    // Ties that hold in every instance.
    TiedNets inEveryInstance() const;
    // Adds what follows from ties that are known already, such as those of an instance's ports.
    void follow(TiedNets &tied) const;
    // The bits of an expression that stands in `scope`.
    TiedBits bits(const pugi::xml_node &expression, const VerilatorScope &scope, const TiedNets &tied) const;
    bool passesConstants() const;
    const TiedNets &tiedIn(const VerilatorChild &child, const VerilatorScope &scope,
                           const TiedNets &tied) const;
    void findContested() const;
    // Bits of a net that an assignment or an output port drives.
    struct Target
    {
        int net;
        qint64 lowest;
        int width;
    };
    using Drivers = std::unordered_map<int, std::vector<int>>; // drivers of each bit, by number of the net

    int width(const pugi::xml_node &expression) const;
    int netNumber(const pugi::xml_node &varref, const VerilatorScope &scope) const;
    // Appended with the least significant first.
    void addTargets(const pugi::xml_node &left, const VerilatorScope &scope,
                    std::vector<Target> &targets) const;
    void count(const pugi::xml_node &left, const VerilatorScope &scope, Drivers &drivers) const;
    void countScope(const VerilatorScope &scope, Drivers &drivers) const;
    int elementNumber(pugi::xml_node select, const VerilatorScope &scope) const;
    TiedBits selected(const pugi::xml_node &select, const VerilatorScope &scope, const TiedNets &tied) const;
    TiedBits joined(const pugi::xml_node &concat, const VerilatorScope &scope, const TiedNets &tied) const;
    TiedBits repeated(const pugi::xml_node &replicate, const VerilatorScope &scope,
                      const TiedNets &tied) const;
    TiedBits extended(const pugi::xml_node &extend, const VerilatorScope &scope, const TiedNets &tied) const;
    bool assign(const pugi::xml_node &assignment, const VerilatorScope &scope, TiedNets &tied) const;
    bool drive(const pugi::xml_node &left, const TiedBits &value, const VerilatorScope &scope,
               TiedNets &tied) const;
    bool takeOutputs(const VerilatorScope &scope, TiedNets &tied) const;
    bool assignAll(const VerilatorScope &scope, TiedNets &tied) const;
    bool set(int net, qint64 bit, TiedNets &tied) const;
    template <typename Visit>
    void eachScope(Visit visit) const;

    const VerilatorTypes &m_types;
    VerilatorModule &m_module;
    const int m_depth;
};

} // namespace QUARRY
