#pragma once

#include <QObject>
#include <QPointer>

class QMainWindow;
class QMenu;
class QWidget;

namespace Workbench {

class SourceOpener;

// The command Go to Declaration: opens the source at the net that the current row of the widget with the
// focus stands for, see Core::INetPlaces.
class DeclarationCommand : public QObject
{
    Q_OBJECT

public:
    DeclarationCommand(QMenu *menu, QMainWindow *window, SourceOpener *opener); // none owned

private:
    void noteFocus(QWidget *widget);
    void go();

    QMainWindow *m_window;
    SourceOpener *m_opener;
    QPointer<QWidget> m_places; // which had the focus last: a menu may have it now
};

} // namespace Workbench
