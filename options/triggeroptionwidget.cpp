#include "options/triggeroptionwidget.h"

#include <QHeaderView>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>

#include "host/modal.h"
#include "model/jex/core.h"
#include "model/jex/matchunitdialog.h"
#include "model/jex/matchunitmodel.h"
#include "options/capturecontrols.h"
#include "options/capturemath.h"
#include "options/triggermath.h"
#include "signals/signalrows.h"
#include "signals/signaltreesetup.h"
#include "trigger/muexpressiondialog.h"
#include "trigger/triggerportdialog.h"
#include "ui_triggeroptionwidget.h"

namespace RTLJEX {

namespace {

const int staticMode = 1; // in the core and in the box

QList<JEX::MatchUnit *> offeredUnits(const JEX::AoCore *core, bool all)
{
    return all ? core->matchUnits : core->matchUnits.mid(0, StaticUnitCount);
}

bool isValid(const QListWidgetItem *expression)
{
    return expression->foreground().color() != QColor(Qt::gray);
}

} // namespace

TriggerOptionWidget::TriggerOptionWidget(JEX::AoCore *core, QUARRY::RtlNetlist *netlist, QWidget *parent)
    : QWidget(parent),
      m_ui(new Ui_TriggerOptionWidget),
      m_core(core),
      m_netlist(netlist),
      m_units(new JEX::MatchUnitModel(offeredUnits(core, core->triggerMode == 0), this)),
      m_device(this)
{
    m_ui->setupUi(this);
    setUpMatchUnits();
    setUpPorts();
    setUpExpressions();
    updateImplType();
    updateExpressionType();
    updateBsramNumber();
    updateMatchUnitNumber(core->triggerMode == 0);
    connectDoubleClicks();
    connect(m_ui->ModeComboBox, SIGNAL(currentIndexChanged(QString)), SLOT(onModeChange(QString)));
    connect(m_ui->ImpleComboBox, SIGNAL(currentIndexChanged(QString)), SLOT(onImpleChange()));
}

TriggerOptionWidget::~TriggerOptionWidget() = default;

void TriggerOptionWidget::setUpPorts()
{
    setRowStyle(m_ui->treeTrigger, "QTreeWidget::item { height: 20px;}QTreeWidget{ icon-size: 17px; }");
    QList<QTreeWidgetItem *> rows;
    for (int i = 0; i < m_core->triggerPorts.size(); ++i)
        rows.append(new QTreeWidgetItem(QStringList(tr("Trigger Port %1").arg(i)), PortRow));
    m_ui->treeTrigger->addTopLevelItems(rows);
    updateTriggerTree();
}

void TriggerOptionWidget::setUpMatchUnits()
{
    m_ui->tableMu->setModel(m_units);
    m_ui->tableMu->hideColumn(1);
    m_ui->tableMu->verticalHeader()->hide();
    m_ui->tableMu->horizontalHeader()->setHighlightSections(false);
    m_ui->tableMu->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_ui->tableMu->setSelectionMode(QAbstractItemView::SingleSelection);
    m_ui->tableMu->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    connect(m_units, SIGNAL(layoutChanged()), SIGNAL(modified()));
    connect(m_units, SIGNAL(matchChange()), SLOT(onImpleChange()));
}

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

// The views are still busy with a click when they report it and would not survive the end of the page under a
// dialog, so the dialogs are opened from the event loop.
void TriggerOptionWidget::connectDoubleClicks()
{
    qRegisterMetaType<QTreeWidgetItem *>("QTreeWidgetItem*");
    qRegisterMetaType<QListWidgetItem *>("QListWidgetItem*");
    qRegisterMetaType<QModelIndex>("QModelIndex");
    connect(m_ui->treeTrigger, SIGNAL(itemDoubleClicked(QTreeWidgetItem *, int)),
            SLOT(editTrigger(QTreeWidgetItem *, int)), Qt::QueuedConnection);
    connect(m_ui->tableMu, SIGNAL(doubleClicked(QModelIndex)), SLOT(editMatchUnit(QModelIndex)),
            Qt::QueuedConnection);
    connect(m_ui->listExpression, SIGNAL(itemDoubleClicked(QListWidgetItem *)),
            SLOT(editExpression(QListWidgetItem *)), Qt::QueuedConnection);
}

void TriggerOptionWidget::save()
{
    m_core->expressions = validExpressions();
    m_core->triggerMode = isStatic() ? staticMode : 0;
    if (!isStatic())
        return; // nobody sees the implementation, so nobody changed it
    for (int i = StaticUnitCount; i < m_core->matchUnits.size(); ++i)
        m_core->matchUnits.at(i)->enabled = false;
    m_core->triggerImplementation = implementationFromText(m_ui->ImpleComboBox->currentText());
}

void TriggerOptionWidget::setNlsdata(QUARRY::RtlNetlist *netlist)
{
    m_netlist = netlist;
}

void TriggerOptionWidget::handleIEvent(const QUtil::IEvent *event)
{
    if (!DeviceWatch::concerns(event))
        return;
    updateBsramNumber();
    updateImplType();
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

// The row is looked up again after the dialog, which may have changed the tree.
void TriggerOptionWidget::editTrigger(QTreeWidgetItem *item, int)
{
    while (item && item->parent())
        item = item->parent();
    const int index = m_ui->treeTrigger->indexOfTopLevelItem(item);
    JEX::TriggerPort *port = m_core->getTrigger(index);
    if (!port)
        return;
    const QPointer<QWidget> guard(this); // the page can be closed under the dialog
    QUtil::Modal<TriggerPortDialog> dialog(new TriggerPortDialog(port, m_netlist, this));
    if (dialog->exec() != QDialog::Accepted || !guard)
        return;
    updateTriggerTree();
    QTreeWidgetItem *row = m_ui->treeTrigger->topLevelItem(index);
    m_ui->treeTrigger->setCurrentItem(row);
    row->setExpanded(true);
    Q_EMIT modified();
}

void TriggerOptionWidget::editMatchUnit(const QModelIndex &index)
{
    JEX::MatchUnit *unit = index.isValid() ? m_units->muFromIndex(index) : nullptr;
    if (!unit)
        return;
    const int row = index.row();
    const QPointer<QWidget> guard(this);
    QUtil::Modal<JEX::MatchUnitDialog> dialog(new JEX::MatchUnitDialog(unit, false, this));
    if (dialog->exec() != QDialog::Accepted || !guard)
        return;
    if (unit->triggerPort)
        unit->enabled = true;
    m_units->updateRow(row);
    updateBsramNumber();
    Q_EMIT modified();
}

void TriggerOptionWidget::editExpression(QListWidgetItem *item)
{
    const int row = m_ui->listExpression->row(item);
    const QPointer<QWidget> guard(this);
    const QString text = askExpression();
    if (!guard || text.isEmpty())
        return;
    m_ui->listExpression->item(row)->setText(text);
    Q_EMIT modified();
    updateExpressionCheck();
    updateBsramNumber();
}

void TriggerOptionWidget::showExpListContextMenu(const QPoint &position)
{
    QListWidget *list = m_ui->listExpression;
    const QPointer<QWidget> guard(this);
    QUtil::Modal<QMenu> menu(new QMenu(this));
    const QAction *add = menu->addAction(tr("Add"));
    QAction *remove = menu->addAction(tr("Remove"));
    remove->setEnabled(!list->selectedItems().isEmpty());
    const QAction *chosen = menu->exec(list->viewport()->mapToGlobal(position));
    if (!guard)
        return;
    if (chosen == add) {
        addExpression(tr("Warning"));
    } else if (chosen == remove) {
        qDeleteAll(list->selectedItems());
        Q_EMIT modified();
    }
    if (guard)
        updateBsramNumber();
}

QString TriggerOptionWidget::askExpression()
{
    return MuExpressionDialog::getExpression(this, isStatic());
}

// False when there is nothing new, or when the page died under the dialog.
bool TriggerOptionWidget::addExpression(const QString &limitTitle)
{
    const QPointer<QWidget> guard(this);
    if (m_ui->listExpression->count() >= JEX::ExpressionLimit) {
        QUtil::messageBox(this, QMessageBox::Warning, limitTitle, tr("Support 16 expressions at most."));
        return false;
    }
    const QString text = askExpression();
    if (!guard || text.isEmpty())
        return false;
    m_ui->listExpression->addItem(text);
    Q_EMIT modified();
    return true;
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
    updateExpressionCheck();
    updateBsramNumber();
}

void TriggerOptionWidget::updateExpressionCheck()
{
    for (int i = 0; i < m_ui->listExpression->count(); ++i) {
        QListWidgetItem *row = m_ui->listExpression->item(i);
        const bool usable = !isStatic() || isStaticExpression(row->text());
        row->setForeground(QColor(usable ? Qt::black : Qt::gray));
    }
}

void TriggerOptionWidget::updateTriggerTree()
{
    for (int i = 0; i < m_ui->treeTrigger->topLevelItemCount(); ++i) {
        QTreeWidgetItem *row = m_ui->treeTrigger->topLevelItem(i);
        qDeleteAll(row->takeChildren());
        QList<QTreeWidgetItem *> children;
        if (const JEX::TriggerPort *port = m_core->getTrigger(i)) {
            for (const JEX::SignalItem &item : port->signalItems)
                children.append(makeSignalRow(item, SignalRow));
        }
        row->addChildren(children);
    }
}

void TriggerOptionWidget::updateImplType()
{
    refillTexts(m_ui->ImpleComboBox, triggerImplementations(currentDeviceHasSsram()));
}

void TriggerOptionWidget::updateExpressionType()
{
    const bool on = m_core->triggerMode == staticMode;
    m_ui->ModeComboBox->setCurrentIndex(on ? staticMode : 0);
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
    const QString implementation = m_ui->ImpleComboBox->currentText();
    m_ui->UsageValue->setText(triggerUsageText(implementation, deviceAmount(implementation, currentDevice()),
                                               validExpressions().size(), checkedUnits()));
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

int TriggerOptionWidget::checkedUnits() const
{
    int count = 0;
    for (int row = 0; row < m_units->rowCount(); ++row)
        count += m_units->index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked ? 1 : 0;
    return count;
}

bool TriggerOptionWidget::isStatic() const
{
    return m_ui->ModeComboBox->currentIndex() == staticMode;
}

void TriggerOptionWidget::showStatic(bool on)
{
    m_ui->Implementation->setVisible(on);
    m_ui->Usage->setVisible(on);
}

} // namespace RTLJEX
