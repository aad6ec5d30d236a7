#include <QMenu>
#include <QMouseEvent>
#include <QPointer>

#include "host/modal.h"
#include "model/jex/core.h"
#include "options/triggermath.h"
#include "options/triggeroptionwidget.h"
#include "signals/signaltreesetup.h"
#include "trigger/muexpressiondialog.h"
#include "ui_triggeroptionwidget.h"

// The list of expressions of the trigger page.

namespace RTLJEX {

namespace {

bool isValid(const QListWidgetItem *expression)
{
    return expression->foreground().color() != QColor(Qt::gray);
}

} // namespace

void TriggerOptionWidget::setUpExpressions()
{
    QListWidget *list = m_ui->listExpression;
    setRowStyle(list, "QListWidget::item { height: 24px}");
    list->viewport()->installEventFilter(this);
    list->setContextMenuPolicy(Qt::CustomContextMenu);
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    connect(list, SIGNAL(customContextMenuRequested(QPoint)), SLOT(showExpListContextMenu(QPoint)));
    list->addItems(m_core->expressions);
}

// A double click where no expression is adds one.
bool TriggerOptionWidget::eventFilter(QObject *object, QEvent *event)
{
    if (object != m_ui->listExpression->viewport() || event->type() != QEvent::MouseButtonDblClick ||
        m_ui->listExpression->itemAt(static_cast<QMouseEvent *>(event)->pos()))
        return QWidget::eventFilter(object, event);
    if (addExpression(tr("Error")))
        updateBsramNumber();
    return true;
}

void TriggerOptionWidget::editExpression(QListWidgetItem *item)
{
    const QPersistentModelIndex row(m_ui->listExpression->model()->index(m_ui->listExpression->row(item), 0));
    const QPointer<QWidget> alive(this);
    const QString text = askExpression();
    if (!alive || text.isEmpty() || !row.isValid())
        return;
    m_ui->listExpression->item(row.row())->setText(text);
    Q_EMIT modified();
    updateExpressionCheck();
    updateBsramNumber();
}

void TriggerOptionWidget::showExpListContextMenu(const QPoint &position)
{
    QListWidget *list = m_ui->listExpression;
    const QPointer<QWidget> alive(this);
    QUtil::Modal<QMenu> menu(new QMenu(this));
    const QAction *add = menu->addAction(tr("Add"));
    QAction *remove = menu->addAction(tr("Remove"));
    remove->setShortcut(QKeySequence::Delete); // for the eye: the list hears it itself
    remove->setShortcutContext(Qt::WidgetShortcut);
    remove->setEnabled(!list->selectedItems().isEmpty());
    const QAction *chosen = menu->exec(list->viewport()->mapToGlobal(position));
    if (!alive)
        return;
    if (chosen == add)
        addExpression(tr("Warning"));
    else if (chosen == remove)
        removeExpressions();
    if (alive)
        updateBsramNumber();
}

void TriggerOptionWidget::removeExpressions()
{
    const QList<QListWidgetItem *> chosen = m_ui->listExpression->selectedItems();
    if (chosen.isEmpty())
        return;
    qDeleteAll(chosen);
    Q_EMIT modified();
    updateBsramNumber();
}

QString TriggerOptionWidget::askExpression()
{
    if (m_isEditing)
        return QString();
    const EditMark mark(this);
    return MuExpressionDialog::getExpression(this, isStatic());
}

// False when there is nothing new, or when the page died under the dialog.
bool TriggerOptionWidget::addExpression(const QString &limitTitle)
{
    const QPointer<QWidget> alive(this);
    if (m_ui->listExpression->count() >= JEX::ExpressionLimit) {
        QUtil::messageBox(this, QMessageBox::Warning, limitTitle, tr("Support 16 expressions at most."));
        return false;
    }
    const QString text = askExpression();
    if (!alive || text.isEmpty())
        return false;
    m_ui->listExpression->addItem(text);
    Q_EMIT modified();
    return true;
}

void TriggerOptionWidget::updateExpressionCheck()
{
    for (int i = 0; i < m_ui->listExpression->count(); ++i) {
        QListWidgetItem *row = m_ui->listExpression->item(i);
        const bool usable = !isStatic() || isStaticExpression(row->text());
        row->setForeground(QColor(usable ? Qt::black : Qt::gray));
        const QString state = usable ? QString() : tr("Not part of Static mode, which has M0 to M9");
        row->setToolTip(state);
        row->setData(Qt::AccessibleTextRole, usable ? QVariant() : row->text() + QLatin1String(", ") + state);
    }
}

QStringList TriggerOptionWidget::validExpressions() const
{
    QStringList texts;
    for (int i = 0; i < m_ui->listExpression->count(); ++i) {
        if (isValid(m_ui->listExpression->item(i)))
            texts.append(m_ui->listExpression->item(i)->text());
    }
    return texts;
}

QMap<int, QString> TriggerOptionWidget::greyExpressions() const
{
    QMap<int, QString> texts;
    for (int i = 0; i < m_ui->listExpression->count(); ++i) {
        if (!isValid(m_ui->listExpression->item(i)))
            texts.insert(i, m_ui->listExpression->item(i)->text());
    }
    return texts;
}

// Rows that are right already stay, selected as they were.
void TriggerOptionWidget::showExpressions(const QStringList &valid, const QMap<int, QString> &grey)
{
    QListWidget *list = m_ui->listExpression;
    const int count = valid.size() + grey.size();
    QStringList texts = valid;
    for (QMap<int, QString>::const_iterator it = grey.constBegin(); it != grey.constEnd(); ++it)
        texts.insert(it.key(), it.value());
    const auto isRight = [&](int row, int wanted) {
        return list->item(row)->text() == texts.at(wanted) &&
               isValid(list->item(row)) != grey.contains(wanted);
    };
    int first = 0;
    while (first < qMin(list->count(), count) && isRight(first, first))
        ++first;
    int after = 0; // rows at the end that stay
    while (after < qMin(list->count(), count) - first &&
           isRight(list->count() - 1 - after, count - 1 - after))
        ++after;
    while (list->count() > first + after)
        delete list->takeItem(first);
    for (int row = first; row < count - after; ++row) {
        list->insertItem(row, texts.at(row));
        list->item(row)->setForeground(QColor(grey.contains(row) ? Qt::gray : Qt::black));
    }
}

} // namespace RTLJEX
