#pragma once

#include <QDateTime>
#include <QStringList>

#include <memory>

#include "elaboration/reading/netlistreader.h"
#include "elaboration/tools/blackbox.h"
#include "elaboration/tools/designinput.h"
#include "elaboration/tools/readingrepairs.h"
#include "elaboration/tools/safenames.h"
#include "elaboration/tools/scratchdir.h"
#include "elaboration/tools/sourcecopies.h"
#include "elaboration/tools/toolrunner.h"
#include "elaboration/tools/verilatorrun.h"
#include "elaboration/tools/vhdlpart.h"
#include "elaboration/tools/xmlsummary.h"
#include "host/filetypes.h"

namespace QUARRY {

// One elaborated design, kept as the XML in its scratch folder until someone wants the netlist.
struct Elaboration
{
    std::unique_ptr<ScratchDir> scratch{new ScratchDir};
    ModuleList lists;
    bool usable = false; // xmlFile holds a design with exactly one top module
    QString xmlFile;
    ReadOptions readOptions;
    QStringList filesRead; // all sources and what they include
    QStringList foldersLookedIn;
};

// Drives the tools until the design is read or cannot be: puts packages first, turns VHDL into Verilog,
// makes black boxes for what nobody defines. Goes on from the event loop when a tool is over; deleting it
// kills the tools.
class Elaborator : public QObject
{
    Q_OBJECT

public:
    explicit Elaborator(const DesignInput &input);

    void start();
    std::unique_ptr<Elaboration> takeResult() { return std::move(m_result); }

Q_SIGNALS:
    void stageChanged(const QString &text);
    void finished(); // once

private Q_SLOTS:
    void begin();

private:
    enum Verdict { Again, Done, Failed };
    enum Language { Vhdl, Verilog };

    bool checkSources();
    QStringList filesOf(TE::FileType type) const;
    bool prepareSources();
    void readVhdl();
    void foresee(const ToolResult &result);
    bool goOnWithout(Language language);
    void readDesign();
    void warnOfRights();
    void proceed(Verdict verdict);
    void end();
    void judge(const ToolResult &result);
    void repair(const QList<ToolMessage> &errors);
    void tryRepairs(const QList<ToolMessage> &errors);
    void proceedWithoutTop();
    // Finds a definition for modules that have none: a VHDL entity, or else a black box.
    void provide(const QStringList &missing, const std::function<void(Verdict)> &then);
    Verdict makeBlackBoxes(const DesignDump &dump, const QStringList &missing);
    Verdict makeFiles();
    void finish();
    void tellTops();
    void listModules();
    void nameFiles();
    QString userName(const QString &module) const;
    void report(const QList<ToolMessage> &messages, ToolMessage::Severity severity);
    void addError(const QString &text);

    DesignInput m_input; // without VHDL files that have nothing to be read
    std::unique_ptr<Elaboration> m_result{new Elaboration};
    SafeNames m_names;
    SourceCopies m_copies;
    VerilatorRun m_verilator;
    ReadingRepairs m_repairs;
    ToolRunner m_runner;
    std::unique_ptr<VhdlPart> m_vhdl;       // null when there is no VHDL
    std::unique_ptr<VhdlPart> m_unreadable; // VHDL that was left out
    BlackBoxes m_boxes;
    QList<ToolMessage> m_warnings;
    XmlSummary m_summary;
    int m_runs = 0;
    bool m_topUnknown = false;
};

} // namespace QUARRY
