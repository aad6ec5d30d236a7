#pragma once

#include <QHash>
#include <QList>
#include <QStackedWidget>

#include <memory>
#include <vector>

#include "views/editorrecord.h"
#include "views/viewwindow.h"

namespace RTLJEX {
namespace private_impl {

// The record of an editor of one mode: its cores by their type, and their pages. The pages, which belong to
// the form, only point at the cores and at the netlist and go first. Mode names the types of a mode, View,
// Core and Page; its showDesign() gives a netlist to a page. A record calls deletePages() in its destructor.
template <class Mode>
class ModeRecord : public EditorRecord
{
public:
    typedef typename Mode::Core Core;
    typedef typename Mode::Page Page;

    explicit ModeRecord(typename Mode::View *view)
        : EditorRecord(view, Core::mode), q(view), cores(configuration.coresOf<Core>())
    {
    }

    Core *getCoreByIndex(int index) const { return cores.value(index); }         // null when there is none
    Page *getAoWidgetByIndex(int index) const { return aoWidgets.value(index); } // null when there is none
    SignalPage *shownPage() const override;
    QWidget *pageOf(int core) const override { return getAoWidgetByIndex(core); }

    typename Mode::View *q;
    QList<Core *> &cores;    // of the configuration
    QList<Page *> aoWidgets; // one a core, in core order

protected:
    virtual void insertPage(Page *page, int position) = 0; // into the form, behind all others
    virtual void removePage(Page *page) = 0;               // from the form
    virtual void renumberCores() {}                        // in the form
    void deletePages() override;
    void deletePage(int index); // with its core

private:
    struct PageState
    {
        quint64 identity = 0;
        bool isStale = true;
        CoreSnapshot packed;
    };
    // A core as it is to be: its present page, or none, and its contents unless the page shows them already.
    struct Wanted
    {
        CoreSnapshot packed;
        int present = -1;
        std::unique_ptr<Core> contents;
        JEX::LeftOut leftOut;
    };
    typedef std::vector<Wanted> WantedCores;

    void savePages() override;
    void handNetlistToPages() override;
    void noteChange(const QObject *page) override;
    QList<CoreSnapshot> packPages() override;
    bool showPacked(const QList<CoreSnapshot> &packed) override;

    PageState &stateOf(Page *page);
    bool packPage(int index, PageState *state) const;
    bool isArranged(const WantedCores &wanted) const;
    void arrange(const WantedCores &wanted);

