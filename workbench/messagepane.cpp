#include "workbench/messagepane.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHash>
#include <QKeyEvent>
#include <QListView>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QStyledItemDelegate>
#include <QToolButton>
#include <QVBoxLayout>

#include "host/atomicfile.h"
#include "host/modal.h"
#include "host/rowdelegate.h"
#include "workbench/icons.h"
#include "workbench/messagemodel.h"

namespace Workbench {

class MessageFilter : public QSortFilterProxyModel
{
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void show(int kind, bool isShown)
    {
        m_isHidden[kind] = !isShown;
        invalidateFilter();
    }

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override
    {
        return !m_isHidden[sourceModel()->index(row, 0, parent).data(MessageModel::KindRole).toInt()];
    }

private:
    bool m_isHidden[Message::Note + 1] = {};
};

namespace {

// Lines are as wide as the list. Errors are red; the past is grey.
class MessageDelegate : public QStyledItemDelegate
{
public:
    explicit MessageDelegate(QListView *list) : QStyledItemDelegate(list), m_list(list) {}

    // Each new message has all of them laid out anew.
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QStyleOptionViewItem wide = option;
        wide.rect.setWidth(m_list->viewport()->width());
        if (wide.rect.width() != m_width || option.font != m_font || m_sizes.size() > 10000)
            m_sizes.clear();
        m_width = wide.rect.width();
        m_font = option.font;
        QSize &size = m_sizes[index.data().toString()];
        if (!size.isValid())
            size = QStyledItemDelegate::sizeHint(wide, index);
        return size;
    }

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (index.data(MessageModel::PastRole).toBool())
            option->state &= ~QStyle::State_Enabled;
        else if (index.data(MessageModel::KindRole).toInt() == Message::Error)
            option->palette.setColor(QPalette::Text, QUtil::errorColour(option->palette));
    }

private:
    QListView *m_list;
    mutable QHash<QString, QSize> m_sizes; // by text
    mutable int m_width = 0;
    mutable QFont m_font;
};

class MessageList : public QListView
{
public:
    explicit MessageList(const std::function<void()> &copy) : m_copy(copy) {}

protected:
    // The key of the window's own Copy, which takes signals, is the list's while that has the focus.
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::ShortcutOverride &&
            static_cast<QKeyEvent *>(event)->matches(QKeySequence::Copy))
            event->accept();
        return QListView::event(event);
    }

    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->matches(QKeySequence::Copy))
            m_copy();
        else
            QListView::keyPressEvent(event);
    }

    // By its key, the menu is that of the current message.
    void contextMenuEvent(QContextMenuEvent *event) override
    {
        const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
        if (isByKey)
            scrollTo(currentIndex());
        Q_EMIT customContextMenuRequested(isByKey ? visualRect(currentIndex()).center() : event->pos());
    }

    void paintEvent(QPaintEvent *event) override
    {
        QListView::paintEvent(event);
        if (model()->rowCount() > 0)
            return;
        QPainter painter(viewport());
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(viewport()->rect().adjusted(4, 4, -4, -4), Qt::AlignTop | Qt::AlignLeft,
                         MessagePane::tr("No messages."));
    }

private:
    const std::function<void()> m_copy;
};

QToolButton *newButton(const QString &text, const QString &tip)
{
    auto *button = new QToolButton;
    button->setText(text);
    button->setToolTip(tip);
    button->setAutoRaise(true);
    return button;
}

} // namespace

MessagePane::MessagePane(QWidget *parent)
    : QWidget(parent),
      m_model(new MessageModel(this)),
      m_filter(new MessageFilter(this)),
      m_list(new MessageList([this] { copy(); }))
{
    setProperty("helpTopic", "messages");
    m_filter->setSourceModel(m_model);
    m_list->setModel(m_filter);
    m_list->setItemDelegate(new MessageDelegate(m_list));
    m_list->setObjectName("messages");
    m_list->setAccessibleName(tr("Messages"));
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setResizeMode(QListView::Adjust);
    m_list->setWordWrap(true);
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusProxy(m_list);
    setUpButtons();
    connect(m_list, &QListView::activated, this,
            [this](const QModelIndex &index) { follow(m_filter->mapToSource(index).row()); });
    connect(m_list, &QListView::customContextMenuRequested, this, &MessagePane::showMenu);
    connect(m_model, &MessageModel::rowsAboutToBeInserted, this, &MessagePane::followEnd);
    connect(m_model, &MessageModel::rowsInserted, this, &MessagePane::updateCounts);
    connect(m_model, &MessageModel::rowsRemoved, this, &MessagePane::updateCounts);
    connect(m_model, &MessageModel::modelReset, this, &MessagePane::updateCounts);
    updateCounts();
}

