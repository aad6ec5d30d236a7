#pragma once

#include <QString>

#include <memory>

#include "model/netlist/rtlnetlist.h"

// A design that is wide where the large one is deep: 100,000 instances of two nets in one module, and a
// module of 100,000 nets. The same as a netlist and as Verilog.
class WideDesign
{
public:
    static const int width = 100000;

    std::unique_ptr<QUARRY::RtlNetlist> netlist() const;
    // Gives the path of the file, in `dir`; empty when it cannot be written.
    QString writeVerilog(const QString &dir) const;

    static QString topName() { return QStringLiteral("top"); }
    static int bits() { return 3 * width + 1; }

private:
    static QString cell(int number);
    static QString flag(int number);
};
