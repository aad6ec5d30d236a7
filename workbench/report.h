#pragma once

#include <QString>
#include <QStringList>

namespace Workbench {

struct DesignReport
{
    QStringList lines; // for the user
    bool good = true;  // the design was elaborated, and the check passed every configuration
};

// What is in the open project: sources, modules, instances, nets, and for each configuration its cores and
// what the check says of them.
DesignReport designReport(const QStringList &configurations);

} // namespace Workbench
