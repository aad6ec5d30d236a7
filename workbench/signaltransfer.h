#pragma once

#include <QObject>

class QAction;
class QMimeData;
class QWidget;

namespace Workbench {

class NetlistPane;

// Signals on their way into editors and out of them: what is dragged onto a list of an editor, and Copy and
// Paste. The lists themselves only move their own rows.
class SignalTransfer : public QObject
{
    Q_OBJECT

public:
    // Looks at the drags of the whole program while it lives.
    SignalTransfer(NetlistPane *pane, QWidget *window);

    QAction *copyAction() const { return m_copy; }
    QAction *pasteAction() const { return m_paste; }

    void copy();
    void paste();
    void addChosenNets(); // of the pane, to where the user is at work in the editor

    bool eventFilter(QObject *object, QEvent *event) override;

Q_SIGNALS:
    void message(const QString &text, bool isError);

private:
    bool takeDrag(QWidget *widget, QEvent *event);
    void add(const QMimeData &data, QWidget *view, const QWidget *widget, const QPoint &position);

    NetlistPane *m_pane;
    QAction *m_copy;
    QAction *m_paste;
};

} // namespace Workbench
