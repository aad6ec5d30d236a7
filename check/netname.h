#pragma once

#include <QString>

#include "model/netlist/rtlmodule.h"

namespace RTLJEX {

// A stored full name taken apart: "top/u0/state[2:0]" is the path "top/u0", the base "state" and a range.
// A name with a separator of its own is taken for one with a longer path.
struct NetName
{
    QString path;
    QString base;
    int left = 0; // of the range, or the index of a bit
    int right = 0;
    enum { Plain, Bit, Range } form = Plain;

    NetName() {}
    explicit NetName(const QString &fullName);

    bool isBus() const { return form == Range; }
    QString fullBase() const { return path.isEmpty() ? base : path + QLatin1Char('/') + base; }

    // Whether a declaration has the width; for a bit, whether it has the bit.
    bool hasShapeOf(const QUARRY::RtlModule::Entry &entry) const;
    // Whether a declaration of the same base holds just this: the net, the bit, or the bus of that range in
    // either direction.
    bool isPartOf(const QUARRY::RtlModule::Entry &entry) const;
    // The full name that a declaration has in an instance; of its bit where this is one.
    QString in(const QUARRY::Hierachy &node, const QUARRY::RtlModule::Entry &entry) const;
};

} // namespace RTLJEX
