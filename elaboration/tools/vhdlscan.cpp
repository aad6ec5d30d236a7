#include "elaboration/tools/vhdlscan.h"

#include <QStringList>

#include "elaboration/reading/vhdlwords.h"
#include "elaboration/tools/sourcetext.h"

namespace QUARRY {
namespace {

class Scanner
{
public:
    explicit Scanner(const QByteArray &text) : m_words(text)
    {
        // A text that makes GHDL see other words than we do can still not hide a name from this.
        m_scan.mentionsForeign = text.toLower().contains("foreign");
    }

    VhdlScan scan()
    {
        for (int i = 0; i < m_words.count(); ++i) {
            takeUnit(i);
            takeClause(i);
            takeSubtype(i);
            takeInstance(i);
            const VhdlWord &word = at(i);
            if (word.is("end"))
                m_isEnding = true;
            else if (word.is(";") && m_isEnding && !m_scan.units.isEmpty())
                m_scan.units.last().end = word.end();
            if (word.is(";"))
                m_isEnding = false;
            m_scan.mentionsLoops = m_scan.mentionsLoops || (word.is("for") && at(i - 1).is(":"));
            m_scan.mentionsComposites = m_scan.mentionsComposites || word.is("record") || word.is("array");
        }
        for (int i = 0; i < m_scan.units.size(); ++i) { // one whose end is missing
            if (m_scan.units.at(i).end == 0)
                m_scan.units[i].end =
                    i + 1 < m_scan.units.size() ? m_scan.units.at(i + 1).begin : m_words.end();
        }
        return m_scan;
    }

private:
    const VhdlWord &at(int i) const { return m_words.at(i); }
    QString name(int i) const { return m_words.name(i); }

    void takeUnit(int i)
    {
        const VhdlWord &word = at(i);
        const bool isBody = word.is("package") && at(i + 1).is("body");
        const int named = isBody ? i + 2 : i + 1;
        const bool isOf = at(named + 1).is("of") && at(named + 3).is("is");
        if (!at(named).isName() || !(at(named + 1).is("is") || isOf) || at(i - 1).is(":"))
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
        unit.name = m_words.spelled(named);
        unit.entity = isOf ? name(named + 2) : isBody ? name(named) : QString();
        unit.begin = word.at;
        unit.end = 0;
        unit.line = at(named).line;
        m_scan.units.append(unit);
        if (unit.kind == VhdlUnit::Entity)
            takeGenerics(named + 2, unit.name.toLower());
    }

    // "generic (a, b : integer := 3; c : in string)" behind "entity e is"
    void takeGenerics(int i, const QString &entity)
    {
        if (!at(i).is("generic") || !at(i + 1).is("(") || i < m_genericsEnd)
            return;
        int depth = 0;
        QStringList names;
        for (++i; i < m_words.count(); ++i) {
            m_genericsEnd = i;
            depth += at(i).is("(") ? 1 : at(i).is(")") ? -1 : 0;
            if (depth == 0)
                return;
            if (at(i).is(":")) {
                const QString type = lastName(at(i + 1).is("in") ? i + 2 : i + 1);
                for (const QString &known : names)
                    m_scan.generics[entity].append(qMakePair(known, type));
                names.clear();
            } else if (at(i).is(",") || at(i).is(";") || (depth == 1 && at(i).is("("))) {
                if (at(i + 1).isName())
                    names.append(name(at(i + 1).is("constant") ? i + 2 : i + 1));
            }
        }
    }

    // "type" of "lib.package.type"
    QString lastName(int i) const
    {
        while (at(i + 1).is(".") && at(i + 2).isName())
            i += 2;
        return name(i);
    }

    void takeSubtype(int i)
    {
        if (at(i).is("subtype") && at(i + 2).is("is"))
            m_scan.subtypes.insert(name(i + 1), lastName(i + 3));
    }

    void takeClause(int i)
    {
        const bool isStart = i == 0 || at(i - 1).is(";");
        if (at(i).is("library") && isStart) {
            for (++i; i < m_words.count() && !at(i).is(";"); ++i) {
                if (at(i).isName())
                    m_scan.libraries.insert(name(i));
            }
        }
        if (at(i).is(".") && at(i - 1).isName() && at(i + 1).isName() && !at(i - 2).is("."))
            m_scan.uses.insert(qMakePair(name(i - 1), name(i + 1)));
    }

    // ": entity lib.e", ": component c", ": c generic map", ": c port map"
    void takeInstance(int i)
    {
        if (!at(i).is(":"))
            return;
        int target = i + 1;
        const bool isSure = at(target).is("entity") || at(target).is("component");
        target += isSure ? 1 : 0;
        while (at(target).isName() && at(target + 1).is("."))
            target += 2;
        const bool isMapped =
            (at(target + 1).is("generic") || at(target + 1).is("port")) && at(target + 2).is("map");
        if (!at(target).isName() || !(isSure || isMapped))
            return;
        if (at(i + 1).is("entity") && target > i + 2 && !at(i + 2).is("work"))
            m_scan.targets.insert(at(i - 1).line, name(i + 2));
        ++m_scan.instances;
        m_scan.instantiated.insert(name(target));
        if (!m_scan.units.isEmpty())
            m_scan.within[m_scan.units.last().entity].insert(name(target));
    }

