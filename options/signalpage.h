#pragma once

#include <QList>
#include <QPoint>
#include <QString>
#include <QStringList>

#include "model/jex/signalitem.h"

class QWidget;

namespace RTLJEX {

// The page of a core as what signals are put into and taken from without its own dialogs: by a drag, a paste,
// a command of the host. A null widget stands for where the user is at work.
class SignalPage
{
public:
    virtual ~SignalPage() {}

    virtual QString signalPlace(const QWidget *widget, const QPoint &position) const = 0; // empty: nowhere
    // True when the rows have changed; otherwise a sentence may say why not.
    virtual bool addSignals(const QList<JEX::SignalItem> &chosen, const QWidget *widget,
                            const QPoint &position, QStringList *faults) = 0;
    virtual QList<JEX::SignalItem> chosenSignals() const = 0;
};

} // namespace RTLJEX
