#pragma once

#include <QString>

class QObject;
class QWidget;

namespace RTLJEX {

// The banners of an editor, shown side by side in one container of its form. The editor has the slots
// onBannerReload/Cancel/Keep/Close and onRtlReload/onReloadCancel, which receive the answers.

// Gives the container its empty layout and hides it.
void initBannerContainer(QWidget *container);

// Asks whether to reload the file, or to keep it when it is gone.
void offerFileReload(QWidget *container, QObject *editor, const QString &fileName);

// Asks whether to read the design again.
void offerDesignReload(QWidget *container, QObject *editor, const QString &question);

// What a banner asks; empty for anything that is no banner.
QString bannerText(const QObject *banner);

// Takes a banner away; the container hides with its last one. The banner may be the sender of the slot that
// is running, so it dies later. Anything that is no banner, null included, is left alone.
void dismissBanner(QObject *banner);

} // namespace RTLJEX
