#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

namespace RTLJEX {

// A trigger expression of a file, for the core: as logic, and as a truth table.
class Expression
{
public:
    explicit Expression(const QString &text);

    bool isValid() const { return !m_rpn.isEmpty(); } // all else is for valid ones
    QList<int> units() const;                         // that it names, each as often as it stands there
    // Over the wires "match[0]" and so on, all operations in brackets.
    QByteArray logic() const;
    // As digits of a Verilog number of 2^n bits, n being the number of units: bit i is the result when just
    // those units match whose bit in i is set, bit 0 being the first unit's.
    QByteArray table(const QList<int> &units) const;

private:
    bool holds(const QList<int> &units, int matching) const;

    QStringList m_rpn;
};

} // namespace RTLJEX