    QHash<const QObject *, PageState> m_states; // by page
    quint64 m_nextIdentity = 0;
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
    m_states.clear();
}

template <class Mode>
void ModeRecord<Mode>::deletePage(int index)
{
    Page *page = aoWidgets.takeAt(index);
    removePage(page);
    m_states.remove(page);
    delete page;
    delete cores.takeAt(index);
}

template <class Mode>
SignalPage *ModeRecord<Mode>::shownPage() const
{
    for (Page *page : aoWidgets) {
        if (!page->isHidden())
            return page;
    }
    return nullptr;
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
        Mode::showDesign(page, netlist);
}

template <class Mode>
void ModeRecord<Mode>::noteChange(const QObject *page)
{
    for (Page *known : aoWidgets) {
        PageState &state = stateOf(known);
        state.isStale = state.isStale || !page || known == page;
    }
}

template <class Mode>
typename ModeRecord<Mode>::PageState &ModeRecord<Mode>::stateOf(Page *page)
{
    if (!m_states.contains(page))
        m_states[page].identity = m_nextIdentity++;
    return m_states[page];
}

template <class Mode>
bool ModeRecord<Mode>::packPage(int index, PageState *state) const
{
    const std::unique_ptr<Core> core(JEX::copyOf(*cores.at(index)));
    JEX::LeftOut leftOut;
    aoWidgets.at(index)->collect(core.get(), &leftOut);
    state->isStale = !packCore(core.get(), leftOut, &state->packed);
    return !state->isStale;
}

template <class Mode>
QList<CoreSnapshot> ModeRecord<Mode>::packPages()
{
    QList<CoreSnapshot> packed;
    for (int i = 0; i < aoWidgets.size(); ++i) {
        PageState &state = stateOf(aoWidgets.at(i));
        if (state.isStale && !packPage(i, &state))
            return QList<CoreSnapshot>();
        packed.append(state.packed);
        packed.last().identity = state.identity;
        packed.last().number = cores.at(i)->coreNumber;
    }
    return packed;
}

template <class Mode>
bool ModeRecord<Mode>::showPacked(const QList<CoreSnapshot> &packed)
{
    const QList<CoreSnapshot> present = packPages();
    WantedCores wanted(size_t(packed.size()));
    for (int i = 0; i < packed.size(); ++i) {
        Wanted &core = wanted[size_t(i)];
        core.packed = packed.at(i);
        for (int j = 0; j < aoWidgets.size(); ++j)
            core.present = stateOf(aoWidgets.at(j)).identity == core.packed.identity ? j : core.present;
        if (core.present >= 0 && present.value(core.present).showsSame(core.packed))
            continue;
        core.contents.reset(unpackCore<Core>(core.packed, &core.leftOut));
        if (!core.contents)
            return false;
    }
    if (!isArranged(wanted))
        arrange(wanted);
    for (int i = 0; i < aoWidgets.size(); ++i) {
        const Wanted &core = wanted[size_t(i)];
        if (!core.contents)
            continue;
        aoWidgets.at(i)->showCore(*core.contents, core.leftOut);
        stateOf(aoWidgets.at(i)).isStale = true; // a device may not offer what was chosen
    }
    return true;
}

template <class Mode>
bool ModeRecord<Mode>::isArranged(const WantedCores &wanted) const
{
    bool isSame = int(wanted.size()) == cores.size();
    for (int i = 0; isSame && i < cores.size(); ++i) {
        const Wanted &core = wanted[size_t(i)];
        isSame = core.present == i && core.packed.number == cores.at(i)->coreNumber;
    }
    return isSame;
}

// The form takes pages at its end alone: those behind the first that is another leave it and come back. A
// core that comes back has what it shows for its record, since its own went with it.
template <class Mode>
void ModeRecord<Mode>::arrange(const WantedCores &wanted)
{
    rejectDialogsBelow(q);
    const QList<Page *> oldPages = aoWidgets;
    const QList<Core *> oldCores = cores;
    const auto *stack = qobject_cast<const QStackedWidget *>(oldPages.first()->parentWidget());
    const QWidget *shown = stack ? stack->currentWidget() : nullptr;
    const int count = int(wanted.size());
    int kept = 0;
    while (kept < qMin(count, oldPages.size()) && wanted[size_t(kept)].present == kept)
        ++kept;
    for (int i = oldPages.size() - 1; i >= kept; --i)
        removePage(oldPages.at(i));
    cores.clear();
    aoWidgets.clear();
    for (const Wanted &core : wanted) {
        const bool isNew = core.present < 0;
        cores << (isNew ? JEX::copyOf(*core.contents) : oldCores.at(core.present));
        aoWidgets << (isNew ? new Page(cores.last(), netlist, q) : oldPages.at(core.present));
        stateOf(aoWidgets.last()).identity = core.packed.identity;
        m_nextIdentity = qMax(m_nextIdentity, core.packed.identity + 1);
        cores.last()->coreNumber = core.packed.number;
    }
    for (int i = kept; i < count; ++i)
        insertPage(aoWidgets.at(i), i);
    const auto indexOfShown = [&] {
        int index = 0;
        while (index < count - 1 && aoWidgets.at(index) != shown)
            ++index;
        return index;
    };
    for (int i = 0; i < oldPages.size(); ++i) {
        if (!aoWidgets.contains(oldPages.at(i))) {
            m_states.remove(oldPages.at(i));
            delete oldPages.at(i);
            delete oldCores.at(i);
        }
    }
    renumberCores();
    showPage(indexOfShown());
}

} // namespace private_impl
} // namespace RTLJEX
