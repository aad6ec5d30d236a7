#include "model/netlist/netlistbuilder.h"
#include "tests/elaboration/sources.h"
#include "tests/support/netlisttext.h"

#include <QtTest>

using namespace QUARRY;

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

class RtlNetlistTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void names()
    {
        std::unique_ptr<RtlNetlist> netlist(netlistFromText(design));
        QCOMPARE(
            drawn(netlist.get()).join('\n'),
            QString("top:top clk din! u0/x a esc[3] count[7:0]!5!3 offset[31:30]! up[0:2]! neg[1:-1] a[0:0]\n"
                    "top/u0:uart ready count[1:0]\n"
                    "top/u0/u1:fifo\n"
                    "top/u0/x:leaf y count[7:0]\n"
                    "top/u0:uart late"));
        QStringList names;
        for (const RtlNet *net : netlist->topHierarchy->singleNetsIncludeSub())
            names += net->fullPathName();
        for (const RtlNetBus *bus : netlist->topHierarchy->netbusesIncludeSub()) {
            names += bus->fullBusName() + ':';
            for (const RtlNet *bit : bus->members.mid(0, 3))
                names += bit->name();
        }
        QCOMPARE(
            names.join(' '),
            QString("top/clk top/din top/u0/x top/a top/esc[3] top/u0/ready top/u0/x/y top/u0/late "
                    "top/count[7:0]: count[7] count[6] count[5] top/offset[31:30]: offset[31] offset[30] "
                    "top/up[0:2]: up[0] up[1] up[2] top/neg[1:-1]: neg[1] neg[0] neg[-1] top/a[0:0]: a[0] "
                    "top/u0/count[1:0]: count[1] count[0] top/u0/x/count[7:0]: count[7] count[6] count[5]"));
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
        const QString others = "/ top top/ clk top/clk/ top/Clk topclk /top/clk top/u0 top/u0/clk top/count "
                               "top/count[8] top/count[03] top/count[+3] top/count[] top/count[7:0 "
                               "top/count[0:7] top/count[7:1] top/clk[0:0] top/u0/u1/ready top/neg[-2]";
        for (const QString &name : others.split(' ') + QStringList(QString())) {
            QVERIFY2(!netlist->findNet(name), qPrintable(name));
            QVERIFY2(!netlist->findBus(name), qPrintable(name));
        }
        const RtlNetlist empty;
        QVERIFY(!empty.findNet("top/clk"));
        QVERIFY(!empty.findBus("top/a[0:0]"));
    }

    // One module, two instances: what is excluded in one stays offered in the other.
    void instancesShareDeclarationsOnly()
    {
        NetlistBuilder builder;
        NetDecl net;
        net.name = "n";
        NetDecl bus;
        bus.name = "d";
        bus.isBus = true;
        bus.left = 1;
        bus.info.line = 7;
        const int top = builder.addModule({"top", {}});
        const int module = builder.addModule({"leaf", {net, bus}});
        Hierachy *root = builder.addTop("top", top);
        Hierachy *first = builder.addInstance(root, "i0", module);
        Hierachy *second = builder.addInstance(root, "i1", module);
        builder.exclude(first, 0);
        builder.excludeBit(first, 1, 0);
        builder.excludeBit(first, 1, 2);
        builder.excludeBit(second, 1, 0);
        builder.excludeBit(second, 1, 1);
        builder.setUsesTsJtag();
        std::unique_ptr<RtlNetlist> netlist(builder.take());
        QCOMPARE(drawn(netlist.get()).join('\n'),
                 QString("top:top\ntop/i0:leaf n! d[1:0]!0\ntop/i1:leaf n d[1:0]!\nTS_JTAG!"));
        QCOMPARE(second->buses.first()->members.last()->declaration().line, 7);
        QCOMPARE(&first->declarations(), &second->declarations());
    }
};

QTEST_GUILESS_MAIN(RtlNetlistTest)
#include "tst_rtlnetlist.moc"
