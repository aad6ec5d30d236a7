#include "workbench/editsource.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDropEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>

namespace Workbench {

const char *const editName = "editName";

namespace {

bool hasLetters(const QString &text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
}

QString groupTitle(const QWidget *widget)
{
    for (; widget && !widget->isWindow(); widget = widget->parentWidget()) {
        if (const auto *group = qobject_cast<const QGroupBox *>(widget))
            return group->title();
    }
    return QString();
}

// The nearest label on its left.
QString labelOf(const QWidget *box)
{
    const QRect place(box->mapTo(box->window(), QPoint()), box->size());
    const QWidget *group = box->parentWidget();
    QString text;
    int nearest = place.left();
    for (const QLabel *label : group->findChildren<QLabel *>()) {
        const QRect other(label->mapTo(label->window(), QPoint()), label->size());
        const int distance = place.left() - other.right();
        const bool isBeside = other.top() <= place.center().y() && place.center().y() <= other.bottom();
        if (label->isVisible() && isBeside && distance >= -1 && distance < nearest &&
            hasLetters(label->text())) {
            nearest = distance;
            text = label->text();
        }
    }
    return text.isEmpty() ? groupTitle(box) : text;
}

bool isPartOfBox(const QWidget *widget)
{
    const QWidget *parent = widget->parentWidget();
    return qobject_cast<const QAbstractSpinBox *>(parent) || qobject_cast<const QComboBox *>(parent);
}

bool isInItemView(const QWidget *widget)
{
    const QWidget *parent = widget->parentWidget();
    return parent && qobject_cast<const QAbstractItemView *>(parent->parentWidget());
}

// A click there takes the focus from what has it.
bool takesFocus(const QWidget *widget)
{
    while (widget && !(widget->focusPolicy() & Qt::ClickFocus))
        widget = widget->isWindow() ? nullptr : widget->parentWidget();
    return widget;
}

const QDialog *dialogAround(const QWidget *widget)
{
    while (widget && !qobject_cast<const QDialog *>(widget))
        widget = widget->parentWidget();
    return static_cast<const QDialog *>(widget);
}

QString useOfItems(const QWidget *view, const QEvent *event)
{
    if (event->type() == QEvent::Drop) // signals come from elsewhere
        return static_cast<const QDropEvent *>(event)->source() == view ? EditSource::tr("Move")
                                                                        : EditSource::tr("Add Signals");
    if (view->property(editName).isValid())
        return view->property(editName).toString();
    if (event->type() != QEvent::ShortcutOverride)
        return groupTitle(view);
    const auto *key = static_cast<const QKeyEvent *>(event);
    const bool isArrow = key->key() == Qt::Key_Up || key->key() == Qt::Key_Down;
    if (isArrow && key->modifiers() == Qt::AltModifier)
        return EditSource::tr("Move");
    return key->key() == Qt::Key_Delete ? EditSource::tr("Remove") : groupTitle(view);
}

} // namespace

QLineEdit *lineOf(QObject *box)
{
    if (qobject_cast<QAbstractSpinBox *>(box))
        return box->findChild<QLineEdit *>();
    return qobject_cast<QLineEdit *>(box);
}

EditSource::EditSource(QObject *parent) : QObject(parent)
{
    qApp->installEventFilter(this);
}

QString EditSource::name() const
{
    return m_name.isEmpty() ? tr("Edit") : m_name;
}

const QWidget *EditSource::typedInto() const
{
    return m_typedInto;
}

bool EditSource::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (watched->isWidgetType())
            endRenaming(static_cast<QWidget *>(watched));
        Q_FALLTHROUGH();
    case QEvent::MouseButtonDblClick:
    case QEvent::ShortcutOverride: // all keys, also those that end as a shortcut
    case QEvent::Wheel:
    case QEvent::Drop:
        if (watched->isWidgetType()) {
            Q_EMIT aboutToUse();
            noteUse(static_cast<QWidget *>(watched), event);
        }
        break;
    case QEvent::Shortcut:
        if (const auto *action = qobject_cast<QAction *>(watched))
            noteAction(action);
        break;
    case QEvent::Show:
        if (auto *menu = qobject_cast<QMenu *>(watched))
            connect(menu, &QMenu::triggered, this, &EditSource::noteAction, Qt::UniqueConnection);
        break;
    default:
        break;
    }
    return false;
}

// A name that is being typed is an edit of its own, ended by the click and not made by what is clicked.
void EditSource::endRenaming(const QWidget *clicked)
{
    QWidget *line = QApplication::focusWidget();
    if (lineOf(line) && isInItemView(line) && !line->isAncestorOf(clicked) && clicked != line &&
        line->window() == clicked->window() && takesFocus(clicked))
        line->clearFocus();
}

// What is used is the innermost thing that has a name; keys and wheels wander on to what is around it. What a
// dialog is used for is known from what opened it, unless that was a list.
void EditSource::noteUse(QWidget *widget, const QEvent *event)
{
    if (const QDialog *dialog = dialogAround(widget)) {
        const auto *box = qobject_cast<const QMessageBox *>(dialog);
        auto *button = qobject_cast<QAbstractButton *>(widget);
        if (box && button && box->standardButton(button) == QMessageBox::NoButton)
            noteName(button->text()); // a question with answers of its own
        else if (m_isVague && !box)
            noteName(dialog->windowTitle());
        m_typedInto = nullptr;
        return;
    }
    for (; widget; widget = widget->parentWidget()) {
        if (const auto *button = qobject_cast<QAbstractButton *>(widget))
            return noteName(hasLetters(button->text()) ? button->text() : labelOf(button));
        const bool isBox = lineOf(widget) || qobject_cast<QComboBox *>(widget);
        if (isBox && isInItemView(widget))
            return noteName(tr("Rename"));
        if (isBox && !isPartOfBox(widget)) {
            noteName(labelOf(widget));
            m_typedInto = lineOf(widget) ? widget : nullptr;
            return;
        }
        const auto *view = qobject_cast<QAbstractItemView *>(widget);
        if (view && !isPartOfBox(view->window())) {
            noteName(useOfItems(view, event));
            m_isVague = true;
            return;
        }
    }
    if (event->type() == QEvent::Drop)
        noteName(tr("Add Signals"));
}

void EditSource::noteAction(const QAction *action)
{
    // What is triggered while a name is typed ends that first.
    const QWidget *focus = QApplication::focusWidget();
    if (!focus || !isInItemView(focus))
        noteName(action->property(editName).isValid() ? action->property(editName).toString()
                                                      : action->text());
}

void EditSource::noteName(const QString &text)
{
    m_isVague = false;
    m_typedInto = nullptr;
    m_name = text;
    m_name.remove('&').remove("...");
    if (m_name.endsWith(':'))
        m_name.chop(1);
}

} // namespace Workbench
