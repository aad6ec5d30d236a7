#include "model/jex/matchvalue.h"

#include <QCoreApplication>

namespace JEX {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(JEX::MatchValue)
};

const char hexDigits[] = "0123456789ABCDEF";
const char bitCharacters[] = "01XRFBN";
enum { DigitBits = 4 };

bool isFunction(int number)
{
    return number >= MatchEqual && number < MatchFunctionCount;
}

QString countedBits(int count)
{
    return count == 1 ? Texts::tr("1 bit") : Texts::tr("%1 bits").arg(count);
}

// The first character that is not one of these; null when all are.
QChar strayCharacter(const QString &text, const char *taken)
{
    const QString all = QString::fromLatin1(taken);
    for (QChar c : text) {
        if (!all.contains(c))
            return c;
    }
    return QChar();
}

QString strayFault(const QString &name, QChar stray, const QString &taken)
{
    return Texts::tr("%1 cannot hold \"%2\": %3").arg(name, QString(stray), taken);
}

// How many bits the first digit stands for.
int firstDigitBits(int width)
{
    return width % DigitBits ? width % DigitBits : int(DigitBits);
}

int digitValue(QChar digit)
{
    return QString::fromLatin1(hexDigits).indexOf(digit);
}

// The digit for up to four bits; null when they are no whole one.
QChar digitFromBits(const QString &bits)
{
    if (bits.count(QLatin1Char('X')) == bits.size())
        return QLatin1Char('X');
    bool isNumber = false;
    const int value = bits.toInt(&isNumber, 2);
    return isNumber ? QLatin1Char(hexDigits[value]) : QChar();
}

int hexDigitsFor(int width)
{
    return (width + DigitBits - 1) / DigitBits;
}

QString filledUp(const QString &digits, ValueForm form, int width)
{
    const bool isNumber =
        !digits.isEmpty() && strayCharacter(digits, form == BinaryForm ? "01" : hexDigits).isNull();
    return isNumber
               ? digits.rightJustified(form == BinaryForm ? width : hexDigitsFor(width), QLatin1Char('0'))
               : digits;
}

QString decimalFault(const QString &digits, int width, const QString &name)
{
    const QChar stray = strayCharacter(digits, "0123456789");
    if (!stray.isNull())
        return strayFault(name, stray, Texts::tr("a decimal number has the digits 0 to 9."));
    bool isNumber = false;
    const quint64 number = digits.toULongLong(&isNumber);
    const quint64 limit = width >= TriggerPort::WidthLimit ? ~quint64(0) : (quint64(1) << width) - 1;
    if (isNumber && number <= limit)
        return QString();
    return digits.isEmpty() ? Texts::tr("%1 is empty.").arg(name)
                            : Texts::tr("%1 is larger than %2, the largest number of %3.")
                                  .arg(name, QString::number(limit), countedBits(width));
}

} // namespace

bool isBitText(const QString &text)
{
    return strayCharacter(text, bitCharacters).isNull();
}

bool comparesNumbers(int function)
{
    return isFunction(function) && matchFunctions[function].comparesNumbers;
}

bool hasUpperValue(int function)
{
    return isFunction(function) && matchFunctions[function].hasUpper;
}

QString matchFunctionName(int function)
{
    return isFunction(function)
               ? QCoreApplication::translate("JEX::MatchFunction", matchFunctions[function].name)
               : QString();
}

QString bitsFault(const QString &bits, int function, int width, const QString &name)
{
    QChar stray = strayCharacter(bits, bitCharacters);
    if (!stray.isNull()) {
        return strayFault(name, stray,
                          comparesNumbers(function)
                              ? Texts::tr("each bit is 0 or 1.")
                              : Texts::tr("each bit is 0, 1, X (any level), R (rising edge), "
                                          "F (falling edge), B (either edge) or N (no edge)."));
    }
    stray = strayCharacter(bits, "01");
    if (comparesNumbers(function) && !stray.isNull()) {
        return Texts::tr("The function \"%1\" compares numbers and takes no \"%2\": each bit must be 0 or 1.")
            .arg(matchFunctionName(function), QString(stray));
    }
    if (bits.size() == width)
        return QString();
    return Texts::tr("%1 has %2, but the trigger port has %3.")
        .arg(name, countedBits(bits.size()), QString::number(width));
}

QString rangeFault(const QString &lower, const QString &upper)
{
    // Of the same length, so that their order as texts is that of the numbers.
    if (lower <= upper)
        return QString();
    return Texts::tr("The lower bound %1 is above the upper bound %2.").arg(lower, upper);
}

