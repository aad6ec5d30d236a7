#include "elaboration/tools/readingrepairs.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegExp>

#include <limits>

#include "elaboration/tools/missingpackages.h"
#include "elaboration/tools/safenames.h"
#include "elaboration/tools/sourcecopies.h"
#include "elaboration/tools/sourceorder.h"
#include "elaboration/tools/verilatorrun.h"
#include "elaboration/tools/verilogmodules.h"
#include "elaboration/tools/verilogtokens.h"
#include "host/absolutepath.h"

#include <algorithm>

namespace QUARRY {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(QUARRY::ReadingRepairs)
};

const qint64 nowhere = std::numeric_limits<qint64>::max();

// The same error one column on is another one.
qint64 placeOf(const ToolMessage &error)
{
    return (qint64(error.line) << 20) + error.column;
}

QMap<QString, qint64> firstPlaces(const QList<ToolMessage> &errors)
{
    QMap<QString, qint64> places;
    for (const ToolMessage &error : errors)
        places.insert(error.file, qMin(placeOf(error), places.value(error.file, nowhere)));
    return places;
}

// What is no fault of the source: the tool does not know it, or something was blanked that this line uses.
bool isToolsFault(const ToolMessage &error, const QByteArray &source, const BlankedNames &blanked)
{
    const VerilogTokens words(source.split('\n').value(error.line - 1));
    for (int i = 0; i < words.size(); ++i) {
        if (blanked.contains(words.word(i)))
            return true;
    }
    return error.code == QLatin1String("UNSUPPORTED");
}

int firstLine(const QString &file, const QList<ToolMessage> &errors)
{
    return int(firstPlaces(errors).value(file) >> 20);
}

} // namespace

ReadingRepairs::ReadingRepairs(const SafeNames &names, VerilatorRun &verilator, SourceCopies &copies,
                               const QStringList &libraryFolders, const QStringList &disabledFiles)
    : m_names(names),
      m_verilator(verilator),
      m_copies(copies),
      m_libraryFolders(libraryFolders),
      m_disabledFiles(disabledFiles)
{
}

bool ReadingRepairs::tryNext(QList<ToolMessage> errors)
{
    QStringList places;
    for (ToolMessage &error : errors) {
        error.file = realFile(error, m_names, m_verilator.workingDir());
        places.append(error.file);
    }
    if (!judgeGuess(errors))
        return guessNext();
    if (dropParameters() || m_verilator.leaveToIncludes(places) || lookLate(places, true))
        return true;
    // A wrong order shows in many ways, and asking for the right one costs nothing when it was right.
    if (!m_packagesOrdered) {
        m_packagesOrdered = true;
        if (m_verilator.orderPackagesFirst())
            return true;
    }
    return addPackages() || guessNext();
}

bool ReadingRepairs::dropParameters()
{
    QRegExp unknown(QLatin1String("Parameters from the command line were not found in the design: (.*)"));
    QStringList names;
    for (const ToolMessage &error : m_errors) {
        if (unknown.exactMatch(error.text))
            names += unknown.cap(1).split(QRegExp(QLatin1String("[\\s,]+")));
    }
    for (const QString &name : names)
        m_notes.append(
            Texts::tr("WARNING: The top module has no parameter %1. Its value is left out.").arg(name));
    return m_verilator.dropParameters(names);
}

bool ReadingRepairs::tryAgain(const QStringList &filesRead)
{
    m_guess = NoGuess;
    QStringList files;
    for (const QString &file : filesRead)
        files.append(m_names.real(QUtil::absoluteIn(m_verilator.workingDir(), file)));
    return lookLate(files, false);
}

// Files that the tool came upon by itself, in a folder. Those of libraries belong to the design, and are
// named to the tool when they must be read otherwise than it would.
bool ReadingRepairs::lookLate(const QStringList &files, bool areFaulty)
{
    QStringList late;
    bool changed = false;
    for (const QString &file : files) {
        if (m_copies.hasSeen(file) || m_verilator.isMade(file) || !QFileInfo(file).isFile())
            continue;
        if (isInLibrary(file)) {
            late.append(file);
        } else if (!isNamedInSources(file) && m_verilator.hideModule(QFileInfo(file).completeBaseName())) {
            m_strays.insert(QFileInfo(file).completeBaseName(), file);
            changed = true;
        }
    }
    m_copies.look(late, VerilogSource);
    const bool isCopied = m_copies.update();
    for (const QString &file : late) {
        if ((isCopied || areFaulty) && !isNamedInSources(file))
            m_verilator.addLibraryFile(file);
    }
    return changed || isCopied;
}

