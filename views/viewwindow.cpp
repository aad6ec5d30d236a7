#include "views/viewwindow.h"

#include <QDialog>
#include <QFileInfo>
#include <QPointer>

#include "host/iview.h"

namespace RTLJEX {

void showTitles(Core::IView *editor, const QString &fileName, bool modified)
{
    const QString title = QFileInfo(fileName).fileName() + QLatin1String(modified ? " *" : "");
    editor->setWindowTitle(title);
    editor->setShortTitle(title);
}

void rejectDialogsBelow(QWidget *editor)
{
    QList<QPointer<QDialog>> dialogs;
    const QList<QDialog *> found = editor->findChildren<QDialog *>();
    for (QDialog *dialog : found)
        dialogs << dialog;
    // The innermost first; rejecting one may delete others.
    while (!dialogs.isEmpty()) {
        const QPointer<QDialog> dialog = dialogs.takeLast();
        if (dialog)
            dialog->reject();
    }
}

void closeContainer(QWidget *editor)
{
    QWidget *container = editor->parentWidget() ? editor->parentWidget() : editor;
    container->setAttribute(Qt::WA_DeleteOnClose);
    container->close();
}

} // namespace RTLJEX
