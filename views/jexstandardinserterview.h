#pragma once

#include <QModelIndex>
#include <QScopedPointer>
#include <memory>

#include "views/editorview.h"

class QPoint;

namespace RTLJEX {

class AoOptionWidget;
class Ui_JexStandardInserterView;
namespace private_impl {
class JexStandardInserterViewPrivate;
}

// The editor of a Standard configuration file: a list of its cores, which the user adds to and removes from,
// beside the page of the one that was clicked. For file and design it is like the Lite editor.
class JexStandardInserterView : public EditorView
{
    Q_OBJECT

public:
    explicit JexStandardInserterView(QWidget *parent);
    ~JexStandardInserterView() override;

    bool open(const QString &fileName, const QString &extra, QString *errorMessage) override;

    // The pages stand in the stack as their cores do in the list. Adding returns how many there are now.
    int addAoOptionWidget(AoOptionWidget *page);
    void removeAoOptionWidget(AoOptionWidget *page); // deletes nothing
    void changeAoWidget(int index);                  // shows the page of that position, if there is one
    void showCoreTitles();                           // in the list, by the numbers of the cores

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
    bool eventFilter(QObject *object, QEvent *event) override;

private Q_SLOTS:
    void showSelectedCore();

private:
    QString coreTitle(int index) const;

    std::unique_ptr<Ui_JexStandardInserterView> ui;
    // After the form: it takes its pages out of it when it dies.
    QScopedPointer<private_impl::JexStandardInserterViewPrivate> d;
    QWidget *m_changedBanner; // child
};

} // namespace RTLJEX
