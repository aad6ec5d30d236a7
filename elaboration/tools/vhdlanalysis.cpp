#include "elaboration/tools/vhdlanalysis.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegExp>

#include "elaboration/tools/designinput.h"
#include "elaboration/tools/ghdlmessages.h"
#include "elaboration/tools/safenames.h"
#include "elaboration/tools/scratchdir.h"
#include "elaboration/tools/sourcecopies.h"
#include "elaboration/tools/sourceorder.h"
#include "host/designmanager.h"

namespace QUARRY {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(QUARRY::VhdlAnalysis)
};

} // namespace

VhdlAnalysis::VhdlAnalysis(const DesignInput &input, const ScratchDir &scratch, SafeNames &names,
                           SourceCopies &copies, ToolRunner &runner)
    : m_input(input),
      m_scratch(scratch),
      m_names(names),
      m_copies(copies),
      m_runner(runner),
      m_repairs(input, scratch, names, copies)
{
    scan();
}

ToolCall VhdlAnalysis::call(const QStringList &arguments, const QString &library, const QString &folder) const
{
    ToolCall call;
    call.name = QLatin1String("GHDL");
    call.variable = QLatin1String("JEX_GHDL");
    // "ghdl" itself is a shell script that looks for these.
    call.program =
        findTool("JEX_GHDL", QStringList() << QLatin1String("ghdl-mcode") << QLatin1String("ghdl-llvm")
                                           << QLatin1String("ghdl-gcc") << QLatin1String("ghdl"));
    call.workingDir = folder; // where it looks for libraries first
    call.writableFolder = m_scratch.path();
    call.subject = Texts::tr("the VHDL sources");
    call.arguments = QStringList() << arguments.first() << QLatin1String("--std=08")
                                   << QLatin1String("-frelaxed") << QLatin1String("-fsynopsys")
                                   << QLatin1String("--workdir=") + folder << QLatin1String("-P") + folder
                                   << QLatin1String("--work=") + library;
    call.arguments += arguments.mid(1);
    return call;
}

ToolCall VhdlAnalysis::call(const QStringList &arguments, const QString &entity) const
{
    return call(arguments, m_libraryOf.value(entity, QLatin1String("work")), m_scratch.path());
}

void VhdlAnalysis::run(const ToolRunner::Then &then)
{
    m_batches = vhdlBatches(m_order, m_libraries);
    runBatch(then);
}

void VhdlAnalysis::scan()
{
    for (const DesignSource &source : m_input.files) {
        if (source.type != TE::VhdlFile)
            continue;
        m_files.append({source.path, source.library, scanVhdl(m_copies.textOf(source.path))});
        dropRepeated(m_files.last());
        m_order.append(source.path);
    }
    addBodies();
    m_libraries = vhdlLibraries(m_files);
    QSet<QString> packages;
    for (const VhdlFile &file : m_files) {
        for (const VhdlUnit &unit : file.scan.units) {
            const QString name = unit.name.toLower();
            if (unit.kind == VhdlUnit::Package)
                packages.insert(name);
            if (unit.kind != VhdlUnit::Entity)
                continue;
            if (m_entities.contains(name)) {
                if (!m_libraries.value(file.path).contains(m_libraryOf.value(name)))
                    m_twins[name] += m_libraries.value(file.path).toSet() << m_libraryOf.value(name);
                continue;
            }
            m_entityOrder.append(name);
            m_entities.insert(name, unit.name);
            m_libraryOf.insert(name, m_libraries.value(file.path).first());
        }
        m_used += file.scan.instantiated;
        m_mentionsForeign = m_mentionsForeign || file.scan.mentionsForeign;
        m_mentionsComposites = m_mentionsComposites || file.scan.mentionsComposites;
        m_mentionsLoops = m_mentionsLoops || file.scan.mentionsLoops;
        m_instances += file.scan.instances;
    }
    m_repairs.setPackages(packages);
}

void VhdlAnalysis::forgetMissing()
{
    for (const QString &entity : m_repairs.faults().missing) {
        m_entities.remove(entity);
        m_entityOrder.removeAll(entity);
    }
}

// GHDL would use what is declared last, and Verilator uses what is declared first.
void VhdlAnalysis::dropRepeated(VhdlFile &file)
{
    VhdlEdits edits;
    QSet<QString> repeated;
    for (const VhdlUnit &unit : file.scan.units) {
        const bool isDeclared = unit.kind == VhdlUnit::Entity || unit.kind == VhdlUnit::Package;
        const QString name = isDeclared ? unit.name.toLower() : unit.entity;
        if (isDeclared) {
            QString &owner = m_owners[file.library + QLatin1Char('.') + name];
            if (owner.isEmpty())
                owner = file.path;
            if (owner != file.path) {
                repeated.insert(name);
                m_messages.append(
                    Texts::tr("WARNING: %1:%2: %3 is declared a second time. What %4 declares is used.")
                        .arg(file.path, QString::number(unit.line), unit.name, owner));
            }
        }
        if (repeated.contains(name))
            edits.insert(unit.begin, qMakePair(unit.end, QByteArray()));
    }
    if (edits.isEmpty())
        return;
    QByteArray text = m_copies.textOf(file.path);
    editVhdl(text, edits);
    m_copies.replace(file.path, text);
    file.scan = scanVhdl(text);
}

