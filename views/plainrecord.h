#pragma once

#include "plugin/jexinserterview.h"
#include "ui_jexliteinserterview.h"
#include "views/bannerhost.h"
#include "views/moderecord.h"

namespace RTLJEX {
namespace private_impl {

// The record of an editor whose cores have no trigger: a stack of their pages below a box that lists them. A
// file keeps the cores it has; one without any gets one. Who is one has a slot onModified(), which the pages
// are connected to, and is otherwise told by Mode, see moderecord.h.
template <class Mode>
class PlainRecord : public ModeRecord<Mode>
{
public:
    typedef typename Mode::Core Core;
    typedef typename Mode::Page Page;

    explicit PlainRecord(typename Mode::View *view);
    ~PlainRecord() override { this->deletePages(); }

    // Null is refused: the pages keep what they have.
    void setNlsData(QUARRY::RtlNetlist *fresh) override;
    QWidget *showPage(int core) override; // what the box of cores does not do

    Ui_JexLiteInserterView ui;

protected:
    void makePages(); // for the cores of the file
    void addCore();

private:
    void showCores() override { this->cores.isEmpty() ? addCore() : makePages(); }
    void insertPage(Page *page, int number) override;
    void removePage(Page *page) override;
    QString errorsText() const override { return JexInserterView::tr("Your settings contain some errors."); }
    void addPage(Core *core, QWidget *parent, int number);
};

template <class Mode>
PlainRecord<Mode>::PlainRecord(typename Mode::View *view) : ModeRecord<Mode>(view)
{
    ui.setupUi(view);
    this->bannerContainer = ui.bannerContainer;
    initBannerContainer(ui.bannerContainer);
}

template <class Mode>
void PlainRecord<Mode>::setNlsData(QUARRY::RtlNetlist *fresh)
{
    if (fresh)
        this->installNetlist(fresh);
    else
        qDebug("try to set a null netlist for %s JEX.", JEX::modeName(Core::mode));
}

template <class Mode>
QWidget *PlainRecord<Mode>::showPage(int core)
{
    QWidget *page = this->getAoWidgetByIndex(core);
    if (page) {
        ui.stackedWidget->setCurrentWidget(page);
        ui.comboBoxAo->setCurrentIndex(core);
    }
    return page;
}

template <class Mode>
void PlainRecord<Mode>::makePages()
{
    for (int i = 0; i < this->cores.size(); ++i)
        addPage(this->cores.at(i), nullptr, i);
    ui.comboBoxAo->setCurrentIndex(0);
}

template <class Mode>
void PlainRecord<Mode>::addCore()
{
    if (this->refusesCore(this->cores.size()))
        return;
    Core *core = JEX::newCore<Core>(this->cores.size());
    this->cores << core;
    addPage(core, this->q, core->coreNumber);
    ui.comboBoxAo->setCurrentIndex(core->coreNumber);
    this->noteEdit();
}

template <class Mode>
void PlainRecord<Mode>::addPage(Core *core, QWidget *parent, int number)
{
    Page *page = new Page(core, this->netlist, parent);
    this->aoWidgets << page;
    insertPage(page, number);
}

template <class Mode>
void PlainRecord<Mode>::insertPage(Page *page, int number)
{
    ui.stackedWidget->addWidget(page);
    QObject::connect(page, SIGNAL(modified()), this, SLOT(onModified()));
    ui.comboBoxAo->addItem(JexInserterView::tr("AO %1").arg(number));
}

template <class Mode>
void PlainRecord<Mode>::removePage(Page *page)
{
    ui.comboBoxAo->removeItem(ui.stackedWidget->indexOf(page));
    ui.stackedWidget->removeWidget(page);
    QObject::disconnect(page, nullptr, this, nullptr);
}

} // namespace private_impl
} // namespace RTLJEX
