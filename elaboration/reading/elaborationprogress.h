#pragma once

#include <QString>

namespace QUARRY {

// Follows an elaboration. Called often, from the thread that elaborates.
class ElaborationProgress
{
public:
    virtual ~ElaborationProgress();
    virtual void stage(const QString &text) = 0; // "Reading 12 Verilog files", shown to the user
    virtual bool cancelled() = 0;                // keeps the user interface alive; true ends the run
};

} // namespace QUARRY
