#pragma once

#include <QList>
#include <QString>

class QAbstractItemView;
class QComboBox;
class QLabel;
class QLineEdit;
class QWidget;

namespace QUARRY {
class RtlNetlist;
}

namespace RTLJEX {

// What the capture pages do with their boxes and labels. The widgets are the page's.

// Fills an empty box; each number is both text and data of its item.
void fillNumbers(QComboBox *box, const QList<int> &numbers);
// Select the item with that number or text; one that is not offered changes nothing.
void selectNumber(QComboBox *box, int number);
void selectText(QComboBox *box, const QString &text);

// Offers what suits the current device and a capture of that many bits and keeps the user's choice where
// it is still offered.
void offerImplementations(QComboBox *box, qint64 captureBits);

// Shows what the capture takes of the current device: `name` says of what, `value` how much. A text that is
// no implementation leaves the name as it is.
void showUsage(QLabel *name, QLabel *value, const QString &implementation, int signalCount, int depth,
               bool adjusted);

// Gives the rows of a signal tree the height they have in this editor, and more where the font of the
// desktop would not fit into it.
void setSignalRowHeight(QAbstractItemView *view);

// Lets the user pick one net and writes its full name into the field; leaves it alone when the choice is
// cancelled, or when `page`, the parent of the dialog, died meanwhile.
void selectClock(QLineEdit *field, QUARRY::RtlNetlist *netlist, QWidget *page);

} // namespace RTLJEX
