#pragma once

#include <QMessageBox>
#include <QPointer>

namespace QUtil {

// Holds a dialog, message box or menu while it runs, so that the death of its parent meanwhile ends in
// "cancelled": exec() then returns 0 and the holder is empty, where a box on the stack would be deleted
// twice. Look at whatever else could have died with the parent before you go on.
//
//     QUtil::Modal<QMenu> menu(new QMenu(this));
//     QAction *chosen = menu->exec(position);
template <class Widget>
class Modal
{
public:
    explicit Modal(Widget *widget) : m_widget(widget) {}
    ~Modal() { delete m_widget.data(); }

    Widget *operator->() const { return m_widget.data(); }
    Widget *data() const { return m_widget.data(); } // null: it died with its parent

private:
    Modal(const Modal &);
    Modal &operator=(const Modal &);

    QPointer<Widget> m_widget;
};

// A message box that shows its text as it is, file and module names included. NoButton when the parent
// died or the box was rejected from outside.
inline QMessageBox::StandardButton
messageBox(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &text,
           QMessageBox::StandardButtons buttons = QMessageBox::Ok,
           QMessageBox::StandardButton defaultButton = QMessageBox::NoButton)
{
    Modal<QMessageBox> box(new QMessageBox(icon, title, text, buttons, parent));
    box->setTextFormat(Qt::PlainText);
    box->setDefaultButton(defaultButton);
    return static_cast<QMessageBox::StandardButton>(box->exec());
}

} // namespace QUtil
