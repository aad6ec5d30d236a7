#include "model/jex/zubrule.h"

#include <QStringList>

#include "model/jex/matchvalue.h"

namespace JEX {

bool isPowerOfTwo(int value)
{
    return value > 0 && (value & (value - 1)) == 0;
}

bool Rule::holds(int value) const
{
    switch (kind) {
    case Any:
        return true;
    case PowerOfTwoOrZero:
        return value == 0 || (value >= low && value <= high && isPowerOfTwo(value));
    case PowerOfTwo:
        return value >= low && value <= high && isPowerOfTwo(value);
    case Range:
    case Words:
    case Bits:
        break;
    }
    return value >= low && value <= high;
}

bool Rule::holds(const QString &text) const
{
    return kind != Bits || isBitText(text);
}

QString Rule::toText(int value) const
{
    return kind == Words ? QString::fromLatin1(words[value - low]) : QString::number(value);
}

bool Rule::fromText(const QStringRef &text, int *value) const
{
    if (kind != Words) {
        bool isNumber = false;
        *value = text.toString().toInt(&isNumber);
        // One spelling a number, or loading and saving would not give the same bytes.
        return isNumber && holds(*value) && text == QString::number(*value);
    }
    for (int i = low; i <= high; ++i) {
        if (isWord(text, words[i - low])) {
            *value = i;
            return true;
        }
    }
    return false;
}

QString Rule::description() const
{
    if (kind == Bits)
        return QLatin1String("made of 0, 1, X, R, F, B and N");
    if (kind == Words) {
        QStringList list;
        for (int i = low; i <= high; ++i)
            list.append(toText(i));
        return QLatin1String("one of ") + list.join(QLatin1String(", "));
    }
    QString text = kind == Range ? QLatin1String("a number from %1 to %2")
                                 : QLatin1String("a power of two from %1 to %2");
    if (kind == PowerOfTwoOrZero)
        text += QLatin1String(", or 0");
    return text.arg(low).arg(high);
}

} // namespace JEX
