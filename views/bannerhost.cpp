#include "views/bannerhost.h"

#include <QHBoxLayout>

namespace RTLJEX {
void initBannerContainer(QWidget *container)
{
    QHBoxLayout *layout = new QHBoxLayout(container);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    container->hide();
}

ReloadBanner *showBanner(QWidget *container, ReloadBanner::CheckType type, const QString &fileName)
{
    ReloadBanner *banner = new ReloadBanner(type, fileName, container);
    container->layout()->addWidget(banner);
    banner->show();
    container->show();
    return banner;
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