    const VhdlWords m_words;
    VhdlScan m_scan;
    bool m_isEnding = false;
    int m_genericsEnd = 0; // a list that is not closed is read once
};

} // namespace

VhdlScan scanVhdl(const QByteArray &text)
{
    return Scanner(text).scan();
}

bool findVhdlInstance(const QByteArray &text, int at, VhdlInstance &instance)
{
    const VhdlWords words(text);
    int i = 0;
    while (i < words.count() && words.at(i).end() <= at)
        ++i;
    if (!words.at(i).isName() || i == 0)
        return false;
    // The place is that of any part of "lib.unit".
    while (words.at(i + 1).is(".") && words.at(i + 2).isName())
        i += 2;
    const int target = i;
    while (words.at(i - 1).is("."))
        i -= 2;
    const bool isSure = words.at(i - 1).is("entity") || words.at(i - 1).is("component");
    if (!isSure && !words.at(target + 2).is("map"))
        return false;
    i -= isSure ? 1 : 0;
    if (!words.at(i - 1).is(":") || !words.at(i - 2).isName())
        return false;
    instance.begin = words.at(i - 1).at;
    instance.name = words.spelled(target);
    for (i = target + 1; i < words.count() && !words.at(i).is(";"); ++i) {
        if (words.at(i).isName())
            instance.words.insert(words.name(i));
    }
    instance.end = i < words.count() ? words.at(i).at : text.size();
    return true;
}

bool splitVhdlGenerics(QByteArray &text)
{
    const int mostAdded = 1 << 20; // by one list: what is longer is left as it is
    const VhdlWords words(text);
    QByteArray split;
    QList<int> commas;
    int done = 0;
    int depth = 0; // in a list of generics
    int colon = 0;
    for (int i = 0; i < words.count(); ++i) {
        const VhdlWord &word = words.at(i);
        if (depth == 0 && !(word.is("(") && words.at(i - 1).is("generic") && words.at(i - 2).is("is") &&
                            words.at(i - 4).is("entity")))
            continue;
        depth += word.is("(") ? 1 : word.is(")") ? -1 : 0;
        if (depth == 1 && word.is(",") && colon == 0)
            commas.append(word.at);
        else if (depth == 1 && word.is(":") && colon == 0)
            colon = i;
        if (depth > 1 || !(word.is(";") || depth == 0))
            continue;
        const int begin = colon > 0 && !commas.isEmpty() ? words.at(colon).at : word.at;
        const QByteArray type = withoutComments(text.mid(begin, word.at - begin), VhdlSource).simplified();
        const bool mayNeedIt = type.contains('(') || type.toLower().startsWith(": string");
        const bool isSplit = mayNeedIt && qint64(type.size()) * commas.size() <= mostAdded;
        for (const int comma : isSplit ? commas : QList<int>()) {
            split += text.mid(done, comma - done) + type + ';';
            done = comma + 1;
        }
        commas.clear();
        colon = 0;
    }
    if (done == 0)
        return false;
    text = split + text.mid(done);
    return true;
}

bool setVhdlDefault(QByteArray &text, const QString &entity, const QString &generic, const QByteArray &value)
{
    const VhdlWords words(text);
    int i = 0;
    while (i < words.count() && !(words.at(i).is("entity") && words.name(i + 1) == entity &&
                                  words.at(i + 2).is("is") && words.at(i + 3).is("generic")))
        ++i;
    // Behind "(" or ";", and in front of ":".
    for (i += 4; i < words.count() && !words.at(i).is("port") && !words.at(i).is("end"); ++i) {
        const int name = words.at(i + 1).is("constant") ? i + 2 : i + 1;
        if ((words.at(i).is("(") || words.at(i).is(";")) && words.name(name) == generic &&
            words.at(name + 1).is(":"))
            break;
    }
    if (i >= words.count() || !(words.at(i).is("(") || words.at(i).is(";")))
        return false;
    int begin = 0;
    int depth = 0;
    for (++i; i < words.count() && depth >= 0 && !(depth == 0 && words.at(i).is(";")); ++i) {
        depth += words.at(i).is("(") ? 1 : words.at(i).is(")") ? -1 : 0;
        if (words.at(i).is(":") && words.at(i + 1).is("="))
            begin = words.at(i).at;
    }
    const int last = depth < 0 ? i - 1 : i; // the parenthesis that closes the list, or the semicolon
    if (last >= words.count())
        return false;
    replaceKeepingLines(text, begin ? begin : words.at(last).at, words.at(last).at, ":= " + value);
    return true;
}

void replaceKeepingLines(QByteArray &text, int begin, int end, const QByteArray &by)
{
    const QByteArray lines(text.mid(begin, end - begin).count('\n'), '\n');
    text.replace(begin, end - begin, by + lines);
}

void editVhdl(QByteArray &text, const VhdlEdits &edits)
{
    for (auto edit = edits.end(); edit != edits.begin();) {
        --edit;
        replaceKeepingLines(text, edit.key(), edit->first, edit->second);
    }
    // GHDL refuses a file, and clauses, behind which nothing stands.
    const QByteArray filler = "\npackage jex_empty is end;";
    if (!text.endsWith(filler))
        text += filler;
}

} // namespace QUARRY
