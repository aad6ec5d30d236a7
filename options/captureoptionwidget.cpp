#include "options/captureoptionwidget.h"

#include <QPointer>

#include "model/jex/core.h"
#include "model/jex/formfields.h"
#include "options/capturecontrols.h"
#include "options/capturemath.h"
#include "options/capturerows.h"
#include "signals/signalrows.h"
#include "signals/signalrules.h"
#include "signals/signaltreesetup.h"
#include "trigger/triggersingalselectdialog.h"
#include "ui_captureoptionwidget.h"

namespace RTLJEX {

namespace {

const int smallestStorage = 4;
const int largestStorage = 65536;

// What the trigger needs comes on top of the captured bits.
const bool adjustedUsage = true;

} // namespace

CaptureOptionWidget::CaptureOptionWidget(JEX::AoCore *core, QUARRY::RtlNetlist *netlist, QWidget *parent)
    : QWidget(parent), m_ui(new Ui_CaptureOptionWidget), m_core(core), m_netlist(netlist), m_device(this)
{
    m_ui->setupUi(this);
    setUpSignalTree(m_ui->treeWidgetCapSigs, m_ui->btnRemove);
    fillNumbers(m_ui->comboStorageSize, doublingNumbers(smallestStorage, largestStorage));
    connectControls();
    onStorageChanged();
    loadCore();
    reportSizes();
}

CaptureOptionWidget::~CaptureOptionWidget() = default;

void CaptureOptionWidget::connectControls()
{
    connect(m_ui->comboStorageSize, SIGNAL(currentIndexChanged(int)), SLOT(onStorageChanged()));
    connect(m_ui->comboWindowNum, SIGNAL(currentIndexChanged(int)), SLOT(onWindowChanged()));
    connect(m_ui->comboCapAmount, SIGNAL(currentIndexChanged(int)), SLOT(onCapAmountChanged()));
    connect(m_ui->comboImpl, SIGNAL(currentIndexChanged(int)), SLOT(onImplChanged()));
    connect(m_ui->btnSampleClock, SIGNAL(clicked()), SLOT(onSelectClock()));
    connect(m_ui->btnAdd, SIGNAL(clicked()), SLOT(onAddDataSignals()));
    connect(m_ui->btnRemove, SIGNAL(clicked()), SLOT(onRemoveSignals()));
    connect(m_ui->btnAddFromTp, SIGNAL(clicked()), SLOT(onAddFromTrigger()));
    JEX::reportFields(this, JEX::FlagField);
    connect(m_ui->treeWidgetCapSigs, SIGNAL(CapSignalChange()), SLOT(onCaptureSignalChange()));
}

void CaptureOptionWidget::loadCore()
{
    showClock(*m_ui, *m_core);
    JEX::showFields(this, *m_core);
    selectText(m_ui->comboImpl, implementationText(m_core->captureImplementation));
    insertCaptureRows(m_ui->treeWidgetCapSigs, m_core->captureSignals, 0);
    updateImplType();
    updateBsramCount();
}

void CaptureOptionWidget::showCore(const JEX::AoCore &core)
{
    const bool blocked = blockSignals(true);
    showCaptureRows(m_ui->treeWidgetCapSigs, core.captureSignals);
    showClock(*m_ui, core);
    JEX::showFields(this, core);
    chooseImplementation(m_ui->comboImpl, captureBits(), JEX::implementationOf(core.captureImplementation));
    updateBsramCount();
    blockSignals(blocked);
}

void CaptureOptionWidget::reportSizes()
{
    reportChanges(m_ui->editSampleClock, m_ui->radioButtonRising, m_ui->treeWidgetCapSigs, this);
    JEX::reportFields(this, JEX::NumberField);
}

void CaptureOptionWidget::save()
{
    m_ui->treeWidgetCapSigs->finishEdit();
    collect(m_core);
}

void CaptureOptionWidget::collect(JEX::AoCore *core) const
{
    storeClock(*m_ui, core);
    JEX::collectFields(this, core);
    core->captureImplementation = implementationFromText(m_ui->comboImpl->currentText());
    collectCaptureRows(m_ui->treeWidgetCapSigs, core->enabledCaptureSignals, core->captureSignals);
}

void CaptureOptionWidget::setNlsdata(QUARRY::RtlNetlist *netlist)
{
    m_netlist = netlist;
}

void CaptureOptionWidget::updateTree()
{
    rebuildCaptureRows(m_ui->treeWidgetCapSigs, m_netlist, m_core->captureSignals);
    for (JEX::TriggerPort *port : m_core->triggerPorts)
        classifySignals(m_netlist, port->signalItems);
    // Only the figures: offering implementations anew could change the choice, and with it mark a file
    // modified that the user has not touched.
    updateBsramCount();
}

void CaptureOptionWidget::handleIEvent(const QUtil::IEvent *event)
{
    if (!DeviceWatch::concerns(event))
        return;
    updateImplType();
    updateBsramCount();
}

void CaptureOptionWidget::onStorageChanged()
{
    QComboBox *segments = m_ui->comboWindowNum;
    disconnect(segments, SIGNAL(currentIndexChanged(int)), this, SLOT(onWindowChanged()));
    refillNumbers(segments, segmentNumbers(shownNumber(m_ui->comboStorageSize)));
    connect(segments, SIGNAL(currentIndexChanged(int)), SLOT(onWindowChanged()));
    onWindowChanged();
    updateImplType();
    updateBsramCount();
}

void CaptureOptionWidget::onWindowChanged()
{
    QComboBox *amount = m_ui->comboCapAmount;
    disconnect(amount, SIGNAL(currentIndexChanged(int)), this, SLOT(onCapAmountChanged()));
    refillNumbers(amount,
                  captureAmounts(shownNumber(m_ui->comboStorageSize), shownNumber(m_ui->comboWindowNum)));
    onCapAmountChanged();
    connect(amount, SIGNAL(currentIndexChanged(int)), SLOT(onCapAmountChanged()));
}

// Where nothing fits, the position is negative as well, and the range is whole again afterwards.
void CaptureOptionWidget::onCapAmountChanged()
{
    const int last = lastTriggerPosition(shownNumber(m_ui->comboCapAmount));
    if (last >= 0)
        m_ui->spinBoxTrigPos->setRange(0, last);
    else
        m_ui->spinBoxTrigPos->setMaximum(last);
}

void CaptureOptionWidget::onImplChanged()
{
    updateBsramCount();
    Q_EMIT modified();
}

void CaptureOptionWidget::onSelectClock()
{
    selectClock(m_ui->editSampleClock, m_netlist, this);
}

void CaptureOptionWidget::onAddDataSignals()
{
    if (addSearchedRows(m_ui->treeWidgetCapSigs, m_netlist, this))
        showAddedRows();
}

void CaptureOptionWidget::onAddFromTrigger()
{
    const QPointer<QWidget> alive(this); // the page can be closed under the dialog
    const QList<JEX::SignalItem> chosen =
        TriggerSingalSelectDialog::getSelectTriggerPort(m_core->availableTriggers(), this);
    if (!alive || chosen.isEmpty())
        return;
    addCaptureRows(m_ui->treeWidgetCapSigs, uniqueByName(chosen));
    showAddedRows();
}

void CaptureOptionWidget::showAddedRows()
{
    updateImplType();
    updateBsramCount();
    updateCapEnable(m_ui->treeWidgetCapSigs);
    sortEnableSignal();
    Q_EMIT modified();
}

void CaptureOptionWidget::addSignals(const QList<JEX::SignalItem> &chosen)
{
    addCaptureRows(m_ui->treeWidgetCapSigs, chosen);
    showAddedRows();
}

QList<JEX::SignalItem> CaptureOptionWidget::chosenSignals() const
{
    return selectedRecords(m_ui->treeWidgetCapSigs);
}

void CaptureOptionWidget::onRemoveSignals()
{
    if (!removeChosenRows(m_ui->treeWidgetCapSigs))
        return;
    updateImplType();
    updateBsramCount();
    Q_EMIT modified();
}

void CaptureOptionWidget::onCaptureSignalChange()
{
    updateBsramCount();
}

void CaptureOptionWidget::on_treeWidgetCapSigs_itemSelectionChanged()
{
    m_ui->btnRemove->setEnabled(canRemoveRows(m_ui->treeWidgetCapSigs));
}

void CaptureOptionWidget::updateBsramCount()
{
    showUsage(m_ui->label_8, m_ui->label_9, shownImplementation(m_ui->comboImpl),
              m_ui->treeWidgetCapSigs->signalCount(), shownNumber(m_ui->comboStorageSize), adjustedUsage);
}

void CaptureOptionWidget::updateImplType()
{
    offerImplementations(m_ui->comboImpl, captureBits());
}

// One bit more than the signals have is stored for each sample.
qint64 CaptureOptionWidget::captureBits() const
{
    return (qint64(m_ui->treeWidgetCapSigs->signalCount()) + 1) * shownNumber(m_ui->comboStorageSize);
}

void CaptureOptionWidget::sortEnableSignal()
{
    sortEnabledFirst(m_ui->treeWidgetCapSigs);
}

} // namespace RTLJEX
