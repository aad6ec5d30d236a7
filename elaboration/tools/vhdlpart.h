#pragma once

#include <QHash>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

#include <memory>

#include "elaboration/tools/designdump.h"
#include "elaboration/tools/ghdlverilog.h"
#include "elaboration/tools/toolprocess.h"

namespace QUARRY {

struct DesignInput;
class ElaborationProgress;
class SafeNames;
class ScratchDir;

// The VHDL sources of a design. GHDL reads them and turns entities into Verilog, which Verilator then
// reads together with the user's own.
class VhdlPart
{
public:
    VhdlPart(const DesignInput &input, const ScratchDir &scratch, SafeNames &names);

    // Reads all sources, in an order that GHDL accepts, and translates the top entity, or without a top
    // module every entity that no other instantiates. False when the design cannot be used: the messages
    // say why, unless it was cancelled.
    bool prepare(ElaborationProgress *progress);

    // Makes Verilog and VHDL meet: translates entities that Verilog instantiates and adapts spellings.
    // False when there was nothing to do.
    bool adapt(const DesignDump &dump, const QStringList &missing, ElaborationProgress *progress);

    // The module that stands for that entity, in any spelling; empty when there is none.
    QString moduleOf(const QString &entity) const { return m_modules.value(entity.toLower()); }
    QStringList untranslated() const { return m_untranslated; } // entities that GHDL refused
    bool isBoxed(const QString &entity) const { return m_boxed.contains(entity.toLower()); }
    QMap<QString, QString> waveforms() const { return m_waveforms; } // see ReadOptions::vhdlScopes
    // See ReadOptions::vhdlTree. Waits until it is there; false when the user cancelled.
    bool finishTree(ElaborationProgress *progress) const;
    QString treeFile() const;
    QMap<QString, QString> fileNames() const; // as GHDL saw them to the user's own, where these differ
    const GhdlVerilog &verilog() const { return m_verilog; }
    QStringList takeMessages();
    bool cancelled() const { return m_cancelled; }

private:
    bool analyze(bool reportErrors, ElaborationProgress *progress);
    QString handedOver(const QString &file) const;
    void startTree();
    void recordScopes(const QString &entity, ElaborationProgress *progress);
    bool translate(const QString &entity, bool isOptional, ElaborationProgress *progress);
    void scanSources();
    QStringList roots() const;
    bool adaptCell(const DesignDump &dump, const DumpCell &cell, ElaborationProgress *progress);
    bool presentEntity(const DumpCell &cell, ElaborationProgress *progress);
    ToolCall call(const QStringList &arguments) const;
    void report(const ToolResult &result, bool errorsAreWarnings);

    const DesignInput &m_input;
    const ScratchDir &m_scratch;
    SafeNames &m_names;
    QStringList m_files; // in an order that GHDL accepts, once it read them
    // A project does not say which library its files belong to. When they use one that nobody has, it is
    // theirs; "work" stands for it, too.
    QString m_library;
    QHash<QString, QString> m_entities; // lower case to the source's spelling
    QStringList m_entityOrder;          // lower case, as the sources have them
    QSet<QString> m_used;               // entities that others instantiate, lower case
    QHash<QString, QString> m_modules;  // entity in lower case to its module
    QMap<QString, QString> m_waveforms;
    std::unique_ptr<ToolRun> m_tree; // null before the sources are read
    QSet<QString> m_refused;
    QSet<QString> m_boxed; // refused ones that Verilog instantiates
    QStringList m_untranslated;
    GhdlVerilog m_verilog;
    QStringList m_messages;
    bool m_cancelled = false;
};

} // namespace QUARRY
