#pragma once

#include <QByteArray>
#include <QList>
#include <QPair>

#include "model/jex/codes.h"

namespace RTLJEX {

// Pieces of Verilog. All names and values come from this program, none of them from a file.

typedef QPair<QByteArray, QByteArray> Connection; // a port or parameter, and what it gets
typedef QList<Connection> Connections;
void add(Connections *list, const QByteArray &name, const QByteArray &value);
void add(Connections *list, const QByteArray &name, int value);

QByteArray decimal(int number);
QByteArray range(int width);                 // "[7:0]"
QByteArray binary(const QByteArray &digits); // "3'b01x"
QByteArray style(qint32 implementation);     // as the memories know it, in quotes
QByteArray instance(const QByteArray &module, const QByteArray &name, const Connections &parameters,
                    const Connections &ports);

} // namespace RTLJEX
