#include "gateware/coretext.h"

#include <QFile>

// Outside of the namespace, as the macro demands. A static library's resources come along for who asks.
static void initGateware()
{
    Q_INIT_RESOURCE(gateware);
}

namespace RTLJEX {

namespace {

QByteArray sourceText(const QByteArray &name)
{
    initGateware();
    QFile file(QLatin1String(":/gateware/") + QLatin1String(name.constData()));
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

} // namespace

QByteArray gatewareSources()
{
    const char *const names[] = {"input",   "delay",  "unit",         "table",   "levels",
                                 "control", "memory", "counter_sync", "readout", "capture"};
    QByteArray all;
    for (const char *name : names)
        all += sourceText(QByteArray("rtl/jex_") + name + ".v") + '\n';
    return all;
}

QByteArray readerSource()
{
    return sourceText("simulation/jex_reader.v");
}

} // namespace RTLJEX
