#pragma once

#include <QHash>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include "elaboration/tools/vhdlscan.h"

namespace QUARRY {

// What stands in a parameter of a stand-in for a VHDL entity that its instance does not set.
extern const char unsetGeneric[];

// A set of generics that Verilog gives a VHDL entity. Values are known when Verilator has elaborated the
// design with stand-ins that have parameters: it makes one module for each set.
struct VhdlGenericSet
{
    QMap<QString, QString> values; // parameter as Verilog spells it, to Verilator's constant

    QString condition(const QStringList &parameters) const; // in Verilog, of all that the stand-in has
    // As GHDL takes them, NAME=VALUE. Those that cannot be given are added to `unknown`.
    QStringList arguments(const VhdlGenericList &generics, QStringList &unknown) const;
};

bool isVhdlVector(const QString &type);

// The sets of these stand-ins, each by its name, in the XML of the whole design.
QMap<QString, QList<VhdlGenericSet>> readVhdlGenerics(const QString &xmlFile, const QStringList &standIns);

} // namespace QUARRY
