#pragma once

#include "elaboration/reading/verilatormodule.h"
#include "elaboration/reading/vhdlplaces.h"
#include "elaboration/reading/vhdlscopes.h"

#include <QHash>

namespace QUARRY {

// Finds the signals and instances of a VHDL entity in the module that GHDL made of it, where the one
// named "s" in round 3 of "gen" is "gen_n1_s" or the like. Refers to both.
class VhdlBody
{
public:
    VhdlBody(const VerilatorModule &module, const VhdlPlaceTable &places);

    struct Signals
    {
        ModuleDecl decl;
        struct Net
        {
            int number = -1; // of the net of the module; -1: GHDL dropped it
            int offset = 0;  // of its bits there
        };
        std::vector<Net> nets; // for each of the declared ones
    };

    // What a scope declares, and where when `places` is not null. A signal of unknown shape that the module
    // has not is left out.
    Signals declared(const VhdlScope &scope, const VhdlPlaces *places, const QString &prefix,
                     const QString &name) const;
    // What the children's names begin with in the module, in the order of the children.
    std::vector<QString> childKeys(const VhdlScope &scope, const QString &prefix) const;
    const VerilatorChild *instance(const QString &key) const; // null: no instance of that name

private:
    bool fits(const VhdlSignal &signal, int net) const; // -1: none
    int known(const VhdlScope &scope, const QString &key) const;
    int knownRounds(const VhdlScope &scope, size_t first, size_t end, const QString &prefix,
                    bool &isDownwards) const;
    void addElements(const VhdlSignal &signal, const QString &name, const Declaration &place,
                     const QString &key, Signals &result) const;
    Signals::Net net(const QString &key, int width) const;
    void addRecordPort(const QString &name, Declaration place, Signals &result) const;

    const VerilatorModule &m_module;
    const VhdlPlaceTable &m_places;
    QHash<QString, int> m_nets; // names in small letters: VHDL knows no case
    QHash<QString, const VerilatorChild *> m_instances;
    mutable int m_looked = 0; // scopes that known() looked into
};

} // namespace QUARRY
