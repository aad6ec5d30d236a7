#pragma once

#include <QDateTime>
#include <QStringList>

#include <memory>

#include "elaboration/reading/netlistreader.h"
#include "elaboration/tools/blackbox.h"
#include "elaboration/tools/designinput.h"
#include "elaboration/tools/safenames.h"
#include "elaboration/tools/scratchdir.h"
#include "elaboration/tools/verilatorrun.h"
#include "elaboration/tools/vhdlpart.h"
#include "elaboration/tools/xmlsummary.h"

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
// makes black boxes for what nobody defines.
class Elaborator
{
public:
    Elaborator(const DesignInput &input, ElaborationProgress *progress);
    std::unique_ptr<Elaboration> run();

private:
    enum Verdict { Again, Done, Failed };

    bool checkSources();
    bool readVhdl();
    bool readDesign();
    bool waitForVhdl();
    Verdict judge(const ToolResult &result);
    Verdict repair(const QList<ToolMessage> &errors);
    Verdict provide(const QStringList &missing);
    Verdict makeFiles();
    void finish();
    void listModules();
    void nameFiles();
    QString userName(const QString &module) const;
    void fail(const ToolResult &result);
    void report(const QList<ToolMessage> &messages, ToolMessage::Severity severity);
    void addError(const QString &text);
    void stage(const QString &text);

    const DesignInput m_input;
    ElaborationProgress *m_progress;
    std::unique_ptr<Elaboration> m_result{new Elaboration};
    SafeNames m_names;
    VerilatorRun m_verilator;
    std::unique_ptr<VhdlPart> m_vhdl; // null when there is no VHDL
    BlackBoxes m_boxes;
    QList<ToolMessage> m_warnings;
    XmlSummary m_summary;
    bool m_packagesOrdered = false;
    bool m_topUnknown = false;
};

} // namespace QUARRY
