#pragma once

#include <QDateTime>
#include <QObject>

#include <memory>

#include "elaboration/tools/designinput.h"

namespace QUARRY {

class Elaborator;
class NetlistReader;
class RtlNetlist;
struct Elaboration;

// The reading of one design, from its sources to its modules or on to its netlist. Needs a running event loop
// and never blocks it for long: the tools are child processes, and what they wrote is read in slices of some
// milliseconds. Any number may run at once. Deleting a job stops it; not in a slot of finished(), where
// deleteLater() is right.
class ReadingJob : public QObject
{
    Q_OBJECT

public:
    // How far it goes; the netlist comes with the modules.
    enum Goal { Modules, Netlist };
    ReadingJob(const DesignInput &input, Goal goal);
    ~ReadingJob() override;

    void start();
    bool isFinished() const { return m_isFinished; }

    // All of these once it is finished.
    bool isCancelled() const { return m_lists.cancelled; }
    const ModuleList &modules() const { return m_lists; }
    // What went wrong on the way from the modules to the netlist; empty without that goal, and when
    // cancelled.
    const QStringList &netlistMessages() const { return m_netlistMessages; }
    static void cancelAll(); // that run in this program

    RtlNetlist *takeNetlist(); // for the caller, once; null when there is none, as the messages say

public Q_SLOTS:
    // Kills the tools. A job that was not finished is then, as cancelled, before this returns.
    void cancel();

Q_SIGNALS:
    void stageChanged(const QString &text); // "Reading 12 source files", for the user
    void finished();                        // once, as the last thing that the job does

private Q_SLOTS:
    void takeElaboration();
    void readNetlist();

private:
    void takeLists(std::unique_ptr<Elaboration> design);
    void finish();

    const DesignInput m_input;
    const Goal m_goal;
    std::unique_ptr<Elaborator> m_elaborator; // null unless it runs
    std::unique_ptr<Elaboration> m_design;    // what m_reader reads
    std::unique_ptr<NetlistReader> m_reader;
    std::unique_ptr<RtlNetlist> m_netlist;
    QDateTime m_start;
    ModuleList m_lists;
    QStringList m_netlistMessages;
    bool m_isFinished = false;
};

} // namespace QUARRY
