#include "model/jex/matchvalue.h"

namespace JEX {

namespace {

const char hexDigits[] = "0123456789ABCDEF";
const char bitCharacters[] = "01XRFBN";
enum { DigitBits = 4 };

QString latin(const char *text)
{
    return QString::fromLatin1(text);
}

bool isFunction(int number)
{
    return number >= MatchEqual && number < MatchFunctionCount;
}

QString counted(int count, const char *thing)
{
    return QString::number(count) + latin(" ") + latin(thing) + latin(count == 1 ? "" : "s");
}

// The first character that is not one of these; null when all are.
QChar strayCharacter(const QString &text, const char *taken)
{
    const QString all = latin(taken);
    for (QChar c : text) {
        if (!all.contains(c)) {
            return c;
        }
    }
    return QChar();
}

QString strayFault(const QString &name, QChar stray, const char *taken)
{
    return name + latin(" cannot hold \"") + stray + latin("\": ") + latin(taken);
}

// How many bits the first digit stands for.
int firstDigitBits(int width)
{
    return width % DigitBits ? width % DigitBits : int(DigitBits);
}

int digitValue(QChar digit)
{
    return latin(hexDigits).indexOf(digit);
}

// The digit for up to four bits; null when they are no whole one.
QChar digitFromBits(const QString &bits)
{
    if (bits.count(QLatin1Char('X')) == bits.size()) {
        return QLatin1Char('X');
    }
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
    if (!stray.isNull()) {
        return strayFault(name, stray, "a decimal number has the digits 0 to 9.");
    }
    bool isNumber = false;
    const quint64 number = digits.toULongLong(&isNumber);
    const quint64 limit = width >= TriggerPort::WidthLimit ? ~quint64(0) : (quint64(1) << width) - 1;
    if (isNumber && number <= limit) {
        return QString();
    }
    return digits.isEmpty() ? name + latin(" is empty.")
                            : name + latin(" is larger than ") + QString::number(limit) +
                                  latin(", the largest number of ") + counted(width, "bit") + latin(".");
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
    return isFunction(function) ? latin(matchFunctions[function].name) : QString();
}

QString bitsFault(const QString &bits, int function, int width, const QString &name)
{
    QChar stray = strayCharacter(bits, bitCharacters);
    if (!stray.isNull()) {
        return strayFault(name, stray,
                          comparesNumbers(function) ? "each bit is 0 or 1."
                                                    : "each bit is 0, 1, X (any level), R (rising edge), "
                                                      "F (falling edge), B (either edge) or N (no edge).");
    }
    stray = strayCharacter(bits, "01");
    if (comparesNumbers(function) && !stray.isNull()) {
        return latin("The function \"") + matchFunctionName(function) +
               latin("\" compares numbers and takes no \"") + stray + latin("\": each bit must be 0 or 1.");
    }
    if (bits.size() == width) {
        return QString();
    }
    return name + latin(" has ") + counted(bits.size(), "bit") + latin(", but the trigger port has ") +
           QString::number(width) + latin(".");
}

QString rangeFault(const QString &lower, const QString &upper)
{
    // Of the same length, so that their order as texts is that of the numbers.
    if (lower <= upper) {
        return QString();
    }
    return latin("The lower bound ") + lower + latin(" is above the upper bound ") + upper + latin(".");
}

QString hexFault(const QString &hex, int width, const QString &name)
{
    const QChar stray = strayCharacter(hex, "0123456789ABCDEFX");
    if (!stray.isNull()) {
        return strayFault(name, stray,
                          "each hexadecimal digit is 0 to 9, A to F, or X for bits of any level.");
    }
    const int digits = hexDigitsFor(width);
    if (hex.size() != digits) {
        return name + latin(" has ") + counted(hex.size(), "hexadecimal digit") + latin(", but the ") +
               counted(width, "bit") + latin(" of the trigger port take ") + QString::number(digits) +
               latin(".");
    }
    const int limit = (1 << firstDigitBits(width)) - 1;
    if (width && digitValue(hex.at(0)) > limit) {
        return name + latin(" begins with ") + hex.at(0) + latin(", but its first digit stands for ") +
               counted(firstDigitBits(width), "bit") + latin(" only and is at most ") +
               QString::number(limit) + latin(".");
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
        if (digit.isNull()) {
            return QString();
        }
        hex += digit;
    }
    return hex;
}

QString cleanDigits(const QString &typed)
{
    QString digits;
    for (QChar c : typed) {
        if (!c.isSpace() && c != QLatin1Char('_')) {
            digits += c.toUpper();
        }
    }
    return digits;
}

QString formFault(const QString &digits, ValueForm form, int width, const QString &name)
{
    if (form == HexForm) {
        return hexFault(filledUp(digits, form, width), width, name);
    }
    return form == DecimalForm ? decimalFault(digits, width, name) : QString();
}

QString bitsFromForm(const QString &digits, ValueForm form, int width)
{
    const QString whole = filledUp(digits, form, width);
    if (form == BinaryForm || !formFault(digits, form, width, QString()).isEmpty()) {
        return form == BinaryForm ? whole : QString();
    }
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
    return latin("The value ") + bits +
           latin(form == DecimalForm
                     ? " has no decimal form: each bit must be 0 or 1."
                     : " has no hexadecimal form: the bits of a digit must all be 0 or 1, or all be X.");
}

QString valueName(int function)
{
    return latin(hasUpperValue(function) ? "The lower bound" : "The value");
}

QString upperName()
{
    return latin("The upper bound");
}

QString matchUnitFault(const MatchUnit &unit)
{
    if (!unit.triggerPort) {
        return QString();
    }
    const int width = unit.triggerPort->width();
    if (!width) {
        return latin("Trigger Port ") + QString::number(unit.triggerPort->portNumber) +
               latin(" holds no signals: fill it first, or choose another one.");
    }
    QString fault = bitsFault(unit.value, unit.function, width, valueName(unit.function));
    if (fault.isEmpty() && hasUpperValue(unit.function)) {
        fault = bitsFault(unit.upperValue, unit.function, width, upperName());
    }
    return fault.isEmpty() && hasUpperValue(unit.function) ? rangeFault(unit.value, unit.upperValue) : fault;
}

QString matchValueText(const MatchUnit &unit)
{
    return hasUpperValue(unit.function) ? unit.value + latin(" to ") + unit.upperValue : unit.value;
}

QString portText(const TriggerPort *port)
{
    if (!port) {
        return latin("Not bound");
    }
    return QString::number(port->portNumber) + latin(" (") + counted(port->width(), "bit") + latin(")");
}

QString portTitle(const TriggerPort *port)
{
    return latin(port ? "Trigger Port " : "") + portText(port);
}

} // namespace JEX
