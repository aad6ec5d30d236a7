#include "model/quarry/netlistbuilder.h"
#include "netselect/netsearch.h"
#include "tests/support/netlisttext.h"

#include <QRandomGenerator>
#include <QtTest>

#include <memory>

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
    return result.join(QLatin1Char(' '));
}

QString searched(RtlNetlist *netlist, const SearchOptions &options)
{
    QList<RtlNet *> nets;
    QList<RtlNetBus *> buses;
    searchNets(netlist, options, nets, buses);
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
    return node.name + QLatin1Char('(') + parts.join(QLatin1Char(' ')) + QLatin1Char(')');
}

// What one match test after the other finds.
QString foundOneByOne(Hierachy *module, SearchOptions options)
{
    QList<RtlNet *> nets;
    QList<RtlNetBus *> buses;
    for (RtlNet *net : module->singleNetsIncludeSub())
        if (checkNetForHierarchy(net, options))
            nets += net;
    for (RtlNetBus *bus : module->netbusesIncludeSub())
        if (checkNetForHierarchy(bus, options))
            buses += bus;
    return names(nets, buses);
}

class Random
{
public:
    explicit Random(quint32 seed) : m_generator(seed) {}
    int below(int limit) { return int(m_generator.bounded(quint32(limit))); }

    // Text of pieces that are likely to repeat, so that patterns match now and then.
    QString text(const QStringList &pieces, int most)
    {
        QString result;
        for (int i = below(most) + 1; i > 0; --i)
            result += pieces.at(below(pieces.size()));
        return result;
    }

private:
    QRandomGenerator m_generator;
};

const QStringList &namePieces()
{
    // Letters whose lower, upper and folded forms are not each other's mirror, and a surrogate pair.
    static const QStringList pieces =
        QString::fromUtf8("a|A|b|ab|aB|_|a/|/b|u0|k|K|\u212A|s|\u017F|\u00DF|i|"
                          "\u0130|\u00E9|\u00C9|[3]|.|*|\\|$|\U00010400|\U00010428")
            .split(QLatin1Char('|'));
    return pieces;
}

RtlNetlist *randomNetlist(Random &random, bool ascii)
{
    const QStringList pieces = namePieces().mid(0, ascii ? 9 : -1);
    NetlistBuilder builder;
    for (int i = 0; i < 4; ++i) {
        ModuleDecl module;
        module.name = QString::number(i);
        for (int n = random.below(6); n > 0; --n) {
            NetDecl net;
            net.name = random.text(pieces, 4);
            net.isBus = random.below(3) == 0;
            net.left = random.below(12);
            module.nets += net;
        }
        builder.addModule(module);
    }
    QList<Hierachy *> nodes{builder.addTop(random.text(pieces, 3), 0)};
    while (nodes.size() < 9)
        nodes += builder.addInstance(nodes.at(random.below(nodes.size())), random.text(pieces, 3),
                                     random.below(4));
    return builder.take();
}

// A part of an existing name with syntax thrown in, or syntax alone; the first syntax often at the ends.
QString randomPattern(Random &random, const QStringList &names, const QStringList &syntax)
{
    QString pattern = random.below(5) ? names.at(random.below(names.size())) : random.text(syntax, 4);
    if (random.below(2)) {
        pattern.remove(0, random.below(pattern.size()));
        pattern.truncate(random.below(pattern.size()) + 1);
    }
    for (int i = random.below(4); i > 0; --i) {
        const int at = random.below(pattern.size() + 1);
        pattern.replace(at, random.below(3), syntax.at(random.below(syntax.size())));
    }
    if (random.below(3) == 0)
        pattern.prepend(syntax.first());
    if (random.below(3) == 0)
        pattern.append(syntax.first());
    return pattern;
}

} // namespace

class TestNetSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void matches_data()
    {
        QTest::addColumn<int>("syntax"); // -1: substring
        QTest::addColumn<bool>("caseSensitive");
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QString>("expected");
        const QString counts = "top/count[7:0] top/u0/count[3:0] top/u3/u4/count[3:0]";
        const int wildcard = QRegExp::WildcardUnix;
        const int regExp = QRegExp::RegExp;
        QTest::newRow("any case") << -1 << false << "READY"
                                  << "top/u0/ready top/u0/Ready_n top/u3/u4/ready top/u3/u4/Ready_n";
        QTest::newRow("this case") << -1 << true << "Ready"
                                   << "top/u0/Ready_n top/u3/u4/Ready_n";
        QTest::newRow("path") << -1 << true << "0/fifo"
                              << "top/u0/fifo/full";
        QTest::newRow("over the separator") << -1 << true << "4/r"
                                            << "top/u3/u4/ready";
        QTest::newRow("not trimmed") << -1 << true << " clk"
                                     << "";
        QTest::newRow("no syntax") << -1 << true << "t[7:0]"
                                   << "top/count[7:0]";
        QTest::newRow("whole name") << wildcard << true << "clk"
                                    << "";
        QTest::newRow("stars") << wildcard << true << "*clk*"
                               << "top/clk";
        QTest::newRow("star over separators") << wildcard << true << "top*full"
                                              << "top/u0/fifo/full";
        QTest::newRow("set") << wildcard << true << "*count[7:0]"
                             << "";
        QTest::newRow("set of one") << wildcard << true << "*u[34]/r*"
                                    << "top/u3/u4/ready";
        QTest::newRow("escaped") << wildcard << true << "*count\\[?:0\\]" << counts;
        QTest::newRow("question marks") << wildcard << false << "TOP/???"
                                        << "top/clk";
        QTest::newRow("short name alone") << regExp << true << "ready"
                                          << "";
        QTest::newRow("regular") << regExp << true << ".*ready"
                                 << "top/u0/ready top/u3/u4/ready";
        QTest::newRow("choice") << regExp << true << ".*(clk|full)"
                                << "top/clk top/u0/fifo/full";
        QTest::newRow("invalid") << regExp << true << "*("
                                 << "";
        QTest::newRow("range") << regExp << false << ".*COUNT\\[\\d:0\\]" << counts;
    }

    void matches()
    {
        QFETCH(int, syntax);
        QFETCH(bool, caseSensitive);
        QFETCH(QString, pattern);
        std::unique_ptr<RtlNetlist> netlist(netlistFromText(design));
        SearchOptions options = search(pattern, netlist->topHierarchy);
        options.usePatternSyntax = syntax >= 0;
        options.patternSyntax = QRegExp::PatternSyntax(qMax(syntax, 0));
        options.caseSensitivity = caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
        QTEST(searched(netlist.get(), options), "expected");
    }

    void candidates()
    {
        std::unique_ptr<RtlNetlist> netlist(netlistFromText(design));
        Hierachy *top = netlist->topHierarchy;
        Hierachy *uart = top->children.first();
        QCOMPARE(searched(netlist.get(), search("t")), QString("top/clk top/count[7:0]"));
        QCOMPARE(searched(netlist.get(), search("", uart, false)),
                 QString("top/u0/ready top/u0/Ready_n top/u0/count[3:0]"));
        QCOMPARE(searched(netlist.get(), search("l", uart)), QString("top/u0/fifo/full"));
        QCOMPARE(searched(netlist.get(), search("", top)),
                 names(top->singleNetsIncludeSub(), top->netbusesIncludeSub()));
    }

    // What the lists hold already stays, unless the pattern is empty.
    void outputLists()
    {
        std::unique_ptr<RtlNetlist> netlist(netlistFromText(design));
        Hierachy *top = netlist->topHierarchy;
        QList<RtlNet *> nets = top->nets;
        QList<RtlNetBus *> buses = top->buses;
        searchNets(netlist.get(), search("full", top), nets, buses);
        QCOMPARE(names(nets, buses), QString("top/clk top/u0/fifo/full top/count[7:0]"));
        searchNets(nullptr, search("", top), nets, buses);
        QCOMPARE(nets.size(), 2);
        searchNets(netlist.get(), search("", top, false), nets, buses);
        QCOMPARE(names(nets, buses), QString("top/clk top/count[7:0]"));

        SearchOptions nowhere = search("");
        nowhere.searchInModule = true;
        RtlNetlist empty;
        searchNets(&empty, search("c"), nets, buses);
        QCOMPARE(nets.size(), 1);
        searchNets(netlist.get(), nowhere, nets, buses);
        QVERIFY(nets.isEmpty() && buses.isEmpty());
        QCOMPARE(drawn(searchNetsHierarchy(nowhere)), QString("()"));
    }

    void hierarchy()
    {
        std::unique_ptr<RtlNetlist> netlist(netlistFromText(design));
        Hierachy *top = netlist->topHierarchy;
        SearchOptions notInModule = search("clk", top);
        notInModule.searchInModule = false;
        QCOMPARE(drawn(searchNetsHierarchy(notInModule)), QString("top()"));
        QCOMPARE(drawn(searchNetsHierarchy(search("", top))),
                 QString("top(clk count[7:0] uart:u0(ready Ready_n count[3:0] ram:fifo(full)) "
                         "wrap:u3(uart:u4(ready Ready_n count[3:0])))"));
        QCOMPARE(drawn(searchNetsHierarchy(search("full", top))), QString("top(uart:u0(ram:fifo(full)))"));
        QCOMPARE(drawn(searchNetsHierarchy(search("nothing", top))), QString("top()"));
        QCOMPARE(drawn(searchNetsHierarchy(search("c", top, false))), QString("top(clk count[7:0])"));
        QCOMPARE(drawn(searchNetsHierarchy(search("full", top->children.first(), false))),
                 QString("uart:u0()"));

        // Below the root the whole subtree is searched, whatever the options say.
        ModuleForWidget parent;
        SearchOptions options = search("full", top, false);
        createModuleForWidget(parent, top->children.first(), options);
        createModuleForWidget(parent, top->children.last(), options);
        QCOMPARE(drawn(parent), QString("(uart:u0(ram:fifo(full)))"));
    }

    // Any pattern, also a broken one, finds what the match test finds one by one.
    void fastSearchIsExact_data()
    {
        QTest::addColumn<int>("syntax");
        QTest::addColumn<QStringList>("pieces");
        QTest::newRow("substring") << -1 << namePieces();
        QTest::newRow("wildcard") << int(QRegExp::WildcardUnix)
                                  << (QStringList{"*", "*", "**", "?", "[", "]", "[ab]", "[^a]", "\\", "\\[",
                                                  "\\]", "\\*", "\\\\", "/", "*a*", "$", "(", "[]a]", "[a"} +
                                      namePieces());
        QTest::newRow("regexp") << int(QRegExp::RegExp)
                                << (QStringList{".*",     ".*",    ".",     ".+",   "*",      "+",
                                                "?",      "{2}",   "{1,}",  "(",    ")",      "(a|b)",
                                                "(a|b)?", "(?:a)", "(?=a)", "|",    "[ab]",   "[^/]*",
                                                "[]",     "[\\]]", "\\d",   "\\w+", "(a|b)+", "(ab|u0)*",
                                                "[^/a]",  "\\W",   "\\b",   "\\1",  "\\x61",  "^",
                                                "$",      "\\[",   "\\.",   "\\\\", "\\/",    "/",
                                                ".*a.*"} +
                                    namePieces());
    }

    void fastSearchIsExact()
    {
        QFETCH(int, syntax);
        QFETCH(QStringList, pieces);
        int matched = 0;
        for (quint32 seed = 0; seed < 60; ++seed) {
            Random random(seed);
            std::unique_ptr<RtlNetlist> netlist(randomNetlist(random, seed % 2 == 0));
            Hierachy *top = netlist->topHierarchy;
            const QStringList all =
                (names(top->singleNetsIncludeSub(), top->netbusesIncludeSub()) + QLatin1String(" x"))
                    .split(QLatin1Char(' '), Qt::SkipEmptyParts);
            for (int i = 0; i < 60; ++i) {
                SearchOptions options = search(randomPattern(random, all, pieces), top);
                options.usePatternSyntax = syntax >= 0;
                options.patternSyntax = QRegExp::PatternSyntax(qMax(syntax, 0));
                options.caseSensitivity = random.below(2) ? Qt::CaseSensitive : Qt::CaseInsensitive;
                if (options.pattern.isEmpty())
                    continue;
                const QString expected = foundOneByOne(top, options);
                const QString where = QString("seed %1, pattern \"").arg(seed) + options.pattern + '"';
                QVERIFY2(searched(netlist.get(), options) == expected, qPrintable(where));
                matched += expected.isEmpty() ? 0 : 1;
            }
        }
        QVERIFY2(matched > 300, qPrintable(QString::number(matched)));
    }
};

QTEST_APPLESS_MAIN(TestNetSearch)
#include "tst_netsearch.moc"
