#pragma once

#include <QByteArray>
#include <QString>

namespace QUARRY {

// Verilator writes characters that C++ identifiers cannot hold as "__0" and two hexadecimal digits, and
// its own separators as "__DOT__", "__BRA__" and "__KET__". Gives the name as the user wrote it.
QString decodedVerilatorName(const char *name);

// Verilator writes each byte of a letter beyond ASCII as a character of its own, "&#195;&#164;". Joins them
// in the whole text.
void joinLetters(QByteArray &xml);

// True for a name that Verilator made up, as `origName` has it.
bool isVerilatorOwnName(const char *origName);

// Verilator replaces the tail of a name of more than 127 characters by a hash.
bool isHashedVerilatorName(const char *name);

// "g" of "g[3]".
QString scopeBaseName(const QString &scope);

// The scope "g[1]" as Verilator writes it in front of the names of what it holds: "g__BRA__1__KET__".
std::string verilatorPathPart(QByteArray name);

} // namespace QUARRY
