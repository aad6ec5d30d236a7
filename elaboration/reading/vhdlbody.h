#pragma once

#include "elaboration/reading/verilatormodule.h"
#include "elaboration/reading/vhdlplaces.h"
#include "elaboration/reading/vhdlscopes.h"

#include <QHash>

namespace QUARRY {

// Finds the signals and instances of a VHDL entity in the module that GHDL made of it, where the one
// named "s" in round 3 of "gen" is "gen_n1_s" or the like. Refers to the module.
class VhdlBody
{
public:
    explicit VhdlBody(const VerilatorModule &module);

    struct Signals
    {
        ModuleDecl decl;
        std::vector<int> nets; // for each, the number of the net of the module; -1: GHDL dropped it
    };

    // What a scope declares, and where when `places` is not null. A signal of unknown shape that the module
    // has not is left out.
    Signals declared(const VhdlScope &scope, const VhdlPlaces *places, const QString &prefix,
                     const QString &name) const;
    // What the children's names begin with in the module, in the order of the children.
    std::vector<QString> childKeys(const VhdlScope &scope, const QString &prefix) const;
    const VerilatorChild *instance(const QString &key) const; // null: no instance of that name

private:
    int known(const VhdlScope &scope, const QString &key) const;
    int knownRounds(const VhdlScope &scope, size_t first, size_t end, const QString &prefix,
                    bool &isDownwards) const;
    void addRecordPort(const QString &name, Declaration place, Signals &result) const;

    const VerilatorModule &m_module;
    QHash<QString, int> m_nets; // names in small letters: VHDL knows no case
    QHash<QString, const VerilatorChild *> m_instances;
    mutable int m_looked = 0; // scopes that known() looked into
};

} // namespace QUARRY
