#include "workbench/messagepane.h"

#include <QMouseEvent>
#include <QTextBlock>
#include <QTime>

namespace Workbench {

namespace {

struct Link : QTextBlockUserData
{
    std::function<void()> follow;
};

} // namespace

MessagePane::MessagePane(QWidget *parent) : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setAccessibleName("Messages");
    setMaximumBlockCount(5000);
    setPlaceholderText("No messages.");
}

void MessagePane::addMessage(const QString &text, bool isError, const std::function<void()> &onDoubleClick)
{
    const QString shown = text.toHtmlEscaped().replace('\n', "<br>");
    const QString time = QTime::currentTime().toString("HH:mm:ss");
    appendHtml(
        QString(isError ? "%1 &nbsp;<font color=\"#b00020\">%2</font>" : "%1 &nbsp;%2").arg(time, shown));
    if (onDoubleClick) {
        auto *link = new Link; // the block's
        link->follow = onDoubleClick;
        document()->lastBlock().setUserData(link);
    }
    ensureCursorVisible();
}

void MessagePane::mouseDoubleClickEvent(QMouseEvent *event)
{
    const auto *link = static_cast<Link *>(cursorForPosition(event->pos()).block().userData());
    if (!link)
        return QPlainTextEdit::mouseDoubleClickEvent(event);
    const std::function<void()> follow = link->follow; // which may end the message
    follow();
}

} // namespace Workbench
