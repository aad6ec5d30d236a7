#include "views/jexstandardinserterviewprivate.h"

#include <QAction>
#include <QPointer>

#include "host/modal.h"
#include "model/netlist/rtlnetlist.h"
#include "views/jexstandardinserterview.h"

namespace RTLJEX {
namespace private_impl {

JexStandardInserterViewPrivate::JexStandardInserterViewPrivate(JexStandardInserterView *view,
                                                               QWidget *banners)
    : ModeRecord<StandardFile>(view),
      addAction(new QAction(JexStandardInserterView::tr("Add"), this)),
      removeAction(new QAction(JexStandardInserterView::tr("Remove"), this))
{
    bannerContainer = banners;
}

JexStandardInserterViewPrivate::~JexStandardInserterViewPrivate()
{
    deletePages();
}

void JexStandardInserterViewPrivate::setNlsData(QUARRY::RtlNetlist *fresh)
{
    installNetlist(fresh);
}

QWidget *JexStandardInserterViewPrivate::showPage(int core)
{
    q->changeAoWidget(core);
    return getAoWidgetByIndex(core);
}

bool JexStandardInserterViewPrivate::save()
{
    return saveFile();
}

void JexStandardInserterViewPrivate::showCores()
{
    if (cores.isEmpty())
        addOneAo(0);
    else
        initAoOptionWidget();
    q->changeAoWidget(0);
}

void JexStandardInserterViewPrivate::initAoOptionWidget()
{
    for (JEX::AoCore *core : cores)
        addPage(core, nullptr);
}

void JexStandardInserterViewPrivate::addOneAo(int index)
{
    if (refusesCore(cores.size()))
        return;
    cores << new JEX::AoCore(hasNumber(index) ? freeNumber() : index);
    addPage(cores.last(), q);
    q->onModified();
}

bool JexStandardInserterViewPrivate::hasNumber(int number) const
{
    for (const JEX::AoCore *core : cores) {
        if (core->coreNumber == number)
            return true;
    }
    return false;
}

int JexStandardInserterViewPrivate::freeNumber() const
{
    int number = 0;
    while (hasNumber(number))
        ++number;
    return number;
}

void JexStandardInserterViewPrivate::removeOneAo(int index)
{
    if (!confirmsRemoval(index))
        return;
    deletePage(index);
    for (int i = 0; i < cores.size(); ++i)
        cores.at(i)->coreNumber = i;
    q->onModified();
}

// False too when the editor died, or its cores changed, while it asked.
bool JexStandardInserterViewPrivate::confirmsRemoval(int index)
{
    if (cores.size() == 1) {
        QUtil::messageBox(q, QMessageBox::Warning, JexStandardInserterView::tr("Warning"),
                          JexStandardInserterView::tr("The only Ao can not be removed."), QMessageBox::Ok,
                          QMessageBox::Ok);
        return false;
    }
    const JEX::AoCore *core = getCoreByIndex(index);
    if (!core)
        return false;
    const QPointer<QObject> alive(this);
    const int answer =
        QUtil::messageBox(q, QMessageBox::Question, JexStandardInserterView::tr("Confirm"),
                          JexStandardInserterView::tr("Do you want to remove AO %1 ?").arg(index),
                          QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok);
    return answer == QMessageBox::Ok && alive && getCoreByIndex(index) == core;
}

bool JexStandardInserterViewPrivate::writeCores(QString *error)
{
    const QUARRY::Hierachy *top = netlist ? netlist->topHierarchy : nullptr;
    for (JEX::AoCore *core : cores)
        core->topModuleName = top ? top->instanceName : QString();
    return EditorRecord::writeCores(error);
}

QString JexStandardInserterViewPrivate::errorsText() const
{
    // The blanks widen the box, which is as wide as its text and has the errors to show.
    return JexStandardInserterView::tr("Your settings contain some errors.             ");
}

void JexStandardInserterViewPrivate::addPage(JEX::AoCore *core, QWidget *parent)
{
    aoWidgets << new AoOptionWidget(core, netlist, parent);
    insertPage(aoWidgets.last(), aoWidgets.size() - 1);
}

void JexStandardInserterViewPrivate::insertPage(AoOptionWidget *page, int)
{
    q->addAoOptionWidget(page);
}

void JexStandardInserterViewPrivate::removePage(AoOptionWidget *page)
{
    q->removeAoOptionWidget(page);
}

void JexStandardInserterViewPrivate::renumberCores()
{
    q->showCoreTitles();
}

} // namespace private_impl
} // namespace RTLJEX
