#include "elaboration/tools/vhdlscan.h"

#include <QStringList>

#include <string_view>
#include <vector>

namespace QUARRY {
namespace {

bool isLetter(char letter)
{
    const auto code = static_cast<unsigned char>(letter);
    return (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9') ||
           code == '_' || code >= 0x80;
}

// A word, or one character of punctuation.
struct Word
{
    std::string_view text; // in lower case
    int at = 0;
    int line = 0;

    bool is(const char *word) const { return text == word; }
    bool isName() const { return !text.empty() && (isLetter(text[0]) || text[0] == '\\'); }
    int end() const { return at + int(text.size()); }
};

// The words of a text without comments, strings and characters.
class Words
{
public:
    explicit Words(const QByteArray &text) : m_text(text), m_lower(text.toLower())
    {
        while (m_at < m_text.size())
            readOne();
    }

    const std::vector<Word> &all() const { return m_words; }
    QString name(const Word &word) const // in lower case
    {
        return QString::fromLatin1(word.text.data(), int(word.text.size()));
    }
    QString spelled(const Word &word) const
    {
        return QString::fromLatin1(m_text.constData() + word.at, int(word.text.size()));
    }

private:
    void readOne()
    {
        const char letter = m_text.at(m_at);
        if (letter == '\n')
            ++m_line;
        if (letter == '-' && next() == '-')
            m_at = indexOf('\n', m_at);
        else if (letter == '/' && next() == '*')
            skipLines(m_text.indexOf("*/", m_at + 2), 2);
        else if (letter == '"')
            skipLines(m_text.indexOf('"', m_at + 1), 1);
        else if (letter == '\'' && m_at + 2 < m_text.size() && m_text.at(m_at + 2) == '\'' && !isAttribute())
            m_at += 3;
        else if (letter == '\\')
            add(indexOf('\\', m_at + 1) + 1);
        else if (isLetter(letter))
            add(endOfWord());
        else if (letter > ' ')
            add(m_at + 1);
        else
            ++m_at;
    }

    char next() const { return m_at + 1 < m_text.size() ? m_text.at(m_at + 1) : '\0'; }
    int indexOf(char letter, int from) const
    {
        const int found = m_text.indexOf(letter, from);
        return found < 0 ? m_text.size() : found;
    }

    void skipLines(int end, int closing)
    {
        end = end < 0 ? m_text.size() : end + closing;
        for (; m_at < end; ++m_at)
            m_line += m_text.at(m_at) == '\n' ? 1 : 0;
    }

    bool isAttribute() const // "x'('1')", "x'a"
    {
        return !m_words.empty() && m_words.back().end() == m_at &&
               (m_words.back().isName() || m_words.back().is(")"));
    }

    int endOfWord() const
    {
        int end = m_at;
        while (end < m_text.size() && isLetter(m_text.at(end)))
            ++end;
        return end;
    }

    void add(int end)
    {
        end = qMin(end, m_text.size());
        const char *text = (m_text.at(m_at) == '\\' ? m_text : m_lower).constData();
        m_words.push_back({std::string_view(text + m_at, size_t(end - m_at)), m_at, m_line});
        m_at = end;
    }

    const QByteArray m_text, m_lower;
    std::vector<Word> m_words;
    int m_at = 0;
    int m_line = 1;
};

class Scanner
{
public:
    explicit Scanner(const QByteArray &text) : m_words(text), m_all(m_words.all()), m_size(text.size()) {}

    VhdlScan scan()
    {
        for (size_t i = 0; i < m_all.size(); ++i) {
            takeUnit(i);
            takeClause(i);
            takeInstance(i);
            const Word &word = m_all[i];
            if (word.is("end"))
                m_isEnding = true;
            else if (word.is(";") && m_isEnding && !m_scan.units.isEmpty())
                m_scan.units.last().end = word.end();
            if (word.is(";"))
                m_isEnding = false;
            m_scan.mentionsForeign = m_scan.mentionsForeign || word.is("foreign") || word.is("\\foreign\\");
            m_scan.mentionsComposites = m_scan.mentionsComposites || word.is("record") || word.is("array");
        }
        for (int i = 0; i < m_scan.units.size(); ++i) { // one whose end is missing
            if (m_scan.units.at(i).end == 0)
                m_scan.units[i].end = i + 1 < m_scan.units.size() ? m_scan.units.at(i + 1).begin : m_size;
        }
        return m_scan;
    }

private:
    const Word &at(size_t i) const
    {
        static const Word none;
        return i < m_all.size() ? m_all[i] : none;
    }
    QString name(size_t i) const { return m_words.name(at(i)); }

    void takeUnit(size_t i)
    {
        const Word &word = at(i);
        const bool isBody = word.is("package") && at(i + 1).is("body");
        const size_t named = isBody ? i + 2 : i + 1;
        const bool isOf = at(named + 1).is("of") && at(named + 3).is("is");
        if (!at(named).isName() || !(at(named + 1).is("is") || isOf) || (i > 0 && at(i - 1).is(":")))
            return;
        VhdlUnit unit;
        if (word.is("entity") && !isOf)
            unit.kind = VhdlUnit::Entity;
        else if (word.is("architecture") && isOf)
            unit.kind = VhdlUnit::Architecture;
        else if (word.is("package") && !isOf)
            unit.kind = isBody ? VhdlUnit::PackageBody : VhdlUnit::Package;
        else if (!(word.is("configuration") && isOf) && !word.is("context"))
            return;
        unit.name = m_words.spelled(at(named));
        unit.entity = isOf ? name(named + 2) : isBody ? name(named) : QString();
        unit.begin = word.at;
        unit.end = 0;
        unit.line = at(named).line;
        m_scan.units.append(unit);
        if (unit.kind == VhdlUnit::Entity)
            takeGenerics(named + 2, unit.name.toLower());
    }

    // "generic (a, b : integer := 3; c : in string)" behind "entity e is"
    void takeGenerics(size_t i, const QString &entity)
    {
        if (!at(i).is("generic") || !at(i + 1).is("(") || i < m_genericsEnd)
            return;
        int depth = 0;
        QStringList names;
        for (++i; i < m_all.size(); ++i) {
            m_genericsEnd = i;
            depth += at(i).is("(") ? 1 : at(i).is(")") ? -1 : 0;
            if (depth == 0)
                return;
            if (at(i).is(":")) {
                const QString type = name(at(i + 1).is("in") ? i + 2 : i + 1);
                for (const QString &known : names)
                    m_scan.generics[entity].append(qMakePair(known, type));
                names.clear();
            } else if (at(i).is(",") || at(i).is(";") || (depth == 1 && at(i).is("("))) {
                if (at(i + 1).isName())
                    names.append(name(at(i + 1).is("constant") ? i + 2 : i + 1));
            }
        }
    }

    void takeClause(size_t i)
    {
        const bool isStart = i == 0 || at(i - 1).is(";");
        if (at(i).is("library") && isStart) {
            for (++i; i < m_all.size() && !at(i).is(";"); ++i) {
                if (at(i).isName())
                    m_scan.libraries.insert(name(i));
            }
        }
        if (at(i).is(".") && i > 0 && at(i - 1).isName() && at(i + 1).isName() &&
            !(i > 1 && at(i - 2).is(".")))
            m_scan.uses.insert(qMakePair(name(i - 1), name(i + 1)));
    }

    // ": entity lib.e", ": component c", ": c generic map", ": c port map"
    void takeInstance(size_t i)
    {
        if (!at(i).is(":"))
            return;
        size_t target = i + 1;
        const bool isSure = at(target).is("entity") || at(target).is("component");
        target += isSure ? 1 : 0;
        while (at(target).isName() && at(target + 1).is("."))
            target += 2;
        const bool isMapped =
            (at(target + 1).is("generic") || at(target + 1).is("port")) && at(target + 2).is("map");
        if (!at(target).isName() || !(isSure || isMapped))
            return;
        m_scan.instantiated.insert(name(target));
        if (!m_scan.units.isEmpty())
            m_scan.within[m_scan.units.last().entity].insert(name(target));
    }

    const Words m_words;
    const std::vector<Word> &m_all;
    const int m_size;
    VhdlScan m_scan;
    bool m_isEnding = false;
    size_t m_genericsEnd = 0; // a list that is not closed is read once
};

} // namespace

VhdlScan scanVhdl(const QByteArray &text)
{
    return Scanner(text).scan();
}

bool findVhdlInstance(const QByteArray &text, int at, VhdlInstance &instance)
{
    const Words words(text);
    const std::vector<Word> &all = words.all();
    size_t i = 0;
    while (i < all.size() && all[i].end() <= at)
        ++i;
    if (i == all.size() || !all[i].isName() || i == 0)
        return false;
    // The place is that of any part of "lib.unit".
    while (i + 2 < all.size() && all[i + 1].is(".") && all[i + 2].isName())
        i += 2;
    const size_t target = i;
    while (i > 1 && all[i - 1].is("."))
        i -= 2;
    if (i > 0 && (all[i - 1].is("entity") || all[i - 1].is("component")))
        --i;
    if (i < 2 || !all[i - 1].is(":") || !all[i - 2].isName())
        return false;
    instance.begin = all[i - 1].at;
    instance.name = words.spelled(all[target]);
    for (i = target + 1; i < all.size() && !all[i].is(";"); ++i) {
        if (all[i].isName())
            instance.words.insert(words.name(all[i]));
    }
    instance.end = i < all.size() ? all[i].at : text.size();
    return true;
}

void replaceKeepingLines(QByteArray &text, int begin, int end, const QByteArray &by)
{
    const QByteArray lines(text.mid(begin, end - begin).count('\n'), '\n');
    text.replace(begin, end - begin, by + lines);
}

} // namespace QUARRY
