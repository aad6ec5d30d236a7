#include "options/litecaptureoptionwidget.h"

#include "model/jex/core.h"
#include "model/jex/formfields.h"
#include "model/jex/resourcetable.h"
#include "options/capturecontrols.h"
#include "options/capturemath.h"
#include "options/capturerows.h"
#include "signals/signalrows.h"
#include "signals/signaltreesetup.h"
#include "ui_litecaptureoptionwidget.h"

namespace RTLJEX {

namespace {

const int smallestAmount = 2;
const int largestAmount = 65536;

// A Lite core has no trigger, so nothing comes on top of the captured bits.
const bool adjustedUsage = false;

} // namespace

LiteCaptureOptionWidget::LiteCaptureOptionWidget(JEX::AOCore_Lite *core, QUARRY::RtlNetlist *netlist,
                                                 QWidget *parent)
    : QWidget(parent), m_ui(new Ui_LiteCaptureOptionWidget), m_core(core), m_netlist(netlist), m_device(this)
{
    m_ui->setupUi(this);
    setUpSignalTree(m_ui->treeWidgetSignal, m_ui->btnRemove);
    fillNumbers(m_ui->comboCapAmount, doublingNumbers(smallestAmount, largestAmount));
    connectControls();
    loadCore();
}

LiteCaptureOptionWidget::~LiteCaptureOptionWidget() = default;

void LiteCaptureOptionWidget::connectControls()
{
    reportChanges(m_ui->editSampleClock, m_ui->radioButtonRising, m_ui->treeWidgetSignal, this);
    connect(m_ui->treeWidgetSignal, SIGNAL(CapSignalChange()), SLOT(onCaptureSignalChange()));
    connect(m_ui->btnSampleClock, SIGNAL(clicked()), SLOT(onSelectClock()));
    connect(m_ui->btnAdd, SIGNAL(clicked()), SLOT(onAddDataSignals()));
    connect(m_ui->btnRemove, SIGNAL(clicked()), SLOT(onRemoveSignals()));
    connect(m_ui->implementation, SIGNAL(currentIndexChanged(int)), SLOT(onImplementation()));
    JEX::reportFields(this, JEX::FlagField);
    connect(m_ui->capIniDataCheckBox, SIGNAL(toggled(bool)), SLOT(onCapInitData()));
    connect(m_ui->comboCapAmount, SIGNAL(currentIndexChanged(int)), SLOT(onCapAmountOrDataSigalChanged()));
}

void LiteCaptureOptionWidget::loadCore()
{
    showClock(*m_ui, *m_core);
    JEX::showValue(m_ui->comboCapAmount, m_core->captureAmount);
    JEX::showFields(this, *m_core);
    m_ui->capIniDataCheckBox->setChecked(m_core->captureInitialData);
    insertCaptureRows(m_ui->treeWidgetSignal, m_core->captureSignals, 0);
    // The list on offer depends on the rows and has to stand before the stored choice is looked up in it.
    updateImplType();
    selectText(m_ui->implementation, liteImplementationText(m_core->implementation));
    updateBsramCount();
}

// The fields that need no more than their box come last: others set that of the input register, too.
void LiteCaptureOptionWidget::showCore(const JEX::AOCore_Lite &core)
{
    const bool blocked = blockSignals(true);
    showCaptureRows(m_ui->treeWidgetSignal, core.captureSignals);
    showClock(*m_ui, core);
    JEX::showValue(m_ui->comboCapAmount, core.captureAmount);
    m_ui->capIniDataCheckBox->setChecked(core.captureInitialData);
    chooseImplementation(m_ui->implementation, captureBits(), JEX::implementationOf(core.implementation));
    JEX::showFields(this, core);
    updateBsramCount();
    blockSignals(blocked);
}

void LiteCaptureOptionWidget::save()
{
    m_ui->treeWidgetSignal->finishEdit();
    collect(m_core);
}

void LiteCaptureOptionWidget::collect(JEX::AOCore_Lite *core) const
{
    storeClock(*m_ui, core);
    core->implementation = liteImplementationFromText(m_ui->implementation->currentText());
    core->captureAmount = captureAmount();
    JEX::collectFields(this, core);
    core->captureInitialData = m_ui->capIniDataCheckBox->isChecked();
    collectCaptureRows(m_ui->treeWidgetSignal, core->enabledCaptureSignals, core->captureSignals);
}

void LiteCaptureOptionWidget::setNlsdata(QUARRY::RtlNetlist *netlist)
{
    m_netlist = netlist;
}

void LiteCaptureOptionWidget::updateTree()
{
    rebuildCaptureRows(m_ui->treeWidgetSignal, m_netlist, m_core->captureSignals);
    // Only the figures: offering implementations anew could change the choice, and with it mark a file
    // modified that the user has not touched.
    updateBsramCount();
}

void LiteCaptureOptionWidget::handleIEvent(const QUtil::IEvent *event)
{
    if (DeviceWatch::concerns(event))
        onCapAmountOrDataSigalChanged();
}

void LiteCaptureOptionWidget::onSelectClock()
{
    selectClock(m_ui->editSampleClock, m_netlist, this);
}

void LiteCaptureOptionWidget::onAddDataSignals()
{
    if (addSearchedRows(m_ui->treeWidgetSignal, m_netlist, this))
        onCapAmountOrDataSigalChanged();
}

void LiteCaptureOptionWidget::addSignals(const QList<JEX::SignalItem> &chosen)
{
    addCaptureRows(m_ui->treeWidgetSignal, chosen);
    onCapAmountOrDataSigalChanged();
}

QList<JEX::SignalItem> LiteCaptureOptionWidget::chosenSignals() const
{
    return selectedRecords(m_ui->treeWidgetSignal);
}

void LiteCaptureOptionWidget::onRemoveSignals()
{
    if (!removeChosenRows(m_ui->treeWidgetSignal))
        return;
    updateImplType();
    updateBsramCount();
    Q_EMIT modified();
}

void LiteCaptureOptionWidget::onImplementation()
{
    updateInputRegCheck();
    updateBsramCount();
    Q_EMIT modified();
}

void LiteCaptureOptionWidget::onCapInitData()
{
    updateInputRegCheck();
    Q_EMIT modified();
}

void LiteCaptureOptionWidget::onCapAmountOrDataSigalChanged()
{
    updateImplType();
    updateBsramCount();
    updateCapEnable(m_ui->treeWidgetSignal);
    sortEnableSignal();
    Q_EMIT modified();
}

void LiteCaptureOptionWidget::onCaptureSignalChange()
{
    updateBsramCount();
}

void LiteCaptureOptionWidget::on_treeWidgetSignal_itemSelectionChanged()
{
    m_ui->btnRemove->setEnabled(canRemoveRows(m_ui->treeWidgetSignal));
}

void LiteCaptureOptionWidget::updateBsramCount()
{
    showUsage(m_ui->label_3, m_ui->label_8, shownImplementation(m_ui->implementation),
              m_ui->treeWidgetSignal->signalCount(), captureAmount(), adjustedUsage);
}

void LiteCaptureOptionWidget::updateImplType()
{
    offerImplementations(m_ui->implementation, captureBits());
}

qint64 LiteCaptureOptionWidget::captureBits() const
{
    return qint64(m_ui->treeWidgetSignal->signalCount()) * captureAmount();
}

// Initial data can be captured only through the input register of a block memory, so the user has no say
// while it is asked for.
void LiteCaptureOptionWidget::updateInputRegCheck()
{
    const bool forced = m_ui->capIniDataCheckBox->isChecked();
    m_ui->enableInputRegCheckBox->setEnabled(!forced);
    const JEX_TOOL::Resource *shown = JEX_TOOL::resourceOf(shownImplementation(m_ui->implementation));
    if (forced && shown)
        m_ui->enableInputRegCheckBox->setChecked(shown->hasInputRegister);
}

void LiteCaptureOptionWidget::sortEnableSignal()
{
    sortEnabledFirst(m_ui->treeWidgetSignal);
}

int LiteCaptureOptionWidget::captureAmount() const
{
    return shownNumber(m_ui->comboCapAmount);
}

} // namespace RTLJEX
