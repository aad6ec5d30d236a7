#include "views/jexliteinserterviewprivate.h"

#include <QDebug>

#include "views/bannerhost.h"
#include "views/changedbanner.h"
#include "views/jexliteinserterview.h"

namespace RTLJEX {
namespace private_impl {

JexLiteInserterViewPrivate::JexLiteInserterViewPrivate(JexLiteInserterView *view)
    : ModeRecord<LiteFile>(view), changedBanner(nullptr)
{
    ui.setupUi(view);
    bannerContainer = ui.bannerContainer;
    initBannerContainer(bannerContainer);
}

JexLiteInserterViewPrivate::~JexLiteInserterViewPrivate()
{
    deletePages();
}

void JexLiteInserterViewPrivate::setNlsData(QUARRY::RtlNetlist *fresh)
{
    if (fresh)
        installNetlist(fresh);
    else
        qDebug("try to set a null netlist for Lite JEX.");
}

QWidget *JexLiteInserterViewPrivate::showPage(int core)
{
    QWidget *page = getAoWidgetByIndex(core);
    if (page) {
        ui.stackedWidget->setCurrentWidget(page);
        ui.comboBoxAo->setCurrentIndex(core);
    }
    return page;
}

void JexLiteInserterViewPrivate::showCores()
{
    if (cores.isEmpty())
        addOneAo();
    else
        initAoOptionWidget();
}

void JexLiteInserterViewPrivate::initAoOptionWidget()
{
    for (int i = 0; i < cores.size(); ++i)
        addPage(cores.at(i), nullptr, i);
    ui.comboBoxAo->setCurrentIndex(0);
}

void JexLiteInserterViewPrivate::onAoComboChanged(int)
{
}

void JexLiteInserterViewPrivate::addOneAo()
{
    if (refusesCore(cores.size()))
        return;
    JEX::AOCore_Lite *core = JEX::newCore<JEX::AOCore_Lite>(cores.size());
    cores << core;
    addPage(core, q, core->coreNumber);
    ui.comboBoxAo->setCurrentIndex(core->coreNumber);
    onModified();
}

void JexLiteInserterViewPrivate::removeOneAo()
{
}

bool JexLiteInserterViewPrivate::save()
{
    return saveFile();
}

void JexLiteInserterViewPrivate::onModified()
{
    noteEdit(sender());
}

void JexLiteInserterViewPrivate::showChangedBanner()
{
    if (!changedBanner) {
        changedBanner = createChangedBanner(this, q);
        ui.verticalLayout->insertWidget(ui.verticalLayout->indexOf(ui.bannerContainer), changedBanner);
    }
    changedBanner->show();
}

void JexLiteInserterViewPrivate::onOKBtn()
{
    if (changedBanner)
        changedBanner->hide();
}

QString JexLiteInserterViewPrivate::errorsText() const
{
    return JexLiteInserterView::tr("Your settings contain some errors.");
}

void JexLiteInserterViewPrivate::addPage(JEX::AOCore_Lite *core, QWidget *parent, int number)
{
    LiteAoOptionWidget *page = new LiteAoOptionWidget(core, netlist, parent);
    aoWidgets << page;
    insertPage(page, number);
}

void JexLiteInserterViewPrivate::insertPage(LiteAoOptionWidget *page, int number)
{
    ui.stackedWidget->addWidget(page);
    connect(page, SIGNAL(modified()), SLOT(onModified()));
    ui.comboBoxAo->addItem(JexLiteInserterView::tr("AO %1").arg(number));
}

void JexLiteInserterViewPrivate::removePage(LiteAoOptionWidget *page)
{
    ui.comboBoxAo->removeItem(ui.stackedWidget->indexOf(page));
    ui.stackedWidget->removeWidget(page);
    disconnect(page, nullptr, this, nullptr);
}

} // namespace private_impl
} // namespace RTLJEX
