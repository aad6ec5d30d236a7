#pragma once

#include <QScopedPointer>

#include "views/editorview.h"

namespace RTLJEX {

namespace private_impl {
class JexLiteInserterViewPrivate;
}

// The editor of a Lite configuration file: one page for each of its cores, of which the first is in view.
class JexLiteInserterView : public EditorView
{
    Q_OBJECT

public:
    explicit JexLiteInserterView(QWidget *parent);
    ~JexLiteInserterView() override;

    void subscribeEvent();
    void unsubscribeEvent();

public Q_SLOTS:
    void onFileChanged();
    void checkForReload();
    void onBannerReload();
    void onBannerCancel();
    void onBannerKeep();
    void onBannerClose();
    bool readRtlNetlist(); // false: the user knows why, and the old netlist stays
    void onRtlReload();
    void onReloadCancel();

private:
    QScopedPointer<private_impl::JexLiteInserterViewPrivate> d;
};

} // namespace RTLJEX
