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

// What the tools said of the open project's design, black boxes for one. At once after an editor was opened,
// since the design is elaborated then.
QStringList designMessages();

} // namespace Workbench
