#pragma once

#include <QPersistentModelIndex>
#include <QPointer>
#include <QWidget>

class QLabel;
class QLineEdit;
class QTimer;
class QTreeView;
namespace Core {
class IView;
}

namespace Workbench {

// A strip that finds rows in the list that the view in front shows, by a part of their text or of the net
// that a renamed row stands for. Goes on around the end; Escape hides it.
class RowFinder : public QWidget
{
    Q_OBJECT

public:
    explicit RowFinder(QWidget *parent = nullptr);

    static bool canFindIn(const Core::IView *view); // whether it is one with such a list
    void ask();                                     // shows itself, for the view in front
    void next() { find(1); }
    void previous() { find(-1); }

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void find(int step);
    void follow(QTreeView *list);
    void recount(); // after the rows have changed
    QList<QModelIndex> foundRows() const;
    void leave();

    QLineEdit *m_text;
    QLabel *m_result;
    QPointer<QTreeView> m_list; // in which something was found last
    QPersistentModelIndex m_found;
    QTimer *m_recount;
};

} // namespace Workbench
