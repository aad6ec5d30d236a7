#include "gateware/verilogtext.h"

#include "model/jex/resourcetable.h"

namespace RTLJEX {

namespace {

QByteArray connected(const Connections &list)
{
    QByteArray lines;
    for (const Connection &connection : list)
        lines += (lines.isEmpty() ? "\n" : ",\n") + QByteArray("        .") + connection.first + "(" +
                 connection.second + ")";
    return lines + "\n    )";
}

} // namespace

QByteArray decimal(int number)
{
    return QByteArray::number(number);
}

QByteArray range(int width)
{
    return "[" + decimal(width - 1) + ":0]";
}

QByteArray binary(const QByteArray &digits)
{
    return decimal(digits.size()) + "'b" + digits;
}

QByteArray style(qint32 implementation)
{
    return QByteArray("\"") + JEX_TOOL::resourceOf(JEX::implementationOf(implementation))->style + "\"";
}

void add(Connections *list, const QByteArray &name, const QByteArray &value)
{
    list->append(Connection(name, value));
}

void add(Connections *list, const QByteArray &name, int value)
{
    add(list, name, decimal(value));
}

QByteArray instance(const QByteArray &module, const QByteArray &name, const Connections &parameters,
                    const Connections &ports)
{
    return "    " + module + " #(" + connected(parameters) + " " + name + " (" + connected(ports) + ";\n";
}

} // namespace RTLJEX
