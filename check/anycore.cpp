#include "check/anycore.h"

namespace RTLJEX {

namespace {

void addOwn(JEX::AoCore *core, AnyCore *any)
{
    any->shown = core->coreNumber;
    any->ports = core->triggerPorts;
    any->depth = core->storageSize;
    any->implementation = JEX::implementationOf(core->captureImplementation);
    any->standard = core;
}

// What has no trigger.
template <class Core>
void addOwn(Core *core, AnyCore *any)
{
    any->depth = core->captureAmount;
    any->implementation = JEX::implementationOf(core->implementation);
}

template <class Core>
AnyCore anyCore(Core *core, int position)
{
    AnyCore any;
    any.number = core->coreNumber;
    any.shown = position;
    any.clock = &core->sampleClock;
    any.topModule = &core->topModuleName;
    any.signalRows = &core->captureSignals;
    any.enabledRows = &core->enabledCaptureSignals;
    any.edge = core->sampleEdge;
    any.core = core;
    addOwn(core, &any);
    return any;
}

} // namespace

QList<AnyCore> anyCores(const JEX::CoreList &cores)
{
    return std::visit(
        [](const auto &list) {
            QList<AnyCore> found;
            for (auto *core : list)
                found << anyCore(core, found.size());
            return found;
        },
        cores);
}

} // namespace RTLJEX
