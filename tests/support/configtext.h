#pragma once

#include <QStringList>

#include "model/jex/jexfile.h"
#include "tests/support/signaltext.h"

// What stands in a configuration file as text: for each core a line of its settings, one of its capture rows
// and one for each port, unit and expression that is in use; or what the reader says when it can not read the
// file.
namespace configtext {

inline QString names(const QList<JEX::SignalItem> &items)
{
    QStringList names;
    for (const JEX::SignalItem &item : items)
        names << item.name;
    return names.join(' ');
}

// What the cores of both modes have.
template <class Core>
QStringList capture(const Core &core, int implementation)
{
    QStringList lines(QString("core %1 clock %2 edge %3 implementation %4 amount %5, %6 of %7 rows enabled")
                          .arg(core.coreNumber)
                          .arg(core.sampleClock)
                          .arg(core.sampleEdge)
                          .arg(implementation)
                          .arg(core.captureAmount)
                          .arg(core.enabledCaptureSignals.size())
                          .arg(core.captureSignals.size()));
    if (core.captureInitialData)
        lines[0] += ", initial data";
    if (!core.topModuleName.isEmpty())
        lines[0] += ", top " + core.topModuleName;
    return lines << toText(core.captureSignals);
}

inline QStringList lines(const JEX::AOCore_Lite &core)
{
    return capture(core, core.implementation);
}

inline QStringList lines(const JEX::AoCore &core)
{
    QStringList lines = capture(core, core.captureImplementation);
    for (const JEX::TriggerPort *port : core.availableTriggers())
        lines << QString("port %1: %2").arg(QString::number(port->portNumber), names(port->signalItems));
    for (const JEX::MatchUnit *unit : core.enabledMatchUnits())
        lines << QString("M%1 port %2 value %3")
                     .arg(unit->unitNumber)
                     .arg(unit->triggerPort ? unit->triggerPort->portNumber : -1)
                     .arg(unit->value);
    if (!core.expressions.isEmpty())
        lines << (core.triggerMode ? "static: " : "dynamic: ") + core.expressions.join(", ");
    return lines;
}

template <class Core>
QStringList allLines(const QList<Core *> &cores, bool ok, const QString &error)
{
    QStringList all;
    for (const Core *core : cores)
        all += lines(*core);
    qDeleteAll(cores);
    return ok ? all : QStringList(error);
}

} // namespace configtext

inline QStringList configText(const QString &path)
{
    bool ok = false;
    QString error;
    if (JEX::jexModeFromJexConfigFile(path) == JEX::StandardMode) {
        const QList<JEX::AoCore *> cores = JEX::readJEXConfigFromXml(path, &ok, &error);
        return configtext::allLines(cores, ok, error);
    }
    const QList<JEX::AOCore_Lite *> cores = JEX::readJEXConfigFromXml_Lite(path, &ok, &error);
    return configtext::allLines(cores, ok, error);
}
