#pragma once

#include <QMap>

#include "insertion/analyzerjob.h"

namespace JEX_TOOL {
struct Device;
}

namespace Insertion {

class YosysCalls;
struct InsertionReport;
struct Surgery;

struct InsertionOptions
{
    RTLJEX::CoreOptions cores;
    bool forSimulation = false;               // a netlist that knows unknown values as the sources do
    bool prove = false;                       // by formal equivalence, too
    QString family;                           // that resources are counted for; empty: none
    const JEX_TOOL::Device *device = nullptr; // that resources are estimated for
    QString instance;                         // of the design in a test bench, for probe.v
};

// Makes the analyzer of a configuration, puts it into the design and proves that nothing else of the design
// changed. Nothing is written but temporary files: what was made is a result.
class InsertionJob : public AnalyzerJob
{
    Q_OBJECT

public:
    InsertionJob(const QUARRY::DesignInput &input, const RTLJEX::Configuration &configuration,
                 const QUARRY::RtlNetlist &netlist, const InsertionOptions &options);
    ~InsertionJob() override;

    static QStringList fileNames();                                    // that files() may have
    const QMap<QString, QByteArray> &files() const { return m_files; } // by name
    const Analyzer &analyzer() const { return *m_analyzer; }
    QByteArray prefix() const; // of the names that were added to the design

private:
    typedef std::function<void()> Step;

    void begin() override;
    void takeElaboration(std::unique_ptr<QUARRY::Elaboration> design) override;
    QString scratchPath() const override;
    void read();
    void judgeReading(const QUARRY::ToolResult &result);
    void giveCoresOnly(const QString &reason);
    void tap();
    void takeTapped();
    bool compare();
    void prove(const Step &then);
    void count(bool isOriginal, const Step &then);
    void addTexts();
    void finishDesign();
    // Reads what the tool wrote; a failure ends the job.
    bool take(const QString &path, QByteArray *bytes);

    const InsertionOptions m_options;
    std::unique_ptr<QUARRY::Elaboration> m_elaboration;
    std::unique_ptr<YosysCalls> m_yosys;
    std::unique_ptr<Surgery> m_surgery;
    std::unique_ptr<InsertionReport> m_report;
    QMap<QString, QByteArray> m_files;
};

} // namespace Insertion
