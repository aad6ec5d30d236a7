#pragma once

#include <QList>
#include <QStringList>

#include "model/jex/codes.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QWidget;

namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

class signalTreeWidget;

// What the capture pages do with their boxes and labels. The widgets are the page's.

// Fills an empty box; each number is both text and data of its item.
void fillNumbers(QComboBox *box, const QList<int> &numbers);
// Fills a box anew and selects the number that it showed, or the last one when that is gone.
void refillNumbers(QComboBox *box, const QList<int> &numbers);
int shownNumber(const QComboBox *box); // 0 when the box is empty
// Selects the item with that text; one that is not offered changes nothing.
void selectText(QComboBox *box, const QString &text);

// None when the box is empty.
JEX::Implementation shownImplementation(const QComboBox *box);

// Fills a box anew and selects the text that it showed, or the first one when that is gone.
void refillTexts(QComboBox *box, const QStringList &texts);

// Offers what suits the current device and a capture of that many bits and keeps the user's choice where
// it is still offered.
void offerImplementations(QComboBox *box, qint64 captureBits);

// Offers the same, and chooses. What the device has is offered as long as it is chosen, also where it would
// not be any more; otherwise the first one is chosen.
void chooseImplementation(QComboBox *box, qint64 captureBits, JEX::Implementation chosen);

// Shows what the capture takes of the current device: `name` says of what, `value` how much. No
// implementation leaves the name as it is.
void showUsage(QLabel *name, QLabel *value, JEX::Implementation implementation, int signalCount, int depth,
               bool adjusted);

// Lets changes of the clock and of the rows reach the page's signal modified().
void reportChanges(const QLineEdit *clock, const QRadioButton *rising, const signalTreeWidget *tree,
                   QWidget *page);

// Form and core of every editor name the fields of the sample clock alike.
template <class Form, class Core>
void showClock(const Form &form, const Core &core)
{
    if (form.editSampleClock->text() != core.sampleClock) // the field keeps its cursor, and what it can undo
        form.editSampleClock->setText(core.sampleClock);
    (core.sampleEdge == JEX::FallingEdge ? form.radioButtonFalling : form.radioButtonRising)
        ->setChecked(true);
}

template <class Form, class Core>
void storeClock(const Form &form, Core *core)
{
    core->sampleClock = form.editSampleClock->text();
    core->sampleEdge = form.radioButtonRising->isChecked() ? JEX::RisingEdge : JEX::FallingEdge;
}

// Lets the user pick one net and writes its full name into the field; leaves it alone when the choice is
// cancelled, or when `page`, the parent of the dialog, died meanwhile.
void selectClock(QLineEdit *field, QUARRY::RtlNetlist *netlist, QWidget *page);

} // namespace RTLJEX
