#include "views/jexliteinserterview.h"

#include <QFileSystemWatcher>

#include "views/designevents.h"
#include "views/designreading.h"
#include "views/jexliteinserterviewprivate.h"
#include "views/saving.h"

namespace RTLJEX {

using private_impl::JexLiteInserterViewPrivate;

JexLiteInserterView::JexLiteInserterView(QWidget *parent) : JexInserterView(parent)
{
    subscribeEvent();
    d.reset(new JexLiteInserterViewPrivate(this));
    connect(d->fileWatcher, SIGNAL(fileChanged(QString)), SLOT(onFileChanged()));
    d->modificationCallback = [this](bool modified) { Q_EMIT modificationStatusChanged(modified); };
}

JexLiteInserterView::~JexLiteInserterView()
{
    unsubscribeEvent();
}

bool JexLiteInserterView::open(const QString &fileName, const QString &, QString *errorMessage)
{
    return d->openFile(fileName, errorMessage);
}

void JexLiteInserterView::onFileChanged()
{
    d->noteFileChange();
}

QString JexLiteInserterView::file() const
{
    return d->fileName;
}

bool JexLiteInserterView::isModified() const
{
    return d->modified;
}

bool JexLiteInserterView::save()
{
    return !refusesSynthesisTool(this) && d->save();
}

void JexLiteInserterView::closeEvent(QCloseEvent *event)
{
    d->closing(event);
}

void JexLiteInserterView::handleIEvent(const QUtil::IEvent *event)
{
    d->handleEvent(event);
}

void JexLiteInserterView::subscribeEvent()
{
    subscribeDesignEvents(this);
}

void JexLiteInserterView::unsubscribeEvent()
{
    unsubscribeDesignEvents(this);
}

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
    return d->readNetlist();
}

void JexLiteInserterView::designFileChanged()
{
    d->askAboutDesignFiles();
}

void JexLiteInserterView::topModuleChanged()
{
    d->askAboutTopModule();
}

void JexLiteInserterView::onRtlReload()
{
    d->acceptDesignReload(sender());
}

void JexLiteInserterView::onReloadCancel()
{
    d->cancelDesignReload(sender());
}

void JexLiteInserterView::checkForReload()
{
    d->askAboutFile();
}

bool JexLiteInserterView::reloadJexFile()
{
    return d->reloadFile();
}

void JexLiteInserterView::onBannerReload()
{
    d->acceptFileReload(sender());
}

void JexLiteInserterView::onBannerCancel()
{
    d->cancelFileReload(sender());
}

void JexLiteInserterView::onBannerKeep()
{
    d->keepFile(sender());
}

void JexLiteInserterView::onBannerClose()
{
    d->closeFile(sender());
}

} // namespace RTLJEX
