#include "workbench/boxrecorder.h"

#include <QCoreApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProgressBar>
#include <QTextEdit>
#include <QTimer>

namespace Workbench {
namespace {

QString textOf(const QDialog *dialog)
{
    QStringList parts;
    if (const auto *box = qobject_cast<const QMessageBox *>(dialog))
        parts << box->text() << box->informativeText() << box->detailedText();
    for (const QTextEdit *edit : dialog->findChildren<QTextEdit *>())
        parts << edit->toPlainText();
    for (const QPlainTextEdit *edit : dialog->findChildren<QPlainTextEdit *>())
        parts << edit->toPlainText();
    parts.removeAll(QString());
    parts.removeDuplicates();
    return dialog->windowTitle() + ": " + parts.join('\n').trimmed();
}

} // namespace

BoxRecorder::BoxRecorder()
{
    QCoreApplication::instance()->installEventFilter(this);
}

QStringList BoxRecorder::texts() const
{
    return m_texts;
}

bool BoxRecorder::eventFilter(QObject *watched, QEvent *event)
{
    auto *dialog = qobject_cast<QDialog *>(watched);
    if (event->type() == QEvent::Show && dialog && !dialog->findChild<QProgressBar *>()) {
        // Once its own event loop runs; rejecting it here would come too early.
        QPointer<QDialog> alive = dialog;
        QTimer::singleShot(0, this, [this, alive] {
            if (alive && alive->isModal())
                dismiss(alive);
        });
    }
    return QObject::eventFilter(watched, event);
}

void BoxRecorder::dismiss(QDialog *dialog)
{
    m_texts << textOf(dialog);
    const QPointer<QDialog> alive = dialog;
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(dialog, &escape);
    if (alive && alive->isVisible())
        alive->reject(); // a box without a button for Escape
}

} // namespace Workbench