bool ReadingRepairs::isInLibrary(const QString &file) const
{
    for (const QString &folder : m_libraryFolders) {
        if (QFileInfo(file).absolutePath() == QDir(folder).absolutePath())
            return true;
    }
    return false;
}

// Whether an include may lead to it whose name is a macro's.
bool ReadingRepairs::isNamedInSources(const QString &file) const
{
    const QByteArray name = QFileInfo(file).fileName().toUtf8() + '"';
    for (const QString &source : m_verilator.files() + m_copies.includedFiles()) {
        if (sourceOf(source).contains(name))
            return true;
    }
    return false;
}

bool ReadingRepairs::addPackages()
{
    bool added = false;
    const QStringList files = m_verilator.files();
    for (const MissingPackage &package : missingPackages(m_errors, files)) {
        const QString file = fileOfPackage(package.name, packageFiles(m_libraryFolders));
        if (file.isEmpty() || files.contains(file))
            continue;
        m_copies.look(QStringList(file), VerilogSource);
        m_verilator.addPackages(file);
        added = true;
    }
    m_copies.update();
    if (added)
        m_verilator.orderPackagesFirst();
    return added;
}

// False when the last guess was wrong, and the errors are no news.
bool ReadingRepairs::judgeGuess(const QList<ToolMessage> &errors)
{
    const Guess guess = m_guess;
    m_guess = NoGuess;
    if (guess == NoGuess) {
        m_errors = errors;
        return true;
    }
    const QMap<QString, qint64> before = firstPlaces(m_errors);
    const QMap<QString, qint64> after = firstPlaces(errors);
    bool isFurther = false;
    for (auto place = before.begin(); place != before.end(); ++place)
        isFurther = isFurther || after.value(place.key(), nowhere) > place.value();
    for (const QString &file : m_guessed) {
        if (guess == IsSystemVerilog && after.value(file, nowhere) <= before.value(file)) {
            for (const QString &user : m_users.value(file))
                m_verilator.setSystemVerilog(user, false);
            m_systemVerilog.remove(file);
        }
    }
    if (guess == AsksForTool)
        m_verilator.setToolMacro(false);
    if (!isFurther || guess == AsksForTool)
        return false;
    m_errors = errors;
    return true;
}

bool ReadingRepairs::guessNext()
{
    return guessLanguage() || guessAssertions() || leaveOutUnneeded() || leaveOutRefused() ||
           guessToolMacro();
}

// Strict reading comes first: it keeps nets that are called "do" or "logic".
bool ReadingRepairs::guessLanguage()
{
    m_guessed.clear();
    const QSet<QString> plain = m_verilator.plainVerilog().toSet();
    for (const ToolMessage &error : m_errors) {
        if (!error.text.startsWith(QLatin1String("syntax error")) || m_tried.contains(error.file))
            continue;
        m_tried.insert(error.file);
        const QSet<QString> users = m_copies.includersOf(QSet<QString>() << error.file) & plain;
        for (const QString &user : users)
            m_verilator.setSystemVerilog(user, true);
        if (users.isEmpty())
            continue;
        m_guessed.append(error.file);
        m_users.insert(error.file, users);
        m_systemVerilog.insert(error.file, firstLine(error.file, m_errors));
    }
    m_guess = m_guessed.isEmpty() ? NoGuess : IsSystemVerilog;
    return m_guess != NoGuess;
}

bool ReadingRepairs::guessAssertions()
{
    m_copies.want(HideAssertions);
    m_copies.spare(HideAssertions, m_verilator.plainVerilog().toSet());
    const bool changed = m_copies.update();
    m_guess = changed ? HasAssertions : NoGuess;
    return changed;
}

bool ReadingRepairs::guessToolMacro()
{
    if (m_toolMacroTried || !m_verilator.mayDefineToolMacro())
        return false;
    m_toolMacroTried = true;
    const QRegExp question(QLatin1String("`(?:ifn?def|elsif)\\s+verilator\\b"), Qt::CaseInsensitive);
    for (const QString &file : m_verilator.files() + m_copies.includedFiles()) {
        if (QString::fromLatin1(sourceOf(file)).contains(question)) {
            m_verilator.setToolMacro(true);
            m_guess = AsksForTool;
            return true;
        }
    }
    return false;
}

