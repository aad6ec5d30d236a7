#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace QUARRY {
struct Elaboration;
}

namespace Insertion {

// Where a test bench has the design.
struct BenchInstance
{
    QString path;           // "soc_tb.dut"
    QStringList parameters; // that the bench gives to it, NAME=VALUE
    QString fault;          // a finished sentence when it cannot be told; then all else is empty
};

// In the elaborated test bench. `wanted` is a path that the user named; empty: the only one.
BenchInstance findInstance(const QUARRY::Elaboration &bench, const QString &topModule, const QString &wanted);

} // namespace Insertion
