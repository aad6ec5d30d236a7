#include "model/netlist/netlistbuilder.h"
#include "netselect/netsearch.h"
#include "tests/support/netlisttext.h"
#include "tests/support/tablerow.h"

using namespace QUARRY;
using namespace RTLJEX;

namespace {

const char *const design = R"(
  top
    clk
    count[7:0]
    u0:uart
      ready
      Ready_n
      count[3:0]
      fifo:ram
        full
    u1:empty
      u2:empty
    u3:wrap
      u4:uart
        ready
        Ready_n
        count[3:0]
)";

SearchOptions search(const QString &pattern, Hierachy *module = nullptr, bool includeSubentries = true)
{
    SearchOptions options;
    options.pattern = pattern;
    options.searchInModule = module != nullptr;
    options.module = module;
    options.includeSubentries = includeSubentries;
    return options;
}

QString names(const QList<RtlNet *> &nets, const QList<RtlNetBus *> &buses)
{
    QStringList result;
    for (const RtlNet *net : nets)
        result += net->fullPathName();
    for (const RtlNetBus *bus : buses)
        result += bus->fullBusName();
    return result.join(' ');
}

void setSyntax(SearchOptions &options, int syntax, bool caseSensitive)
{
    options.usePatternSyntax = syntax >= 0;
    options.patternSyntax = QRegExp::PatternSyntax(qMax(syntax, 0));
    options.caseSensitivity = caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
}

QString searched(RtlNetlist *netlist, const SearchOptions &options)
{
    QList<RtlNet *> nets;
    QList<RtlNetBus *> buses;
    searchNets(netlist, options, nets, buses);
    return names(nets, buses);
}

QString visited(RtlNetlist *netlist, const SearchOptions &options)
{
    QList<RtlNet *> nets;
    QList<RtlNetBus *> buses;
    visitNets(netlist, options, [&](const QList<RtlNet *> &ownNets, const QList<RtlNetBus *> &ownBuses) {
        nets += ownNets;
        buses += ownBuses;
    });
    return names(nets, buses);
}

// "top(clk u0(ready))"
QString drawn(const ModuleForWidget &node)
{
    QStringList parts;
    for (const RtlNet *net : node.nets)
        parts += net->name();
    for (const RtlNetBus *bus : node.buses)
        parts += bus->BusName();
    for (const ModuleForWidget &child : node.subModules)
        parts += drawn(child);
    return node.name + '(' + parts.join(' ') + ')';
}

// What one match test after the other finds.
QString foundOneByOne(Hierachy *module, SearchOptions options)
{
    const auto fails = [&options](auto *found) { return !checkNetForHierarchy(found, options); };
    QList<RtlNet *> nets = module->singleNetsIncludeSub();
    QList<RtlNetBus *> buses = module->netbusesIncludeSub();
    nets.erase(std::remove_if(nets.begin(), nets.end(), fails), nets.end());
    buses.erase(std::remove_if(buses.begin(), buses.end(), fails), buses.end());
    return names(nets, buses);
}

typedef QRandomGenerator Random;

// Text of pieces that are likely to repeat, so that patterns match now and then.
QString randomText(Random &random, const QStringList &pieces, int most)
{
    QString result;
    for (int i = random.bounded(most) + 1; i > 0; --i)
        result += pieces.at(random.bounded(pieces.size()));
    return result;
}

// Letters whose lower, upper and folded forms are not each other's mirror, and a surrogate pair.
const QStringList namePieces =
    QString::fromUtf8("a A b ab aB _ a/ /b u0 k K \u212A s \u017F \u00DF i \u0130 \u00E9 \u00C9 "
                      "[3] . * \\ $ \U00010400 \U00010428")
        .split(' ');

RtlNetlist *randomNetlist(Random &random, bool ascii)
{
    const auto name = [&] { return randomText(random, namePieces.mid(0, ascii ? 9 : -1), 3); };
    NetlistBuilder builder;
    for (int i = 0; i < 4; ++i) {
        ModuleDecl module;
        for (int n = random.bounded(6); n > 0; --n) {
            module.nets += NetDecl();
            module.nets.last().name = random.bounded(8) ? name() : QString();
            module.nets.last().isBus = random.bounded(3) == 0;
            module.nets.last().left = random.bounded(12);
        }
        builder.addModule(module);
    }
    QList<Hierachy *> nodes{builder.addTop(name(), 0)};
    while (nodes.size() < 9)
        nodes += builder.addInstance(nodes.at(random.bounded(nodes.size())), name(), random.bounded(4));
    return builder.take();
}