// An entity whose architecture is encrypted, or in no file, is a black box with ports.
void VhdlAnalysis::addBodies()
{
    const int longestEnding = 4096;
    const QRegExp ending(QLatin1String("\\bend\\b[^;]*;\\s*$")); // what is not closed takes nothing behind it
    QSet<QString> known;
    for (const VhdlFile &file : m_files) {
        for (const VhdlUnit &unit : file.scan.units) {
            if (unit.kind == VhdlUnit::Architecture)
                known.insert(unit.entity);
        }
    }
    for (const VhdlFile &file : m_files) {
        const QByteArray text = m_copies.textOf(file.path);
        QByteArray bodies;
        for (const VhdlUnit &unit : file.scan.units) {
            const QString name = unit.name.toLower();
            if (unit.kind != VhdlUnit::Entity || known.contains(name) || name.startsWith(QLatin1Char('\\')))
                continue;
            const int begin = qMax(unit.begin, unit.end - longestEnding);
            if (ending.indexIn(QString::fromLatin1(text.mid(begin, unit.end - begin)).toLower()) < 0)
                continue;
            bodies += "\narchitecture jex_empty of " + name.toLatin1() + " is begin end;";
            m_bodiless.insert(name, Texts::tr("WARNING: %1:%2: %3 has no architecture and is shown as a "
                                              "black box, with nothing inside.")
                                        .arg(file.path, QString::number(unit.line), unit.name));
            m_repairs.faults().hollow.insert(name);
        }
        if (!bodies.isEmpty())
            m_copies.replace(file.path, text + bodies);
    }
}

// The project's own order first: it costs nothing when it is right.
void VhdlAnalysis::order()
{
    m_isOrdered = true;
    m_order = orderedByUse(m_order, VhdlSource);
    m_batches = vhdlBatches(m_order, m_libraries);
    m_batch = 0;
}

void VhdlAnalysis::runBatch(const ToolRunner::Then &then)
{
    if (m_batch == m_batches.size()) {
        for (auto entity = m_bodiless.begin(); entity != m_bodiless.end(); ++entity) {
            if (!m_repairs.faults().missing.contains(entity.key()))
                m_messages.append(entity.value());
        }
        return then(ToolResult());
    }
    const VhdlBatch batch = m_batches.at(m_batch);
    QStringList arguments(QLatin1String("-a"));
    for (const QString &file : batch.files)
        arguments << handedOver(file);
    m_runner.run(call(arguments, batch.library, m_scratch.path()), [=](const ToolResult &result) {
        if (result.isGood())
            ++m_batch;
        else if (result.outcome != ToolResult::Finished)
            return then(result);
        else if (!m_isOrdered)
            order();
        else if (!m_repairs.repair(batch.library, placedErrors(result)))
            return then(result);
        for (const VhdlBatch &made : m_repairs.takeMade())
            m_batches.insert(m_batch, made);
        runBatch(then);
    });
}

void VhdlAnalysis::repeat(const QString &folder, const ToolRunner::Then &then)
{
    QDir().mkpath(folder);
    runBatches(0, folder, then);
}

void VhdlAnalysis::repeatWith(const QString &entity, const QMap<QString, QByteArray> &defaults,
                              const QString &folder, const ToolRunner::Then &then)
{
    for (const VhdlFile &file : m_files) {
        if (!file.scan.generics.contains(entity))
            continue;
        QByteArray text = m_copies.textOf(file.path);
        for (auto value = defaults.begin(); value != defaults.end(); ++value)
            setVhdlDefault(text, entity, value.key(), value.value());
        const QString name = QString::fromLatin1("defaults%1.vhd").arg(++m_copied);
        m_scratch.write(name, text);
        m_replaced.insert(file.path, m_scratch.file(name));
        break;
    }
    repeat(folder, [=](const ToolResult &result) {
        m_replaced.clear();
        then(result);
    });
}

void VhdlAnalysis::runBatches(int first, const QString &folder, const ToolRunner::Then &then)
{
    if (first == m_batches.size())
        return then(ToolResult());
    QStringList arguments(QLatin1String("-a"));
    for (const QString &file : m_batches.at(first).files)
        arguments << m_replaced.value(file, handedOver(file));
    m_runner.run(call(arguments, m_batches.at(first).library, folder), [=](const ToolResult &result) {
        if (!result.isGood())
            return then(result);
        runBatches(first + 1, folder, then);
    });
}

