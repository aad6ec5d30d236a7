#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace RTLJEX {

// Patterns for QRegExp, case-sensitive.
extern const char ALLSIGNAL[];   // a bit of a bus: base name, index in brackets
extern const char INDEX[];       // the index in brackets alone: the number
extern const char GROUP_INDEX[]; // a user's group: capture 2 is its number

// "a", first 3, last 0 make "a[3:0]". Empty unless the texts, in this order, are bits of one base whose
// indices step by one in a constant direction; one text alone is no range.
QString busRangeName(const QStringList &texts);

// "group_%1" with the lowest number that none of the other names has: the names of groups among them
// count, any others do not.
QString freeGroupName(const QStringList &otherNames);

// "group_2" and 6 make "group_2[5:0]".
QString groupNameWithRange(const QString &name, int width);

// A group's name after its width changed: "group_3[7:0]" and 5 make "group_3[4:0]".
QString groupNameForWidth(const QString &name, int width);

} // namespace RTLJEX
