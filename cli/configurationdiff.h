#pragma once

#include <QList>
#include <QString>

#include "check/configuration.h"
#include "cli/json.h"

namespace Cli {

// One thing that differs between two configurations.
struct Difference
{
    int core = -1; // number of the core; -1: of the file
    QString place; // "capture", "trigger port 2", "match unit M3", "group_0[3:0]"; empty: of the core itself
    QString what;  // "added", "removed", "moved", "renamed", "changed"
    QString name;  // of the signal, setting or expression
    Json from;     // row numbers count from 1
    Json to;
};

// In the order of the newer file; cores are told by their numbers, rows by their names. A row that took the
// place of one of the same width or base counts as renamed.
QList<Difference> differences(const RTLJEX::Configuration &older, const RTLJEX::Configuration &newer);

QString differenceSentence(const Difference &difference);

} // namespace Cli
