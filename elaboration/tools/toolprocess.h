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
    QString name;           // as users know it: "Verilator"
    QString program;        // file, or a name that is looked up in PATH
    QString variable;       // the environment variable that names another program
    QString environment;    // NAME=VALUE added to the tool's environment; may be empty
    QString workingDir;     // must exist
    QString writableFolder; // the only one it can write to; empty: none
    QString subject;        // "VHDL entity uart", what it works on, for sentences about limits
    QString outputFile;     // takes the standard output instead of ToolResult::output; may be empty
    QString errorFile;      // likewise for the standard error
    QStringList arguments;
    const char *deed = QT_TRANSLATE_NOOP("QUARRY::ToolRun", "read"); // what it does with the subject
    int seconds = 0;               // that it may take at most; 0: toolTimeLimit()
    bool evaluatesSources = false; // calls their functions: may write nothing where it cannot be confined
    bool runsSources = false;      // simulates: is not started where it cannot be confined
};

struct ToolResult
{
    enum Outcome { Finished, Missing, Died, Stopped, NoRoom };
    Outcome outcome = Finished;
    int exitCode = 0; // some tools report findings through it: their callers judge it
    QByteArray output;
    QByteArray errors;
    QString message; // an "ERROR ..." sentence unless the tool finished

    bool isGood() const { return outcome == Finished && exitCode == 0; }
};

// A started tool: confined where that can be had (see confinement.h), within its limits everywhere, with a
// group of processes of its own that is killed as a whole when it is over, when it takes more than it may,
// or with this object. What it writes is read while events are handled.
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
    void measureFolder();
    void announce();

private:
    void start();
    void startAgain();
    QByteArray lastWords() const;
    void stop(const QString &reason);
    void end(ToolResult::Outcome outcome, const QString &message);

    ToolCall m_call;
    ToolResult m_result;
    std::unique_ptr<GroupProcess> m_process;
    bool m_isConfined = false;
    bool m_isEnding = false; // the result is known
    bool m_isOver = false;   // and told
};

// " Its last words: ..." of a tool that says nothing that can be understood; empty when it said nothing.
QString lastLine(const QByteArray &output);

// What `variable` names when it is set, or else the first of `names` that is in PATH, or else the first.
QString findTool(const char *variable, const QStringList &names);
// The absolute path of that program in PATH; empty when there is none.
QString findProgram(const QString &name);
QByteArray programPath(); // PATH, or the usual folders when it is not set

} // namespace QUARRY
