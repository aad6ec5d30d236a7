#pragma once

#include <QTextDocument>
#include <QWidget>

#include <functional>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace Workbench {

// A strip that finds a text in an edit, hidden until it is asked for. Return and F3 go to the next place,
// with Shift to the one before, around the end; Escape hides it.
class FindBar : public QWidget
{
    Q_OBJECT

public:
    // Its keys hold in `owner`, which has the edit and this in it.
    FindBar(QPlainTextEdit *edit, QWidget *owner);

    void ask(); // shows it with what is selected
    bool find(QTextDocument::FindFlags direction);

private:
    void addKey(const QKeySequence &key, QWidget *owner, const std::function<void()> &press);
    void hideAgain();

    QPlainTextEdit *m_edit; // not owned
    QLineEdit *m_text;
    QCheckBox *m_case;
    QLabel *m_result;
};

} // namespace Workbench
