#pragma once

#include <QMap>
#include <QObject>
#include <QStringList>

#include <memory>

#include "elaboration/tools/designinput.h"
#include "elaboration/tools/toolrunner.h"
#include "gateware/coretext.h"

namespace QUARRY {
class Elaborator;
struct Elaboration;
} // namespace QUARRY

namespace JEX_TOOL {
struct Device;
}

namespace Insertion {

class Analyzer;
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
// changed. Works from the event loop, like a ReadingJob; deleting it kills the tools. Nothing is written but
// temporary files: what was made is a result.
class InsertionJob : public QObject
{
    Q_OBJECT

public:
    // The configuration has no findings on the netlist, which is of the same design. Both must outlive the
    // job.
    InsertionJob(const QUARRY::DesignInput &input, const RTLJEX::Configuration &configuration,
                 const QUARRY::RtlNetlist &netlist, const InsertionOptions &options);
    ~InsertionJob() override;

    void start();

    enum Outcome {
        Cancelled,
        Failed,    // a tool could not do its work, or the disk is full
        Refused,   // a signal cannot be tapped, or the proof failed: the errors say why
        CoresOnly, // Yosys cannot read the sources: there is no design
        Done
    };
    Outcome outcome() const { return m_outcome; }
    bool isFinished() const { return m_isOver; }
    const QStringList &messages() const
    {
        return m_messages;
    }                               // sentences; those that end the job begin with ERROR
    static QStringList fileNames(); // that files() may have
    const QMap<QString, QByteArray> &files() const { return m_files; } // by name
    const Analyzer &analyzer() const { return *m_analyzer; }
    QByteArray prefix() const; // of the names that were added to the design

public Q_SLOTS:
    void cancel();

Q_SIGNALS:
    void stageChanged(const QString &text); // "Reading 12 source files"
    void finished();                        // once

private Q_SLOTS:
    void begin();
    void takeElaboration();

private:
    typedef std::function<void()> Step;

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
    bool put(const QString &path, const QByteArray &bytes);
    void fail(Outcome outcome, const QStringList &sentences);
    void end(Outcome outcome);

    const QUARRY::DesignInput m_input;
    const InsertionOptions m_options;
    std::unique_ptr<Analyzer> m_analyzer;
    std::unique_ptr<QUARRY::ToolRunner> m_runner;
    std::unique_ptr<QUARRY::Elaborator> m_elaborator;
    std::unique_ptr<QUARRY::Elaboration> m_elaboration;
    std::unique_ptr<YosysCalls> m_yosys;
    std::unique_ptr<Surgery> m_surgery;
    std::unique_ptr<InsertionReport> m_report;
    QStringList m_messages;
    QMap<QString, QByteArray> m_files;
    Outcome m_outcome = Cancelled;
    bool m_isOver = false;
};

} // namespace Insertion
