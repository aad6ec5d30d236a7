#include "views/jexliteinserterviewprivate.h"

#include <QDebug>
#include <QFileSystemWatcher>

#include "host/modal.h"
#include "model/jex/jexfile.h"
#include "model/quarry/rtlnetlist.h"
#include "options/liteaooptionwidget.h"
#include "views/bannerhost.h"
#include "views/changedbanner.h"
#include "views/configcheck.h"
#include "views/filewatch.h"
#include "views/jexliteinserterview.h"
#include "views/saving.h"
#include "views/viewwindow.h"

namespace RTLJEX {
namespace private_impl {

static const int maximumCores = 16;

JexLiteInserterViewPrivate::JexLiteInserterViewPrivate(JexLiteInserterView *view)
    : QObject(view),
      q(view),
      netlist(nullptr),
      changedBanner(nullptr),
      fileWatcher(new QFileSystemWatcher(this)),
      modified(false),
      reloadCheckPending(false)
{
    ui.setupUi(view);
    initBannerContainer(ui.bannerContainer);
}

JexLiteInserterViewPrivate::~JexLiteInserterViewPrivate()
{
    deleteCores();
    delete netlist;
}

void JexLiteInserterViewPrivate::setModified(bool value)
{
    if (modified == value)
        return;
    modified = value;
    if (modificationCallback)
        modificationCallback(value);
}

JEX::AOCore_Lite *JexLiteInserterViewPrivate::getCoreByIndex(int index) const
{
    return cores.value(index);
}

LiteAoOptionWidget *JexLiteInserterViewPrivate::getAoWidgetByIndex(int index) const
{
    return aoWidgets.value(index);
}

void JexLiteInserterViewPrivate::setNlsData(QUARRY::RtlNetlist *fresh)
{
    if (!fresh) {
        qDebug("try to set a null netlist for Lite JEX.");
        return;
    }
    if (fresh == netlist)
        return;
    rejectDialogsBelow(q);
    const QUARRY::RtlNetlist *old = netlist;
    netlist = fresh;
    handNetlistToPages();
    delete old;
}

bool JexLiteInserterViewPrivate::check(QString *errors) const
{
    return checkLiteCores(cores, netlist, errors);
}

void JexLiteInserterViewPrivate::showCores(const QList<JEX::AOCore_Lite *> &fresh)
{
    deleteCores();
    cores = fresh;
    if (cores.isEmpty())
        addOneAo();
    else
        initAoOptionWidget();
}

void JexLiteInserterViewPrivate::handNetlistToPages()
{
    for (LiteAoOptionWidget *page : aoWidgets)
        page->setNlsData(netlist);
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
    if (cores.size() >= maximumCores) {
        QUtil::messageBox(q, QMessageBox::Warning, JexLiteInserterView::tr("Warning"),
                          JexLiteInserterView::tr("Support 16 AOs at most."));
        return;
    }
    JEX::AOCore_Lite *core = new JEX::AOCore_Lite;
    core->coreNumber = cores.size();
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
    qDebug("save jex");
    for (LiteAoOptionWidget *page : aoWidgets)
        page->save();
    QString findings;
    if (!check(&findings)) {
        showCheckErrors(q, JexLiteInserterView::tr("Your settings contain some errors."), findings);
        return false;
    }
    bool written = false;
    {
        const WatchPause pause(fileWatcher, fileName);
        written = JEX::writeJEXConfigToXml_Lite(cores, fileName);
    }
    if (!written) {
        showWriteFailure(q, fileName);
        return false;
    }
    showTitles(q, fileName, false);
    setModified(false);
    return true;
}

void JexLiteInserterViewPrivate::onModified()
{
    if (modified)
        return;
    // The titles first: who hears of the modification reads them.
    showTitles(q, fileName, true);
    setModified(true);
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

void JexLiteInserterViewPrivate::addPage(JEX::AOCore_Lite *core, QWidget *parent, int number)
{
    LiteAoOptionWidget *page = new LiteAoOptionWidget(core, netlist, parent);
    aoWidgets << page;
    ui.stackedWidget->addWidget(page);
    connect(page, SIGNAL(modified()), this, SLOT(onModified()));
    ui.comboBoxAo->addItem(JexLiteInserterView::tr("AO %1").arg(number));
}

void JexLiteInserterViewPrivate::deleteCores()
{
    rejectDialogsBelow(q);
    ui.comboBoxAo->clear();
    while (!aoWidgets.isEmpty()) {
        LiteAoOptionWidget *page = aoWidgets.takeLast();
        ui.stackedWidget->removeWidget(page);
        delete page;
    }
    qDeleteAll(cores);
    cores.clear();
}

} // namespace private_impl
} // namespace RTLJEX
