#pragma once

#include <QtGlobal>

namespace QUARRY {

// What a tool may take of the machine. Nothing in a project can change these.

// Bytes of memory: what was set here last, or what the environment variable JEX_TOOL_MEMORY says in MB, or
// half of what the machine has free, at most 8 GB.
qint64 toolMemoryLimit();
void setToolMemoryLimit(qint64 bytes); // 0: none set

// Seconds: 600, or what the environment variable JEX_TOOL_TIMEOUT says.
int toolTimeLimit();

// Bytes of files that it writes: 2 GB, or what the environment variable JEX_TOOL_DISK says in MB.
qint64 toolDiskLimit();

const qint64 maxToolMessageBytes = qint64(64) << 20; // that it writes on either of its standard streams

} // namespace QUARRY
