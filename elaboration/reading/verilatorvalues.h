#pragma once

#include "elaboration/reading/verilatormodule.h"

namespace QUARRY {

// What expressions in a module have of tied bits, and which nets they name. Refers to both, owns neither.
class VerilatorValues
{
public:
    // Bits of a net that an assignment or an output port drives.
    struct Target
    {
        int net;
        qint64 lowest;
        int width;
    };

    VerilatorValues(const VerilatorTypes &types, VerilatorModule &module);

    int width(const pugi::xml_node &expression) const;
    // Of an expression that stands in `scope`.
    TiedBits bits(const pugi::xml_node &expression, const VerilatorScope &scope, const TiedNets &tied) const;
    // Of what a <contassign> assigns.
    TiedBits assigned(const pugi::xml_node &assignment, const VerilatorScope &scope,
                      const TiedNets &tied) const;
    // Of the list of an array's elements, each that wide.
    TiedBits listed(const pugi::xml_node &list, const VerilatorElements &elements, int width,
                    const VerilatorScope &scope, const TiedNets &tied) const;
    // What the left side names. Appended with the least significant first.
    void addTargets(const pugi::xml_node &left, const VerilatorScope &scope,
                    std::vector<Target> &targets) const;

private:
    VerilatorModule::Span netsOf(const pugi::xml_node &reference, const VerilatorScope &scope) const;
    void addNets(VerilatorModule::Span nets, int width, std::vector<Target> &targets) const;
    int elementNumber(pugi::xml_node select, const VerilatorScope &scope) const;
    TiedBits selected(const pugi::xml_node &select, const VerilatorScope &scope, const TiedNets &tied) const;
    TiedBits joined(const pugi::xml_node &concat, const VerilatorScope &scope, const TiedNets &tied) const;
    TiedBits repeated(const pugi::xml_node &replicate, const VerilatorScope &scope,
                      const TiedNets &tied) const;
    TiedBits extended(const pugi::xml_node &extend, const VerilatorScope &scope, const TiedNets &tied) const;

    const VerilatorTypes &m_types;
    VerilatorModule &m_module;
};

// An array as one value: its first element in declared order has the highest bits.
TiedBits tiedOf(VerilatorModule::Span nets, const TiedNets &tied, const VerilatorModule &module);

} // namespace QUARRY
