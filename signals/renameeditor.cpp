#include "signals/renameeditor.h"

#include <QKeyEvent>

namespace RTLJEX {

namespace {

bool finishes(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape;
}

} // namespace

RenameEditor::RenameEditor(const QString &text, QWidget *parent) : QLineEdit(text, parent), m_firstText(text)
{
    setFrame(false);
    setAutoFillBackground(true); // the row's own text lies below
}

bool RenameEditor::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && finishes(static_cast<QKeyEvent *>(event)->key())) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void RenameEditor::keyPressEvent(QKeyEvent *event)
{
    if (!finishes(event->key())) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    event->accept();
    if (event->key() == Qt::Key_Escape)
        setText(m_firstText);
    Q_EMIT editingFinished();
}

} // namespace RTLJEX
