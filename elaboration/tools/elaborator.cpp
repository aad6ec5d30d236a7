#include "elaboration/tools/elaborator.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <cerrno>

#include "elaboration/tools/confinement.h"
#include "elaboration/tools/readingsentences.h"
#include "elaboration/tools/sourceorder.h"
#include "elaboration/tools/verilatorerrors.h"
#include "host/absolutepath.h"
#include "host/regularfile.h"

namespace QUARRY {
namespace {

const int maxMessages = 500; // of a kind: nobody reads more
const int maxRuns = 30;      // each repair either changes something or ends the work

// Empty when the file can be opened.
QString unopenedReason(const QString &path)
{
    const QString odd = QUtil::irregularReason(path);
    if (!odd.isEmpty() || QFileInfo(path).isReadable())
        return odd;
    return QUtil::errorWords(QFileInfo(path).exists() ? EACCES : ENOENT);
}

QStringList absolute(const QStringList &paths, const QString &folder)
{
    QStringList all;
    for (const QString &path : paths)
        all.append(QUtil::absoluteIn(folder, path));
    return all;
}

} // namespace

Elaborator::Elaborator(const DesignInput &input)
    : m_input(input),
      m_names(*m_result->scratch),
      m_copies(*m_result->scratch, m_names),
      m_verilator(m_input, *m_result->scratch, m_names),
      m_repairs(m_names, m_verilator, m_copies, absolute(input.libraryPaths, m_verilator.workingDir()),
                input.disabledFiles)
{
    connect(&m_runner, SIGNAL(stageChanged(QString)), SIGNAL(stageChanged(QString)));
}

void Elaborator::start()
{
    QMetaObject::invokeMethod(this, "begin", Qt::QueuedConnection);
}

void Elaborator::begin()
{
    if (checkSources() && prepareSources())
        readVhdl();
    else
        end();
}

// What follows from a full disk, through tools that did not notice, is nothing to be told beside it.
void Elaborator::end()
{
    const ScratchDir &scratch = *m_result->scratch;
    const QString fault = m_runner.fullDisk().isEmpty()
                              ? fullDiskMessage(scratch.isValid() ? scratch.path() : QDir::tempPath())
                              : m_runner.fullDisk();
    if (!fault.isEmpty()) {
        m_result->lists = ModuleList();
        m_result->lists.messages.append(fault);
        m_result->usable = false;
    }
    Q_EMIT finished();
}

// The tools have run by now, so that nothing has to be tried to know.
void Elaborator::warnOfRights()
{
    const QString fault = confinementFault();
    if (fault.isEmpty())
        return;
    m_result->lists.messages.prepend(
        tr("WARNING: The tools that read the design run with your rights, since %1. VHDL is therefore not "
           "started, and its signals are shown as GHDL translates them. %2")
            .arg(fault, findProgram(QLatin1String("bwrap")).isEmpty()
                            ? tr("Install Debian's package bubblewrap.")
                            : tr("Let this user make user namespaces (kernel.unprivileged_userns_clone).")));
}

bool Elaborator::checkSources()
{
    if (!m_result->scratch->isValid())
        addError(tr("No temporary folder could be made in %1. Make room on the disk, or let the variable "
                    "TMPDIR name a folder that can be written.")
                     .arg(QDir::tempPath()));
    for (const DesignSource &source : m_input.files) {
        const QString reason = unopenedReason(source.path);
        if (!QUtil::irregularKind(source.path).isEmpty())
            addError(tr("%1 is not read: %2. Remove it from the project.").arg(source.path, reason));
        else if (!reason.isEmpty())
            addError(tr("%1 cannot be read: %2. Remove it from the project or restore it.")
                         .arg(source.path, reason));
        m_result->filesRead.append(source.path);
    }
    return !m_result->lists.anyError();
}

QStringList Elaborator::filesOf(TE::FileType type) const
{
    QStringList files;
    for (const DesignSource &source : m_input.files) {
        if (source.type == type)
            files.append(source.path);
    }
    return files;
}

// Files of which no tool can read everything are handed over as copies.
bool Elaborator::prepareSources()
{
    m_copies.setFolders(m_verilator.folders());
    m_result->lists.messages += m_copies.look(m_verilator.files(), VerilogSource);
    m_result->lists.messages += m_copies.look(filesOf(TE::VhdlFile), VhdlSource);
    m_copies.update();
    for (int i = m_input.files.size() - 1; i >= 0; --i) {
        const QString path = m_input.files.at(i).path;
        if (m_input.files.at(i).type == TE::VhdlFile && m_copies.isEmpty(path))
            m_input.files.removeAt(i);
    }
    return !m_result->lists.anyError();
}

void Elaborator::readVhdl()
{
    if (filesOf(TE::VhdlFile).isEmpty())
        return readDesign();
    m_vhdl.reset(new VhdlPart(m_input, *m_result->scratch, m_names, m_copies, m_runner));
    // Nothing of the VHDL is then translated at first.
    const bool isVerilogTop =
        m_verilator.hasFiles() && !m_input.top.isEmpty() && !m_vhdl->hasEntity(m_input.top);
    if (isVerilogTop)
        m_runner.startBeside(m_verilator.dumping());
    m_vhdl->prepare([=](bool isUsable) {
        m_result->lists.messages += m_vhdl->takeMessages();
        const QString top = m_vhdl->moduleOf(m_input.top);
        if (!top.isEmpty())
            m_verilator.setTop(top);
        if (!isUsable)
            m_runner.stopBeside();
        if (!isUsable && !m_vhdl->didToolFail() && goOnWithout(Vhdl))
            return readDesign();
        if (isUsable && isVerilogTop)
            return m_runner.awaitBeside([this](const ToolResult &result) { foresee(result); });
        proceed(isUsable ? makeFiles() : Failed);
    });
}

// Which entities Verilog instantiates is known before Verilator is asked for the whole.
void Elaborator::foresee(const ToolResult &result)
{
    DesignDump dump;
    if (result.outcome == ToolResult::Finished)
        readDesignDump(m_verilator.treeFile(), dump);
    m_vhdl->adapt(dump, QStringList(), [this](bool) {
        m_result->lists.messages += m_vhdl->takeMessages();
        proceed(makeFiles());
    });
}

void Elaborator::readDesign()
{
    if (!m_verilator.hasFiles()) {
        m_topUnknown = true;
        return proceed(Done);
    }
    if (m_runs++ == maxRuns) {
        addError(tr("The design could not be read: its missing modules could not be replaced."));
        return proceed(Failed);
    }
    m_runner.tellStage(m_input.files.size() == 1 ? tr("Reading 1 source file")
                                                 : tr("Reading %1 source files").arg(m_input.files.size()));
    QFile::remove(m_verilator.xmlFile());
    m_runner.run(m_verilator.reading(), [this](const ToolResult &result) { judge(result); });
}

void Elaborator::proceed(Verdict verdict)
{
    if (verdict == Again)
        return readDesign();
    const auto close = [=] {
        if (verdict == Done)
            finish();
        warnOfRights();
        end();
    };
    if (verdict == Failed || !m_vhdl)
        return close();
    m_vhdl->awaitScopes([=] {
        m_result->lists.messages += m_vhdl->takeMessages();
        close();
    });
}

void Elaborator::judge(const ToolResult &result)
{
    if (result.outcome != ToolResult::Finished) {
        m_result->lists.messages.append(result.message);
        return proceed(Failed);
    }
    const QList<ToolMessage> messages = parseVerilatorMessages(result.errors + '\n' + result.output);
    const QList<ToolMessage> errors = ofSeverity(messages, ToolMessage::Error);
    if (!errors.isEmpty())
        return repair(errors);
    m_summary = XmlSummary();
    if (result.exitCode != 0 || !readXmlSummary(m_verilator.xmlFile(), m_summary)) {
        addError(tr("Verilator ended with code %1 and gave no design. Check that %2 is Verilator 5.")
                     .arg(QString::number(result.exitCode), m_verilator.program()) +
                 lastLine(result.errors + result.output));
        return proceed(Failed);
    }
    if (m_repairs.tryAgain(m_summary.files))
        return proceed(Again);
    m_warnings = ofSeverity(messages, ToolMessage::Warning);
    if (!m_vhdl)
        return proceed(Done);
    m_vhdl->adaptGenerics(m_verilator.xmlFile(), [this](bool changed) {
        m_result->lists.messages += m_vhdl->takeMessages();
        proceed(changed ? makeFiles() : Done);
    });
}

// When one language cannot be read, the other one stands, unless the top module is of the first.
bool Elaborator::goOnWithout(Language language)
{
    const bool isVhdlTop = m_vhdl && m_vhdl->hasEntity(m_input.top);
    if (language == Vhdl ? !m_verilator.hasFiles() || isVhdlTop
                         : !m_vhdl || m_vhdl->verilog().isEmpty() || !m_verilator.hasOwnFiles() ||
                               !(isVhdlTop || m_input.top.isEmpty()))
        return false;
    QStringList &messages = m_result->lists.messages;
    for (QString &message : messages) {
        if (isError(message))
            message.replace(0, 5, QLatin1String("WARNING"));
    }
    messages.append(language == Vhdl ? tr("WARNING: The VHDL sources cannot be read and are left out.")
                                     : tr("WARNING: The Verilog sources cannot be read and are left out."));
    if (language == Vhdl)
        m_unreadable = std::move(m_vhdl);
    else
        m_verilator.dropOwnFiles();
    return true;
}

void Elaborator::repair(const QList<ToolMessage> &errors)
{
    QStringList missing;
    QList<ToolMessage> others;
    if (isEmptyDesign(errors)) {
        m_summary = XmlSummary();
        return proceed(Done);
    }
    for (ToolMessage error : errors) {
        QString name = missingModule(error);
        if (isTypeName(name)) { // "logic y;" as plain Verilog has it
            error.text = QLatin1String("syntax error, unexpected ") + name;
            name.clear();
        }
        if (isUnknownTop(error))
            return proceedWithoutTop();
        if (name.isEmpty())
            others.append(error);
        else if (!missing.contains(name))
            missing.append(name);
    }
    if (m_topUnknown && !others.isEmpty())
        return proceed(Done);
    if (others.isEmpty() && missing.isEmpty())
        return proceed(Done);
    if (others.isEmpty())
        return provide(missing, [this](Verdict verdict) { proceed(verdict); });
    if (m_boxes.adapt(others))
        return proceed(makeFiles());
    // VHDL and Verilog that spell a port differently.
    if (m_vhdl && others.first().code == QLatin1String("PINNOTFOUND"))
        return provide(missing,
                       [=](Verdict verdict) { verdict == Failed ? tryRepairs(others) : proceed(verdict); });
    tryRepairs(others);
}

void Elaborator::tryRepairs(const QList<ToolMessage> &errors)
{
    if (m_repairs.tryNext(errors))
        return proceed(Again);
    report(m_repairs.refused(), ToolMessage::Error);
    m_result->lists.messages += m_repairs.hints();
    proceed(goOnWithout(Verilog) ? Again : Failed);
}

// The user is told which tops there are.
void Elaborator::proceedWithoutTop()
{
    m_topUnknown = true;
    m_verilator.setTop(QString());
    proceed(Again);
}

void Elaborator::provide(const QStringList &missing, const std::function<void(Verdict)> &then)
{
    QFile::remove(m_verilator.treeFile());
    m_runner.run(m_verilator.dumping(), [=](const ToolResult &result) {
        if (result.outcome != ToolResult::Finished) {
            m_result->lists.messages.append(result.message);
            return then(Failed);
        }
        DesignDump dump;
        readDesignDump(m_verilator.treeFile(), dump);
        if (!m_vhdl)
            return then(makeBlackBoxes(dump, missing));
        m_vhdl->adapt(dump, missing, [=](bool changed) {
            m_result->lists.messages += m_vhdl->takeMessages();
            then(changed ? makeFiles() : makeBlackBoxes(dump, missing));
        });
    });
}

Elaborator::Verdict Elaborator::makeBlackBoxes(const DesignDump &dump, const QStringList &missing)
{
    const int known = m_boxes.names().size();
    m_boxes.collect(dump, missing);
    if (m_boxes.names().size() > known)
        return makeFiles();
    if (!missing.isEmpty())
        addError(tr("These modules have no definition: %1. Add the files that define them to the project.")
                     .arg(missing.join(QLatin1String(", "))));
    return Failed;
}

Elaborator::Verdict Elaborator::makeFiles()
{
    const ScratchDir &scratch = *m_result->scratch;
    const QString vhdl = QLatin1String("vhdl.vg");
    const QString boxes = QLatin1String("blackboxes.sv");
    QStringList files;
    bool isWritten = true;
    m_result->readOptions.generated.clear();
    if (m_vhdl && !m_vhdl->verilog().isEmpty()) {
        isWritten = scratch.write(vhdl, m_vhdl->verilog().sources());
        files << scratch.file(vhdl);
        m_result->readOptions.generated.insert(scratch.file(vhdl), &GhdlVerilog::maker);
    }
    if (!m_boxes.isEmpty()) {
        isWritten = scratch.write(boxes, m_boxes.sources()) && isWritten;
        files << scratch.file(boxes);
    }
    m_verilator.setMadeFiles(files);
    if (isWritten)
        return Again;
    addError(QLatin1String("A temporary file could not be written. Make room on the disk."));
    return Failed;
}

QString Elaborator::userName(const QString &module) const
{
    return m_result->readOptions.moduleNames.value(module, module);
}

void Elaborator::finish()
{
    ReadOptions &options = m_result->readOptions;
    if (m_vhdl)
        m_vhdl->describe(options);
    if (m_topUnknown)
        return tellTops();
    report(m_warnings, ToolMessage::Warning);
    m_result->lists.messages += m_repairs.notes();
    m_result->lists.messages += encryptedSentences(m_copies.encrypted());
    QStringList boxes;
    for (const QString &name : m_boxes.names()) {
        if (m_summary.modules.removeAll(name))
            boxes.append(name);
        m_summary.roots.removeAll(name);
        options.blackBoxes.insert(name);
    }
    m_result->lists.messages += blackBoxSentences(boxes, m_repairs.strays(), m_input.disabledFiles);
    listModules();
    options.workingDir = m_verilator.workingDir();
    options.top = m_result->lists.topModules.value(0);
    m_result->usable = m_result->lists.topModules.size() == 1;
    m_result->xmlFile = m_verilator.xmlFile();
    m_result->foldersLookedIn = m_verilator.folders();
    nameFiles();
}

void Elaborator::tellTops()
{
    if (m_input.top.isEmpty())
        return;
    QStringList tops;
    QSet<QString> used; // of VHDL by Verilog, in small letters
    for (const QString &module : m_summary.modules + m_boxes.names())
        used.insert(userName(module).toLower());
    for (const QString &module : m_summary.roots) {
        if (!m_boxes.names().contains(module))
            tops.append(userName(module));
    }
    for (const QString &entity : vhdlRoots(filesOf(TE::VhdlFile))) {
        if (!used.contains(entity.toLower()))
            tops.append(entity);
    }
    m_result->lists.messages += topsSentences(m_input.top, tops);
}

void Elaborator::listModules()
{
    ModuleList &lists = m_result->lists;
    QSet<QString> seen; // one entity can stand behind several modules
    for (const QString &module : m_summary.modules) {
        const QString name = userName(module);
        if (!seen.contains(name))
            lists.modules.append(name);
        seen.insert(name);
    }
    for (const QString &module : m_summary.roots)
        lists.topModules.append(userName(module));
    if (m_vhdl) {
        lists.messages += m_vhdl->refusals();
        for (const QString &entity : m_vhdl->untranslated()) {
            lists.modules.append(entity);
            if (!m_vhdl->isBoxed(entity))
                lists.topModules.append(entity);
        }
    }
    if (!m_input.top.isEmpty())
        lists.topModules = QStringList(m_input.top);
}

// Links that stood for files and folders with unusual names become those again.
void Elaborator::nameFiles()
{
    for (const QString &file : m_summary.files) {
        const QString real = m_names.real(file);
        if (real != file)
            m_result->readOptions.fileNames.insert(file, real);
        if (real.startsWith(QLatin1Char('/')) && !real.startsWith(m_result->scratch->path()))
            m_result->filesRead.append(real);
    }
}

void Elaborator::report(const QList<ToolMessage> &messages, ToolMessage::Severity severity)
{
    int count = 0;
    for (ToolMessage message : folded(messages)) {
        if (message.severity != severity || message.code == QLatin1String("MULTITOP") ||
            ++count > maxMessages)
            continue;
        if (const VerilogMaker *maker = m_result->readOptions.generated.value(message.file)) {
            message.file.clear();
            message.text.prepend(tr("In the Verilog that %1 made of the %2 sources: ")
                                     .arg(QLatin1String(maker->name), QLatin1String(maker->language)));
        }
        m_result->lists.messages.append(messageText(message, m_names, m_verilator.workingDir()));
    }
    if (count > maxMessages)
        m_result->lists.messages.append(
            QLatin1String(severity == ToolMessage::Error ? "ERROR: " : "WARNING: ") +
            tr("%1 more like these are not shown.").arg(count - maxMessages));
}

void Elaborator::addError(const QString &text)
{
    m_result->lists.messages.append(QLatin1String("ERROR: ") + text);
}

} // namespace QUARRY
