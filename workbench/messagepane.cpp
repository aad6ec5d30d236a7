#include "workbench/messagepane.h"

#include <QTime>

namespace Workbench {

MessagePane::MessagePane(QWidget *parent) : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setMaximumBlockCount(5000);
    setPlaceholderText("No messages.");
}

void MessagePane::addMessage(const QString &text, bool isError)
{
    const QString shown = text.toHtmlEscaped().replace('\n', "<br>");
    const QString time = QTime::currentTime().toString("HH:mm:ss");
    appendHtml(
        QString(isError ? "%1 &nbsp;<font color=\"#b00020\">%2</font>" : "%1 &nbsp;%2").arg(time, shown));
    ensureCursorVisible();
}

} // namespace Workbench
