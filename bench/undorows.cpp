#include "bench/bench.h"
#include "bench/context.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QLineEdit>
#include <QStackedWidget>

#include <functional>

#include "signals/signaltreewidget.h"
#include "views/jexstandardinserterview.h"
#include "workbench/history.h"

namespace {

// The page of the last core: what differs there is farthest from the beginning of the state.
template <class Widget>
Widget *find(const RTLJEX::EditorView &view, const char *name)
{
    const QStackedWidget *pages = view.findChild<QStackedWidget *>(QStringLiteral("stackedWidget"));
    const QWidget *page = pages->widget(pages->count() - 1);
    return page->findChild<Widget *>(QLatin1String(name));
}

// From a box to a row that goes from the first place to the last.
QList<std::function<void()>> edits(const RTLJEX::EditorView &view)
{
    auto *rows = find<RTLJEX::signalTreeWidget>(view, "treeWidgetCapSigs");
    const auto choose = [rows](int row) {
        rows->clearSelection();
        rows->setCurrentItem(rows->topLevelItem(row));
    };
    return {[&view] { find<QCheckBox>(view, "chkBoxCaptureInitial")->click(); },
            [&view] { find<QLineEdit>(view, "editSampleClock")->insert(QStringLiteral("x")); },
            [rows, choose] {
                int bus = rows->topLevelItemCount() - 1;
                while (rows->topLevelItem(bus)->childCount() == 0)
                    --bus;
                choose(bus);
                rows->onReverse();
            },
            [rows, choose] {
                choose(0);
                rows->onDisable();
            },
            [rows, choose] {
                choose(rows->topLevelItemCount() / 2);
                rows->onChangeName();
                rows->viewport()->findChildren<QLineEdit *>().last()->insert(QStringLiteral("y"));
                rows->finishEdit();
            }};
}

} // namespace

// Of an editor that shows 16 cores with 1,000 capture signals each.
void measureUndo(RTLJEX::EditorView &view)
{
    Workbench::History history;
    history.restart(view.snapshot());
    const QList<std::function<void()>> all = edits(view);
    double step = 0, restoring = 0;
    for (int i = 0; i < 100; ++i) {
        all.at(i % all.size())();
        step = qMax(step, fastest(1, [&] { history.take(view.snapshot(), QString()); }));
        QCoreApplication::processEvents();
    }
    if (history.stepCount() != 100)
        qFatal("%d steps were noticed", history.stepCount());
    const QByteArray last = history.present();
    bool done = true;
    for (int i = 0; i < 200; ++i) {
        restoring = qMax(restoring, fastest(1, [&] {
                             done = view.restoreSnapshot(i < 100 ? history.undo() : history.redo()) && done;
                             done = view.snapshot() == history.present() && done;
                         }));
        QCoreApplication::processEvents();
    }
    if (!done || history.present() != last)
        qFatal("undo and redo lead elsewhere");
    print({QStringLiteral("  note a step for undo, the slowest of 100"), step, 0, 20, QStringLiteral("ms")});
    print({QStringLiteral("  undo or redo it, the slowest"), restoring, 0, 20, QStringLiteral("ms")});
    print({QStringLiteral("  what 100 steps take | the state itself"), double(history.stepBytes()) / 1024,
           double(last.size()) / 1024, 1, QStringLiteral("kB")});
}
