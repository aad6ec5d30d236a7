#pragma once

#include <QDateTime>

#include "elaboration/job.h"
#include "elaboration/tools/designinput.h"

namespace QUARRY {

class NetlistReader;
class RtlNetlist;

// The reading of one design, from its sources to its modules or on to its netlist. What the tools wrote is
// read in slices of some milliseconds.
class ReadingJob : public Job
{
    Q_OBJECT

public:
    // How far it goes; the netlist comes with the modules.
    enum Goal { Modules, Netlist };
    ReadingJob(const DesignInput &input, Goal goal);
    ~ReadingJob() override;

    void start() override;

    // All of these once it is finished.
    const ModuleList &modules() const { return m_lists; }
    // What went wrong on the way from the modules to the netlist; empty without that goal, and when
    // cancelled.
    const QStringList &netlistMessages() const { return m_netlistMessages; }
    static void cancelAll(); // that run in this program

    RtlNetlist *takeNetlist(); // for the caller, once; null when there is none, as the messages say

private Q_SLOTS:
    void readNetlist();

private:
    void takeElaboration(std::unique_ptr<Elaboration> design) override;
    void drop() override;

    const DesignInput m_input;
    const Goal m_goal;
    std::unique_ptr<Elaboration> m_design; // what m_reader reads
    std::unique_ptr<NetlistReader> m_reader;
    std::unique_ptr<RtlNetlist> m_netlist;
    QDateTime m_start;
    ModuleList m_lists;
    QStringList m_netlistMessages;
};

} // namespace QUARRY
