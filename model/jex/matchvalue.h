#pragma once

#include <QString>

#include "model/jex/core.h"

namespace JEX {

// The rules for the value that a match unit compares its port with, on plain values.
//
// A value has one character for each bit of the port, in the order of TriggerPort::singleSignals(): 0 and 1,
// X (any level), and the edges R (rising), F (falling), B (either) and N (none). A function that compares
// numbers takes 0 and 1 only, the most significant first; both bounds of a range are in it.
//
// A fault is a finished sentence about what is wrong, empty when nothing is. `name` begins it: "The value".

bool isBitText(const QString &text); // only these characters, whatever the function
bool comparesNumbers(int function);
bool hasUpperValue(int function);        // the second bound of a range
QString matchFunctionName(int function); // "Not equal"; empty for a number that stands for none

QString bitsFault(const QString &bits, int function, int width, const QString &name);
QString rangeFault(const QString &lower, const QString &upper); // of bounds that are right by themselves

// Hexadecimal: a digit stands for four bits, the first one for those that are left over. X is a digit all of
// whose bits are X.
QString hexFault(const QString &hex, int width, const QString &name);
QString bitsFromHex(const QString &hex, int width); // hex must be without fault
QString hexFromBits(const QString &bits);           // empty when a digit would not be whole

// How a value is entered. A number that is shorter than the port is filled up with zeros in front.
enum ValueForm { BinaryForm, HexForm, DecimalForm };
QString formFault(const QString &digits, ValueForm form, int width,
                  const QString &name);                                 // of the digits alone
QString bitsFromForm(const QString &digits, ValueForm form, int width); // empty when the digits are at fault
QString bitsInForm(const QString &bits, ValueForm form);                // empty when it has no such form
QString noFormFault(const QString &bits, ValueForm form);               // the sentence for that

// What a user typed, in upper case and without the blanks and underscores that group digits.
QString cleanDigits(const QString &typed);

// What the value of a unit with this function is called in its faults.
QString valueName(int function);
QString upperName();
// The fault of a unit as it stands; a unit that is not bound has none.
QString matchUnitFault(const MatchUnit &unit);
// "0X1R", or "0010 to 0111" of a range.
QString matchValueText(const MatchUnit &unit);
QString portText(const TriggerPort *port);  // "2 (1 bit)", or "Not bound" for null
QString portTitle(const TriggerPort *port); // "Trigger Port 2 (1 bit)", likewise

} // namespace JEX
