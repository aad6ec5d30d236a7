#pragma once

#include <QStringList>

#include "model/jex/jexfile.h"

// What stands in a configuration file as text: one line for each core, row, port, unit and expression that is
// in use, or what the reader says when it can not read the file.
namespace configtext {

inline QString row(const JEX::SignalItem &item)
{
    QString text = QString("%1 type %2").arg(item.name).arg(item.type);
    if (!item.alias.isEmpty())
        text += QString(" shown as '%1'").arg(item.alias);
    if (!item.capEnable)
        text += " disabled";
    QStringList members;
    for (const JEX::SignalItem &member : item.members)
        members << member.name.section('/', -1);
    return members.isEmpty() ? text : text + " = " + members.join(' ');
}

// What the cores of both modes have.
template <class Core>
QString head(const Core &core, int implementation)
{
    QString text = QString("core %1 clock %2 edge %3 implementation %4 amount %5, %6 of %7 rows enabled")
                       .arg(core.coreNumber)
                       .arg(core.sampleClock)
                       .arg(core.sampleEdge)
                       .arg(implementation)
                       .arg(core.captureAmount)
                       .arg(core.enabledCaptureSignals.size())
                       .arg(core.captureSignals.size());
    return text + (core.captureInitialData ? ", initial data" : "") +
           (core.topModuleName.isEmpty() ? QString() : ", top " + core.topModuleName);
}

template <class Core>
QStringList rows(const Core &core)
{
    QStringList lines;
    for (const JEX::SignalItem &item : core.captureSignals)
        lines << row(item);
    return lines;
}

inline QStringList lines(const JEX::AOCore_Lite &core)
{
    return QStringList(head(core, core.implementation)) + rows(core);
}

inline QStringList lines(const JEX::AoCore &core)
{
    QStringList lines(head(core, core.captureImplementation));
    lines += rows(core);
    for (const JEX::TriggerPort *port : core.availableTriggers()) {
        QStringList names;
        for (const JEX::SignalItem &item : port->signalItems)
            names << item.name;
        lines << QString("port %1: %2").arg(port->portNumber).arg(names.join(' '));
    }
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