// Files with errors that the top module, which the user named, does not need.
bool ReadingRepairs::leaveOutUnneeded()
{
    if (m_verilator.top().isEmpty())
        return false;
    const QSet<QString> needed = SourceNeeds(m_verilator.files()).filesFor(m_verilator.top());
    bool changed = false;
    for (const QString &file : firstPlaces(m_errors).keys()) {
        if (needed.contains(file) || !m_verilator.leaveOut(file))
            continue;
        m_notes.append(Texts::tr("WARNING: %1:%2: The file has errors and is left out: the top module "
                                 "does not need it.")
                           .arg(file, QString::number(firstLine(file, m_errors))));
        changed = true;
    }
    return changed;
}

// One construct costs its module, which becomes a black box, and not the design.
bool ReadingRepairs::leaveOutRefused()
{
    QMap<QByteArray, ToolMessage> modules;
    for (const ToolMessage &error : m_errors) {
        const QByteArray source = sourceOf(error.file);
        const QByteArray module = moduleAt(source, error.line);
        if (module.isEmpty() || !isToolsFault(error, source, m_copies.blanked()))
            return false;
        if (!modules.contains(module))
            modules.insert(module, error);
    }
    for (const QByteArray &module : modules.keys()) {
        if (m_copies.blanked().modules.contains(module) || module == m_verilator.top().toUtf8() ||
            !isInstantiated(module))
            return false;
    }
    for (auto module = modules.begin(); module != modules.end(); ++module) {
        m_copies.hideModule(module->file, module.key());
        m_verilator.hideModule(QString::fromUtf8(module.key())); // or it is found by the name of its file
        m_notes.append(Texts::tr("WARNING: %1:%2: %3. The tool cannot take this, so module %4 is left out.")
                           .arg(module->file, QString::number(module->line), module->text,
                                QString::fromUtf8(module.key())));
    }
    return m_copies.update();
}

bool ReadingRepairs::isInstantiated(const QByteArray &module) const
{
    for (const QString &file : m_verilator.files() + m_copies.includedFiles()) {
        if (hasInstanceOf(sourceOf(file), module))
            return true;
    }
    return false;
}

QStringList ReadingRepairs::hints() const
{
    QStringList hints;
    const bool anywhere = std::any_of(m_errors.begin(), m_errors.end(),
                                      [](const ToolMessage &error) { return error.file.isEmpty(); });
    if (!m_verilator.top().isEmpty() || anywhere)
        return hints;
    const QSet<QString> faulty = firstPlaces(m_errors).keys().toSet();
    if (faulty.contains(QString())) // an error of the whole design
        return hints;
    const SourceNeeds needs(m_verilator.files());
    QStringList tops;
    for (const QString &root : needs.roots()) {
        if ((needs.filesFor(root) & faulty).isEmpty())
            tops.append(root);
    }
    if (!tops.isEmpty())
        hints.append(
            Texts::tr("WARNING: No top module is set. Set it, and what it does not need may have errors: "
                      "there is none in what these need: %1")
                .arg(tops.join(QLatin1String(", "))));
    return hints;
}

QList<ToolMessage> ReadingRepairs::refused() const
{
    return withMissingPackages(m_errors, m_verilator.files(), m_disabledFiles);
}

QStringList ReadingRepairs::notes() const
{
    QStringList notes = m_notes;
    for (auto file = m_systemVerilog.begin(); file != m_systemVerilog.end(); ++file)
        notes.append(Texts::tr("WARNING: %1:%2: This is no Verilog, so the file is read as "
                               "SystemVerilog.")
                         .arg(file.key(), QString::number(file.value())));
    QList<ToolMessage> lost;
    for (const auto &place : m_copies.lostBinds()) {
        ToolMessage message;
        message.severity = ToolMessage::Warning;
        message.file = place.first;
        message.line = place.second;
        message.text = Texts::tr("What is bound to a single instance is not shown. Bind it to the module.");
        lost.append(message);
    }
    for (const ToolMessage &message : folded(lost))
        notes.append(messageText(message, m_names, m_verilator.workingDir()));
    if (m_verilator.definesToolMacro())
        notes.append(Texts::tr("WARNING: The sources can be read only with the macro VERILATOR, which "
                               "synthesis does not define. What depends on it may differ in hardware."));
    return notes;
}

} // namespace QUARRY
