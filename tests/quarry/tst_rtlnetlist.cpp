#include "model/quarry/netlistbuilder.h"
#include "tests/support/netlisttext.h"

#include <QtTest>

#include <memory>

using namespace QUARRY;

namespace {

const char *const design = R"(
  top
    clk
    din x
    u0/x
    count[7:0] x3 x5
    offset[31:30] x30 x31
    up[0:2] x
    neg[1:-1]
    a
    a[0:0]
    esc[3]
    u0:uart
      ready
      count[1:0]
      u1:fifo
    u0/x:leaf
      y
      count[7:0]
    u0:uart
      late
)";

template <typename List>
QString flags(const List &list)
{
    QStringList words;
    for (const auto *entry : list)
        words += entry->name() + QLatin1String(entry->excluded ? "!" : "");
    return words.join(QLatin1Char(' '));
}

} // namespace

class TestRtlNetlist : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void names()
    {
        std::unique_ptr<RtlNetlist> netlist(netlistFromText(design));
        const Hierachy *top = netlist->topHierarchy;
        QCOMPARE(flags(top->nets), QString("clk din! u0/x a esc[3]"));
        QStringList buses;
        for (const RtlNetBus *bus : top->buses)
            buses += bus->fullBusName() + QLatin1String(bus->excluded ? "!: " : ": ") + flags(bus->members);
        QCOMPARE(buses.join(QLatin1Char('\n')),
                 QString("top/count[7:0]: count[7] count[6] count[5]! count[4] count[3]! count[2] count[1] "
                         "count[0]\n"
                         "top/offset[31:30]!: offset[31]! offset[30]!\n"
                         "top/up[0:2]!: up[0]! up[1]! up[2]!\n"
                         "top/neg[1:-1]: neg[1] neg[0] neg[-1]\n"
                         "top/a[0:0]: a[0]"));
        QStringList nets;
        for (const RtlNet *net : top->singleNetsIncludeSub())
            nets += net->fullPathName();
        QCOMPARE(nets.join(QLatin1Char(' ')), QString("top/clk top/din top/u0/x top/a top/esc[3] "
                                                      "top/u0/ready top/u0/x/y top/u0/late"));
        QCOMPARE(top->netbusesIncludeSub().size(), 7);
        QCOMPARE(top->children.first()->children.first()->fullPathName(), QString("top/u0/u1"));
        QVERIFY(!netlist->usesTsJtag);
    }

    void everyNameIsFound()
    {
        std::unique_ptr<RtlNetlist> netlist(netlistFromText(design));
        for (RtlNet *net : netlist->topHierarchy->singleNetsIncludeSub())
            QCOMPARE(netlist->findNet(net->fullPathName()), net);
        for (RtlNetBus *bus : netlist->topHierarchy->netbusesIncludeSub()) {
            QCOMPARE(netlist->findBus(bus->fullBusName()), bus);
            for (RtlNet *bit : bus->members)
                QCOMPARE(netlist->findNet(bit->fullPathName()), bit);
        }
    }

    void otherNamesAreNotFound_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"",
                                 "/",
                                 "top",
                                 "top/",
                                 "clk",
                                 "top/clk/",
                                 "top/Clk",
                                 "topclk",
                                 "/top/clk",
                                 "top/u0",
                                 "top/u0/clk",
                                 "top/count",
                                 "top/count[8]",
                                 "top/count[03]",
                                 "top/count[+3]",
                                 "top/count[]",
                                 "top/count[7:0",
                                 "top/count[0:7]",
                                 "top/count[7:1]",
                                 "top/clk[0:0]",
                                 "top/u0/u1/ready",
                                 "top/neg[-2]"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void otherNamesAreNotFound()
    {
        QFETCH(QString, name);
        std::unique_ptr<RtlNetlist> netlist(netlistFromText(design));
        QVERIFY(!netlist->findNet(name));
        QVERIFY(!netlist->findBus(name));
    }

    // One module, two instances: what is excluded in one stays offered in the other.
    void instancesShareDeclarationsOnly()
    {
        NetlistBuilder builder;
        NetDecl bus;
        bus.name = QStringLiteral("d");
        bus.isBus = true;
        bus.left = 1;
        bus.info.line = 7;
        ModuleDecl leaf{QStringLiteral("leaf"), {NetDecl(), bus}};
        leaf.nets.first().name = QStringLiteral("n");
        const int top = builder.addModule(ModuleDecl{QStringLiteral("top"), {}});
        const int module = builder.addModule(leaf);
        Hierachy *root = builder.addTop(QStringLiteral("top"), top);
        Hierachy *first = builder.addInstance(root, QStringLiteral("i0"), module);
        Hierachy *second = builder.addInstance(root, QStringLiteral("i1"), module);
        builder.exclude(first, 0);
        builder.excludeBit(first, 1, 0);
        builder.excludeBit(first, 1, 2);
        builder.excludeBit(second, 1, 0);
        builder.excludeBit(second, 1, 1);
        builder.setUsesTsJtag();
        std::unique_ptr<RtlNetlist> netlist(builder.take());
        QCOMPARE(flags(first->nets) + ' ' + flags(first->buses.first()->members), QString("n! d[1] d[0]!"));
        QCOMPARE(flags(second->nets) + ' ' + flags(second->buses.first()->members), QString("n d[1]! d[0]!"));
        QVERIFY(!first->buses.first()->excluded && second->buses.first()->excluded);
        QVERIFY(netlist->usesTsJtag);
        QCOMPARE(second->moduleName, QString("leaf"));
        QCOMPARE(second->buses.first()->members.last()->declaration().line, 7);
        QCOMPARE(&first->buses.first()->declaration(), &second->buses.first()->declaration());
    }
};

QTEST_APPLESS_MAIN(TestRtlNetlist)
#include "tst_rtlnetlist.moc"
