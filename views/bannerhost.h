#pragma once

#include "views/reloadbanner.h"

namespace RTLJEX {

// The banners of an editor, shown side by side in one container of its form.

// Gives the container its empty layout and hides it.
void initBannerContainer(QWidget *container);

// Shows one more, which belongs to the container.
ReloadBanner *showBanner(QWidget *container, ReloadBanner::CheckType type, const QString &fileName);

// What a banner asks; empty for anything that is no banner.
QString bannerText(const QObject *banner);

// Takes a banner away; the container hides with its last one. The banner may be the sender of the slot that
// is running, so it dies later. Anything that is no banner, null included, is left alone.
void dismissBanner(QObject *banner);

} // namespace RTLJEX
