#include "views/bannerhost.h"

#include <QFileInfo>
#include <QHBoxLayout>

#include "views/reloadbanner.h"

namespace RTLJEX {
namespace {

void showBanner(QWidget *container, ReloadBanner *banner)
{
    container->layout()->addWidget(banner);
    banner->show();
    container->show();
}

} // namespace

void initBannerContainer(QWidget *container)
{
    QHBoxLayout *layout = new QHBoxLayout(container);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    container->hide();
}

void offerFileReload(QWidget *container, QObject *editor, const QString &fileName)
{
    const bool exists = QFileInfo(fileName).exists();
    ReloadBanner *banner =
        new ReloadBanner(exists ? ReloadBanner::Changed : ReloadBanner::Removed, fileName, container);
    QObject::connect(banner, SIGNAL(reload()), editor, SLOT(onBannerReload()));
    QObject::connect(banner, SIGNAL(cancel()), editor, SLOT(onBannerCancel()));
    QObject::connect(banner, SIGNAL(keepIt()), editor, SLOT(onBannerKeep()));
    QObject::connect(banner, SIGNAL(closeIt()), editor, SLOT(onBannerClose()));
    showBanner(container, banner);
}

void offerDesignReload(QWidget *container, QObject *editor, const QString &question)
{
    ReloadBanner *banner = new ReloadBanner(ReloadBanner::Changed, QString(), container);
    QObject::connect(banner, SIGNAL(reload()), editor, SLOT(onRtlReload()));
    QObject::connect(banner, SIGNAL(cancel()), editor, SLOT(onReloadCancel()));
    showBanner(container, banner);
    banner->setText(question);
}

QString bannerText(const QObject *object)
{
    const ReloadBanner *banner = qobject_cast<const ReloadBanner *>(object);
    return banner ? banner->text() : QString();
}

void dismissBanner(QObject *object)
{
    ReloadBanner *banner = qobject_cast<ReloadBanner *>(object);
    QWidget *container = banner ? banner->parentWidget() : nullptr;
    if (!container)
        return;
    banner->hide();
    container->layout()->removeWidget(banner);
    banner->setParent(nullptr);
    banner->deleteLater();
    if (container->layout()->count() == 0)
        container->hide();
}

} // namespace RTLJEX
