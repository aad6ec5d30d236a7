#include "workbench/messagemodel.h"

#include <QApplication>
#include <QIcon>
#include <QStyle>

#include <algorithm>

#include "elaboration/tools/designinput.h"

namespace Workbench {
namespace {

const int limit = 5000;
const int mostOfSource = 1000; // of what one source says now: each is compared with each

struct KindLook
{
    const char *name; // a message of this kind
    const char *pastName;
    QStyle::StandardPixmap icon;
};
const KindLook looks[] = {
    {QT_TRANSLATE_NOOP("Workbench::MessageModel", "Error: %1"),
     QT_TRANSLATE_NOOP("Workbench::MessageModel", "Error, past: %1"), QStyle::SP_MessageBoxCritical},
    {QT_TRANSLATE_NOOP("Workbench::MessageModel", "Warning: %1"),
     QT_TRANSLATE_NOOP("Workbench::MessageModel", "Warning, past: %1"), QStyle::SP_MessageBoxWarning},
    {QT_TRANSLATE_NOOP("Workbench::MessageModel", "Note: %1"),
     QT_TRANSLATE_NOOP("Workbench::MessageModel", "Note, past: %1"), QStyle::SP_MessageBoxInformation}};
static_assert(sizeof looks / sizeof *looks == Message::Note + 1, "each kind has a look");

} // namespace

Message taggedMessage(const QString &text)
{
    Message message;
    message.kind = QUARRY::isError(text)         ? Message::Error
                   : text.startsWith("WARNING:") ? Message::Warning
                                                 : Message::Note;
    message.text = text;
    return message;
}

MessageModel::MessageModel(QObject *parent) : QAbstractListModel(parent)
{
}

int MessageModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_entries.size();
}

QVariant MessageModel::data(const QModelIndex &index, int role) const
{
    const Entry &entry = m_entries.at(index.row());
    const KindLook &look = looks[entry.message.kind];
    switch (role) {
    case Qt::DisplayRole:
        return line(index.row());
    case Qt::DecorationRole:
        return QApplication::style()->standardIcon(look.icon);
    case Qt::AccessibleTextRole:
        return tr(entry.isPast ? look.pastName : look.name).arg(entry.message.text);
    case Qt::ToolTipRole:
        return entry.message.follow ? QVariant(tr("A double click or Return shows where it is."))
                                    : QVariant();
    case KindRole:
        return entry.message.kind;
    case PastRole:
        return entry.isPast;
    default:
        return QVariant();
    }
}

void MessageModel::add(const Message &message)
{
    if (m_entries.size() >= limit) {
        beginRemoveRows(QModelIndex(), 0, 0);
        m_entries.removeFirst();
        endRemoveRows();
    }
    beginInsertRows(QModelIndex(), m_entries.size(), m_entries.size());
    m_entries.append({message, QTime::currentTime(), false});
    endInsertRows();
}

void MessageModel::setCurrent(const QString &source, const QList<Message> &messages)
{
    QList<Message> rest = messages.mid(0, mostOfSource);
    if (messages.size() > mostOfSource) {
        rest << Message();
        rest.last().kind = messages.at(mostOfSource).kind;
        rest.last().text = tr("And %1 more like that.").arg(messages.size() - mostOfSource);
    }
    for (int row = 0; row < m_entries.size(); ++row) {
        Entry &entry = m_entries[row];
        if (entry.message.source != source || entry.isPast)
            continue;
        const auto again = std::find_if(rest.begin(), rest.end(), [&entry](const Message &message) {
            return message.isSameAs(entry.message);
        });
        if (again != rest.end()) {
            entry.message = *again;
            entry.message.source = source;
            rest.erase(again);
            continue;
        }
        entry.isPast = true;
        Q_EMIT dataChanged(index(row), index(row));
    }
    for (Message &message : rest) {
        message.source = source;
        add(message);
    }
}

void MessageModel::clear()
{
    beginResetModel();
    m_entries.clear();
    endResetModel();
}

int MessageModel::count(Message::Kind kind) const
{
    return int(std::count_if(m_entries.begin(), m_entries.end(),
                             [kind](const Entry &entry) { return entry.message.kind == kind; }));
}

QString MessageModel::line(int row) const
{
    return m_entries.at(row).time.toString("HH:mm:ss") + "  " + m_entries.at(row).message.text;
}

} // namespace Workbench
