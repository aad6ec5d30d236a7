#pragma once

#include <QString>
#include <QStringList>

#include <memory>

#include "model/netlist/netlistbuilder.h"

// The large design that the figures are measured on: 1,000,000 bit nets in 3,000 instances of 1,000
// modules, full names of 46 characters. About two thirds of the bits are single nets, the rest buses of
// eight. The same design as a netlist and as Verilog sources.
class LargeDesign
{
public:
    LargeDesign();

    std::unique_ptr<QUARRY::RtlNetlist> netlist() const;
    // One file for every 100 modules, in `dir`; gives their paths. Empty when one cannot be written.
    QStringList writeVerilog(const QString &dir) const;

    static QString topName() { return QStringLiteral("top"); }

private:
    struct Instance
    {
        QString name;
        int module;
    };
    struct Module
    {
        QUARRY::ModuleDecl decl;
        QList<Instance> instances;
    };

    QByteArray verilog(const Module &module) const;
    void addChildren(QUARRY::NetlistBuilder &builder, QUARRY::Hierachy *node, int module) const;

    QList<Module> m_modules; // the top module first
};
