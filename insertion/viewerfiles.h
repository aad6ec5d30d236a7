#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include "gateware/windowtext.h"
#include "insertion/analyzer.h"

namespace QUARRY {
class RtlNetlist;
}

namespace Insertion {

// What makes GTKWave show a waveform as the editor shows its cores: a save file with the rows in the order of
// the list, groups, display names and a marker at each trigger, and a file of labels for each enumeration. By
// their names in the folder of the waveform, which is called `waveform` there; empty where that name cannot
// have any beside it.
QMap<QString, QByteArray> viewerFiles(const QString &waveform, const Analyzer &analyzer,
                                      const QList<RTLJEX::CapturedCore> &captured,
                                      const QUARRY::RtlNetlist &netlist);

// The save file beside that waveform, by its path.
QString viewerFile(const QString &waveform);

// Whether such a file may be written there. One that somebody else made, or that GTKWave saved since, stays.
bool isOurViewerFile(const QString &path);

} // namespace Insertion
