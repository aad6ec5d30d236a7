#pragma once

#include <QMap>
#include <QScopedPointer>
#include <QStringList>
#include <QVariant>

#include "host/eventmanager.h"
#include "views/jexinserterview.h"

class QCloseEvent;
namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

namespace private_impl {
class JexLiteInserterViewPrivate;
}

// The editor of a Lite configuration file: one page for each of its cores, over one netlist. Opens only
// with a design that can be parsed. Watches its file and the project's design, and asks in banners
// before it reads either again.
class JexLiteInserterView : public JexInserterView, public QUtil::IEventHandler
{
    Q_OBJECT

public:
    explicit JexLiteInserterView(QWidget *parent);
    ~JexLiteInserterView() override;

    QString file() const override;
    bool open(const QString &fileName, const QString &extra, QString *errorMessage) override;
    bool save() override;
    bool isModified() const override;
    void handleIEvent(const QUtil::IEvent *event) override;

    QUARRY::RtlNetlist *updateRtlNetlist(); // a new netlist for the caller; null: there is none
    void getRtlModules(QMap<QString, QVariant> &info, QStringList &topModules, QStringList &modules,
                       QStringList &messages);
    static QStringList includePaths();

    // Both ask whether to read the design again.
    void designFileChanged();
    void topModuleChanged();

    // Reads the file again and drops all edits, but keeps the netlist. Nothing changes when it fails.
    bool reloadJexFile();

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

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QScopedPointer<private_impl::JexLiteInserterViewPrivate> d;
};

} // namespace RTLJEX