QString hexFault(const QString &hex, int width, const QString &name)
{
    const QChar stray = strayCharacter(hex, "0123456789ABCDEFX");
    if (!stray.isNull()) {
        return strayFault(name, stray,
                          Texts::tr("each hexadecimal digit is 0 to 9, A to F, or X for bits of any level."));
    }
    const int digits = hexDigitsFor(width);
    if (hex.size() != digits) {
        const QString has = hex.size() == 1 ? Texts::tr("1 hexadecimal digit")
                                            : Texts::tr("%1 hexadecimal digits").arg(hex.size());
        return Texts::tr("%1 has %2, but the %3 of the trigger port take %4.")
            .arg(name, has, countedBits(width), QString::number(digits));
    }
    const int limit = (1 << firstDigitBits(width)) - 1;
    if (width && digitValue(hex.at(0)) > limit) {
        return Texts::tr("%1 begins with %2, but its first digit stands for %3 only and is at most %4.")
            .arg(name, QString(hex.at(0)), countedBits(firstDigitBits(width)), QString::number(limit));
    }
    return QString();
}

QString bitsFromHex(const QString &hex, int width)
{
    QString bits;
    for (int i = 0; i < hex.size(); ++i) {
        const int size = i ? int(DigitBits) : firstDigitBits(width);
        const int value = digitValue(hex.at(i));
        bits += value < 0 ? QString(size, QLatin1Char('X'))
                          : QString::fromLatin1("%1").arg(value, size, 2, QLatin1Char('0'));
    }
    return bits;
}

QString hexFromBits(const QString &bits)
{
    QString hex;
    int size = firstDigitBits(bits.size());
    for (int at = 0; at < bits.size(); at += size, size = DigitBits) {
        const QChar digit = digitFromBits(bits.mid(at, size));
        if (digit.isNull())
            return QString();
        hex += digit;
    }
    return hex;
}

QString cleanDigits(const QString &typed)
{
    QString digits;
    for (QChar c : typed) {
        if (!c.isSpace() && c != QLatin1Char('_'))
            digits += c.toUpper();
    }
    return digits;
}

QString formFault(const QString &digits, ValueForm form, int width, const QString &name)
{
    if (form == HexForm)
        return hexFault(filledUp(digits, form, width), width, name);
    return form == DecimalForm ? decimalFault(digits, width, name) : QString();
}

QString bitsFromForm(const QString &digits, ValueForm form, int width)
{
    const QString whole = filledUp(digits, form, width);
    if (form == BinaryForm || !formFault(digits, form, width, QString()).isEmpty())
        return form == BinaryForm ? whole : QString();
    return form == HexForm ? bitsFromHex(whole, width)
                           : QString::number(digits.toULongLong(), 2).rightJustified(width, QLatin1Char('0'));
}

QString bitsInForm(const QString &bits, ValueForm form)
{
    if (form == DecimalForm) {
        bool isNumber = false;
        const quint64 number = bits.toULongLong(&isNumber, 2);
        return isNumber ? QString::number(number) : QString();
    }
    return form == HexForm ? hexFromBits(bits) : bits;
}

QString noFormFault(const QString &bits, ValueForm form)
{
    return (form == DecimalForm ? Texts::tr("The value %1 has no decimal form: each bit must be 0 or 1.")
                                : Texts::tr("The value %1 has no hexadecimal form: the bits of a digit "
                                            "must all be 0 or 1, or all be X."))
        .arg(bits);
}

QString valueName(int function)
{
    return hasUpperValue(function) ? Texts::tr("The lower bound") : Texts::tr("The value");
}

QString upperName()
{
    return Texts::tr("The upper bound");
}

QString matchUnitFault(const MatchUnit &unit)
{
    if (!unit.triggerPort)
        return QString();
    const int width = unit.triggerPort->width();
    if (!width) {
        return Texts::tr("Trigger Port %1 holds no signals: fill it first, or choose another one.")
            .arg(unit.triggerPort->portNumber);
    }
    QString fault = bitsFault(unit.value, unit.function, width, valueName(unit.function));
    if (fault.isEmpty() && hasUpperValue(unit.function))
        fault = bitsFault(unit.upperValue, unit.function, width, upperName());
    return fault.isEmpty() && hasUpperValue(unit.function) ? rangeFault(unit.value, unit.upperValue) : fault;
}

QString matchValueText(const MatchUnit &unit)
{
    return hasUpperValue(unit.function) ? Texts::tr("%1 to %2").arg(unit.value, unit.upperValue) : unit.value;
}

QString portText(const TriggerPort *port)
{
    if (!port)
        return Texts::tr("Not bound");
    return Texts::tr("%1 (%2)").arg(QString::number(port->portNumber), countedBits(port->width()));
}

QString portTitle(const TriggerPort *port)
{
    return port ? Texts::tr("Trigger Port %1").arg(portText(port)) : portText(port);
}

} // namespace JEX
