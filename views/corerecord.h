#pragma once

#include <QList>

#include "model/jex/jexfile.h"
#include "model/jex/zubwriter.h"
#include "signals/stalereport.h"
#include "views/editorrecord.h"
#include "views/viewwindow.h"

namespace RTLJEX {
namespace private_impl {

// The cores of an editor and their pages. Owns the cores; the pages, which belong to the form, only point at
// them and at the netlist and go first. Mode names the types and the functions of one mode of file: View,
// Core and Page; mode, isWellFormed, read, write and check; showDesign, the page's function that takes a
// netlist. A record calls deleteCores() in its destructor.
template <class Mode>
class CoreRecord : public EditorRecord
{
public:
    typedef typename Mode::Core Core;
    typedef typename Mode::Page Page;

    explicit CoreRecord(typename Mode::View *view) : EditorRecord(view), q(view) {}

    Core *getCoreByIndex(int index) const { return cores.value(index); }         // null when there is none
    Page *getAoWidgetByIndex(int index) const { return aoWidgets.value(index); } // null when there is none
    bool check(QString *errors) const override { return Mode::check(cores, netlist, errors); }

    QList<StaleSignal> staleSignals() const override;

    typename Mode::View *q;
    QList<Core *> cores;     // owned
    QList<Page *> aoWidgets; // one a core, in core order

protected:
    virtual void showCores() = 0;            // makes their pages, and one core where there is none
    virtual void removePage(Page *page) = 0; // from the form
    bool writeCores() override { return Mode::write(cores, fileName); }

    void deleteCores();

private:
    bool hasMode() const override { return JEX::jexModeFromJexConfigFile(fileName) == Mode::mode; }
    QByteArray fileBytes() const override;
    bool isWellFormed() const override { return Mode::isWellFormed(fileName); }
    bool readCores(QString *errorMessage) override;
    void savePages() override;
    void handNetlistToPages() override;
};

template <class Mode>
void CoreRecord<Mode>::deleteCores()
{
    rejectDialogsBelow(q);
    while (!aoWidgets.isEmpty()) {
        Page *page = aoWidgets.takeLast();
        removePage(page);
        delete page;
    }
    qDeleteAll(cores);
    cores.clear();
}

template <class Mode>
bool CoreRecord<Mode>::readCores(QString *errorMessage)
{
    bool ok = false;
    const QList<Core *> fresh = Mode::read(fileName, &ok, errorMessage);
    if (!ok)
        return false;
    deleteCores();
    cores = fresh;
    showCores();
    return true;
}

template <class Mode>
QByteArray CoreRecord<Mode>::fileBytes() const
{
    QByteArray bytes;
    QString error;
    JEX::zubFromCores(cores, &bytes, &error);
    return bytes;
}

template <class Mode>
QList<StaleSignal> CoreRecord<Mode>::staleSignals() const
{
    return netlist ? RTLJEX::staleSignals(cores, *netlist) : QList<StaleSignal>();
}

template <class Mode>
void CoreRecord<Mode>::savePages()
{
    for (Page *page : aoWidgets)
        page->save();
}

template <class Mode>
void CoreRecord<Mode>::handNetlistToPages()
{
    for (Page *page : aoWidgets)
        (page->*Mode::showDesign)(netlist);
}

} // namespace private_impl
} // namespace RTLJEX
