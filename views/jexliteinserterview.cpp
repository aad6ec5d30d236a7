#include "views/jexliteinserterview.h"

#include <QCloseEvent>
#include <QFileSystemWatcher>
#include <QPointer>

#include "host/modal.h"
#include "model/jex/jexfile.h"
#include "views/bannerhost.h"
#include "views/designevents.h"
#include "views/designreading.h"
#include "views/filewatch.h"
#include "views/jexliteinserterviewprivate.h"
#include "views/saving.h"
#include "views/viewwindow.h"

namespace RTLJEX {

using private_impl::JexLiteInserterViewPrivate;

JexLiteInserterView::JexLiteInserterView(QWidget *parent)
    : JexInserterView(parent), m_designChangePending(false)
{
    subscribeEvent();
    d.reset(new JexLiteInserterViewPrivate(this));
    connect(d->fileWatcher, SIGNAL(fileChanged(QString)), this, SLOT(onFileChanged()));
    d->modificationCallback = [this](bool modified) { Q_EMIT modificationStatusChanged(modified); };
}

JexLiteInserterView::~JexLiteInserterView()
{
    unsubscribeEvent();
}

QString JexLiteInserterView::file() const
{
    return d->fileName;
}

bool JexLiteInserterView::isModified() const
{
    return d->modified;
}

bool JexLiteInserterView::open(const QString &fileName, const QString &, QString *errorMessage)
{
    unwatchFile(d->fileWatcher, d->fileName);
    d->fileName = fileName;
    watchFile(d->fileWatcher, fileName);
    if (!JEX::checkJEXLiteFile(fileName)) {
        if (errorMessage)
            *errorMessage = tr("%1 open file failed.").arg(fileName);
        return false;
    }
    bool ok = false;
    const QList<JEX::AOCore_Lite *> cores = JEX::readJEXConfigFromXml_Lite(fileName, &ok, errorMessage);
    if (!ok)
        return false;
    d->showCores(cores);
    showTitles(this, fileName, d->modified);
    return readRtlNetlist();
}

bool JexLiteInserterView::save()
{
    return !refusesSynthesisTool(this) && d->save();
}

void JexLiteInserterView::closeEvent(QCloseEvent *event)
{
    const SaveAnswer answer = d->modified ? askSaveChanges(this, d->fileName) : DiscardChanges;
    event->setAccepted(answer == DiscardChanges || (answer == SaveChanges && d->save()));
}

void JexLiteInserterView::handleIEvent(const QUtil::IEvent *event)
{
    if (m_designChangePending)
        return;
    const DesignReaction reaction = designReaction(event);
    if (reaction == DesignFilesChanged)
        designFileChanged();
    else if (reaction == TopModuleChanged)
        topModuleChanged();
}

void JexLiteInserterView::subscribeEvent()
{
    subscribeDesignEvents(this);
}

void JexLiteInserterView::unsubscribeEvent()
{
    unsubscribeDesignEvents(this);
}

// The design

QUARRY::RtlNetlist *JexLiteInserterView::updateRtlNetlist()
{
    return catchDesignNetlist();
}

void JexLiteInserterView::getRtlModules(QMap<QString, QVariant> &info, QStringList &topModules,
                                        QStringList &modules, QStringList &messages)
{
    catchDesignModules(info, topModules, modules, messages);
}

QStringList JexLiteInserterView::includePaths()
{
    return projectIncludePaths();
}

bool JexLiteInserterView::readRtlNetlist()
{
    d->setNlsData(nullptr);
    QUARRY::RtlNetlist *netlist = nullptr;
    if (!readDesign(this, &netlist))
        return false;
    d->setNlsData(netlist);
    return true;
}

void JexLiteInserterView::designFileChanged()
{
    askForDesignReload(tr("Design files changed. Do you want to reload?"));
}

void JexLiteInserterView::topModuleChanged()
{
    askForDesignReload(tr("Top module changed. Do you want to reload?"));
}

void JexLiteInserterView::askForDesignReload(const QString &question)
{
    m_designChangePending = true;
    offerDesignReload(d->ui.bannerContainer, this, question);
}

void JexLiteInserterView::onRtlReload()
{
    dismissBanner(sender());
    const QPointer<QObject> alive(this);
    const bool read = readRtlNetlist();
    if (!alive)
        return;
    if (read) {
        m_designChangePending = false;
    } else {
        dropChanges();
        closeContainer(this);
    }
}

void JexLiteInserterView::onReloadCancel()
{
    dismissBanner(sender());
    m_designChangePending = false;
}

// The file on disk

void JexLiteInserterView::onFileChanged()
{
    scheduleReloadCheck(&d->reloadCheckPending, this);
}

void JexLiteInserterView::checkForReload()
{
    offerFileReload(d->ui.bannerContainer, this, d->fileName);
}

bool JexLiteInserterView::reloadJexFile()
{
    if (JEX::jexModeFromJexConfigFile(d->fileName) != JEX::LiteMode || !JEX::checkJEXLiteFile(d->fileName))
        return false;
    bool ok = false;
    const QList<JEX::AOCore_Lite *> cores = JEX::readJEXConfigFromXml_Lite(d->fileName, &ok, nullptr);
    if (!ok)
        return false;
    d->showCores(cores);
    if (d->netlist)
        d->handNetlistToPages();
    return true;
}

void JexLiteInserterView::onBannerReload()
{
    if (reloadJexFile()) {
        endFileBanner();
        return;
    }
    const QPointer<QObject> alive(this);
    QUtil::messageBox(this, QMessageBox::Warning, tr("Reload Jex"), tr("Invalid JEX file."));
    if (alive)
        onBannerClose();
}

void JexLiteInserterView::onBannerCancel()
{
    endFileBanner();
    m_designChangePending = false;
}

void JexLiteInserterView::onBannerKeep()
{
    endFileBanner();
}

void JexLiteInserterView::onBannerClose()
{
    endFileBanner();
    dropChanges();
    closeContainer(this);
}

void JexLiteInserterView::endFileBanner()
{
    dismissBanner(sender());
    d->reloadCheckPending = false;
    // The file that was replaced or removed may be back.
    watchFile(d->fileWatcher, d->fileName);
}

void JexLiteInserterView::dropChanges()
{
    showTitles(this, d->fileName, false);
    d->setModified(false);
}

} // namespace RTLJEX
