#include "elaboration/tools/blackbox.h"

#include <QRegExp>

namespace QUARRY {
namespace {

// An escaped name is the same name, and may be a keyword.
QString escaped(const QString &name)
{
    return QLatin1Char('\\') + name + QLatin1Char(' ');
}

// The name of what the pin connects, which is among those of the box from now on.
QString enter(const DumpPin &pin, const char *prefix, QStringList &names, int *positional)
{
    if (!pin.position) {
        if (!names.contains(pin.name))
            names.append(pin.name);
        return pin.name;
    }
    *positional = qMax(*positional, pin.position);
    while (names.size() < *positional)
        names.append(QLatin1String(prefix) + QString::number(names.size() + 1));
    return names.at(pin.position - 1);
}

// .bus(b), .bus(b.modport) and .bus(array[0]) where b is an interface
QString interfaceOf(const DumpPin &pin, const DumpCell &cell, const DesignDump &dump)
{
    const QString known = dump.modules.at(cell.owner).interfaces.value(pin.reference);
    if (known.isEmpty() || pin.member.isEmpty())
        return known;
    for (const DumpModule &module : dump.modules) {
        if (module.name == known && module.ports.contains(pin.member))
            return known + QLatin1Char('.') + pin.member;
    }
    return QString(); // a signal of the interface
}

QString placeKey(int line, int column)
{
    return QString::number(line) + QLatin1Char(':') + QString::number(column);
}

} // namespace

void BlackBoxes::collect(const DesignDump &dump, const QStringList &missing)
{
    for (const DumpCell &cell : dump.cells) {
        if (!cell.resolved && missing.contains(cell.target))
            add(cell, dump);
    }
}

void BlackBoxes::place(const DumpPin &pin, const QString &box, const QString &port)
{
    m_places.insert(placeKey(pin.line, pin.column), qMakePair(box, port));
}

void BlackBoxes::add(const DumpCell &cell, const DesignDump &dump)
{
    if (!m_boxes.contains(cell.target))
        m_names.append(cell.target);
    Box &box = m_boxes[cell.target];
    for (const DumpPin &pin : cell.ports) {
        if (pin.name.isEmpty() && !pin.position)
            continue; // "u0()"
        const QString port = enter(pin, "port", box.ports, &box.positionalPorts);
        place(pin, cell.target, port);
        const QString interfaceName = interfaceOf(pin, cell, dump);
        if (!interfaceName.isEmpty())
            box.interfaces.insert(port, interfaceName);
    }
    for (const DumpPin &pin : cell.parameters) {
        const QString parameter = enter(pin, "PARAMETER", box.parameters, &box.positionalParameters);
        if (pin.isType)
            box.typeParameters.insert(parameter);
    }
}

bool BlackBoxes::adapt(const QList<ToolMessage> &errors)
{
    bool changed = false;
    for (const ToolMessage &error : errors) {
        const QPair<QString, QString> place = m_places.value(placeKey(error.line, error.column));
        if (!place.first.isEmpty() && adaptPort(m_boxes[place.first], place.second, error.text))
            changed = true;
    }
    return changed;
}

bool BlackBoxes::adaptPort(Box &box, const QString &port, const QString &error)
{
    // The tool wants to see an array, but takes one of any size.
    if (error.contains(QLatin1String("which is not an array")) && !box.arrays.contains(port)) {
        box.arrays.insert(port);
        return true;
    }
    // An array of instances splits a connection evenly, so that port must have the right width.
    QRegExp width(QLatin1String("as part of a module instance array requires (\\d+) or (\\d+) bits"
                                ".*generates (\\d+) bits"));
    if (width.indexIn(error) < 0)
        return false;
    const int portWidth = qMax(1, width.cap(1).toInt());
    const int instances = qMax(1, width.cap(2).toInt() / portWidth);
    const int wanted = qMax(1, width.cap(3).toInt() / instances);
    if (box.widths.value(port, 1) == wanted)
        return false;
    box.widths.insert(port, wanted);
    return true;
}

QByteArray BlackBoxes::sources() const
{
    QString text;
    for (const QString &name : m_names) {
        const Box box = m_boxes.value(name);
        QStringList parameters;
        for (const QString &parameter : box.parameters)
            parameters.append(box.typeParameters.contains(parameter)
                                  ? QLatin1String("parameter type ") + escaped(parameter) +
                                        QLatin1String("= logic")
                                  : QLatin1String("parameter ") + escaped(parameter) + QLatin1String("= 0"));
        QStringList ports;
        for (const QString &port : box.ports) {
            QString type = box.interfaces.value(port);
            if (type.isEmpty())
                type = QLatin1String("input logic [") + QString::number(box.widths.value(port, 1) - 1) +
                       QLatin1String(":0]");
            ports.append(type + QLatin1Char(' ') + escaped(port) +
                         QLatin1String(box.arrays.contains(port) ? "[1]" : ""));
        }
        text += QLatin1String("module ") + escaped(name);
        if (!parameters.isEmpty())
            text += QLatin1String("#(") + parameters.join(QLatin1String(", ")) + QLatin1String(") ");
        text += QLatin1Char('(') + ports.join(QLatin1String(", ")) + QLatin1String(");\nendmodule\n");
    }
    return text.toUtf8();
}

} // namespace QUARRY
