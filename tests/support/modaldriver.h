#pragma once

#include <QtTest>
#include <QtWidgets>

// Clicks a button of the box that ends a dialog.
inline void leave(QDialog *dialog, QDialogButtonBox::StandardButton button = QDialogButtonBox::Ok)
{
    QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(button), Qt::LeftButton);
}

// A view takes a double click only behind a click at the same place; below the rows when there is none.
inline void doubleClick(QAbstractItemView *view, const QModelIndex &row)
{
    view->scrollTo(row);
    const QPoint at = row.isValid() ? view->visualRect(row).center() : view->viewport()->rect().bottomRight();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, at);
}

// Chooses a file.
inline std::function<void(QDialog *)> choosing(const QString &path)
{
    return [path](QDialog *dialog) {
        qobject_cast<QFileDialog *>(dialog)->selectFile(path);
        QMetaObject::invokeMethod(dialog, "accept");
    };
}

// The button that is shown with that text, whose mnemonic does not count; none where there is none.
inline QAbstractButton *shownButton(const QWidget *parent, const QString &text)
{
    for (QAbstractButton *button : parent->findChildren<QAbstractButton *>()) {
        if (button->isVisible() && button->text().remove('&') == text)
            return button;
    }
    return nullptr;
}

// Presses that button, or leaves where there is none.
inline std::function<void(QDialog *)> pressing(const QString &text)
{
    return [text](QDialog *dialog) {
        if (QAbstractButton *button = shownButton(dialog, text))
            button->click();
        else
            dialog->reject();
    };
}

// Plays the user of modal dialogs, which it meets from a timer: one step for each dialog, in order. What the
// message boxes said is kept as "icon | title | text | buttons | details", with a star at the default button.
// Progress dialogs are left alone. A dialog that nobody expected is noted and rejected, so that a test
// fails instead of waiting.
class ModalDriver : public QObject
{
public:
    typedef std::function<void(QDialog *)> Step;

    ModalDriver() { tick(); }

    QStringList seen;

    void then(const Step &step) { m_steps << step; }
    void press(QMessageBox::StandardButton button)
    {
        m_steps << [button](QDialog *dialog) {
            QAbstractButton *found = qobject_cast<QMessageBox *>(dialog)->button(button);
            if (found)
                found->click();
            else
                dialog->reject();
        };
    }
    bool done() const { return m_steps.isEmpty(); }
    void beginAnew()
    {
        seen.clear();
        m_steps.clear();
    }

    static QString describe(QDialog *dialog)
    {
        const QMessageBox *box = qobject_cast<QMessageBox *>(dialog);
        if (!box)
            return QString("dialog | %1").arg(dialog->windowTitle());
        const char *const icons[] = {"none", "information", "warning", "critical", "question"};
        QStringList buttons;
        for (QAbstractButton *button : box->buttons())
            buttons << button->text().remove('&') + (button == box->defaultButton() ? "*" : "");
        buttons.sort();
        QStringList parts({icons[box->icon()], box->windowTitle(), box->text(), buttons.join(" ")});
        if (!box->detailedText().isEmpty())
            parts << box->detailedText();
        return parts.join(" | ");
    }

private:
    void tick()
    {
        QTimer::singleShot(5, this, [this] { tick(); });
        QDialog *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog || dialog == m_last || qobject_cast<QProgressDialog *>(dialog))
            return;
        m_last = dialog;
        seen << describe(dialog);
        if (m_steps.isEmpty()) {
            seen.last().prepend("unexpected: ");
            dialog->reject();
        } else {
            m_steps.takeFirst()(dialog);
        }
        m_last = nullptr;
    }

    QList<Step> m_steps;
    QDialog *m_last = nullptr; // the one that a step is busy with
};
