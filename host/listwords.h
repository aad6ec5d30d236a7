#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace Core {

// One word of a file list, without its quotes.
struct ListWord
{
    QString text;
    int line;     // of the list, from 1
    bool isWhole; // false: a variable in it is not set
};

// "list.f:3: ", before a sentence about that line.
QString placeInList(const QString &list, int line);

// Splits the text of a file list into words; comments, quotes and line ends are gone afterwards, and
// variables have their values. `faults` gets a sentence for each variable that is not set, and for quotes and
// comments that do not end, behind which there are no words.
QList<ListWord> splitFileList(const QString &text, const QString &list, QStringList &faults);

} // namespace Core
