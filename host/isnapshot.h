#pragma once

#include <QByteArray>

namespace Core {

// What a view can do beside being a Core::IView, found by dynamic_cast: hand over its present state as bytes,
// and take such a state back. A host builds undo and recovery on it; a view that has none is served with
// neither. The view tells with IView::stateChanged() when its state may be another. That comes in the middle
// of an edit: ask for the state once control is back in the event loop.
class ISnapshot
{
public:
    virtual ~ISnapshot();

    // All that the view shows, with what saving would refuse or leave out, mode of the file and path
    // included. Saves nothing, changes nothing, and leaves an edit under way alone. Empty when there is no
    // state to be had.
    virtual QByteArray snapshot() const = 0;

    // Shows that state: nothing is saved, and what the file held when it was read or saved last stays known.
    // The view keeps what is open, expanded, selected and scrolled to as far as it is still there, and is
    // modified unless the state is the one of the file. False, with nothing changed, for bytes that are no
    // such state, are damaged or of a file of another mode; they may come from anywhere.
    virtual bool restoreSnapshot(const QByteArray &bytes) = 0;

    virtual bool isSnapshotSaved() const = 0; // the file holds it: there is nothing that could be lost
};

} // namespace Core
