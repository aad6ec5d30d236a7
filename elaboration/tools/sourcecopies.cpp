#include "elaboration/tools/sourcecopies.h"

#include <QByteArrayMatcher>
#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <cstring>

#include "elaboration/tools/safenames.h"
#include "elaboration/tools/scratchdir.h"
#include "elaboration/tools/verilogmodules.h"
#include "host/absolutepath.h"

namespace QUARRY {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(QUARRY::SourceCopies)
};

const char directive[] = "`include";
const int longestName = 4096; // of a file: nothing is looked for behind it

// What stands between quotes or angle brackets behind the directive that begins at `at`; empty for a macro.
TextRange includedName(const QByteArray &text, int at)
{
    int from = at + int(sizeof directive) - 1;
    while (from < text.size() && (text.at(from) == ' ' || text.at(from) == '\t'))
        ++from;
    if (from >= text.size() || (text.at(from) != '"' && text.at(from) != '<'))
        return {from, from};
    const char quote = text.at(from) == '"' ? '"' : '>';
    const char *const name = text.constData() + from + 1;
    const auto *end = static_cast<const char *>(
        std::memchr(name, quote, size_t(qMin(text.size() - from - 1, longestName))));
    if (!end || std::memchr(name, '\n', size_t(end - name)))
        return {from, from};
    return {from + 1, int(end - text.constData())};
}

QString nameIn(const QByteArray &text, TextRange range)
{
    return QString::fromUtf8(text.mid(range.start, range.end - range.start));
}

// Verilator takes such a file, GHDL does not.
bool holdsNothing(const QByteArray &text, SourceLanguage language)
{
    return language == VhdlSource && withoutComments(text, language).trimmed().isEmpty();
}

} // namespace

SourceCopies::SourceCopies(const ScratchDir &scratch, SafeNames &names) : m_scratch(scratch), m_names(names)
{
}

QStringList SourceCopies::look(const QStringList &files, SourceLanguage language)
{
    QStringList faults;
    for (const QString &file : files) {
        if (!m_sources.contains(file))
            m_waiting.append(file);
        m_sources[file].language = language;
    }
    while (!m_waiting.isEmpty()) {
        const QString path = m_waiting.takeFirst();
        Source source = m_sources.value(path);
        read(path, source, faults);
        m_sources[path] = source;
    }
    return faults;
}

QStringList SourceCopies::includedFiles() const
{
    QStringList files;
    for (auto source = m_sources.begin(); source != m_sources.end(); ++source) {
        if (source->isIncluded)
            files.append(source.key());
    }
    return files;
}

void SourceCopies::read(const QString &path, Source &source, QStringList &faults)
{
    const QByteArray text = sourceOf(path);
    const QString reason = unreadableReason(text);
    if (!reason.isEmpty())
        faults.append(Texts::tr("ERROR: %1 cannot be read: %2.").arg(path, reason));
    source.needed = neededRepairs(text, source.language, m_wanted);
    source.judged = m_wanted;
    source.isEmpty = holdsNothing(text, source.language);
    if (source.language == VhdlSource)
        return;
    noteIncludes(path, text, source, faults);
    for (const QString &sentence : droppedDimensions(text))
        faults.append(QLatin1String("WARNING: ") + path + QLatin1Char(':') + sentence);
}

void SourceCopies::noteIncludes(const QString &path, const QByteArray &text, Source &source,
                                QStringList &faults)
{
    const QByteArrayMatcher matcher(directive);
    for (int at = matcher.indexIn(text); at >= 0; at = matcher.indexIn(text, at + 1)) {
        const QString name = nameIn(text, includedName(text, at));
        const QString file = include(name, path);
        if (file.isEmpty())
            continue;
        source.includes.insert(file);
        const bool isNew = !m_sources.contains(file);
        m_sources[file].isIncluded = true;
        if (!isNew)
            continue;
        if (QFileInfo(file).isFile())
            m_waiting.append(file);
        else
            faults.append(Texts::tr("ERROR: %1 includes %2, which is no regular file.").arg(path, file));
    }
}

// The file that the tool will take; empty when there is none.
QString SourceCopies::include(const QString &name, const QString &includer) const
{
    if (name.isEmpty())
        return QString();
    QStringList suffixes(QString(QLatin1String("")));
    if (!name.section(QLatin1Char('/'), -1).contains(QLatin1Char('.')))
        suffixes << QLatin1String(".v") << QLatin1String(".sv");
    for (const QString &folder : m_folders + QStringList(QFileInfo(includer).absolutePath())) {
        for (const QString &suffix : suffixes) {
            const QString path = QUtil::absoluteIn(folder, name + suffix);
            const QFileInfo info(path);
            if (info.exists() && !info.isDir())
                return path;
        }
    }
    return QString();
}

int SourceCopies::wantedIn(const QString &path) const
{
    int wanted = m_wanted & m_sources.value(path).needed;
    for (auto spared = m_spared.begin(); spared != m_spared.end(); ++spared) {
        if (spared->contains(path))
            wanted &= ~spared.key();
    }
    return wanted;
}

void SourceCopies::hideModule(const QString &file, const QByteArray &name)
{
    m_blanked.modules.insert(name);
    m_wanted |= HideModules;
    m_sources[file].made = 0;
}

