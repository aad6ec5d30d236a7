#include "host/viewmanager.h"

#include <QEvent>
#include <QTabWidget>

#include "host/iview.h"
#include "host/plaintooltip.h"
#include "host/viewcontainer.h"

namespace Core {
namespace {

QString tabText(const IView *view)
{
    QString text = view->shortTitle().isEmpty() ? view->windowTitle() : view->shortTitle();
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

ViewManager::ViewManager() : m_active(nullptr), m_activeLost(false), m_changingTabs(false)
{
}

// Lives as long as the process: plug-ins are connected to it until they are shut down.
ViewManager *ViewManager::instance()
{
    static ViewManager *manager = new ViewManager;
    return manager;
}

QTabWidget *ViewManager::tabWidget()
{
    if (!m_tabs) {
        m_tabs = new QTabWidget;
        m_tabs->setTabsClosable(true);
        m_tabs->setMovable(true);
        m_tabs->setDocumentMode(true);
        connect(m_tabs, SIGNAL(currentChanged(int)), this, SLOT(onCurrentTabChanged()));
        connect(m_tabs, SIGNAL(tabCloseRequested(int)), this, SLOT(onTabCloseRequested(int)));
    }
    return m_tabs;
}

void ViewManager::showView(IView *view)
{
    if (!view)
        return;
    const bool wasActive = m_active == view && !m_activeLost;
    m_changingTabs = true;
    if (indexOf(view) < 0)
        addView(view);
    tabWidget()->setCurrentWidget(m_entries.at(indexOf(view)).container);
    m_changingTabs = false;
    updateActiveView();
    if (m_active == view && !wasActive)
        view->setFocus();
}

void ViewManager::addView(IView *view)
{
    const Entry entry = {view, view, new ViewContainer(view)};
    m_entries.append(entry);
    connect(entry.container, SIGNAL(closed(QWidget *)), this, SLOT(onContainerClosed(QWidget *)));
    connect(entry.container, SIGNAL(dying(QWidget *)), this, SLOT(onContainerDying(QWidget *)));
    connect(view, SIGNAL(destroyed(QObject *)), this, SLOT(onViewDestroyed(QObject *)));
    connect(view, SIGNAL(shortTitleChanged(QString)), this, SLOT(updateTitles()));
    view->installEventFilter(this);
    tabWidget()->addTab(entry.container, QString());
    updateTitles();
}

bool ViewManager::closeView(IView *view)
{
    const int index = indexOf(view);
    if (index < 0 || m_asked.contains(view))
        return false;
    ViewContainer *container = m_entries.at(index).container;
    const QPointer<QWidget> alive = view;
    m_asked.append(view);
    const bool accepted = (!m_closeGate || m_closeGate(view)) && alive && view->close();
    m_asked.removeAll(view);
    // The view may have gone its own way while it asked the user.
    if (!alive || indexOf(view) < 0)
        return true;
    if (accepted)
        container->close();
    return accepted;
}

void ViewManager::setCloseGate(const CloseGate &gate)
{
    m_closeGate = gate;
}

bool ViewManager::closeAllViews()
{
    const QPointer<IView> last = m_active;
    const QList<IView *> opened = views();
    for (IView *view : opened) {
        if (view != last && indexOf(view) >= 0 && !closeView(view))
            return false;
    }
    return !last || closeView(last);
}

void ViewManager::registerContext(QWidget *widget, const QString &context, bool enabled)
{
    for (int i = m_bindings.size() - 1; i >= 0; --i) {
        if (m_bindings.at(i).widget == widget && m_bindings.at(i).context == context)
            m_bindings.removeAt(i);
    }
    const Binding binding = {widget, context, enabled};
    m_bindings.append(binding);
    connect(widget, SIGNAL(destroyed(QObject *)), this, SLOT(onBoundWidgetDestroyed(QObject *)),
            Qt::UniqueConnection);
    updateContexts();
}

QList<IView *> ViewManager::views() const
{
    QList<IView *> result;
    for (const Entry &entry : m_entries)
        result.append(entry.view);
    return result;
}

IView *ViewManager::currentView() const
{
    return m_active;
}

QStringList ViewManager::activeContexts() const
{
    return m_contexts;
}

QWidget *ViewManager::dialogParent() const
{
    if (m_dialogParent)
        return m_dialogParent;
    return m_tabs ? m_tabs->window() : nullptr;
}

void ViewManager::setDialogParent(QWidget *parent)
{
    m_dialogParent = parent;
}

int ViewManager::indexOf(const IView *view) const
{
    for (int i = 0; i < m_entries.size(); ++i) {
        if (m_entries.at(i).view == view)
            return i;
    }
    return -1;
}

void ViewManager::onCurrentTabChanged()
{
    if (!m_changingTabs)
        updateActiveView();
}

void ViewManager::onTabCloseRequested(int index)
{
    const QWidget *page = m_tabs ? m_tabs->widget(index) : nullptr;
    for (const Entry &entry : m_entries) {
        if (page && entry.container == page) {
            closeView(entry.view);
            return;
        }
    }
}

// However it came about: the user, the host or the view itself closed the container.
void ViewManager::onContainerClosed(QWidget *container)
{
    for (int i = 0; i < m_entries.size(); ++i) {
        if (m_entries.at(i).container != container)
            continue;
        IView *view = m_entries.at(i).view;
        dropTab(i);
        view->removeEventFilter(this);
        disconnect(view, nullptr, this, nullptr);
        const QPointer<QObject> alive = container;
        Q_EMIT viewClosed(view);
        updateActiveView();
        if (alive)
            container->deleteLater();
        return;
    }
}

// The tabs may be half gone, too: nothing is asked of them now.
void ViewManager::onContainerDying(QWidget *container)
{
    for (int i = 0; i < m_entries.size(); ++i) {
        if (m_entries.at(i).container != container)
            continue;
        disconnect(m_entries.at(i).view, nullptr, this, nullptr);
        takeEntry(i);
        QMetaObject::invokeMethod(this, "updateActiveView", Qt::QueuedConnection);
        return;
    }
}

void ViewManager::onViewDestroyed(QObject *view)
{
    for (int i = 0; i < m_entries.size(); ++i) {
        if (m_entries.at(i).identity != view)
            continue;
        ViewContainer *container = m_entries.at(i).container;
        dropTab(i);
        container->deleteLater();
        updateActiveView();
        return;
    }
}

// Takes a view, which may be dying, out of the books; who is active then is found out by updateActiveView().
void ViewManager::takeEntry(int index)
{
    const IView *view = m_entries.takeAt(index).view;
    if (m_active == view) {
        m_active = nullptr;
        m_activeLost = true;
    }
    for (int i = m_bindings.size() - 1; i >= 0; --i) {
        if (m_bindings.at(i).widget == view)
            m_bindings.removeAt(i);
    }
}

void ViewManager::dropTab(int index)
{
    ViewContainer *container = m_entries.at(index).container;
    takeEntry(index);
    m_changingTabs = true;
    if (m_tabs)
        m_tabs->removeTab(m_tabs->indexOf(container));
    m_changingTabs = false;
}

void ViewManager::updateActiveView()
{
    IView *current = nullptr;
    for (const Entry &entry : m_entries) {
        if (m_tabs && entry.container == m_tabs->currentWidget())
            current = entry.view;
    }
    if (current == m_active && !m_activeLost)
        return;
    IView *previous = m_active;
    m_active = current;
    m_activeLost = false;
    updateContexts();
    // A view may close itself or another one there: then it has been reported already who is active.
    const QPointer<IView> alive = current;
    if (previous)
        previous->onDeactivated();
    if (current && alive && m_active == current)
        current->onActivated();
    if (m_active == current && !m_activeLost)
        Q_EMIT viewActiveted(current);
}

void ViewManager::updateContexts()
{
    QStringList contexts;
    for (const Binding &binding : m_bindings) {
        const bool active =
            m_active && (binding.widget == m_active || m_active->isAncestorOf(binding.widget));
        if (active && binding.enabled)
            contexts.append(binding.context);
    }
    if (contexts == m_contexts)
        return;
    m_contexts = contexts;
    Q_EMIT contextsChanged(contexts);
}

void ViewManager::onBoundWidgetDestroyed(QObject *widget)
{
    for (int i = m_bindings.size() - 1; i >= 0; --i) {
        if (m_bindings.at(i).widget == widget)
            m_bindings.removeAt(i);
    }
    updateContexts();
}

void ViewManager::updateTitles()
{
    for (const Entry &entry : m_entries) {
        const int tab = m_tabs ? m_tabs->indexOf(entry.container) : -1;
        if (tab < 0)
            continue;
        m_tabs->setTabText(tab, tabText(entry.view));
        m_tabs->setTabToolTip(tab, QUtil::plainToolTip(entry.view->windowTitle()));
    }
}

// Qt 4 has no signal for a changed window title.
bool ViewManager::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::WindowTitleChange)
        updateTitles();
    return QObject::eventFilter(watched, event);
}

} // namespace Core
