#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace Insertion {

class RtlilDesign;
struct Tap;

// What is added to the text of a design: one output port for each tap in every module on the way up, and in
// the top module the cell that holds all cores, with the control port as ports of the top module.
struct Surgery
{
    QByteArray prefix;      // "jex", or more where the design uses names that begin so: of all that is added
    QByteArray coresModule; // of the cell
    QList<QByteArray> inputs; // of the control port, of one bit each, without the prefix: "clock"
    QList<QByteArray> outputs;

    QByteArray tapName(int tap) const { return prefix + "_tap_" + QByteArray::number(tap); }
};

QByteArray freePrefix(const RtlilDesign &design);
void insertTaps(RtlilDesign &design, const QList<Tap> &taps, const Surgery &surgery);

} // namespace Insertion
