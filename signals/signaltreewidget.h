#pragma once

#include <QList>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QTreeWidget>

#include "model/jex/signalitem.h"

class QAction;
class QLineEdit;

namespace RTLJEX {

// The list of capture or trigger port signals: one top-level row a record, with a row for each bit of a bus
// or group below it. Rows are dragged, or moved by Alt+Up and Alt+Down, into another order and grouped,
// split, renamed, reversed, enabled and disabled from a menu. A member's name and flags are those in its
// parent row's record.
class signalTreeWidget : public QTreeWidget
{
    Q_OBJECT

public:
    explicit signalTreeWidget(QWidget *parent = nullptr);

    bool contextMenuEnabled; // the menu is offered

    // Bits that are captured: those of all enabled rows.
    int signalCount() const;

    // Proposes the name of a group of the selected rows. False: a range of bits of one base name. True: a
    // numbered group, still without its range.
    bool getGroupBusName(QString &name) const;

Q_SIGNALS:
    void itemDragged();     // order or content of the rows changed
    void CapSignalChange(); // other signals than before are enabled for capture

public Q_SLOTS:
    void onSplit();
    void onMerge();
    void onChangeName();
    void finishEdit();
    void onRestoreOrgName();
    void onReverse();
    void onEnable();
    void onDisable();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void startDrag(Qt::DropActions supportedActions) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    QStringList mimeTypes() const override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;

private:
    QAction *addMenuAction(const QString &text, const char *slot);
    void updateActions();
    void showMenu(const QPoint &globalPosition);
    QTreeWidgetItem *menuRow();
    void setCaptured(bool captured);
    QList<int> movableRows() const;
    void moveRows(int step);
    Qt::DropAction dropAt(const QPoint &position);

    QAction *m_split;
    QAction *m_merge;
    QAction *m_changeName;
    QAction *m_restoreName;
    QAction *m_reverse;
    QAction *m_enable;
    QAction *m_disable;
    QPointer<QLineEdit> m_editor; // while a row is renamed
    QPersistentModelIndex m_renamed;
};

} // namespace RTLJEX
