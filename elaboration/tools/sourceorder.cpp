#include "elaboration/tools/sourceorder.h"

#include <QHash>
#include <QRegExp>
#include <QSet>

#include <algorithm>

namespace QUARRY {
namespace {

struct SourceWords
{
    QSet<QString> declares;
    QSet<QString> uses;
    bool isForAll = false; // only types and macros outside of everything: any file may need them
};

QString bareText(const QByteArray &source, SourceLanguage language)
{
    return QString::fromLatin1(withoutComments(source, language));
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
    QString text = bareText(source, language);
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
        collect(bareText(sourceOf(path), VerilogSource), "`include\\s+[\"<](?:[^\"<>\n]*/)?([^\"<>/\n]+)",
                names);
    return names;
}

QString fileOfModule(const QString &module, const QStringList &files)
{
    const QString name = QRegExp::escape(module);
    const QRegExp declaration(QLatin1String("\\b(?:module|macromodule|entity|interface)\\s+"
                                            "(?:automatic\\s+|static\\s+)?\\\\?") +
                                  name + QLatin1String("(?![\\w$])"),
                              Qt::CaseInsensitive);
    for (const QString &file : files) {
        const QByteArray source = sourceOf(file);
        if (bareText(source, VerilogSource).contains(declaration) ||
            bareText(source, VhdlSource).contains(declaration))
            return file;
    }
    return QString();
}

VhdlNames vhdlNames(const QString &path)
{
    VhdlNames names;
    const QByteArray source = sourceOf(path);
    names.mentionsForeign = source.toLower().contains("foreign");
    const QString text = bareText(source, VhdlSource);
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
