#include "elaboration/tools/toollimits.h"

#include <QByteArray>
#include <QFile>

namespace QUARRY {
namespace {

qint64 memorySet = 0;

qint64 numberOf(const char *variable)
{
    bool ok = false;
    const qint64 number = qgetenv(variable).toLongLong(&ok);
    return ok && number > 0 ? number : 0;
}

// Bytes, from a line like "MemAvailable:   16259584 kB".
qint64 freeMemory()
{
    QFile file(QLatin1String("/proc/meminfo"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("MemAvailable:"))
            return line.mid(13).simplified().split(' ').first().toLongLong() << 10;
    }
    return 0;
}

} // namespace

qint64 toolMemoryLimit()
{
    const qint64 chosen = memorySet > 0 ? memorySet : numberOf("JEX_TOOL_MEMORY") << 20;
    if (chosen > 0)
        return chosen;
    const qint64 most = qint64(8) << 30;
    const qint64 half = freeMemory() / 2;
    return half > 0 ? qMin(half, most) : most;
}

void setToolMemoryLimit(qint64 bytes)
{
    memorySet = bytes;
}

int toolTimeLimit()
{
    const qint64 seconds = numberOf("JEX_TOOL_TIMEOUT");
    return seconds > 0 ? int(qMin(seconds, qint64(1000000))) : 600;
}

qint64 toolDiskLimit()
{
    const qint64 chosen = numberOf("JEX_TOOL_DISK") << 20;
    return chosen > 0 ? chosen : qint64(2) << 30;
}

} // namespace QUARRY
