#include "views/jexstandardinserterview.h"

#include <QAction>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>

#include "host/designnews.h"
#include "host/filewatcher.h"
#include "host/modal.h"
#include "ui_jexstandardinserterview.h"
#include "views/bannerhost.h"
#include "views/changedbanner.h"
#include "views/jexstandardinserterviewprivate.h"

namespace RTLJEX {

using private_impl::JexStandardInserterViewPrivate;

JexStandardInserterView::JexStandardInserterView(QWidget *parent)
    : EditorView(parent), ui(new Ui_JexStandardInserterView), m_changedBanner(nullptr)
{
    ui->setupUi(this);
    d.reset(new JexStandardInserterViewPrivate(this, ui->bannerContainer));
    connect(d->fileWatcher, SIGNAL(fileChanged(QString)), SLOT(onFileChange()));
    connect(d->fileWatcher, SIGNAL(fileReturned(QString)), SLOT(onFileChange()));
    // Queued, since the selection moves while cores and pages come and go.
    connect(ui->treeWidget, SIGNAL(itemSelectionChanged()), SLOT(showSelectedCore()), Qt::QueuedConnection);
    ui->treeWidget->viewport()->installEventFilter(this);
    setRecord(d.data());
    m_changedBanner = createChangedBanner(this, this);
    ui->verticalLayout->insertWidget(1, m_changedBanner);
    initBannerContainer(ui->bannerContainer);
    ui->splitter->setSizes(QList<int>() << 150 << 1100);
    subscribeEvent();
}

JexStandardInserterView::~JexStandardInserterView()
{
    unsubscribeEvent();
}

bool JexStandardInserterView::open(const QString &fileName, const QString &extra, QString *errorMessage)
{
    qDebug(" This is open file to Ao");
    return EditorView::open(fileName, extra, errorMessage);
}

// The cores

int JexStandardInserterView::addAoOptionWidget(AoOptionWidget *page)
{
    const int position = ui->stackedWidget->addWidget(page);
    connect(page, SIGNAL(modifed()), SLOT(onModified()));
    new QTreeWidgetItem(ui->treeWidget, QStringList(coreTitle(position)));
    return ui->stackedWidget->count();
}

void JexStandardInserterView::removeAoOptionWidget(AoOptionWidget *page)
{
    const int position = ui->stackedWidget->indexOf(page);
    ui->stackedWidget->removeWidget(page);
    disconnect(page, nullptr, this, nullptr);
    delete ui->treeWidget->topLevelItem(position);
    for (int i = 0; i < ui->treeWidget->topLevelItemCount(); ++i)
        ui->treeWidget->topLevelItem(i)->setText(0, tr("Core %1").arg(i));
}

void JexStandardInserterView::changeAoWidget(int index)
{
    AoOptionWidget *page = d->getAoWidgetByIndex(index);
    if (!page)
        return;
    ui->stackedWidget->setCurrentWidget(page);
    ui->treeWidget->setCurrentItem(ui->treeWidget->topLevelItem(index));
    ui->dockWidget_2->setWindowTitle(coreTitle(index));
}

void JexStandardInserterView::showCoreTitles()
{
    for (int i = 0; i < ui->treeWidget->topLevelItemCount(); ++i)
        ui->treeWidget->topLevelItem(i)->setText(0, coreTitle(i));
}

// With the number that the core carries.
QString JexStandardInserterView::coreTitle(int index) const
{
    const JEX::AoCore *core = d->getCoreByIndex(index);
    return tr("Core %1").arg(core ? core->coreNumber : index);
}

void JexStandardInserterView::on_treeWidget_customContextMenuRequested(QPoint pos)
{
    const int row = ui->treeWidget->indexOfTopLevelItem(ui->treeWidget->itemAt(pos));
    d->addAction->setEnabled(true);
    d->removeAction->setEnabled(row >= 0);
    const QPointer<QObject> alive(this);
    QUtil::Modal<QMenu> menu(new QMenu(this));
    menu->addAction(d->addAction);
    menu->addAction(d->removeAction);
    const QAction *chosen = menu->exec(QCursor::pos());
    if (!alive || !chosen)
        return;
    const bool adds = chosen == d->addAction;
    const int count = d->cores.size();
    if (adds)
        d->addOneAo(count);
    else
        d->removeOneAo(row);
    if (alive)
        changeAoWidget(adds ? count : 0);
}

void JexStandardInserterView::on_treeWidget_doubleClicked(QModelIndex index)
{
    on_treeWidget_clicked(index);
}

void JexStandardInserterView::on_treeWidget_clicked(QModelIndex index)
{
    // Row and column stand for a pixel near the corner, where there is an item as soon as the list has one.
    if (ui->treeWidget->itemAt(index.row(), index.column()) && d->getCoreByIndex(index.row()))
        changeAoWidget(index.row());
}

// However it was selected: by the keyboard, too.
void JexStandardInserterView::showSelectedCore()
{
    changeAoWidget(ui->treeWidget->indexOfTopLevelItem(ui->treeWidget->currentItem()));
}

// The menu is about the core below the mouse, whichever is shown.
bool JexStandardInserterView::eventFilter(QObject *object, QEvent *event)
{
    const bool isPress = event->type() == QEvent::MouseButtonPress;
    if (isPress && static_cast<QMouseEvent *>(event)->button() == Qt::RightButton)
        return true;
    return EditorView::eventFilter(object, event);
}

void JexStandardInserterView::onModified()
{
    d->noteEdit(sender());
}

void JexStandardInserterView::onOKBtn()
{
    m_changedBanner->hide();
}

void JexStandardInserterView::onFileChange()
{
    d->noteFileChange();
}

void JexStandardInserterView::subscribeEvent()
{
    TE::subscribeDesignEvents(this);
}

void JexStandardInserterView::unsubscribeEvent()
{
    TE::unsubscribeDesignEvents(this);
}

bool JexStandardInserterView::readRtlNetlist()
{
    return d->readNetlist() == DesignRead;
}

void JexStandardInserterView::onRtlReload()
{
    d->acceptDesignReload(sender());
}

void JexStandardInserterView::onReloadCancel()
{
    d->cancelDesignReload(sender());
}

void JexStandardInserterView::checkForReload()
{
    d->askAboutFile();
}

void JexStandardInserterView::onBannerReload()
{
    d->acceptFileReload(sender());
}

void JexStandardInserterView::onBannerCancel()
{
    d->cancelFileReload(sender());
}

void JexStandardInserterView::onBannerKeep()
{
    d->keepFile(sender());
}

void JexStandardInserterView::onBannerClose()
{
    d->closeFile(sender());
}

} // namespace RTLJEX
