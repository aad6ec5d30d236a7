#include "model/jex/storageneed.h"

#include <climits>

namespace JEX_TOOL {

namespace {

// Null for what is not made of memories.
const MemoryShape *shapesOf(const DeviceFamily &family, JEX::Implementation implementation)
{
    const MemoryShape *shapes = family.shapes[implementation];
    return shapes ? shapes : usualFamily().shapes[implementation];
}

// How many memories of this shape hold `depth` words of `width` bits, when all of them are used in it.
qint64 countOf(const MemoryShape &shape, int width, int depth)
{
    const qint64 columns = (qint64(width) + shape.width - 1) / shape.width;
    const qint64 rows = (qint64(depth) + shape.depth - 1) / shape.depth;
    return columns * rows;
}

} // namespace

// With W bits in a sample, the mark included:
//   memories    the least of ceil(depth / D) * ceil(W / B) over the shapes D x B of one memory
//   registers   depth * W
// An 18 Kbit block, say, is 16384x1, 8192x2, 4096x4, 2048x9, 1024x18 or 512x36, so 18 bits of 1024 samples
// take one and 19 take two. For a family without shadow memories these are 16x4.
StorageNeed storageNeed(const DeviceFamily &family, JEX::Implementation implementation, int signalCount,
                        int depth, bool adjusted)
{
    StorageNeed need;
    if (signalCount <= 0 || depth <= 0 || implementation == JEX::NoImplementation)
        return need;
    need.width = adjusted && signalCount < INT_MAX ? signalCount + 1 : signalCount;
    const MemoryShape *shape = shapesOf(family, implementation);
    qint64 least = shape ? countOf(*shape, need.width, depth) : qint64(need.width) * depth;
    for (; shape && shape->depth; ++shape) {
        const qint64 count = countOf(*shape, need.width, depth);
        if (count < least || need.shape.depth == 0) {
            least = count;
            need.shape = *shape;
        }
    }
    need.required = int(qMin<qint64>(least, INT_MAX));
    return need;
}

QString storageFormula(const StorageNeed &need, int depth)
{
    const QString samples = QString::number(depth);
    if (need.shape.depth == 0)
        return samples + QLatin1String(" x ") + QString::number(need.width);
    return QString::fromLatin1("ceil(%1 / %2) x ceil(%3 / %4)")
        .arg(samples)
        .arg(need.shape.depth)
        .arg(need.width)
        .arg(need.shape.width);
}

} // namespace JEX_TOOL
