#pragma once

#include <QPlainTextEdit>

#include <functional>

namespace Workbench {

// What happened so far, one paragraph each, errors in red. Text can be copied but not edited.
class MessagePane : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit MessagePane(QWidget *parent = nullptr);

    // Plain text, may hold line ends. A double click on it calls `onDoubleClick`.
    void addMessage(const QString &text, bool isError, const std::function<void()> &onDoubleClick = {});

protected:
    void mouseDoubleClickEvent(QMouseEvent *event) override;
};

} // namespace Workbench
