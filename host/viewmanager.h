#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <functional>

class QTabWidget;

namespace Core {

class IView;
class ViewContainer;

// Shows views in tabs. Every view sits in a container widget of its own, which is the page of the tab:
// a view that closes its parent widget closes itself and nothing else. A user who closes a tab asks
// the view first, through its closeEvent; a view that refuses stays. Closing the container goes straight
// to the end: the view is deleted without being asked again.
class ViewManager : public QObject
{
    Q_OBJECT

public:
    static ViewManager *instance();

    // The widget with the tabs, for a main window to embed. Made on first use, then owned by whoever
    // becomes its parent.
    QTabWidget *tabWidget();

    // Shows and activates a view; a new one is put into a container and belongs to the manager from then.
    void showView(IView *view);
    // Sends the view a close event; false when the view refuses. Reports viewClosed and deletes it.
    bool closeView(IView *view);
    // The host's say before a view is asked whether it closes; false: it stays, unless the host closed its
    // container meanwhile. An empty one: always.
    typedef std::function<bool(IView *)> CloseGate;
    void setCloseGate(const CloseGate &gate);
    // Closes every view, the active one last; stops at the first that refuses.
    bool closeAllViews();

    // Actions that are registered for a context are live while the widget that it is bound to is active.
    void registerContext(QWidget *widget, const QString &context, bool enabled);

    QList<IView *> views() const;
    IView *currentView() const;
    QStringList activeContexts() const;
    QWidget *dialogParent() const; // parent for message boxes: the window that shows the tabs
    void setDialogParent(QWidget *parent);

Q_SIGNALS:
    void viewActiveted(Core::IView *view);             // null: no view is left
    void viewClosed(Core::IView *view);                // it is deleted afterwards
    void contextsChanged(const QStringList &contexts); // those that are live now

private Q_SLOTS:
    void onCurrentTabChanged();
    void onTabCloseRequested(int index);
    void onContainerClosed(QWidget *container);
    void onContainerDying(QWidget *container);
    void onViewDestroyed(QObject *view);
    void onBoundWidgetDestroyed(QObject *widget);
    void updateTitles();
    void updateActiveView();

private:
    struct Entry
    {
        IView *view;
        QObject *identity; // the view again, as what is left of it when it reports its death
        ViewContainer *container;
    };
    struct Binding
    {
        QWidget *widget;
        QString context;
        bool enabled;
    };

    ViewManager();
    bool eventFilter(QObject *watched, QEvent *event) override;
    void addView(IView *view);
    void takeEntry(int index);
    void dropTab(int index);
    void updateContexts();
    int indexOf(const IView *view) const;

    QPointer<QTabWidget> m_tabs;
    QPointer<QWidget> m_dialogParent;
    QList<Entry> m_entries; // in order of opening
    QList<Binding> m_bindings;
    QList<IView *> m_asked; // views whose closeEvent is under way
    CloseGate m_closeGate;
    IView *m_active;
    QStringList m_contexts;
    bool m_activeLost;   // the active view was closed or died, and who follows is not reported yet
    bool m_changingTabs; // a view is being added or taken out: activation is reported at the end
};

} // namespace Core
