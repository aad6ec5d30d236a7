#pragma once

#include <QPlainTextEdit>

namespace Workbench {

// What happened so far, one paragraph each, errors in red. Text can be copied but not edited.
class MessagePane : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit MessagePane(QWidget *parent = nullptr);

    void addMessage(const QString &text, bool isError); // plain text, may hold line ends
};

} // namespace Workbench
