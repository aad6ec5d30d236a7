#pragma once

#include <QStringList>

#include "elaboration/job.h"
#include "elaboration/tools/designinput.h"
#include "elaboration/tools/toolrunner.h"
#include "gateware/coretext.h"

namespace Insertion {

class Analyzer;

// Work with the analyzer of a configuration in its design. The configuration has no findings on the netlist,
// which is of the same design. Both must outlive the job.
class AnalyzerJob : public QUARRY::Job
{
public:
    ~AnalyzerJob() override;

    void start() override;

    enum Outcome {
        Cancelled,
        Failed,    // a tool could not do its work, the disk is full, or the bench failed
        Refused,   // a signal cannot be tapped or reached, or the proof failed: the errors say why
        CoresOnly, // Yosys cannot read the sources: there is no design
        Silent,    // a core has no window; what it saw is among the messages
        Done
    };
    Outcome outcome() const { return m_outcome; }
    // Sentences; those that end the job begin with ERROR.
    const QStringList &messages() const { return m_messages; }

protected:
    AnalyzerJob(const QUARRY::DesignInput &input, const RTLJEX::Configuration &configuration,
                const RTLJEX::CoreOptions &cores, const QUARRY::RtlNetlist &netlist);

    virtual void begin() = 0; // unless the analyzer has faults
    void drop() override;
    virtual QString scratchPath() const = 0; // where the disk may be full; may be empty
    void fail(Outcome outcome, const QStringList &sentences);
    void end(Outcome outcome);

    QUARRY::DesignInput m_input;
    std::unique_ptr<Analyzer> m_analyzer;
    std::unique_ptr<QUARRY::ToolRunner> m_runner;
    QStringList m_messages;

private:
    Outcome m_outcome = Cancelled;
};

} // namespace Insertion
