#pragma once

#include "elaboration/tools/toolmessages.h"

namespace QUARRY {

// What messages of Verilator's are about.

// "Cannot find file containing module: 'prim'", "Can't resolve module reference: 'bb$x'"
QString missingModule(const ToolMessage &message);

// "logic": in plain Verilog, the tool takes such a word for the name of a module.
bool isTypeName(const QString &name);

bool isUnknownTop(const ToolMessage &message);

QList<ToolMessage> ofSeverity(const QList<ToolMessage> &messages, ToolMessage::Severity severity);

// The sources have no module at all.
bool isEmptyDesign(const QList<ToolMessage> &errors);

} // namespace QUARRY
