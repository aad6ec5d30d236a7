#pragma once

#include "check/stalereport.h"
#include "cli/configuration.h"

namespace Cli {

// What is wrong with a configuration beside a design.
struct FileFindings
{
    QStringList errors; // lines of the editor's check
    QList<RTLJEX::StaleSignal> stale;

    bool isEmpty() const { return errors.isEmpty() && stale.isEmpty(); }
};

FileFindings findingsOf(const Configuration &configuration, const QUARRY::RtlNetlist &netlist);

// One line for each finding, behind the name of the file, or one that says that there are none.
void printFindings(const QString &file, const FileFindings &findings, Output &out);
Json findingsJson(const QString &file, const Configuration &configuration, const FileFindings &findings);

} // namespace Cli
