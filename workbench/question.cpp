#include "workbench/question.h"

#include <QPushButton>

#include "host/modal.h"

namespace Workbench {

int askUser(QWidget *window, const QString &title, const QString &text, const QStringList &buttons)
{
    const int last = buttons.size() - 1;
    QUtil::Modal<QMessageBox> box(
        new QMessageBox(QMessageBox::Question, title, text, QMessageBox::NoButton, window));
    box->setTextFormat(Qt::PlainText);
    QList<QPushButton *> made;
    for (int i = 0; i <= last; ++i)
        made << box->addButton(buttons.at(i), i == last ? QMessageBox::RejectRole
                                              : i == 0  ? QMessageBox::AcceptRole
                                                        : QMessageBox::DestructiveRole);
    box->setDefaultButton(made.last());
    box->setEscapeButton(made.last());
    box->exec();
    for (int i = 0; box.data() && i < last; ++i) {
        if (box->clickedButton() == made.at(i))
            return i;
    }
    return last;
}

} // namespace Workbench
