#include "options/triggeroptionwidget.h"

#include <QHeaderView>
#include <QShortcut>

#include "host/modal.h"
#include "host/rowdelegate.h"
#include "model/jex/core.h"
#include "model/jex/corestate.h"
#include "model/jex/devicetable.h"
#include "model/jex/matchunitdialog.h"
#include "model/jex/matchunitmodel.h"
#include "options/capturecontrols.h"
#include "options/capturemath.h"
#include "options/triggermath.h"
#include "signals/addedrows.h"
#include "signals/signalrows.h"
#include "signals/signaltreesetup.h"
#include "trigger/triggerportdialog.h"
#include "ui_triggeroptionwidget.h"

namespace RTLJEX {

namespace {

QList<JEX::MatchUnit *> offeredUnits(const JEX::AoCore *core, bool all)
{
    return all ? core->matchUnits : core->matchUnits.mid(0, StaticUnitCount);
}

// Rows that are right already stay, expanded and selected as they were; so does an expanded port.
void showPortRows(QTreeWidgetItem *port, const QList<JEX::SignalItem> &items)
{
    const auto isRight = [&](int row, int wanted) { return recordOf(port->child(row)) == items.at(wanted); };
    const bool isExpanded = port->isExpanded();
    const int shared = qMin(port->childCount(), items.size());
    int first = 0;
    while (first < shared && isRight(first, first))
        ++first;
    int after = 0; // rows at the end that stay
    while (after < shared - first && isRight(port->childCount() - 1 - after, items.size() - 1 - after))
        ++after;
    while (port->childCount() > first + after)
        delete port->takeChild(first);
    QList<QTreeWidgetItem *> fresh;
    for (const JEX::SignalItem &item : items.mid(first, items.size() - first - after))
        fresh.append(makeSignalRow(item, TriggerOptionWidget::SignalRow));
    port->insertChildren(first, fresh);
    for (QTreeWidgetItem *row : fresh)
        settleRow(row);
    port->setExpanded(isExpanded);
}

bool isChecked(const QModelIndex &box)
{
    return box.data(Qt::CheckStateRole).toInt() == Qt::Checked;
}

} // namespace

TriggerOptionWidget::TriggerOptionWidget(JEX::AoCore *core, QUARRY::RtlNetlist *netlist, QWidget *parent)
    : QWidget(parent),
      m_ui(new Ui_TriggerOptionWidget),
      m_core(core),
      m_netlist(netlist),
      m_units(new JEX::MatchUnitModel(offeredUnits(core, core->triggerMode == JEX::DynamicTrigger), this)),
      m_device(this)
{
    m_ui->setupUi(this);
    setUpMatchUnits();
    setUpPorts();
    setUpExpressions();
    updateImplType();
    updateExpressionType();
    updateBsramNumber();
    updateMatchUnitNumber(core->triggerMode == JEX::DynamicTrigger);
    connectDoubleClicks();
    connectKeys();
    connect(m_ui->ModeComboBox, SIGNAL(currentIndexChanged(QString)), SLOT(onModeChange(QString)));
    connect(m_ui->ImpleComboBox, SIGNAL(currentIndexChanged(QString)), SLOT(onImpleChange()));
}

TriggerOptionWidget::~TriggerOptionWidget() = default;

TriggerOptionWidget::EditMark::EditMark(TriggerOptionWidget *page) : m_page(page)
{
    page->m_isEditing = true;
}

TriggerOptionWidget::EditMark::~EditMark()
{
    if (m_page)
        m_page->m_isEditing = false;
}

void TriggerOptionWidget::setUpPorts()
{
    setRowStyle(m_ui->treeTrigger, "QTreeWidget::item { height: 20px;}QTreeWidget{ icon-size: 17px; }");
    QList<QTreeWidgetItem *> rows;
    for (int i = 0; i < m_core->triggerPorts.size(); ++i)
        rows.append(new QTreeWidgetItem(QStringList(tr("Trigger Port %1").arg(i)), PortRow));
    m_ui->treeTrigger->addTopLevelItems(rows);
    // Their names are in any language, and only those of signals may be cut.
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    QAbstractItemView *tree = m_ui->treeTrigger; // as which it says its widths
    tree->setMinimumWidth(
        qMax(tree->minimumWidth(), tree->sizeHintForColumn(0) + bar + 2 * tree->frameWidth()));
    updateTriggerTree();
}

void TriggerOptionWidget::setUpMatchUnits()
{
    m_ui->tableMu->setModel(m_units);
    m_ui->tableMu->hideColumn(JEX::MatchUnitModel::NumberColumn);
    QUtil::useRowDelegate(m_ui->tableMu);
    m_ui->tableMu->verticalHeader()->hide();
    m_ui->tableMu->horizontalHeader()->setHighlightSections(false);
    m_ui->tableMu->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_ui->tableMu->setSelectionMode(QAbstractItemView::SingleSelection);
    m_ui->tableMu->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    connect(m_units, SIGNAL(layoutChanged()), SIGNAL(modified()));
    connect(m_units, SIGNAL(matchChange()), SLOT(onImpleChange()));
}

// The views are still busy with a click when they report it and would not survive the end of the page under a
// dialog, so the dialogs are opened from the event loop.
void TriggerOptionWidget::connectDoubleClicks()
{
    connect(m_ui->treeTrigger, SIGNAL(itemDoubleClicked(QTreeWidgetItem *, int)),
            SLOT(askEdit(QTreeWidgetItem *)));
    connect(m_ui->tableMu, SIGNAL(doubleClicked(QModelIndex)), SLOT(askEdit(QModelIndex)));
    connect(m_ui->listExpression, SIGNAL(itemDoubleClicked(QListWidgetItem *)),
            SLOT(askEdit(QListWidgetItem *)));
}

// What the mouse can do. Each key belongs to its view alone.
void TriggerOptionWidget::connectKeys()
{
    QWidget *const views[] = {m_ui->treeTrigger, m_ui->tableMu, m_ui->listExpression};
    for (QWidget *view : views) {
        for (const Qt::Key code : {Qt::Key_Return, Qt::Key_Enter}) {
            const QShortcut *key = new QShortcut(code, view, nullptr, nullptr, Qt::WidgetShortcut);
            connect(key, SIGNAL(activated()), SLOT(askEditCurrent()));
        }
    }
    const QShortcut *key =
        new QShortcut(QKeySequence::Delete, m_ui->listExpression, nullptr, nullptr, Qt::WidgetShortcut);
    connect(key, SIGNAL(activated()), SLOT(removeExpressions()));
    key = new QShortcut(Qt::Key_Space, m_ui->tableMu, nullptr, nullptr, Qt::WidgetShortcut);
    connect(key, SIGNAL(activated()), SLOT(toggleUnit()));
}

// A signal stands for its port.
void TriggerOptionWidget::askEdit(QTreeWidgetItem *item)
{
    const QTreeWidgetItem *port = item && item->parent() ? item->parent() : item;
    const int row = m_ui->treeTrigger->indexOfTopLevelItem(const_cast<QTreeWidgetItem *>(port));
    askEdit(m_ui->treeTrigger->model()->index(row, 0));
}

void TriggerOptionWidget::askEdit(QListWidgetItem *item)
{
    askEdit(m_ui->listExpression->model()->index(m_ui->listExpression->row(item), 0));
}

// Of the view whose key it was.
void TriggerOptionWidget::askEditCurrent()
{
    if (sender()->parent() == m_ui->treeTrigger)
        askEdit(m_ui->treeTrigger->currentItem());
    else
        askEdit(static_cast<QAbstractItemView *>(sender()->parent())->currentIndex());
}

// A row is carried, since rows come and go until the event loop is reached. The last of several counts.
void TriggerOptionWidget::askEdit(const QModelIndex &row)
{
    m_asked = row;
    QMetaObject::invokeMethod(this, "editAsked", Qt::QueuedConnection);
}

void TriggerOptionWidget::editAsked()
{
    const QModelIndex row = m_asked;
    m_asked = QModelIndex();
    if (!row.isValid())
        return;
    if (row.model() == m_ui->treeTrigger->model())
        editTrigger(m_ui->treeTrigger->topLevelItem(row.row()), 0);
    else if (row.model() == m_units)
        editMatchUnit(row);
    else
        editExpression(m_ui->listExpression->item(row.row()));
}

void TriggerOptionWidget::save()
{
    JEX::LeftOut leftOut;
    collect(m_core, &leftOut);
}

void TriggerOptionWidget::collect(JEX::AoCore *core, JEX::LeftOut *leftOut) const
{
    const JEX::Implementation shown = implementationFromText(m_ui->ImpleComboBox->currentText());
    core->expressions = validExpressions();
    leftOut->expressions = greyExpressions();
    core->triggerMode = isStatic() ? JEX::StaticTrigger : JEX::DynamicTrigger;
    if (!isStatic()) { // nobody sees the implementation, so nobody changed it
        leftOut->triggerImplementation = shown;
        return;
    }
    for (JEX::MatchUnit *unit : core->matchUnits.mid(StaticUnitCount)) {
        if (unit->enabled)
            leftOut->units.append(unit->unitNumber);
        unit->enabled = false;
    }
    core->triggerImplementation = shown;
}

void TriggerOptionWidget::showCore(const JEX::AoCore &core, const JEX::LeftOut &leftOut)
{
    const bool blocked = blockSignals(true);
    bool hasPorts = true;
    for (int i = 0; i < core.triggerPorts.size(); ++i)
        hasPorts = hasPorts && core.getTrigger(i)->signalItems == m_core->getTrigger(i)->signalItems;
    JEX::copyTrigger(core, m_core);
    if (!hasPorts)
        updateTriggerTree();
    m_ui->ModeComboBox->setCurrentIndex(core.triggerMode);
    chooseImplementation(
        m_ui->ImpleComboBox, 0,
        JEX::implementationOf(isStatic() ? core.triggerImplementation : leftOut.triggerImplementation));
    showExpressions(core.expressions, leftOut.expressions);
    redrawUnits();
    updateBsramNumber();
    blockSignals(blocked);
}

void TriggerOptionWidget::setNlsdata(QUARRY::RtlNetlist *netlist)
{
    m_netlist = netlist;
}

void TriggerOptionWidget::showChangedPorts()
{
    updateTriggerTree();
    redrawUnits();
    Q_EMIT modified();
}

void TriggerOptionWidget::handleIEvent(const QUtil::IEvent *event)
{
    if (!DeviceWatch::concerns(event))
        return;
    updateBsramNumber();
    updateImplType();
}

// The row is looked up again after the dialog, which may have changed the tree.
void TriggerOptionWidget::editTrigger(QTreeWidgetItem *item, int)
{
    while (item && item->parent())
        item = item->parent();
    const int index = m_ui->treeTrigger->indexOfTopLevelItem(item);
    JEX::TriggerPort *port = m_core->getTrigger(index);
    if (!port || m_isEditing)
        return;
    const EditMark mark(this);
    const QPointer<QWidget> alive(this); // the page can be closed under the dialog
    QUtil::Modal<TriggerPortDialog> dialog(new TriggerPortDialog(port, m_netlist, this));
    if (dialog->exec() != QDialog::Accepted || !alive)
        return;
    showPort(index);
}

// After its signals have changed.
void TriggerOptionWidget::showPort(int port)
{
    updateTriggerTree();
    redrawUnits();
    QTreeWidgetItem *row = m_ui->treeTrigger->topLevelItem(port);
    m_ui->treeTrigger->setCurrentItem(row);
    row->setExpanded(true);
    Q_EMIT modified();
}

int TriggerOptionWidget::portAt(const QWidget *widget, const QPoint &position) const
{
    const bool isTree = widget && widget == m_ui->treeTrigger->viewport();
    QTreeWidgetItem *item = isTree ? m_ui->treeTrigger->itemAt(position) : m_ui->treeTrigger->currentItem();
    while (item && item->parent())
        item = item->parent();
    return m_ui->treeTrigger->indexOfTopLevelItem(item);
}

bool TriggerOptionWidget::addSignals(int index, const QList<JEX::SignalItem> &chosen, QStringList *faults)
{
    JEX::TriggerPort *port = m_core->getTrigger(index);
    if (!port || m_isEditing)
        return false;
    const QList<JEX::SignalItem> rows = withPortSignals(port->signalItems, chosen);
    if (JEX::widthOf(rows) > JEX::TriggerPort::WidthLimit) {
        faults->append(tr("Support 64 signals at most."));
        return false;
    }
    port->signalItems = rows;
    showPort(index);
    return true;
}

QList<JEX::SignalItem> TriggerOptionWidget::chosenSignals() const
{
    QList<JEX::SignalItem> chosen;
    for (int i = 0; i < m_ui->treeTrigger->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *row = m_ui->treeTrigger->topLevelItem(i);
        for (int k = 0; k < row->childCount(); ++k) {
            if (row->isSelected() || row->child(k)->isSelected())
                chosen.append(recordOf(row->child(k)));
        }
    }
    return chosen;
}

void TriggerOptionWidget::editMatchUnit(const QModelIndex &index)
{
    JEX::MatchUnit *unit = index.isValid() ? m_units->muFromIndex(index) : nullptr;
    if (!unit || m_isEditing)
        return;
    const EditMark mark(this);
    const QPersistentModelIndex row(index);
    const QPointer<QWidget> alive(this);
    QUtil::Modal<JEX::MatchUnitDialog> dialog(new JEX::MatchUnitDialog(unit, false, this));
    if (dialog->exec() != QDialog::Accepted || !alive)
        return;
    if (unit->triggerPort)
        unit->enabled = true;
    if (row.isValid())
        m_units->updateRow(row.row());
    m_ui->tableMu->resizeColumnsToContents();
    updateBsramNumber();
    Q_EMIT modified();
}

// Rows are selected whole, so that the key means the box of the row in whatever column the cursor is.
void TriggerOptionWidget::toggleUnit()
{
    const QModelIndex box =
        m_units->index(m_ui->tableMu->currentIndex().row(), JEX::MatchUnitModel::EnabledColumn);
    m_units->setData(box, isChecked(box) ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

// Units show how wide their port is, and whether their value still fits it.
void TriggerOptionWidget::redrawUnits()
{
    for (int row = 0; row < m_units->rowCount(); ++row)
        m_units->updateRow(row);
    m_ui->tableMu->resizeColumnsToContents();
}

void TriggerOptionWidget::onModeChange(const QString &)
{
    showStatic(isStatic());
    if (isStatic())
        updateBsramNumber();
    updateMatchUnitNumber(!isStatic());
    Q_EMIT modified();
}

void TriggerOptionWidget::onImpleChange()
{
    updateBsramNumber();
    Q_EMIT modified();
}

void TriggerOptionWidget::updateMatchUnitNumber(bool all)
{
    m_units->setMatcherList(offeredUnits(m_core, all));
    m_ui->tableMu->resizeColumnsToContents();
    updateExpressionCheck();
    updateBsramNumber();
}

void TriggerOptionWidget::updateTriggerTree()
{
    for (int i = 0; i < m_ui->treeTrigger->topLevelItemCount(); ++i) {
        if (const JEX::TriggerPort *port = m_core->getTrigger(i))
            showPortRows(m_ui->treeTrigger->topLevelItem(i), port->signalItems);
    }
}

void TriggerOptionWidget::updateImplType()
{
    refillTexts(m_ui->ImpleComboBox, implementationNames(triggerImplementations(currentDevice())));
}

void TriggerOptionWidget::updateExpressionType()
{
    const bool on = m_core->isStatic();
    m_ui->ModeComboBox->setCurrentIndex(on ? JEX::StaticTrigger : JEX::DynamicTrigger);
    showStatic(on);
    if (!on)
        return;
    updateImplType();
    const int index = m_ui->ImpleComboBox->findText(implementationText(m_core->triggerImplementation));
    m_ui->ImpleComboBox->setCurrentIndex(qMax(0, index)); // the device may lack what was stored
}

void TriggerOptionWidget::updateBsramNumber()
{
    if (!isStatic())
        return;
    const JEX::Implementation implementation = shownImplementation(m_ui->ImpleComboBox);
    m_ui->UsageValue->setText(triggerUsageText(implementation,
                                               JEX_TOOL::amountOf(currentDevice(), implementation),
                                               validExpressions().size(), checkedUnits()));
    m_ui->UsageValue->setToolTip(usageNote());
}

int TriggerOptionWidget::checkedUnits() const
{
    int count = 0;
    for (int row = 0; row < m_units->rowCount(); ++row)
        count += isChecked(m_units->index(row, JEX::MatchUnitModel::EnabledColumn));
    return count;
}

bool TriggerOptionWidget::isStatic() const
{
    return m_ui->ModeComboBox->currentIndex() == JEX::StaticTrigger;
}

void TriggerOptionWidget::showStatic(bool on)
{
    m_ui->Implementation->setVisible(on);
    m_ui->Usage->setVisible(on);
}

} // namespace RTLJEX
