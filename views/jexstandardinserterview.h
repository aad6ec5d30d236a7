#pragma once

#include <QMap>
#include <QModelIndex>
#include <QScopedPointer>
#include <QStringList>
#include <QVariant>

#include "host/eventmanager.h"
#include "views/jexinserterview.h"

class QCloseEvent;
class QPoint;
namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

class AoOptionWidget;
namespace Ui {
class JexStandardInserterView;
}
namespace private_impl {
class JexStandardInserterViewPrivate;
}

// The editor of a Standard configuration file: a list of its cores, which the user adds to and removes from,
// beside the page of the one that was clicked. For file and design it is like the Lite editor.
class JexStandardInserterView : public JexInserterView, public QUtil::IEventHandler
{
    Q_OBJECT

public:
    explicit JexStandardInserterView(QWidget *parent);
    ~JexStandardInserterView() override;

    QString file() const override;
    bool open(const QString &fileName, const QString &extra, QString *errorMessage) override;
    bool save() override;
    bool isModified() const override;
    void handleIEvent(const QUtil::IEvent *event) override;

    QUARRY::RtlNetlist *updateRtlNetlist(); // a new netlist for the caller; null: there is none
    void getRtlModules(QMap<QString, QVariant> &info, QStringList &topModules, QStringList &modules,
                       QStringList &messages);
    static QStringList includePaths();

    // The pages stand in the stack as their cores do in the list. Adding returns how many there are now.
    int addAoOptionWidget(AoOptionWidget *page);
    void removeAoOptionWidget(AoOptionWidget *page); // deletes nothing
    void changeAoWidget(int index);                  // shows the page of that position, if there is one

    // Both ask whether to read the design again.
    void designFileChanged();
    void topModuleChanged();

    // Reads the file again and drops all edits, but keeps the netlist. Nothing changes when it fails.
    bool reloadJexFile();

public Q_SLOTS:
    void onModified();
    void on_treeWidget_customContextMenuRequested(QPoint pos);
    void on_treeWidget_doubleClicked(QModelIndex index);
    void on_treeWidget_clicked(QModelIndex index);
    void onOKBtn();
    void onFileChange();
    void checkForReload();
    void onBannerReload();
    void onBannerCancel();
    void onBannerKeep();
    void onBannerClose();
    void subscribeEvent();
    void unsubscribeEvent();
    bool readRtlNetlist(); // false: the user knows why, and no netlist is left
    void onRtlReload();
    void onReloadCancel();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QString coreTitle(int index) const;

    QScopedPointer<Ui::JexStandardInserterView> ui;
    QScopedPointer<private_impl::JexStandardInserterViewPrivate>
        d;                    // takes its pages out of the form at the end
    QWidget *m_changedBanner; // child
};

} // namespace RTLJEX
