#pragma once

#include <QHash>
#include <QList>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>

#include "elaboration/tools/ghdlverilog.h"
#include "elaboration/tools/toolmessages.h"
#include "elaboration/tools/toolrunner.h"
#include "elaboration/tools/vhdllibraries.h"
#include "elaboration/tools/vhdlrepairs.h"

namespace QUARRY {

struct DesignInput;
class SafeNames;
class ScratchDir;
class SourceCopies;

// Lets GHDL read all VHDL sources into their libraries. What it refuses is put behind what it uses, then
// repaired (VhdlRepairs) and read again. The sources are not touched: what GHDL reads instead are copies with
// the same lines.
class VhdlAnalysis
{
public:
    VhdlAnalysis(const DesignInput &input, const ScratchDir &scratch, SafeNames &names, SourceCopies &copies,
                 ToolRunner &runner);

    // Then the last result of the tool: a good one when the libraries can be used.
    void run(const ToolRunner::Then &then);
    // Reads the sources once more, into that folder.
    void repeat(const QString &folder, const ToolRunner::Then &then);
    // The same with other default values of that entity's generics: by name, as expressions.
    void repeatWith(const QString &entity, const QMap<QString, QByteArray> &defaults, const QString &folder,
                    const ToolRunner::Then &then);
    // Gives those entities architectures without anything in them, in that folder only.
    void hollowOut(const QSet<QString> &entities, const QString &folder, const ToolRunner::Then &then);

    // A run of GHDL on that library.
    ToolCall call(const QStringList &arguments, const QString &library, const QString &folder) const;
    ToolCall call(const QStringList &arguments, const QString &entity) const;

    const QHash<QString, QString> &entities() const { return m_entities; } // lower case to spelling
    const QStringList &entityOrder() const { return m_entityOrder; } // lower case, as the sources have them
    const QSet<QString> &used() const { return m_used; }             // that others instantiate, lower case
    QString libraryOf(const QString &entity) const { return m_libraryOf.value(entity); }
    VhdlGenericList genericsOf(const QString &entity) const;
    QStringList
    below(const QString &entity) const; // entities it needs, each behind those that it needs itself
    GhdlNames names() const;            // what the translation must know
    // The unit at that place; null when there is none.
    const VhdlUnit *unitAt(const QString &file, int line) const;
    bool mentionsForeign() const { return m_mentionsForeign; }
    bool mentionsComposites() const { return m_mentionsComposites; }
    bool mentionsLoops() const { return m_mentionsLoops; }
    int instanceCount() const { return m_instances; } // in all sources, where there are no loops

    // Entities of which nothing, or only the ports are known.
    const QSet<QString> &lost() const { return m_repairs.faults().lost; }

    void forgetMissing(); // entities that were left out, from now on

    int fileCount() const { return m_files.size(); }
    QList<VhdlBatch> byLibrary() const;            // all files as GHDL gets them, each once and in its order
    QMap<QString, QString> fileNames() const;      // as GHDL saw them to the user's own, where these differ
    ToolMessage placed(ToolMessage message) const; // with the real name of the file
    QStringList takeMessages();

private:
    void scan();
    void dropRepeated(VhdlFile &file);
    void addBodies();
    void order();
    void runBatch(const ToolRunner::Then &then);
    QList<ToolMessage> placedErrors(const ToolResult &result) const;
    void runBatches(int first, const QString &folder, const ToolRunner::Then &then);
    void addBelow(const QString &entity, QStringList &result, QSet<QString> &seen) const;
    QString handedOver(const QString &file) const;

    const DesignInput &m_input;
    const ScratchDir &m_scratch;
    SafeNames &m_names;
    SourceCopies &m_copies;
    ToolRunner &m_runner;
    QList<VhdlFile> m_files;
    QStringList m_order; // of their paths
    QHash<QString, QStringList> m_libraries;
    QList<VhdlBatch> m_batches;
    int m_batch = 0; // the next one
    bool m_isOrdered = false;
    VhdlRepairs m_repairs;
    int m_copied = 0;                   // sources with other default values, and without bodies
    QHash<QString, QString> m_replaced; // files by others in what is repeated
    QHash<QString, QString> m_entities;
    QStringList m_entityOrder;
    QHash<QString, QString> m_libraryOf;
    QHash<QString, QString> m_owners; // of "library.unit", the files
    QSet<QString> m_used;
    QMap<QString, QString> m_bodiless;     // entities without an architecture, and sentences about them
    QHash<QString, QSet<QString>> m_twins; // entities of several libraries, with these
    bool m_mentionsForeign = false;
    bool m_mentionsComposites = false;
    bool m_mentionsLoops = false;
    int m_instances = 0;
    QStringList m_messages;
};

} // namespace QUARRY
