#include "workbench/rowfinder.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>

#include "host/ifileeditor.h"
#include "host/iview.h"
#include "host/viewmanager.h"
#include "model/jex/signalitem.h"

namespace Workbench {
namespace {

bool isOnPage(const QWidget *list, const QWidget *view)
{
    const QWidget *around = list->parentWidget();
    while (around != view && !qobject_cast<const QTabWidget *>(around))
        around = around->parentWidget();
    return around != view;
}

// Of those on the page of a core, not the list of cores: the one with the focus, or else the largest.
QTreeView *shownList()
{
    const QWidget *view = Core::ViewManager::instance()->currentView();
    QTreeView *best = nullptr;
    for (QTreeView *list : view ? view->findChildren<QTreeView *>() : QList<QTreeView *>()) {
        const auto area = [](const QWidget *widget) { return widget->width() * widget->height(); };
        if (!list->isVisible() || !isOnPage(list, view))
            continue;
        if (list->hasFocus())
            return list;
        if (!best || area(list) > area(best))
            best = list;
    }
    return best;
}

bool matches(const QModelIndex &row, const QString &text)
{
    const QVariant record = row.data(Qt::UserRole);
    const bool isSignal = record.userType() == qMetaTypeId<JEX::SignalItem>();
    return row.data().toString().contains(text, Qt::CaseInsensitive) ||
           (isSignal && record.value<JEX::SignalItem>().name.contains(text, Qt::CaseInsensitive));
}

void collect(const QAbstractItemModel *model, const QModelIndex &parent, const QString &text,
             QList<QModelIndex> &found)
{
    for (int i = 0; i < model->rowCount(parent); ++i) {
        const QModelIndex row = model->index(i, 0, parent);
        if (matches(row, text))
            found << row;
        collect(model, row, text, found);
    }
}

} // namespace

RowFinder::RowFinder(QWidget *parent)
    : QWidget(parent), m_text(new QLineEdit), m_result(new QLabel), m_recount(new QTimer(this))
{
    m_recount->setSingleShot(true);
    connect(m_recount, &QTimer::timeout, this, &RowFinder::recount);
    auto *label = new QLabel(tr("Fi&nd row:"));
    label->setBuddy(m_text);
    m_text->setObjectName("findRow");
    m_result->setObjectName("findRowResult");
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->addWidget(label);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_result);
    const auto addButton = [this, layout](const QString &text, void (RowFinder::*slot)()) {
        auto *button = new QToolButton;
        button->setText(text);
        connect(button, &QToolButton::clicked, this, slot);
        layout->addWidget(button);
    };
    addButton(tr("Next"), &RowFinder::next);
    addButton(tr("Previous"), &RowFinder::previous);
    addButton(tr("Close"), &RowFinder::leave);
    // What is found stays as long as more of it is typed.
    connect(m_text, &QLineEdit::textEdited, this, [this] { find(0); });
    hide();
}

bool RowFinder::canFindIn(const Core::IView *view)
{
    return dynamic_cast<const Core::IFileEditor *>(view);
}

void RowFinder::ask()
{
    follow(shownList());
    m_found = m_list ? m_list->currentIndex() : QModelIndex();
    m_result->clear();
    show();
    m_text->setFocus();
    m_text->selectAll();
}

void RowFinder::find(int step)
{
    if (!m_list || !m_list->isVisible()) {
        follow(shownList());
        m_found = QModelIndex();
    }
    const QList<QModelIndex> rows = foundRows();
    m_result->setText(m_text->text().isEmpty() ? QString() : tr("Not found"));
    if (rows.isEmpty())
        return;
    const int before = rows.indexOf(m_found);
    const int count = rows.size();
    const int place = before < 0 ? (step < 0 ? count - 1 : 0) : (before + step + count) % count;
    m_found = rows.at(place);
    m_list->setCurrentIndex(rows.at(place));
    m_list->scrollTo(rows.at(place));
    m_result->setText(tr("%1 of %2").arg(place + 1).arg(count));
}

QList<QModelIndex> RowFinder::foundRows() const
{
    QList<QModelIndex> rows;
    if (m_list && !m_text->text().isEmpty())
        collect(m_list->model(), QModelIndex(), m_text->text(), rows);
    return rows;
}

void RowFinder::follow(QTreeView *list)
{
    if (m_list)
        m_list->model()->disconnect(m_recount);
    m_list = list;
    if (!m_list)
        return;
    const auto soon = qOverload<>(&QTimer::start);
    connect(m_list->model(), &QAbstractItemModel::rowsInserted, m_recount, soon);
    connect(m_list->model(), &QAbstractItemModel::rowsRemoved, m_recount, soon);
    connect(m_list->model(), &QAbstractItemModel::dataChanged, m_recount, soon);
    connect(m_list->model(), &QAbstractItemModel::modelReset, m_recount, soon);
}

void RowFinder::recount()
{
    if (isHidden() || !m_list || m_text->text().isEmpty())
        return;
    const QList<QModelIndex> rows = foundRows();
    if (!rows.contains(m_found)) // an edit makes rows anew
        m_found = m_list->currentIndex();
    const int place = rows.indexOf(m_found);
    m_result->setText(rows.isEmpty() ? tr("Not found")
                      : place < 0    ? tr("%1 found").arg(rows.size())
                                     : tr("%1 of %2").arg(place + 1).arg(rows.size()));
}

void RowFinder::leave()
{
    hide();
    if (m_list)
        m_list->setFocus();
}

void RowFinder::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        leave();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        find(event->modifiers() & Qt::ShiftModifier ? -1 : 1);
    else
        QWidget::keyPressEvent(event);
}

} // namespace Workbench
