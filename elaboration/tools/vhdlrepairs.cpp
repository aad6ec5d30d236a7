#include "elaboration/tools/vhdlrepairs.h"

#include <QCoreApplication>
#include <QMap>
#include <QRegExp>

#include "elaboration/tools/designinput.h"
#include "elaboration/tools/safenames.h"
#include "elaboration/tools/scratchdir.h"
#include "elaboration/tools/sourcecopies.h"

namespace QUARRY {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(QUARRY::VhdlRepairs)
};

const int mostRounds = 200; // each changes something

// Of 'cannot find resource library "unisim"' and the like.
QString quoted(const QString &text, const char *pattern, int which = 1)
{
    QRegExp expression((QLatin1String(pattern)));
    return expression.indexIn(text) < 0 ? QString() : expression.cap(which).toLower();
}

const char missingUnit[] = "unit \"(\\w+)\" not found in library \"(\\w+)\"";

bool isUndeclared(const ToolMessage &error)
{
    return error.text.startsWith(QLatin1String("no declaration for \""));
}

bool hasPlaceOf(const ToolMessage &error, const QList<ToolMessage> &others)
{
    for (const ToolMessage &other : others) {
        if (other.file == error.file && other.line == error.line && other.column == error.column)
            return true;
    }
    return false;
}

bool declaresPackage(const QString &file, const QString &name)
{
    for (const VhdlUnit &unit : scanVhdl(sourceOf(file)).units) {
        if (unit.kind == VhdlUnit::Package && unit.name.toLower() == name)
            return true;
    }
    return false;
}

} // namespace

VhdlRepairs::VhdlRepairs(const DesignInput &input, const ScratchDir &scratch, const SafeNames &names,
                         SourceCopies &copies)
    : m_input(input), m_scratch(scratch), m_safeNames(names), m_copies(copies)
{
}

bool VhdlRepairs::repair(const QString &library, const QList<ToolMessage> &errors)
{
    if (++m_rounds > mostRounds)
        return false;
    const QList<ToolMessage> supplied = mend(ReplaceInstances, errors);
    for (const QString &name : m_names.vhdl.boxes)
        supplyPackage(library, QLatin1String("jex_box_") + name,
                      "component " + name.toLatin1() + " is end component;");
    m_names.vhdl.boxes.clear(); // another library has others
    const bool isQuoted = !mend(QuoteNames, errors).isEmpty();
    QList<ToolMessage> missing;
    for (const ToolMessage &error : errors) {
        if (!hasPlaceOf(error, supplied) && supply(library, error))
            missing.append(error);
    }
    note(supplied + missing, m_assumed);
    if (isQuoted || !supplied.isEmpty() || !missing.isEmpty())
        return true;
    const QList<ToolMessage> wrong = mend(LeaveOutUnits, errors);
    for (const ToolMessage &error : wrong) {
        if (isUndeclared(error) && usesAbsent(error.file))
            m_affected.insert(error.file);
    }
    note(wrong, m_messages);
    return !wrong.isEmpty();
}

// Hands each file its errors. Gives those about which something was done.
QList<ToolMessage> VhdlRepairs::mend(SourceRepair repair, const QList<ToolMessage> &errors)
{
    QMap<QString, QList<ToolMessage>> byFile;
    for (const ToolMessage &error : errors) {
        if (repairsFor(error.text, VhdlSource) & repair)
            byFile[error.file].append(error);
    }
    QList<ToolMessage> mended;
    for (auto file = byFile.begin(); file != byFile.end(); ++file) {
        m_names.vhdl.errors = file.value();
        m_names.vhdl.mended.clear();
        if (m_copies.repair(file.key(), repair, m_names))
            mended += m_names.vhdl.mended;
    }
    return mended;
}

bool VhdlRepairs::supply(const QString &library, const ToolMessage &error)
{
    const QString owner = quoted(error.text, "cannot find resource library \"(\\w+)\"");
    if (!owner.isEmpty())
        return supplyPackage(owner, QLatin1String("jex_empty"), QByteArray());
    const QString name = quoted(error.text, missingUnit);
    const QString other = quoted(error.text, missingUnit, 2);
    if (name.isEmpty() ||
        !supplyPackage(other == QLatin1String("work") ? library : other, name, QByteArray()))
        return false;
    m_absent.insert(name);
    const QString shown = other == QLatin1String("work") ? name : other + QLatin1Char('.') + name;
    if (!m_packages.contains(name))
        m_missing.append({shown, error.file, error.line});
    return true;
}

// Before what is read next.
bool VhdlRepairs::supplyPackage(const QString &library, const QString &name, const QByteArray &content)
{
    const QString key = library + QLatin1Char('.') + name.toLower();
    if (m_supplied.contains(key))
        return false;
    m_supplied.insert(key);
    const QString file = QString::fromLatin1("made%1.vhd").arg(m_files.size());
    m_scratch.write(file, "package " + name.toLatin1() + " is " + content + " end;\n");
    m_files.append(m_scratch.file(file));
    m_made.prepend({library, QStringList(m_files.last())});
    return true;
}

QList<VhdlBatch> VhdlRepairs::takeMade()
{
    const QList<VhdlBatch> made = m_made;
    m_made.clear();
    return made;
}

// Whether the error is one of those that a missing package, or an entity that was left out, leads to.
bool VhdlRepairs::follows(const ToolMessage &error) const
{
    const QString unit = quoted(error.text, missingUnit);
    if (!unit.isEmpty())
        return m_names.vhdl.missing.contains(unit) || m_absent.contains(unit);
    if (!quoted(error.text, "cannot find resource library \"(\\w+)\"").isEmpty()) {
        for (const MissingPackage &package : m_missing) {
            if (package.name.startsWith(quoted(error.text, "library \"(\\w+)\"") + QLatin1Char('.')))
                return true;
        }
    }
    return m_affected.contains(error.file);
}

bool VhdlRepairs::usesAbsent(const QString &file) const
{
    const QByteArray source = m_copies.textOf(file).toLower();
    for (const QString &package : m_absent) {
        if (source.contains(package.toLatin1()))
            return true;
    }
    return false;
}

void VhdlRepairs::note(const QList<ToolMessage> &errors, QStringList &messages) const
{
    for (ToolMessage message : errors) {
        message.severity = ToolMessage::Warning;
        const QString text = messageText(message, m_safeNames, m_scratch.path());
        if (vhdlFollowUp(message).isEmpty() && !follows(message) && !messages.contains(text))
            messages.append(text);
    }
}

QString VhdlRepairs::missingSentence(const MissingPackage &package) const
{
    const QString line = QString::number(package.line);
    for (const QString &file : m_input.disabledFiles) {
        if (declaresPackage(file, package.name.section(QLatin1Char('.'), -1)))
            return Texts::tr("WARNING: %1:%2: package %3 is in no file of the project that is enabled. It is "
                             "in %4")
                .arg(package.file, line, package.name, file);
    }
    return Texts::tr("WARNING: %1:%2: package %3 is in no file of the project")
        .arg(package.file, line, package.name);
}

// What was missing is worth a word only where it was not enough to take something empty in its place.
QStringList VhdlRepairs::takeMessages()
{
    QStringList messages;
    if (!m_names.vhdl.lost.isEmpty()) {
        for (const MissingPackage &package : m_missing)
            messages.append(missingSentence(package));
        messages += m_assumed;
    }
    messages += m_messages;
    m_missing.clear();
    m_assumed.clear();
    m_messages.clear();
    return messages;
}

} // namespace QUARRY
