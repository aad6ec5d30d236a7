#include "bench/bench.h"
#include "bench/context.h"
#include "model/jex/core.h"
#include "options/aooptionwidget.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QStackedWidget>
#include <QTreeWidget>

using namespace QUARRY;
using RTLJEX::AoOptionWidget;

namespace {

const int coreCount = 16;
const int signalCount = 1000;

// A core that is full: as many signals, segments, ports, units and expressions as there may be.
std::unique_ptr<JEX::AoCore> fullCore(int number, const QList<JEX::SignalItem> &rows)
{
    std::unique_ptr<JEX::AoCore> core(new JEX::AoCore(number));
    core->captureSignals = rows;
    core->storageSize = 65536;
    core->windowNumber = 16384;
    core->captureAmount = 4;
    for (int i = 0; i < core->triggerPorts.size(); ++i) {
        core->triggerPorts[i]->signalItems = rows.mid(5 * i, 5);
        core->matchUnits[i]->enabled = true;
        core->matchUnits[i]->triggerPort = core->triggerPorts[i];
        core->matchUnits[i]->value = QString(core->triggerPorts[i]->singleSignals().size(), QLatin1Char('X'));
        core->expressions += QStringLiteral("M0&(M%1|!M2)").arg(i);
    }
    return core;
}

typedef std::vector<std::unique_ptr<JEX::AoCore>> Cores;

// The pages of an editor, as it holds them.
class Pages
{
public:
    Pages(const Cores &cores, RtlNetlist *netlist)
    {
        for (const std::unique_ptr<JEX::AoCore> &core : cores)
            m_stack.addWidget(new AoOptionWidget(core.get(), netlist));
        m_stack.resize(1000, 700);
        m_stack.show();
        QCoreApplication::processEvents();
    }

    AoOptionWidget *at(int i) const { return static_cast<AoOptionWidget *>(m_stack.widget(i)); }
    QStackedWidget &stack() { return m_stack; }

private:
    QStackedWidget m_stack;
};

// What the toolkit alone takes for that: pages of cores that hold nothing, and as many rows and numbers in
// bare trees and boxes.
void fillPlainly(const Cores &empty, const Cores &full)
{
    Pages pages(empty, nullptr);
    QStringList numbers;
    for (int i = 1; i <= 16384; ++i)
        numbers += QString::number(i);
    for (const std::unique_ptr<JEX::AoCore> &core : full) {
        QTreeWidget tree;
        tree.setUniformRowHeights(true);
        QList<QTreeWidgetItem *> rows;
        for (const JEX::SignalItem &item : core->captureSignals) {
            rows += new QTreeWidgetItem(QStringList(item.name));
            QList<QTreeWidgetItem *> members;
            for (const JEX::SignalItem &member : item.members)
                members += new QTreeWidgetItem(QStringList(member.name));
            rows.last()->addChildren(members);
        }
        tree.addTopLevelItems(rows);
        QComboBox box;
        box.addItems(numbers);
        keep(box);
    }
}

void measureSwitching(Pages &pages)
{
    double worst = 0;
    for (int run = 0; run < 2; ++run) {
        for (int i = coreCount - 1; i >= 0; --i) {
            for (int tab = 0; tab < 2; ++tab) {
                const double start = now();
                pages.stack().setCurrentIndex(i);
                pages.at(i)->setCurrentIndex(tab);
                QCoreApplication::processEvents();
                worst = qMax(worst, now() - start);
            }
        }
    }
    print({"Switching to another tab of 16 core pages with 1,000 signals each, the slowest", worst, 0, 50,
           "ms"});
}

} // namespace

void measurePages(Context &context)
{
    const Hierachy *top = context.netlist->topHierarchy;
    const QList<JEX::SignalItem> rows =
        signalRecords(top->singleNetsIncludeSub(), top->netbusesIncludeSub(), 0, coreCount * signalCount);
    Cores full;
    Cores empty;
    for (int i = 0; i < coreCount; ++i) {
        full.push_back(fullCore(i, rows.mid(i * signalCount, signalCount)));
        empty.emplace_back(new JEX::AoCore(i));
    }
    const Times opening = inTurn(
        3, [&] { Pages(full, context.netlist.get()); }, [&] { fillPlainly(empty, full); });
    print({"Opening 16 core pages with 1,000 signals each | empty pages, bare trees and boxes",
           opening.figure, opening.limit, 1.5, "ms"});

    Pages pages(full, context.netlist.get());
    measureSwitching(pages);
    const double saving = fastest(3, [&] {
        for (int i = 0; i < coreCount; ++i)
            pages.at(i)->save();
    });
    print({"Saving 16 core pages with 1,000 signals each", saving, 0, 50, "ms"});
    // A design that nobody asked before, as after a reload.
    double handing = 0;
    for (int run = 0; run < 3; ++run) {
        const std::unique_ptr<RtlNetlist> fresh = context.design.netlist();
        const double time = fastest(1, [&] {
            for (int i = 0; i < coreCount; ++i)
                pages.at(i)->setNlsdata(fresh.get());
        });
        handing = run == 0 ? time : qMin(handing, time);
        for (int i = 0; i < coreCount; ++i)
            pages.at(i)->setNlsdata(context.netlist.get());
    }
    print({"Handing them a design that was read anew", handing, 0, 200, "ms"});
}
