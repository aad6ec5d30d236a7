#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QTime>

#include <functional>

#include "host/inetplaces.h"

namespace Workbench {

// One line, or several, of the message pane, and what can be done about it.
struct Message
{
    enum Kind { Error, Warning, Note };
    struct Offer
    {
        QString text; // of a menu entry
        std::function<void()> take;
    };

    Kind kind = Note;
    QString text;                               // plain, may hold line ends
    QString source;                             // whose state it is a part of; empty: something that happened
    std::function<void()> follow;               // to the place that it is about; may be empty
    QList<Offer> offers;                        // while it is not past
    QString net;                                // full name of the net that it is about; may be empty
    std::function<Core::NetPlace()> placeOfNet; // where there is one

    bool isSameAs(const Message &other) const { return kind == other.kind && text == other.text; }
};

Message taggedMessage(const QString &text); // of the kind that it begins with, as messages of tools do

// What happened so far, in order, at most a few thousand messages. A message of a source stands for the past
// when the source does not say it any more.
class MessageModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role { KindRole = Qt::UserRole, PastRole };

    explicit MessageModel(QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;

    void add(const Message &message);
    // All that a source has to say now: what it said before and does not say any more becomes past, what it
    // did not say yet is added, what it says again stays where it is.
    void setCurrent(const QString &source, const QList<Message> &messages);
    void clear();

    const Message &message(int row) const { return m_entries.at(row).message; }
    bool isPast(int row) const { return m_entries.at(row).isPast; }
    int count(Message::Kind kind) const;
    QString line(int row) const; // with its time

private:
    struct Entry
    {
        Message message;
        QTime time;
        bool isPast;
    };

    QList<Entry> m_entries;
};

} // namespace Workbench
