#include "elaboration/tools/sourceorder.h"

#include <QHash>
#include <QRegExp>
#include <QSet>

#include <algorithm>

#include "elaboration/tools/vhdlscan.h"

namespace QUARRY {
namespace {

struct SourceWords
{
    QSet<QString> declares;
    QSet<QString> uses;
    bool isForAll = false; // only types and macros outside of everything: any file may need them
};

QStringList entitiesOf(const VhdlScan &scan)
{
    QStringList names;
    for (const VhdlUnit &unit : scan.units) {
        if (unit.kind == VhdlUnit::Entity)
            names.append(unit.name);
    }
    return names;
}

SourceWords wordsOf(const QString &path, SourceLanguage language)
{
    SourceWords words;
    const QByteArray source = sourceOf(path);
    if (source.isEmpty())
        return words;
    QString text = bareText(source, language);
    if (language == VerilogSource) {
        collectWords(text, "\\bpackage\\s+(?:automatic\\s+|static\\s+)?(\\w+)\\s*;", words.declares);
        collectWords(text, "\\b(\\w+)\\s*::", words.uses);
        words.isForAll = !text.contains(QRegExp(QLatin1String("\\b(?:module|package|interface|program)\\b")));
        return words;
    }
    text = text.toLower();
    collectWords(text, "\\b(?:package|entity|configuration|context)\\s+(\\w+)\\s+is\\b", words.declares);
    collectWords(text, "\\b\\w+\\.(\\w+)", words.uses);
    collectWords(text, "\\b(?:body|of)\\s+(\\w+)\\s+is\\b", words.uses);
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
    // Files that wait for others are in a list, not on the stack: there may be any number of them.
    void visit(int first)
    {
        std::vector<std::pair<int, QList<int>>> open;
        const auto enter = [&](int file) {
            if (!m_visited.contains(file))
                open.emplace_back(file, neededBy(file));
            m_visited.insert(file);
        };
        enter(first);
        while (!open.empty()) {
            if (open.back().second.isEmpty()) {
                m_sorted.append(m_files.at(open.back().first));
                open.pop_back();
            } else {
                enter(open.back().second.takeFirst());
            }
        }
    }

    QList<int> neededBy(int i) const
    {
        QList<int> before;
        for (const QString &name : m_words.at(i).uses) {
            if (m_owner.contains(name))
                before.append(m_owner.value(name));
        }
        std::sort(before.begin(), before.end());
        return before;
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
        collectWords(bareText(sourceOf(path), VerilogSource),
                     "`include\\s+[\"<](?:[^\"<>\n]*/)?([^\"<>/\n]+)", names);
    return names;
}

SourceNeeds::SourceNeeds(const QStringList &files)
{
    QRegExp declared(QLatin1String("\\b(module|macromodule|interface|package|program|class|primitive|checker)"
                                   "\\s+(?:automatic\\s+|static\\s+)?(\\w+)"));
    for (const QString &file : files) {
        const QString text = bareText(sourceOf(file), VerilogSource);
        QSet<QString> &words = m_words[file];
        collectWords(text, "\\b([A-Za-z_]\\w*)", words);
        int at = declared.indexIn(text);
        if (at < 0)
            m_forAll.insert(file);
        for (; at >= 0; at = declared.indexIn(text, at + declared.matchedLength())) {
            if (!m_owners.contains(declared.cap(2)))
                m_owners.insert(declared.cap(2), file);
            if (declared.cap(1).endsWith(QLatin1String("module")))
                m_modules.append(declared.cap(2));
        }
    }
}

QStringList SourceNeeds::roots() const
{
    QStringList roots;
    for (const QString &module : m_modules) {
        bool isUsed = false;
        for (auto file = m_words.begin(); file != m_words.end(); ++file)
            isUsed = isUsed || (file.key() != m_owners.value(module) && file->contains(module));
        if (!isUsed)
            roots.append(module);
    }
    return roots;
}

QSet<QString> SourceNeeds::filesFor(const QString &module) const
{
    if (!m_owners.contains(module))
        return m_words.keys().toSet();
    QStringList waiting = QStringList(m_owners.value(module)) + m_forAll.values();
    QSet<QString> needed = waiting.toSet();
    while (!waiting.isEmpty()) {
        for (const QString &word : m_words.value(waiting.takeFirst())) {
            const QString file = m_owners.value(word);
            if (file.isEmpty() || needed.contains(file))
                continue;
            needed.insert(file);
            waiting.append(file);
        }
    }
    return needed;
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

QStringList vhdlEntities(const QString &file)
{
    return entitiesOf(scanVhdl(sourceOf(file)));
}

QStringList vhdlRoots(const QStringList &files)
{
    QSet<QString> instantiated;
    QStringList entities, roots;
    for (const QString &file : files) {
        const VhdlScan scan = scanVhdl(sourceOf(file));
        entities += entitiesOf(scan);
        instantiated += scan.instantiated;
    }
    for (const QString &entity : entities) {
        if (!instantiated.contains(entity.toLower()))
            roots.append(entity);
    }
    return roots;
}

} // namespace QUARRY