void MessagePane::setUpButtons()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(0);
    for (int kind = Message::Error; kind <= Message::Note; ++kind) {
        QToolButton *button = newButton(QString(), tr("Show messages of this kind"));
        button->setCheckable(true);
        button->setChecked(true);
        connect(button, &QToolButton::toggled, this,
                [this, kind](bool isShown) { m_filter->show(kind, isShown); });
        row->addWidget(button);
        m_kinds << button;
    }
    row->addStretch();
    struct
    {
        QString text;
        QString tip;
        std::function<void()> press;
    } const buttons[] = {
        {tr("Copy"), tr("Copy the selected messages, or all that are shown"), [this] { copy(); }},
        {tr("Save..."), tr("Write the messages that are shown to a file"), [this] { save(); }},
        {tr("Clear"), tr("Forget all messages"), [this] { m_model->clear(); }}};
    for (const auto &entry : buttons) {
        QToolButton *button = newButton(entry.text, entry.tip);
        connect(button, &QToolButton::clicked, this, entry.press);
        row->addWidget(button);
    }
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(row);
    layout->addWidget(m_list);
}

void MessagePane::updateCounts()
{
    const char *const words[] = {QT_TR_NOOP("Errors (%1)"), QT_TR_NOOP("Warnings (%1)"),
                                 QT_TR_NOOP("Notes (%1)")};
    static_assert(sizeof words / sizeof *words == Message::Note + 1, "each kind has a word");
    for (int kind = Message::Error; kind <= Message::Note; ++kind)
        m_kinds.at(kind)->setText(tr(words[kind]).arg(m_model->count(Message::Kind(kind))));
}

void MessagePane::addMessage(const QString &text, bool isError, const QString &source)
{
    Message message = taggedMessage(text);
    if (isError)
        message.kind = Message::Error;
    if (source.isEmpty())
        m_model->add(message);
    else
        m_model->setCurrent(source, {message});
}

// Once for all that come now. Who reads older messages is left there.
void MessagePane::followEnd()
{
    const QScrollBar *bar = m_list->verticalScrollBar();
    if (m_isFollowing || bar->value() < bar->maximum())
        return;
    m_isFollowing = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_isFollowing = false;
            m_list->scrollToBottom();
        },
        Qt::QueuedConnection);
}

int MessagePane::currentRow() const
{
    return m_filter->mapToSource(m_list->currentIndex()).row();
}

void MessagePane::follow(int row)
{
    const Message message = m_model->message(row); // which may go meanwhile
    if (message.follow)
        return message.follow();
    const QList<SourcePlace> places = sourcePlaces(message.text);
    if (!places.isEmpty())
        Q_EMIT sourceAsked(places.first());
}

void MessagePane::showMenu(const QPoint &position)
{
    QUtil::Modal<QMenu> menu(new QMenu(this));
    const QModelIndex index = m_list->indexAt(position);
    const int row = m_filter->mapToSource(index).row();
    if (row >= 0) {
        if (!m_list->selectionModel()->isSelected(index))
            m_list->setCurrentIndex(index);
        const Message message = m_model->message(row);
        if (message.follow)
            menu->addAction(tr("&Show"), message.follow);
        for (const SourcePlace &place : sourcePlaces(message.text))
            menu->addAction(tr("&Open %1").arg(place.text().replace('&', "&&")),
                            [this, place] { Q_EMIT sourceAsked(place); });
        for (const Message::Offer &offer : m_model->isPast(row) ? QList<Message::Offer>() : message.offers)
            menu->addAction(QString(offer.text).replace('&', "&&"), offer.take);
        menu->addSeparator();
    }
    menu->addAction(tr("&Copy"), [this] { copy(); })->setShortcut(QKeySequence::Copy);
    menu->addAction(tr("Sa&ve..."), [this] { save(); });
    menu->addAction(tr("C&lear"), [this] { m_model->clear(); });
    setIcons(menu.data());
    menu->exec(m_list->viewport()->mapToGlobal(position));
}

QString MessagePane::shownText(bool onlySelected) const
{
    QStringList lines;
    for (int row = 0; row < m_filter->rowCount(); ++row) {
        const QModelIndex index = m_filter->index(row, 0);
        if (!onlySelected || m_list->selectionModel()->isSelected(index))
            lines << index.data().toString();
    }
    return lines.join('\n') + '\n';
}

void MessagePane::copy() const
{
    QGuiApplication::clipboard()->setText(shownText(m_list->selectionModel()->hasSelection()));
}

void MessagePane::save()
{
    const QString path = QFileDialog::getSaveFileName(window(), tr("Save Messages"), "messages.txt",
                                                      tr("Text (*.txt);;All files (*)"));
    QString error;
    if (!path.isEmpty() && !QUtil::writeFileAtomically(path, shownText(false).toUtf8(), &error))
        addMessage(error, true);
}

QString MessagePane::focusedNet() const
{
    return currentRow() < 0 ? QString() : m_model->message(currentRow()).net;
}

Core::NetPlace MessagePane::placeOf(const QString &) const
{
    const int row = currentRow();
    return row < 0 || !m_model->message(row).placeOfNet ? Core::NetPlace()
                                                        : m_model->message(row).placeOfNet();
}

} // namespace Workbench
