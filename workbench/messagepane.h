#pragma once

#include <QWidget>

#include "host/inetplaces.h"
#include "workbench/sourceplace.h"

class QListView;
class QToolButton;

namespace Workbench {

class MessageFilter;
class MessageModel;

// What happened so far, newest last: a list that can be filtered by kind, copied, saved and cleared. A double
// click, or Return, follows a message: to what it says it is about, else to the first place of a source that
// it names. What stands for the past is grey.
class MessagePane : public QWidget, public Core::INetPlaces
{
    Q_OBJECT

public:
    explicit MessagePane(QWidget *parent = nullptr);

    // Plain text, may hold line ends. A "WARNING: " of a tool is told from a note. What the source, if there
    // is one, said before is past.
    void addMessage(const QString &text, bool isError, const QString &source = QString());
    MessageModel *model() const { return m_model; }

    QString focusedNet() const override;
    Core::NetPlace placeOf(const QString &net) const override;

Q_SIGNALS:
    void sourceAsked(const Workbench::SourcePlace &place);

private:
    void setUpButtons();
    void showMenu(const QPoint &position);
    void follow(int row);
    int currentRow() const; // of the model; -1: none
    QString shownText(bool onlySelected) const;
    void copy() const;
    void save();
    void updateCounts();
    void followEnd();

    MessageModel *m_model;
    MessageFilter *m_filter;
    QListView *m_list;
    QList<QToolButton *> m_kinds; // in their order
    bool m_isFollowing = false;
};

} // namespace Workbench