void VhdlAnalysis::hollowOut(const QSet<QString> &entities, const QString &folder,
                             const ToolRunner::Then &then)
{
    QByteArray text;
    QString library;
    for (const VhdlFile &file : m_files) {
        for (const VhdlUnit &unit : file.scan.units) {
            if (unit.kind != VhdlUnit::Architecture || !entities.contains(unit.entity))
                continue;
            text +=
                "architecture " + unit.name.toLatin1() + " of " + unit.entity.toLatin1() + " is begin end;\n";
            library = m_libraryOf.value(unit.entity);
        }
    }
    const QString name = QString::fromLatin1("hollow%1.vhd").arg(++m_copied);
    m_scratch.write(name, text);
    m_runner.run(call(QStringList() << QLatin1String("-a") << m_scratch.file(name), library, folder), then);
}

QList<ToolMessage> VhdlAnalysis::placedErrors(const ToolResult &result) const
{
    QList<ToolMessage> errors;
    for (const ToolMessage &message : parseGhdlMessages(result.errors)) {
        if (message.severity == ToolMessage::Error && !message.file.isEmpty())
            errors.append(placed(message));
    }
    return errors;
}

QString VhdlAnalysis::handedOver(const QString &file) const
{
    return m_repairs.isMade(file) ? file
                                  : m_names.file(file, QFileInfo(file).suffix().prepend(QLatin1Char('.')));
}

QList<VhdlBatch> VhdlAnalysis::byLibrary() const
{
    QList<VhdlBatch> result;
    QHash<QString, int> places;
    QSet<QString> seen;
    for (const VhdlBatch &batch : m_batches) {
        if (!places.contains(batch.library)) {
            places.insert(batch.library, result.size());
            result.append({batch.library, QStringList()});
        }
        for (const QString &file : batch.files) {
            if (!seen.contains(file))
                result[places.value(batch.library)].files.append(handedOver(file));
            seen.insert(file);
        }
    }
    return result;
}

QMap<QString, QString> VhdlAnalysis::fileNames() const
{
    QMap<QString, QString> names;
    for (const QString &file : m_order) {
        if (handedOver(file) != file)
            names.insert(handedOver(file), file);
    }
    return names;
}

ToolMessage VhdlAnalysis::placed(ToolMessage message) const
{
    message.file = realFile(message, m_names, m_scratch.path());
    return message;
}

GhdlNames VhdlAnalysis::names() const
{
    GhdlNames names;
    names.entities = m_entities;
    names.hollow = m_repairs.faults().hollow;
    names.undriven = m_repairs.faults().undriven;
    names.twins = m_twins;
    for (const VhdlFile &file : m_files) {
        // GHDL names a file in the folder that it works in without the folder.
        const QString path = handedOver(file.path);
        const bool isInside = path.startsWith(m_scratch.path() + QLatin1Char('/'));
        const QString given = isInside ? QFileInfo(path).fileName() : path;
        names.libraries.insert(given, m_libraries.value(file.path).value(0));
        for (auto target = file.scan.targets.begin(); target != file.scan.targets.end(); ++target)
            names.targets.insert(given + QLatin1Char(':') + QString::number(target.key()), target.value());
    }
    return names;
}

// With types that are none of the project's own where these are subtypes of such.
VhdlGenericList VhdlAnalysis::genericsOf(const QString &entity) const
{
    VhdlGenericList generics;
    QHash<QString, QString> subtypes;
    for (const VhdlFile &file : m_files) {
        if (generics.isEmpty())
            generics = file.scan.generics.value(entity);
        subtypes.unite(file.scan.subtypes);
    }
    const int mostSteps = 100; // one may be called like what it is a subtype of
    for (QPair<QString, QString> &generic : generics) {
        for (int i = 0; i < mostSteps && subtypes.contains(generic.second); ++i)
            generic.second = subtypes.value(generic.second);
    }
    return generics;
}

QStringList VhdlAnalysis::below(const QString &entity) const
{
    QStringList result;
    QSet<QString> seen;
    addBelow(entity, result, seen);
    return result;
}

void VhdlAnalysis::addBelow(const QString &entity, QStringList &result, QSet<QString> &seen) const
{
    if (!m_entities.contains(entity) || seen.contains(entity))
        return;
    seen.insert(entity);
    for (const VhdlFile &file : m_files) {
        for (const QString &name : file.scan.within.value(entity))
            addBelow(name, result, seen);
    }
    result.append(entity);
}

const VhdlUnit *VhdlAnalysis::unitAt(const QString &file, int line) const
{
    const VhdlUnit *found = nullptr;
    for (const VhdlFile &known : m_files) {
        if (known.path != file)
            continue;
        for (const VhdlUnit &unit : known.scan.units) {
            if (unit.line <= line)
                found = &unit;
        }
    }
    return found;
}

QStringList VhdlAnalysis::takeMessages()
{
    const QStringList messages = m_repairs.takeMessages() + m_messages;
    m_messages.clear();
    return messages;
}

} // namespace QUARRY
