#include "signals/groupnames.h"

#include <QRegExp>
#include <algorithm>

namespace RTLJEX {

const char ALLSIGNAL[] = "^(.+)(\\[[1-9]\\d*\\]|\\[0\\])$";
const char INDEX[] = "^\\[([1-9]\\d*|0)\\]$";
const char GROUP_INDEX[] = "^(group_)(0|[1-9]\\d*)(\\[(0|[1-9]\\d*):(0|[1-9]\\d*)\\]$)";

namespace {

struct Bit
{
    QString base;
    int index;
};

// False for a text that is no bit, or whose index is beyond any real one.
bool splitBit(const QRegExp &bitPattern, const QRegExp &indexPattern, const QString &text, Bit &bit)
{
    if (bitPattern.indexIn(text) < 0 || indexPattern.indexIn(bitPattern.cap(2)) < 0)
        return false;
    bool isNumber = false;
    bit.base = bitPattern.cap(1);
    bit.index = indexPattern.cap(1).toInt(&isNumber);
    return isNumber;
}

QString bracketed(int first, int last)
{
    return QLatin1Char('[') + QString::number(first) + QLatin1Char(':') + QString::number(last) +
           QLatin1Char(']');
}

} // namespace

QString busRangeName(const QStringList &texts)
{
    const QRegExp bitPattern((QLatin1String(ALLSIGNAL)));
    const QRegExp indexPattern((QLatin1String(INDEX)));
    QList<Bit> bits;
    for (const QString &text : texts) {
        Bit bit;
        if (!splitBit(bitPattern, indexPattern, text, bit))
            return QString();
        bits.append(bit);
    }
    if (bits.size() < 2)
        return QString();
    const int step = bits.at(0).index < bits.at(1).index ? 1 : -1;
    for (int i = 1; i < bits.size(); ++i) {
        if (bits.at(i).base != bits.at(0).base || bits.at(i).index - bits.at(i - 1).index != step)
            return QString();
    }
    return bits.first().base + bracketed(bits.first().index, bits.last().index);
}

QString freeGroupName(const QStringList &otherNames)
{
    const QRegExp pattern((QLatin1String(GROUP_INDEX)));
    QList<int> taken;
    for (const QString &name : otherNames) {
        bool isNumber = false;
        const int number = pattern.indexIn(name) < 0 ? 0 : pattern.cap(2).toInt(&isNumber);
        if (isNumber)
            taken.append(number);
    }
    std::sort(taken.begin(), taken.end());
    int candidate = 0;
    while (candidate < taken.size() && taken.at(candidate) <= candidate)
        ++candidate;
    return QLatin1String("group_") + QString::number(candidate);
}

QString groupNameWithRange(const QString &name, int width)
{
    return name + bracketed(width - 1, 0);
}

QString groupNameForWidth(const QString &name, int width)
{
    const int bracket = name.indexOf(QLatin1Char('['));
    const int colon = name.indexOf(QLatin1Char(':'));
    if (bracket < 0 || colon < bracket)
        return name;
    return name.left(bracket + 1) + QString::number(width - 1) + name.mid(colon);
}

} // namespace RTLJEX
