#pragma once

#include <QString>
#include <QStringList>

namespace QUARRY {

struct ToolCall;

// How a tool is started so that nothing in the sources it reads can reach the user: through Debian's
// bubblewrap, in namespaces of its own. The whole file system is read-only but for one folder, there is no
// network, no socket, no other process, no device but the null one, and only the environment that tools need.

// Empty when tools can be confined here; else why not, as the end of a sentence. Found out once, by a trial
// unless a tool was confined already.
QString confinementFault();

// False when it is known that tools cannot be confined here. Otherwise one is started as if they could, and
// the trial is only made when bubblewrap refuses, since it takes as long as a tool's own confinement.
bool mayConfine();
void noteConfinedRun(); // a tool ran confined

// What to start instead of the call's program and arguments, which it then runs confined.
QStringList confinedCommand(const ToolCall &call);

// The variables of our own environment that a tool gets, as NAME=VALUE; with its temporary folder and its
// own.
QStringList toolEnvironment(const ToolCall &call);

enum ToolRights {
    ConfinedTool, // bubblewrap runs it
    ReadingTool,  // it may write nothing but what is open: for a tool that evaluates what the sources say
    OwnRights     // it only reads the sources
};

struct ToolLimits // less than 0: none
{
    qint64 memoryBytes = -1;
    qint64 fileBytes = -1;
    qint64 cpuSeconds = -1;
};

// In the child, between fork and exec: takes no memory and no locks. Sets the limits, closes what is open,
// and hands over the filter of system calls that confinedCommand() names, or sets the one that the rights ask
// for.
void prepareToolProcess(const ToolLimits &limits, ToolRights rights);

} // namespace QUARRY
