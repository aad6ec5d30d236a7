#pragma once

#include <QMap>

#include "gateware/windowtext.h"
#include "insertion/analyzerjob.h"
#include "insertion/simulators.h"

namespace QUARRY {
class SafeNames;
class ScratchDir;
} // namespace QUARRY

namespace Insertion {

class BenchReading;
class InsertionJob;

struct SimulationOptions
{
    QStringList bench; // files, absolute
    QString instance;  // of the design in the bench; empty: the only one
    Simulator simulator = Simulator::Icarus;
    bool byNetlist = false; // simulates the written netlist in place of the sources; always so with VHDL
    bool triggerByAny = false;
    bool records = false; // keeps the whole waveform of all taps
};

// Runs a test bench with the analyzer of a configuration and collects the captured windows. The bench runs
// confined: it can write into a temporary folder and nowhere else, in which it finds what is in the folder of
// the project.
class SimulationJob : public AnalyzerJob
{
    Q_OBJECT

public:
    SimulationJob(const QUARRY::DesignInput &input, const RTLJEX::Configuration &configuration,
                  const QUARRY::RtlNetlist &netlist, const SimulationOptions &options);
    ~SimulationJob() override;

    const QByteArray &benchWords() const { return m_words; }  // what the bench printed
    const QByteArray &waveform() const { return m_waveform; } // see waveformText(); empty without any window
    // Writes what there is of both, and beside the waveform what makes a viewer show it as the editor does
    // (see viewerfiles.h); or nothing, with a sentence.
    bool write(const QString &waveform, const QString &record, QString *error) const;
    const QByteArray &record() const { return m_record; } // when it was asked for
    const QList<RTLJEX::CapturedCore> &captured() const
    {
        return m_captured;
    } // as the cores of the configuration

private Q_SLOTS:
    void takeBench();
    void takeNetlist();

private:
    void begin() override;
    void drop() override;
    QString scratchPath() const override;
    void prepare();
    bool needsNetlist() const;
    void compile();
    QStringList includeFolders();
    void addSources(SimulatedSources &sources);
    QByteArray simulatedDesign() const;
    void runNext();
    void judge(const QUARRY::ToolResult &result);
    bool collect();
    void tellSilence(const Analyzer &analyzer, int core, quint32 seen);
    const Analyzer &analyzer() const;
    bool take(const QString &name, QByteArray *bytes); // false: the job is over
    void linkProject() const;

    const RTLJEX::Configuration &m_configuration;
    const QUARRY::RtlNetlist &m_netlist;
    const SimulationOptions m_options;
    std::unique_ptr<QUARRY::ScratchDir> m_scratch;
    std::unique_ptr<QUARRY::SafeNames> m_names;
    std::unique_ptr<InsertionJob> m_insertion; // null unless the netlist is simulated
    std::unique_ptr<BenchReading> m_bench;
    QString m_top;                 // of the design
    QList<SimulationStep> m_steps; // that are to be done
    QMap<int, int> m_windows;      // of a core that is read before all of its windows are finished
    QList<RTLJEX::CapturedCore> m_captured;
    QByteArray m_words, m_waveform, m_record;
};

} // namespace Insertion
