#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QString>
#include <QStringList>

#include <memory>

namespace QUARRY {

class ElaborationProgress;
class GroupProcess;

// One run of an external tool. No shell is involved: every argument reaches the tool as it stands.
struct ToolCall
{
    QString name;        // as users know it: "Verilator"
    QString program;     // file, or a name that is looked up in PATH
    QString variable;    // the environment variable that names another program
    QString environment; // NAME=VALUE added to the tool's environment; may be empty
    QString workingDir;  // must exist
    QString outputFile;  // takes the standard output instead of ToolResult::output; may be empty
    QString errorFile;   // likewise for the standard error
    QStringList arguments;
    int seconds = 0; // that it may take at most; 0: toolTimeLimit()
};

struct ToolResult
{
    enum Outcome { Finished, Missing, Died, Hung, Cancelled };
    Outcome outcome = Finished;
    int exitCode = 0;
    QByteArray output;
    QByteArray errors;
    QString message; // an "ERROR ..." sentence unless the tool finished or was cancelled
};

// A started tool, with a group of processes of its own that is killed as a whole when the user cancels,
// when it takes longer than it may, or with this object. Until it is waited for, nobody reads what it does
// not write into files.
class ToolRun
{
public:
    explicit ToolRun(const ToolCall &call);
    ~ToolRun();

    // To its end. A tool that ends by itself is judged by its caller: some report findings through their
    // exit code.
    ToolResult wait(ElaborationProgress *progress);

private:
    ToolRun(const ToolRun &) = delete;
    ToolRun &operator=(const ToolRun &) = delete;

    ToolCall m_call;
    QElapsedTimer m_clock;
    std::unique_ptr<GroupProcess> m_process;
};

// Starts the tool and waits for its end.
ToolResult runTool(const ToolCall &call, ElaborationProgress *progress);

// Seconds that a tool may take: 600, or what the environment variable JEX_TOOL_TIMEOUT says.
int toolTimeLimit();

// What `variable` names when it is set, or else the first of `names` that is in PATH, or else the first.
QString findTool(const char *variable, const QStringList &names);

} // namespace QUARRY
