#pragma once

#include <QThread>

#include <atomic>

#include "model/quarry/elaboration.h"
#include "model/quarry/toolprocess.h"

namespace QUARRY {

// A run of a tool beside others, whose result nobody reads: it leaves files, or it does not. Ends with
// this object at the latest.
class BackgroundTool : private QThread, private ElaborationProgress
{
public:
    explicit BackgroundTool(const ToolCall &call);
    ~BackgroundTool() override;

    // Until the tool ended. False when the user cancelled.
    bool waitForEnd(ElaborationProgress *progress);

private:
    void run() override;
    void stage(const QString &text) override;
    bool cancelled() override { return m_isStopped; }

    const ToolCall m_call;
    std::atomic<bool> m_isStopped{false};
};

} // namespace QUARRY
