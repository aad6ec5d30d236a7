#pragma once

#include <QString>
#include <QStringList>

namespace Workbench {

// What is in the open project: sources, modules, instances, nets, and for each configuration its cores and
// what the check says of them. One finding a line, without a line end after the last.
QString designReport(const QStringList &configurations);

// What the tools said of the open project's design, black boxes for one. At once after an editor was opened,
// since the design is elaborated then.
QStringList designMessages();

} // namespace Workbench
