#pragma once

#include <QList>

#include "views/editorrecord.h"
#include "views/viewwindow.h"

namespace RTLJEX {
namespace private_impl {

// The record of an editor of one mode: its cores by their type, and their pages. The pages, which belong to
// the form, only point at the cores and at the netlist and go first. Mode names the types of a mode, View,
// Core and Page; mode; and showDesign, the page's function that takes a netlist. A record calls deletePages()
// in its destructor.
template <class Mode>
class ModeRecord : public EditorRecord
{
public:
    typedef typename Mode::Core Core;
    typedef typename Mode::Page Page;

    explicit ModeRecord(typename Mode::View *view)
        : EditorRecord(view, Mode::mode), q(view), cores(configuration.coresOf<Core>())
    {
    }

    Core *getCoreByIndex(int index) const { return cores.value(index); }         // null when there is none
    Page *getAoWidgetByIndex(int index) const { return aoWidgets.value(index); } // null when there is none
    QWidget *pageOf(int core) const override { return getAoWidgetByIndex(core); }

    typename Mode::View *q;
    QList<Core *> &cores;    // of the configuration
    QList<Page *> aoWidgets; // one a core, in core order

protected:
    virtual void removePage(Page *page) = 0; // from the form
    void deletePages() override;

private:
    void savePages() override;
    void handNetlistToPages() override;
};

template <class Mode>
void ModeRecord<Mode>::deletePages()
{
    rejectDialogsBelow(q);
    while (!aoWidgets.isEmpty()) {
        Page *page = aoWidgets.takeLast();
        removePage(page);
        delete page;
    }
}

template <class Mode>
void ModeRecord<Mode>::savePages()
{
    for (Page *page : aoWidgets)
        page->save();
}

template <class Mode>
void ModeRecord<Mode>::handNetlistToPages()
{
    for (Page *page : aoWidgets)
        (page->*Mode::showDesign)(netlist);
}

} // namespace private_impl
} // namespace RTLJEX
