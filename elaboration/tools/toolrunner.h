#pragma once

#include <functional>
#include <memory>

#include "elaboration/tools/toolprocess.h"

namespace QUARRY {

// Runs one tool after the other for work that goes on when each is over. Nothing waits here: run() returns
// at once, and `then` is called from the event loop; it may start the next tool. Deleting the runner, from
// anywhere but `then`, kills what still runs, and nobody is called any more.
class ToolRunner : public QObject
{
    Q_OBJECT

public:
    typedef std::function<void(const ToolResult &)> Then;

    void run(const ToolCall &call, const Then &then);

    // One tool at a time may run beside those of run(), until it is awaited or stopped.
    void startBeside(const ToolCall &call);
    void awaitBeside(const Then &then);
    void stopBeside() { m_beside.reset(); }

    // Does a piece of the work after the other, with events handled in between, until one gives false.
    void work(const std::function<bool()> &piece, const std::function<void()> &then);

    QString fullDisk() const { return m_fullDisk; } // the message of the first tool that had no room

    void tellStage(const QString &text) { Q_EMIT stageChanged(text); }

Q_SIGNALS:
    void stageChanged(const QString &text); // "Reading 12 source files", for the user

private Q_SLOTS:
    void goOn();
    void goOnBeside();
    void doPiece();

private:
    std::unique_ptr<ToolRun> startOf(const ToolCall &call, const char *slot);
    ToolResult resultOf(std::unique_ptr<ToolRun> &tool);

    std::unique_ptr<ToolRun> m_current; // the tool of run()
    Then m_then;
    std::unique_ptr<ToolRun> m_beside;
    Then m_besideThen;
    QString m_fullDisk;
    std::function<bool()> m_piece;
    std::function<void()> m_afterwards;
};

} // namespace QUARRY
