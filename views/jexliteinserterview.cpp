#include "views/jexliteinserterview.h"

#include "host/designnews.h"
#include "host/filewatcher.h"
#include "views/jexliteinserterviewprivate.h"

namespace RTLJEX {

using private_impl::JexLiteInserterViewPrivate;

JexLiteInserterView::JexLiteInserterView(QWidget *parent) : EditorView(parent)
{
    subscribeEvent();
    d.reset(new JexLiteInserterViewPrivate(this));
    connect(d->fileWatcher, SIGNAL(fileChanged(QString)), SLOT(onFileChanged()));
    connect(d->fileWatcher, SIGNAL(fileReturned(QString)), SLOT(onFileChanged()));
    setRecord(d.data());
}

JexLiteInserterView::~JexLiteInserterView()
{
    unsubscribeEvent();
}

void JexLiteInserterView::onFileChanged()
{
    d->noteFileChange();
}

void JexLiteInserterView::subscribeEvent()
{
    TE::subscribeDesignEvents(this);
}

void JexLiteInserterView::unsubscribeEvent()
{
    TE::unsubscribeDesignEvents(this);
}

bool JexLiteInserterView::readRtlNetlist()
{
    return d->readNetlist() == DesignRead;
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