// A part of an existing name with syntax thrown in, or syntax alone; the first syntax often at the ends.
QString randomPattern(Random &random, const QStringList &names, const QStringList &syntax)
{
    const auto pick = [&random](const QStringList &list) { return list.at(random.bounded(list.size())); };
    QString pattern = random.bounded(5) ? pick(names) : randomText(random, syntax, 4);
    if (random.bounded(2))
        pattern = pattern.mid(random.bounded(pattern.size()), random.bounded(pattern.size()) + 1);
    for (int i = random.bounded(4); i > 0; --i)
        pattern.replace(random.bounded(pattern.size() + 1), random.bounded(3), pick(syntax));
    return (random.bounded(3) ? "" : syntax.first()) + pattern + (random.bounded(3) ? "" : syntax.first());
}

} // namespace

class NetSearchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_netlist.reset(netlistFromText(design));
        m_top = m_netlist->topHierarchy;
    }

    void matches_data()
    {
        // "syntax": -1: substring
        columns<int, bool>("syntax", "caseSensitive");
        textColumns("pattern", "expected");
        const int wildcard = QRegExp::WildcardUnix;
        const int regExp = QRegExp::RegExp;
        row("any case", -1, false, "READY", "top/u0/ready top/u0/Ready_n top/u3/u4/ready top/u3/u4/Ready_n");
        row("this case", -1, true, "Ready", "top/u0/Ready_n top/u3/u4/Ready_n");
        row("not trimmed", -1, true, " clk", "");
        row("whole name", wildcard, true, "clk", "");
        row("stars", wildcard, true, "*clk*", "top/clk");
        row("set", wildcard, true, "*count[7:0]", "");
        row("escaped", wildcard, true, "*u*count\\[?:0\\]", "top/u0/count[3:0] top/u3/u4/count[3:0]");
        row("short name alone", regExp, true, "ready", "");
        row("regular", regExp, true, ".*ready", "top/u0/ready top/u3/u4/ready");
        row("invalid", regExp, true, "*(", "");
    }
    void matches()
    {
        auto [syntax, caseSensitive, pattern] =
            cells<int, bool, QString>("syntax", "caseSensitive", "pattern");
        SearchOptions options = search(pattern, m_top);
        setSyntax(options, syntax, caseSensitive);
        QTEST(searched(m_netlist.get(), options), "expected");
    }

    // Inside an expression they stand for a place that no name has, whatever its letters.
    void anchorsInside()
    {
        m_netlist.reset(netlistFromText("top\n  a^b\n  a$b\n  ab\n"));
        const QString patterns[][2] = {
            {"top/a^b", ""},          {"top/a$b", ""},        {".*a$b.*", ""}, {"^top/ab$", "top/ab"},
            {"top/a\\^b", "top/a^b"}, {".*\\$.*", "top/a$b"}, {".*^ab", ""},   {".*(^|x)ab", ""}};
        for (const auto &row : patterns) {
            SearchOptions options = search(row[0], m_netlist->topHierarchy);
            setSyntax(options, QRegExp::RegExp, true);
            QCOMPARE(searched(m_netlist.get(), options), row[1]);
        }
    }

    // A flat search and one by modules, in the same places.
    void searchedPlaces()
    {
        const auto both = [this](const SearchOptions &options) {
            return searched(m_netlist.get(), options) + " | " + drawn(searchNetsHierarchy(options));
        };
        Hierachy *uart = m_top->children.first();
        SearchOptions notInModule = search("t", m_top);
        notInModule.searchInModule = false;
        QCOMPARE(both(notInModule), QString("top/clk top/count[7:0] | top()"));
        QCOMPARE(
            both(search("", uart, false)),
            QString("top/u0/ready top/u0/Ready_n top/u0/count[3:0] | uart:u0(ready Ready_n count[3:0])"));
        QCOMPARE(both(search("l", uart)), QString("top/u0/fifo/full | uart:u0(ram:fifo(full))"));
        QCOMPARE(both(search("full", uart, false)), QString(" | uart:u0()"));
        QCOMPARE(both(search("full", m_top)), QString("top/u0/fifo/full | top(uart:u0(ram:fifo(full)))"));
        QCOMPARE(both(search("nothing", m_top)), QString(" | top()"));
        QCOMPARE(both(search("", m_top)),
                 QString("top/clk top/u0/ready top/u0/Ready_n top/u0/fifo/full top/u3/u4/ready "
                         "top/u3/u4/Ready_n top/count[7:0] top/u0/count[3:0] top/u3/u4/count[3:0] | "
                         "top(clk count[7:0] uart:u0(ready Ready_n count[3:0] ram:fifo(full)) "
                         "wrap:u3(uart:u4(ready Ready_n count[3:0])))"));

        // Below the root the whole subtree is searched, whatever the options say.
        ModuleForWidget parent;
        SearchOptions options = search("full", m_top, false);
        createModuleForWidget(parent, uart, options);
        createModuleForWidget(parent, m_top->children.last(), options);
        QCOMPARE(drawn(parent), QString("(uart:u0(ram:fifo(full)))"));
    }

    // What the lists hold already stays, unless the pattern is empty.
    void outputLists()
    {
        QList<RtlNet *> nets = m_top->nets;
        QList<RtlNetBus *> buses = m_top->buses;
        RtlNetlist empty;
        searchNets(m_netlist.get(), search("full", m_top), nets, buses);
        searchNets(nullptr, search("", m_top), nets, buses);
        searchNets(&empty, search("c"), nets, buses);
        QCOMPARE(names(nets, buses), QString("top/clk top/u0/fifo/full top/count[7:0]"));
        searchNets(m_netlist.get(), search("", m_top, false), nets, buses);
        QCOMPARE(names(nets, buses), QString("top/clk top/count[7:0]"));
        SearchOptions nowhere = search("");
        nowhere.searchInModule = true;
        searchNets(m_netlist.get(), nowhere, nets, buses);
        QCOMPARE(names(nets, buses) + drawn(searchNetsHierarchy(nowhere)), QString("()"));
    }

    // Any pattern, also a broken one, finds what the match test finds one by one.
    void fastSearchIsExact_data()
    {
        columns<int, QStringList>("syntax", "pieces");
        const QString wildcard = "* * ** ? [ ] [ab] [^a] \\ \\[ \\] \\* \\\\ / *a* $ ( []a] [a";
        const QString regExp =
            ".* .* . .+ * + ? {2} {1,} ( ) (a|b) (a|b)? (?:a) (?=a) | [ab] [^/]* [] [\\]] \\d \\w+ "
            "(a|b)+ (ab|u0)* [^/a] \\W \\b \\1 \\x61 ^ $ \\[ \\. \\\\ \\/ / .*a.*";
        row("substring", -1, namePieces);
        row("wildcard", int(QRegExp::WildcardUnix), wildcard.split(' ') + namePieces);
        row("regexp", int(QRegExp::RegExp), regExp.split(' ') + namePieces);
    }
    void fastSearchIsExact()
    {
        auto [syntax, pieces] = cells<int, QStringList>("syntax", "pieces");
        int matched = 0;
        for (quint32 seed = 0; seed < 60; ++seed) {
            Random random(seed);
            m_netlist.reset(randomNetlist(random, seed % 2 == 0));
            m_top = m_netlist->topHierarchy;
            const QStringList all =
                (searched(m_netlist.get(), search("", m_top)) + " x").split(' ', Qt::SkipEmptyParts);
            for (int i = 0; i < 60; ++i) {
                SearchOptions options = search(randomPattern(random, all, pieces), m_top);
                setSyntax(options, syntax, random.bounded(2));
                if (options.pattern.isEmpty())
                    continue;
                const QString expected = foundOneByOne(m_top, options);
                const QString where = QString("seed %1, pattern \"").arg(seed) + options.pattern + '"';
                QVERIFY2(searched(m_netlist.get(), options) == expected, qPrintable(where));
                QVERIFY2(visited(m_netlist.get(), options) == expected, qPrintable(where));
                matched += expected.isEmpty() ? 0 : 1;
            }
        }
        QVERIFY2(matched > 300, qPrintable(QString::number(matched)));
    }

private:
    std::unique_ptr<RtlNetlist> m_netlist;
    Hierachy *m_top = nullptr;
};

QTEST_GUILESS_MAIN(NetSearchTest)
#include "tst_netsearch.moc"
