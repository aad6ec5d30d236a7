#include "workbench/signaltransfer.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QMimeData>
#include <memory>

#include "host/isignaltarget.h"
#include "host/isnapshot.h"
#include "host/iview.h"
#include "host/viewmanager.h"
#include "workbench/netlistpane.h"

namespace Workbench {
namespace {

const int mostTold = 50; // faults at once: a whole log can be on the clipboard

Core::ISignalTarget *targetOf(QWidget *view)
{
    return dynamic_cast<Core::ISignalTarget *>(view);
}

QByteArray stateOf(QWidget *view)
{
    auto *state = dynamic_cast<Core::ISnapshot *>(view);
    return state ? state->snapshot() : QByteArray();
}

// Drags over widgets that take none go to the editor above them.
struct Place
{
    QWidget *view = nullptr; // null: none of ours
    const QWidget *widget = nullptr;
    QPoint position;
};

// Boxes that take a text know by themselves what a drop means.
Place placeOf(QWidget *widget, const QPoint &position)
{
    Place place = {widget, widget, position};
    if (targetOf(widget)) {
        if (const QWidget *child = widget->childAt(position))
            place.widget = child;
        place.position = place.widget->mapFrom(widget, position);
        return place;
    }
    if (!qobject_cast<QAbstractItemView *>(widget->parentWidget()))
        return {};
    while (place.view && !targetOf(place.view))
        place.view = place.view->parentWidget();
    return place;
}

} // namespace

SignalTransfer::SignalTransfer(NetlistPane *pane, QWidget *window)
    : QObject(window),
      m_pane(pane),
      m_copy(new QAction(tr("&Copy Signals"), this)),
      m_paste(new QAction(tr("&Paste Signals"), this))
{
    m_copy->setObjectName("copySignals");
    m_paste->setObjectName("pasteSignals");
    m_copy->setStatusTip(tr("Copy the chosen rows, or the chosen nets of the netlist"));
    m_paste->setStatusTip(
        tr("Put the copied signals where the user is at work: a capture list or a trigger port"));
    m_copy->setShortcut(QKeySequence::Copy);
    m_paste->setShortcut(QKeySequence::Paste);
    connect(m_copy, &QAction::triggered, this, &SignalTransfer::copy);
    connect(m_paste, &QAction::triggered, this, &SignalTransfer::paste);
    connect(pane, &NetlistPane::addRequested, this, &SignalTransfer::addChosenNets);
    connect(Core::ViewManager::instance(), &Core::ViewManager::viewActiveted, this, [](Core::IView *view) {
        if (targetOf(view))
            view->setAcceptDrops(true);
    });
    qApp->installEventFilter(this);
}

bool SignalTransfer::eventFilter(QObject *object, QEvent *event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return object->isWidgetType() && takeDrag(static_cast<QWidget *>(object), event);
    default:
        return false;
    }
}

bool SignalTransfer::takeDrag(QWidget *widget, QEvent *event)
{
    auto *drop = static_cast<QDropEvent *>(event);
    const Place place = drop->mimeData()->hasText() ? placeOf(widget, drop->pos()) : Place();
    if (!place.view)
        return false;
    // An enter is accepted wherever it is, or no move would follow it.
    const bool isTaken = event->type() == QEvent::DragEnter ||
                         !targetOf(place.view)->signalPlace(place.widget, place.position).isEmpty();
    drop->setDropAction(isTaken ? Qt::CopyAction : Qt::IgnoreAction);
    drop->setAccepted(isTaken);
    if (isTaken && event->type() == QEvent::Drop)
        add(*drop->mimeData(), place.view, place.widget, place.position);
    return true;
}

void SignalTransfer::add(const QMimeData &data, QWidget *view, const QWidget *widget, const QPoint &position)
{
    Core::ISignalTarget *target = targetOf(view);
    const QString place = target ? target->signalPlace(widget, position) : QString();
    if (place.isEmpty())
        return Q_EMIT message(
            tr("Choose a core's capture list or a trigger port first: that is where signals go."), true);
    QStringList faults;
    const QByteArray before = stateOf(view);
    const bool isTaken = target->addSignals(data, widget, position, &faults);
    for (const QString &fault : faults.mid(0, mostTold))
        Q_EMIT message(fault, true);
    if (faults.size() > mostTold)
        Q_EMIT message(tr("And %1 more like that.").arg(faults.size() - mostTold), true);
    if (!isTaken)
        return;
    const bool isNew = before.isEmpty() || stateOf(view) != before;
    const QString text = isNew ? tr("Added to %1.") : tr("Nothing was added to %1: it is all there already.");
    Q_EMIT message(text.arg(place), false);
}

void SignalTransfer::addChosenNets()
{
    const std::unique_ptr<QMimeData> nets(m_pane->chosenNets());
    if (nets)
        add(*nets, Core::ViewManager::instance()->currentView(), nullptr, QPoint());
}

void SignalTransfer::copy()
{
    const QWidget *focus = QApplication::focusWidget();
    Core::ISignalTarget *target = targetOf(Core::ViewManager::instance()->currentView());
    QMimeData *data = m_pane->isAncestorOf(focus) ? m_pane->chosenNets()
                      : target                    ? target->chosenSignals()
                                                  : nullptr;
    if (data)
        QApplication::clipboard()->setMimeData(data);
}

void SignalTransfer::paste()
{
    const QMimeData *data = QApplication::clipboard()->mimeData();
    if (data && data->hasText())
        add(*data, Core::ViewManager::instance()->currentView(), nullptr, QPoint());
}

} // namespace Workbench
