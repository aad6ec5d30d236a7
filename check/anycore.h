#pragma once

#include <QList>
#include <QString>

#include "model/jex/modes.h"

namespace RTLJEX {

// A core of any mode: what all have, and the core itself for who visits it. Points into the
// configuration.
struct AnyCore
{
    // Calls visitor(core), which has an overload for each mode or is a template.
    template <class Visitor>
    auto visit(const Visitor &visitor) const
    {
        return std::visit([&visitor](auto *record) { return visitor(*record); }, core);
    }
    // The core, for who knows its mode.
    template <class Core>
    Core &as() const
    {
        return *std::get<Core *>(core);
    }

    int number = 0;
    int shown = 0; // how the check names it: its number, in Lite files its position
    QString *clock = nullptr;
    QString *topModule = nullptr;
    QList<JEX::SignalItem> *signalRows = nullptr;
    QList<JEX::SignalItem> *enabledRows = nullptr;
    QList<JEX::TriggerPort *> ports;                            // none in a Lite file
    int depth = 0;                                              // samples that are stored
    JEX::Implementation implementation = JEX::NoImplementation; // of what the samples are stored in
    qint32 edge = JEX::RisingEdge;
    JEX::CorePointer core;
    JEX::AoCore *standard = nullptr; // the core when it has a trigger, which those of Lite files do not
};

// Of all cores, in their order.
QList<AnyCore> anyCores(const JEX::CoreList &cores);

} // namespace RTLJEX
