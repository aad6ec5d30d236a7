#include "check/snapshot.h"
#include "check/configuration.h"
#include "tests/fuzz/fuzz.h"

#include <memory>

using namespace RTLJEX;

namespace {

// What was unpacked is packed into the same.
template <class Core>
void repack(const CoreSnapshot &packed)
{
    JEX::LeftOut leftOut;
    const std::unique_ptr<Core> core(unpackCore<Core>(packed, &leftOut));
    if (!core)
        return;
    for (int unit : leftOut.units)
        Fuzz::claim(unit >= 0 && unit < JEX::UnitCount, "there are such units");
    CoreSnapshot again, twice;
    Fuzz::claim(packCore(core.get(), leftOut, &again), "what was unpacked can be packed");
    Fuzz::claim(again.rest == packed.rest && again.number == packed.number, "it says the same again");
    const std::unique_ptr<Core> same(unpackCore<Core>(again, &leftOut));
    Fuzz::claim(same && packCore(same.get(), leftOut, &twice) && twice.zub == again.zub,
                "and so it does once more");
}

} // namespace

// A state of an editor, as it may lie in a file after a crash. A digest stands before each core; it is put
// right first, or no text that was made up would get further.
void Fuzz::look(const QByteArray &bytes)
{
    Snapshot snapshot;
    if (!Snapshot::fromBytes(bytes, &snapshot))
        return;
    Fuzz::claim(snapshot.toBytes().size() <= bytes.size() + 9 * snapshot.file.size(),
                "it takes no more room");
    for (CoreSnapshot core : snapshot.cores) {
        core.digest = snapshotDigest(core);
        repack<JEX::AoCore>(core);
        repack<JEX::AOCore_Lite>(core);
    }
    Configuration configuration;
    const bool isRead = readSnapshot(snapshot, &configuration);
    Fuzz::claim(isRead != configuration.cores().isEmpty(), "all cores or none");
}
