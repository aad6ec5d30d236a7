#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "model/jex/signalitem.h"

class QMimeData;
namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

// Signals by their names, as a user has them in a text, and signals on the clipboard.

// The records of the nets and buses of these names, in that order. A bus may be named without its range, and
// levels may be separated by dots and preceded by others, as waveforms and logs have them: "tb.top.u0.count".
// A sentence for each that the design (null: it has nothing) lacks, or that must not be probed.
QList<JEX::SignalItem> signalsNamed(const QUARRY::RtlNetlist *netlist, const QStringList &names,
                                    QStringList *faults);

// One name a line; what follows a tab is not part of it, and a line that begins with "#" names none.
QStringList signalNames(const QString &text);

// The records with all that the user made of them, and their names as text for other programs. The caller's.
QMimeData *dataOfSignals(const QList<JEX::SignalItem> &items);
// What another editor or program put there. A sentence for what the design does not have.
QList<JEX::SignalItem> signalsOfData(const QMimeData &data, const QUARRY::RtlNetlist *netlist,
                                     QStringList *faults);

} // namespace RTLJEX
