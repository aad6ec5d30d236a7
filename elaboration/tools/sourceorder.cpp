#include "elaboration/tools/sourceorder.h"

#include <QByteArrayMatcher>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QRegExp>
#include <QSet>

#include <algorithm>

#include "host/regularfile.h"

namespace QUARRY {
namespace {

struct SourceWords
{
    QSet<QString> declares;
    QSet<QString> uses;
    bool isForAll = false; // only types and macros outside of everything: any file may need them
};

// Empty when the file cannot be read; the tools say why.
QByteArray sourceOf(const QString &path)
{
    const qint64 limit = 512 * QUtil::MiB;
    QByteArray source;
    QString reason;
    return QUtil::readRegularFile(path, limit, &source, &reason) ? source : QByteArray();
}

QString withoutComments(const QByteArray &source, SourceLanguage language)
{
    QByteArray text;
    text.reserve(source.size());
    for (int i = 0; i < source.size(); ++i) {
        const char *rest = source.constData() + i;
        const bool block = language == VerilogSource && qstrncmp(rest, "/*", 2) == 0;
        const bool line = qstrncmp(rest, language == VerilogSource ? "//" : "--", 2) == 0;
        if (block || line) {
            const int end = block ? source.indexOf("*/", i + 2) : source.indexOf('\n', i);
            if (end < 0)
                break;
            i = block ? end + 1 : end;
            text += ' ';
        } else {
            text += *rest;
        }
    }
    return QString::fromLatin1(text);
}

void collect(const QString &text, const char *pattern, QSet<QString> &names)
{
    QRegExp words(QLatin1String(pattern), Qt::CaseInsensitive);
    for (int at = words.indexIn(text); at >= 0; at = words.indexIn(text, at + words.matchedLength()))
        names.insert(words.cap(1));
}

SourceWords wordsOf(const QString &path, SourceLanguage language)
{
    SourceWords words;
    const QByteArray source = sourceOf(path);
    if (source.isEmpty())
        return words;
    QString text = withoutComments(source, language);
    if (language == VerilogSource) {
        collect(text, "\\bpackage\\s+(?:automatic\\s+|static\\s+)?(\\w+)\\s*;", words.declares);
        collect(text, "\\b(\\w+)\\s*::", words.uses);
        words.isForAll = !text.contains(QRegExp(QLatin1String("\\b(?:module|package|interface|program)\\b")));
        return words;
    }
    text = text.toLower();
    collect(text, "\\b(?:package|entity|configuration|context)\\s+(\\w+)\\s+is\\b", words.declares);
    collect(text, "\\b\\w+\\.(\\w+)", words.uses);
    collect(text, "\\b(?:body|of)\\s+(\\w+)\\s+is\\b", words.uses);
    return words;
}

// What stands between quotes or angle brackets behind the directive; empty for a macro.
QString includedName(const QByteArray &text, int from)
{
    while (from < text.size() && (text.at(from) == ' ' || text.at(from) == '\t'))
        ++from;
    if (from >= text.size() || (text.at(from) != '"' && text.at(from) != '<'))
        return QString();
    const int end = text.indexOf(text.at(from) == '"' ? '"' : '>', from + 1);
    const int lineEnd = text.indexOf('\n', from);
    if (end < 0 || (lineEnd >= 0 && lineEnd < end))
        return QString();
    return QString::fromUtf8(text.mid(from + 1, end - from - 1));
}

class Sorter
{
public:
    Sorter(const QStringList &files, SourceLanguage language) : m_files(files)
    {
        for (int i = 0; i < files.size(); ++i) {
            m_words.append(wordsOf(files.at(i), language));
            for (const QString &name : m_words.last().declares) {
                if (!m_owner.contains(name))
                    m_owner.insert(name, i);
            }
        }
    }

    QStringList sorted()
    {
        for (int i = 0; i < m_files.size(); ++i) {
            if (m_words.at(i).isForAll)
                visit(i);
        }
        for (int i = 0; i < m_files.size(); ++i)
            visit(i);
        return m_sorted;
    }

private:
    void visit(int i)
    {
        if (m_visited.contains(i))
            return;
        m_visited.insert(i);
        QList<int> before;
        for (const QString &name : m_words.at(i).uses) {
            if (m_owner.contains(name))
                before.append(m_owner.value(name));
        }
        std::sort(before.begin(), before.end());
        for (const int file : before)
            visit(file);
        m_sorted.append(m_files.at(i));
    }

    QStringList m_files;
    QList<SourceWords> m_words;
    QHash<QString, int> m_owner;
    QSet<int> m_visited;
    QStringList m_sorted;
};

} // namespace

QStringList orderedByUse(const QStringList &files, SourceLanguage language)
{
    return Sorter(files, language).sorted();
}

QSet<QString> includedNames(const QStringList &files)
{
    QSet<QString> names;
    for (const QString &path : files)
        collect(withoutComments(sourceOf(path), VerilogSource),
                "`include\\s+[\"<](?:[^\"<>\n]*/)?([^\"<>/\n]+)", names);
    return names;
}

QStringList specialIncludes(const QStringList &files, const QStringList &folders)
{
    QStringList faults;
    QStringList waiting = files;
    QSet<QString> seen = files.toSet();
    const QByteArrayMatcher directive("`include");
    while (!waiting.isEmpty()) {
        const QString path = waiting.takeFirst();
        const QByteArray text = sourceOf(path);
        for (int at = directive.indexIn(text); at >= 0; at = directive.indexIn(text, at + 1)) {
            const QString name = includedName(text, at + 8);
            for (const QString &folder : QStringList(QFileInfo(path).absolutePath()) + folders) {
                const QString included = QDir::cleanPath(QDir(folder).absoluteFilePath(name));
                const QFileInfo info(included);
                if (name.isEmpty() || seen.contains(included) || !info.exists() || info.isDir())
                    continue;
                seen.insert(included);
                waiting.append(included);
                if (!info.isFile())
                    faults.append(QLatin1String("ERROR: ") + path + QLatin1String(" includes ") + included +
                                  QLatin1String(", which is no regular file."));
            }
        }
    }
    return faults;
}

VhdlNames vhdlNames(const QString &path)
{
    VhdlNames names;
    const QByteArray source = sourceOf(path);
    names.mentionsForeign = source.toLower().contains("foreign");
    const QString text = withoutComments(source, VhdlSource);
    QRegExp entity(QLatin1String("\\bentity\\s+(\\w+)\\s+is\\b"), Qt::CaseInsensitive);
    for (int at = entity.indexIn(text); at >= 0; at = entity.indexIn(text, at + 1))
        names.entities.append(entity.cap(1));
    const QString lower = text.toLower();
    collect(lower, "\\bentity\\s+\\w+\\s*\\.\\s*(\\w+)", names.instantiated);
    collect(lower, ":\\s*component\\s+(?:\\w+\\s*\\.\\s*)?(\\w+)", names.instantiated);
    collect(lower, ":\\s*(\\w+)\\s+(?:generic|port)\\s+map\\b", names.instantiated);
    return names;
}

} // namespace QUARRY
