#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>

namespace QUARRY {

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
    enum Outcome { Finished, Missing, Died, Hung };
    Outcome outcome = Finished;
    int exitCode = 0; // some tools report findings through it: their callers judge it
    QByteArray output;
    QByteArray errors;
    QString message; // an "ERROR ..." sentence unless the tool finished

    bool isGood() const { return outcome == Finished && exitCode == 0; }
};

// A started tool, with a group of processes of its own that is killed as a whole when it takes longer than
// it may, or with this object. What it writes is read while events are handled.
class ToolRun : public QObject
{
    Q_OBJECT

public:
    explicit ToolRun(const ToolCall &call);
    ~ToolRun() override;

    bool isOver() const { return m_isOver; }
    const ToolResult &result() const { return m_result; } // complete once it is over

Q_SIGNALS:
    void over(); // once, and never before the constructor returned

private Q_SLOTS:
    void readOutput();
    void noteEnd();
    void noteTimeLimit();
    void announce();

private:
    void end(ToolResult::Outcome outcome, const QString &message);

    ToolCall m_call;
    ToolResult m_result;
    std::unique_ptr<GroupProcess> m_process;
    bool m_isOver = false;
};

// Seconds that a tool may take: 600, or what the environment variable JEX_TOOL_TIMEOUT says.
int toolTimeLimit();

// What `variable` names when it is set, or else the first of `names` that is in PATH, or else the first.
QString findTool(const char *variable, const QStringList &names);

} // namespace QUARRY
