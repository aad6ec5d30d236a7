#pragma once

#include <QHash>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>

#include "elaboration/tools/designdump.h"
#include "elaboration/tools/ghdlverilog.h"
#include "elaboration/tools/toolrunner.h"
#include "elaboration/tools/vhdlanalysis.h"
#include "elaboration/tools/vhdlgenerics.h"

namespace QUARRY {

struct DesignInput;
class SafeNames;
class ScratchDir;
class SourceCopies;

// The VHDL sources of a design. GHDL reads them and turns entities into Verilog, which Verilator then
// reads together with the user's own.
class VhdlPart
{
public:
    VhdlPart(const DesignInput &input, const ScratchDir &scratch, SafeNames &names, SourceCopies &copies,
             ToolRunner &runner);

    // Reads all sources and translates the top entity, or without a top module every entity that no other
    // instantiates. Then false when the design cannot be used: the messages say why.
    void prepare(const std::function<void(bool)> &then);

    // Makes Verilog and VHDL meet: translates entities that Verilog instantiates and adapts spellings. Then
    // false when there was nothing to do.
    void adapt(const DesignDump &dump, const QStringList &missing, const std::function<void(bool)> &then);

    // Translates entities for the generics that Verilog sets on them, as that XML of the whole design has
    // them. Then false when there was nothing to do.
    void adaptGenerics(const QString &xmlFile, const std::function<void(bool)> &then);

    // The signals of an entity are recorded while the work goes on; then describe() has them all.
    void awaitScopes(const std::function<void()> &then);

    bool didToolFail() const { return m_didToolFail; } // itself, whatever the sources are
    // The module that stands for that entity, in any spelling; empty when there is none.
    QString moduleOf(const QString &entity) const { return m_modules.value(entity.toLower()); }
    bool hasEntity(const QString &name) const { return m_analysis.entities().contains(name.toLower()); }
    QStringList untranslated() const { return m_untranslated; } // entities that GHDL refused
    QStringList refusals() const;                               // why
    bool isBoxed(const QString &entity) const { return m_boxed.contains(entity.toLower()); }
    const GhdlVerilog &verilog() const { return m_verilog; }
    void describe(ReadOptions &options) const; // of its modules and sources, all that is known in the end
    QStringList takeMessages();

private:
    // An entity, with what its generics are set to.
    struct Wanted
    {
        QString entity;       // lower case
        QStringList generics; // NAME=VALUE; empty: the default values
        QString module;       // that it becomes; empty: as GHDL calls it
    };
    typedef std::function<void(bool)> Then;

    void translateRoots(const Then &then);
    // One after the other; then false when one that is not optional was refused.
    void translate(QList<Wanted> wanted, bool areOptional, const Then &then);
    void translateOne(const Wanted &wanted, bool isOptional, const Then &then);
    void takeTranslation(const Wanted &wanted, const ToolResult &result, bool isOptional, const Then &then);
    void refuse(const Wanted &wanted, const ToolResult &result, bool isOptional, const Then &then);
    // Entities that GHDL cannot translate lose their body, and the next attempt is made without it.
    bool hollowOut(const Wanted &wanted, const ToolResult &result, bool isOptional, const Then &then);
    bool isToBlame(const ToolResult &result, QSet<QString> &found);
    void blame(const QString &entity);
    void findCulprit(QStringList candidates, const QByteArray &words,
                     const std::function<void(const QString &)> &then);
    void translateWithout(const QSet<QString> &entities, const Wanted &wanted, bool isOptional,
                          const Then &then);
    ToolCall synthesis(const Wanted &wanted, const QString &folder) const;
    void recordScopes(const Wanted &wanted, const std::function<void()> &then);
    bool mayStart() const;
    QMap<QString, QByteArray> defaultsOf(const Wanted &wanted) const;
    void prepareFolder(const Wanted &wanted, const QString &usual,
                       const std::function<void(const QString &, const ToolResult &)> &then);
    void startSimulation(const Wanted &wanted, const QString &folder);
    void simulate(const Wanted &wanted, const std::function<void()> &then);
    void judgeForeign(QList<VhdlBatch> batches, const std::function<void()> &then);
    void forbidRun(const QString &place);
    QString realPlace(const QString &place) const;
    QStringList roots() const;
    bool isVhdl(const DesignDump &dump, const DumpCell &cell) const; // what instantiates it
    bool mayPresent(const DumpCell &cell) const;
    bool adaptCell(const DesignDump &dump, const DumpCell &cell);
    bool presentEntity(const DumpCell &cell);
    bool addStandIn(const DumpCell &cell);
    void makeChoice(const QString &name);
    void dropUnusedSpellings(const DesignDump &dump);
    void report(const ToolResult &result, bool errorsAreWarnings, QStringList &messages) const;
    bool isAnythingLeft();

    const DesignInput &m_input;
    const ScratchDir &m_scratch;
    SafeNames &m_names;
    ToolRunner &m_runner;
    VhdlAnalysis m_analysis;
    QHash<QString, QString> m_modules; // entity in lower case to its module
    QMap<QString, QString> m_waveforms;
    QString m_waveform;   // that is being written; empty: none
    QString m_waveformOf; // the entity or module that it is of
    int m_simulations = 0;
    int m_folders = 0;        // of other default values
    bool m_isStarted = false; // the last simulation reached its first moment
    bool m_didToolFail = false;
    bool m_mayRun = true;
    bool m_isForeignJudged = false;
    QSet<QString> m_refused;
    QSet<QString> m_boxed; // refused ones that Verilog instantiates
    QStringList m_untranslated;
    QHash<QString, QStringList> m_refusals; // of those, in lower case: the tool's words
    QHash<QString, QStringList> m_blamed;   // the tool's words about the next ones
    QSet<QString> m_hollow;                 // entities that GHDL cannot translate
    QString m_synthesisFolder;              // that of the libraries
    GhdlVerilog m_verilog;
    // An entity whose generics Verilog sets, until their values are known.
    struct StandIn
    {
        QStringList parameters, ports; // as Verilog spells them
        QList<GhdlVerilog::Variant> variants;
    };
    QMap<QString, StandIn> m_standIns; // by name, as Verilog spells it
    int m_sets = 0;                    // of generics
    QSet<QString> m_choices;
    QStringList m_messages;
};

} // namespace QUARRY