// What one source declares and another one uses.
void SourceCopies::learnBlanked()
{
    if (!(m_wanted & HideAssertions))
        return;
    QStringList paths = m_sources.keys();
    std::sort(paths.begin(), paths.end(), [this](const QString &one, const QString &other) {
        const bool isIncluded = m_sources.value(one).isIncluded; // which are to be known first
        return isIncluded == m_sources.value(other).isIncluded ? one < other : isIncluded;
    });
    for (const QString &path : paths) {
        if (!(wantedIn(path) & HideAssertions) || m_learnt.contains(path))
            continue;
        QByteArray text = sourceOf(path);
        const bool isIncluded = m_sources.value(path).isIncluded;
        m_blanked.file = isIncluded ? QFile::encodeName(QFileInfo(path).fileName()) : QByteArray();
        repairSource(text, VerilogSource, HideAssertions, m_blanked);
        m_learnt.insert(path);
    }
    m_blanked.file.clear();
    for (auto source = m_sources.begin(); source != m_sources.end(); ++source) {
        if (source->language == VerilogSource && !(source->needed & HideAssertions) &&
            m_blanked.areIn(sourceOf(source.key())))
            source->needed |= HideAssertions;
    }
}

bool SourceCopies::update()
{
    QHash<QString, QByteArray> texts;
    for (auto source = m_sources.begin(); source != m_sources.end(); ++source) {
        if (source->judged != m_wanted)
            source->needed |=
                neededRepairs(sourceOf(source.key()), source->language, m_wanted & ~source->judged);
        source->judged = m_wanted;
    }
    learnBlanked();
    for (auto source = m_sources.begin(); source != m_sources.end(); ++source) {
        const int wanted = wantedIn(source.key());
        if (!wanted || wanted == source->made)
            continue;
        QByteArray text = sourceOf(source.key());
        const QByteArray before = text;
        m_blanked.binds.clear();
        const int made = repairSource(text, source->language, wanted, m_blanked);
        int line = 1, counted = 0; // they stand in their order
        for (const int at : m_blanked.binds) {
            for (; counted < at; ++counted)
                line += before.at(counted) == '\n';
            m_lostBinds.insert({source.key(), line});
        }
        source->made = wanted;
        source->isEmpty = holdsNothing(text, source->language);
        if ((made & HideEncrypted) && !m_encrypted.contains(source.key()))
            m_encrypted.append(source.key());
        if (text != before)
            texts.insert(source.key(), text);
    }
    if (texts.isEmpty())
        return false;
    m_encrypted.sort();
    for (const QString &path : includersOf(texts.keys().toSet())) {
        if (!texts.contains(path) && !m_copies.contains(path))
            texts.insert(path, sourceOf(path));
    }
    // All must have their names before an include is led to one.
    for (const QString &path : texts.keys())
        addCopy(path);
    for (auto text = texts.begin(); text != texts.end(); ++text)
        write(text.key(), text.value());
    return true;
}

void SourceCopies::addCopy(const QString &path)
{
    QString &copy = m_copies[path];
    if (copy.isEmpty())
        copy = m_scratch.file(QLatin1String("copy") + QString::number(m_copies.size()));
    m_names.setCopy(path, copy);
}

QByteArray SourceCopies::textOf(const QString &path) const
{
    return sourceOf(m_copies.value(path, path));
}

void SourceCopies::replace(const QString &path, const QByteArray &text)
{
    addCopy(path);
    write(path, text);
}

bool SourceCopies::repair(const QString &path, SourceRepair repair, BlankedNames &names)
{
    QByteArray text = textOf(path);
    if (!repairSource(text, m_sources.value(path).language, repair, names))
        return false;
    replace(path, text);
    return true;
}

QSet<QString> SourceCopies::includersOf(QSet<QString> files) const
{
    for (int known = 0; known != files.size();) {
        known = files.size();
        for (auto source = m_sources.begin(); source != m_sources.end(); ++source) {
            for (const QString &included : source->includes) {
                if (files.contains(included))
                    files.insert(source.key());
            }
        }
    }
    return files;
}

void SourceCopies::write(const QString &path, QByteArray text)
{
    if (m_sources.value(path).language == VerilogSource)
        text = withPlacedIncludes(path, text);
    m_scratch.write(QFileInfo(m_copies.value(path)).fileName(), text);
}

// Includes that only the folder of the original leads to, or that stand for a copy, name the file itself.
QByteArray SourceCopies::withPlacedIncludes(const QString &path, const QByteArray &text)
{
    QByteArray placed;
    int done = 0;
    const QByteArrayMatcher matcher(directive);
    for (int at = matcher.indexIn(text); at >= 0; at = matcher.indexIn(text, at + 1)) {
        const TextRange name = includedName(text, at);
        const QString file = include(nameIn(text, name), path);
        if (file.isEmpty() || !QFileInfo(file).isFile())
            continue;
        placed += text.mid(done, name.start - done);
        placed += QFile::encodeName(m_names.file(file, QString()));
        done = name.end;
    }
    return placed + text.mid(done);
}

bool SourceCopies::isEmpty(const QString &file) const
{
    return m_sources.value(file).isEmpty;
}

} // namespace QUARRY
