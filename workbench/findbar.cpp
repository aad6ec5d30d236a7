#include "workbench/findbar.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QToolButton>

namespace Workbench {

FindBar::FindBar(QPlainTextEdit *edit, QWidget *owner)
    : QWidget(owner),
      m_edit(edit),
      m_text(new QLineEdit),
      m_case(new QCheckBox(tr("M&atch case"))),
      m_result(new QLabel)
{
    m_text->setObjectName("findText");
    m_text->setAccessibleName(tr("Find"));
    m_text->setPlaceholderText(tr("Find"));
    m_result->setObjectName("findResult");
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->addWidget(m_text, 1);
    const auto addButton = [this, layout](const QString &text, const std::function<void()> &press) {
        auto *button = new QToolButton;
        button->setText(text);
        connect(button, &QToolButton::clicked, this, press);
        layout->addWidget(button);
    };
    addButton(tr("Next"), [this] { find({}); });
    addButton(tr("Previous"), [this] { find(QTextDocument::FindBackward); });
    layout->addWidget(m_case);
    layout->addWidget(m_result);
    addButton(tr("Close"), [this] { hideAgain(); });
    connect(m_text, &QLineEdit::textEdited, this, [this] {
        // What is found grows with what is typed.
        QTextCursor begin = m_edit->textCursor();
        begin.setPosition(begin.selectionStart());
        m_edit->setTextCursor(begin);
        find({});
    });
    addKey(QKeySequence::Find, owner, [this] { ask(); });
    addKey(QKeySequence::FindNext, owner, [this] { find({}); });
    addKey(QKeySequence::FindPrevious, owner, [this] { find(QTextDocument::FindBackward); });
    addKey(Qt::Key_Return, this, [this] { find({}); });
    addKey(Qt::Key_Enter, this, [this] { find({}); });
    addKey(Qt::SHIFT + Qt::Key_Return, this, [this] { find(QTextDocument::FindBackward); });
    addKey(Qt::Key_Escape, this, [this] { hideAgain(); });
    hide();
}

void FindBar::addKey(const QKeySequence &key, QWidget *owner, const std::function<void()> &press)
{
    auto *shortcut = new QShortcut(key, owner, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, press);
}

void FindBar::ask()
{
    const QString selected = m_edit->textCursor().selectedText();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator))
        m_text->setText(selected);
    m_result->clear();
    show();
    m_text->setFocus();
    m_text->selectAll();
}

bool FindBar::find(QTextDocument::FindFlags direction)
{
    if (m_text->text().isEmpty())
        return false;
    const QTextDocument::FindFlags flags =
        direction | (m_case->isChecked() ? QTextDocument::FindCaseSensitively : QTextDocument::FindFlags());
    m_result->clear();
    if (m_edit->find(m_text->text(), flags))
        return true;
    const QTextCursor before = m_edit->textCursor();
    m_edit->moveCursor(direction & QTextDocument::FindBackward ? QTextCursor::End : QTextCursor::Start);
    if (m_edit->find(m_text->text(), flags)) {
        m_result->setText(tr("Around the end"));
        return true;
    }
    m_edit->setTextCursor(before);
    m_result->setText(tr("Not found"));
    return false;
}

void FindBar::hideAgain()
{
    hide();
    m_edit->setFocus();
}

} // namespace Workbench
