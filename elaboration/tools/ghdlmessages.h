#pragma once

#include "elaboration/tools/toolmessages.h"

namespace QUARRY {

// "a.vhd:1:53: text", "a.vhd:9:2:warning: text", "/usr/bin/ghdl-mcode: text"
QList<ToolMessage> parseGhdlMessages(const QByteArray &output);

} // namespace QUARRY
