#include "workbench/duplicatecore.h"

#include <QDateTime>
#include <QMenu>
#include <QSet>

#include "check/snapshot.h"
#include "host/ifileeditor.h"
#include "host/isnapshot.h"
#include "host/iview.h"
#include "host/viewmanager.h"
#include "workbench/editsource.h"

namespace Workbench {
namespace {

// Empty for a view that has no list of cores.
RTLJEX::Snapshot presentState()
{
    RTLJEX::Snapshot state;
    const auto *view = dynamic_cast<Core::ISnapshot *>(Core::ViewManager::instance()->currentView());
    if (!view || !RTLJEX::Snapshot::fromBytes(view->snapshot(), &state) || state.mode != JEX::StandardMode)
        return {};
    return state;
}

} // namespace

DuplicateCore::DuplicateCore(QMenu *editMenu, QObject *parent)
    : QObject(parent), m_menu(editMenu->addMenu(tr("&Duplicate Core")))
{
    m_menu->menuAction()->setStatusTip(tr("Add a core that is set up as the chosen one"));
    connect(editMenu, &QMenu::aboutToShow, this, &DuplicateCore::fill);
    fill();
}

void DuplicateCore::fill()
{
    m_menu->clear();
    const RTLJEX::Snapshot state = presentState();
    for (const RTLJEX::CoreSnapshot &core : state.cores) {
        const int number = core.number;
        QAction *action =
            m_menu->addAction(tr("Core %1").arg(number), this, [this, number] { duplicate(number); });
        action->setProperty(editName, tr("Duplicate Core"));
    }
    m_menu->setEnabled(!state.cores.isEmpty() && state.cores.size() < JEX::CoreLimit);
}

void DuplicateCore::duplicate(int number)
{
    Core::IView *view = Core::ViewManager::instance()->currentView();
    if (view)
        view->editedFile(); // ends an edit that is under way
    RTLJEX::Snapshot state = presentState();
    QSet<int> numbers;
    RTLJEX::CoreSnapshot copy;
    for (const RTLJEX::CoreSnapshot &core : qAsConst(state.cores)) {
        numbers.insert(core.number);
        if (core.number == number)
            copy = core;
    }
    if (!numbers.contains(number) || state.cores.size() >= JEX::CoreLimit)
        return;
    copy.number = 0;
    while (numbers.contains(copy.number))
        ++copy.number;
    // Far from those that the editor counts up, also of cores that were removed.
    copy.identity = (quint64(1) << 48) + quint64(QDateTime::currentMSecsSinceEpoch());
    state.cores << copy;
    auto *editor = dynamic_cast<Core::IFileEditor *>(view);
    if (dynamic_cast<Core::ISnapshot *>(view)->restoreSnapshot(state.toBytes()) && editor)
        editor->showPlace(QString("core %1 ").arg(state.cores.size() - 1) +
                          editor->shownPlace().section(' ', 2)); // on the tab that was shown
}

} // namespace Workbench
