#include "bench/bench.h"
#include "bench/context.h"
#include "model/netlist/rtlmodule.h"

#include <malloc.h>

#include <cstring>

using namespace QUARRY;

namespace {

double allocatedBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks) + double(info.hblkhd);
}

// Full names of all single nets, each into the same buffer.
void composeIntoBuffer(const Hierachy *node, QString &buffer)
{
    const RtlModule &module = node->declarations();
    const QString &path = node->fullPathName();
    for (const RtlModule::Entry &entry : module.entries()) {
        if (entry.isBus)
            continue;
        buffer.resize(path.size() + 1 + int(entry.textLength));
        QChar *out = buffer.data();
        memcpy(out, path.constData(), size_t(path.size()) * sizeof(QChar));
        out[path.size()] = QLatin1Char('/');
        memcpy(out + path.size() + 1, module.nameOf(entry), entry.textLength * sizeof(QChar));
        keep(buffer);
    }
    for (const Hierachy *child : node->children)
        composeIntoBuffer(child, buffer);
}

} // namespace

void measureNetlist(Context &context)
{
    const double before = allocatedBytes();
    context.netlist = context.design.netlist();
    const double bytes = allocatedBytes() - before;
    print({"Memory of the netlist, bytes a bit net", bytes / 1e6, 0, 48, "B"});

    const Hierachy *top = context.netlist->topHierarchy;
    const QList<RtlNet *> nets = top->singleNetsIncludeSub();
    QString buffer;
    buffer.reserve(200);
    const double perNet = 1e6 / double(nets.size());
    const auto nameAll = [&] {
        for (const RtlNet *net : nets)
            keep(net->fullPathName());
    };
    const Times times = inTurn(7, nameAll, [&] { composeIntoBuffer(top, buffer); });
    print({"fullPathName() | composed into a reused buffer", times.figure * perNet, times.limit * perNet, 3.5,
           "ns"});
}
