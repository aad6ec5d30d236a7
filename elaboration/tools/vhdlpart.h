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

namespace QUARRY {

struct DesignInput;
class SafeNames;
class ScratchDir;

// The VHDL sources of a design. GHDL reads them and turns entities into Verilog, which Verilator then
// reads together with the user's own.
class VhdlPart
{
public:
    VhdlPart(const DesignInput &input, const ScratchDir &scratch, SafeNames &names, ToolRunner &runner);

    // Reads all sources, in an order that GHDL accepts, and translates the top entity, or without a top
    // module every entity that no other instantiates. Then false when the design cannot be used: the
    // messages say why.
    void prepare(const std::function<void(bool)> &then);

    // Makes Verilog and VHDL meet: translates entities that Verilog instantiates and adapts spellings. Then
    // false when there was nothing to do.
    void adapt(const DesignDump &dump, const QStringList &missing, const std::function<void(bool)> &then);

    // The module that stands for that entity, in any spelling; empty when there is none.
    QString moduleOf(const QString &entity) const { return m_modules.value(entity.toLower()); }
    QStringList untranslated() const { return m_untranslated; } // entities that GHDL refused
    bool isBoxed(const QString &entity) const { return m_boxed.contains(entity.toLower()); }
    QMap<QString, QString> waveforms() const { return m_waveforms; } // see ReadOptions::vhdlScopes
    void finishTree(const std::function<void()> &then) const;        // goes on when treeFile() is complete
    QString treeFile() const;                                        // see ReadOptions::vhdlTree
    QMap<QString, QString> fileNames() const; // as GHDL saw them to the user's own, where these differ
    const GhdlVerilog &verilog() const { return m_verilog; }
    QStringList takeMessages();

private:
    void analyze(const ToolRunner::Then &then);
    QString handedOver(const QString &file) const;
    void startTree();
    void translateRoots(const std::function<void(bool)> &then);
    // One after the other; then false when one that is not optional was refused.
    void translate(QStringList entities, bool areOptional, const std::function<void(bool)> &then);
    bool takeTranslation(const QString &entity, const ToolResult &result, bool isOptional);
    void recordScopes(const QString &entity, const std::function<void()> &then);
    void simulate(const QString &entity, const std::function<void()> &then);
    void judgeForeign();
    QString realPlace(const QString &place) const;
    void scanSources();
    QStringList roots() const;
    bool isVhdl(const DesignDump &dump, const DumpCell &cell) const; // what instantiates it
    bool mayPresent(const DumpCell &cell) const;
    bool adaptCell(const DesignDump &dump, const DumpCell &cell);
    bool presentEntity(const DumpCell &cell);
    void dropUnusedSpellings(const DesignDump &dump);
    ToolCall call(const QStringList &arguments) const;
    void report(const ToolResult &result, bool errorsAreWarnings);

    const DesignInput &m_input;
    const ScratchDir &m_scratch;
    SafeNames &m_names;
    ToolRunner &m_runner;
    QStringList m_files; // in an order that GHDL accepts, once it read them
    // A project does not say which library its files belong to. When they use one that nobody has, it is
    // theirs; "work" stands for it, too.
    QString m_library;
    QHash<QString, QString> m_entities; // lower case to the source's spelling
    QStringList m_entityOrder;          // lower case, as the sources have them
    QSet<QString> m_used;               // entities that others instantiate, lower case
    QHash<QString, QString> m_modules;  // entity in lower case to its module
    QMap<QString, QString> m_waveforms;
    bool m_mentionsForeign = false;
    bool m_mayRun = true;
    ToolRun *m_tree = nullptr; // the runner's; null before the sources are read
    QSet<QString> m_refused;
    QSet<QString> m_boxed; // refused ones that Verilog instantiates
    QStringList m_untranslated;
    GhdlVerilog m_verilog;
    QStringList m_messages;
};

} // namespace QUARRY
