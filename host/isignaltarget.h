#pragma once

#include <QPoint>
#include <QStringList>

class QMimeData;
class QWidget;

namespace Core {

// A view that signals of the design can be put into and taken from, by a drag, a paste or a command of the
// host. It is optional beside IView: a view that is none is asked by dynamic_cast in vain.
class ISignalTarget
{
public:
    virtual ~ISignalTarget();

    // Where signals would go that are dropped at a position of the widget, which is one below the view; null:
    // where the user is at work. "the capture list"; empty: nowhere.
    virtual QString signalPlace(const QWidget *widget, const QPoint &position) const = 0;

    // Puts them there, by the view's own rules, and tells whether anything was put. The data are signals of
    // chosenSignals(), or text with one name in each line. A sentence for each that cannot be taken.
    virtual bool addSignals(const QMimeData &data, const QWidget *widget, const QPoint &position,
                            QStringList *faults) = 0;

    // Those that are chosen where the user is at work; the caller's. Null when none is.
    virtual QMimeData *chosenSignals() const = 0;
};

} // namespace Core
