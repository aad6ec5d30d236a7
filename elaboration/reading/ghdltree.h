#pragma once

#include <QString>

namespace QUARRY {

// Whether anything refers to that name, in small letters, in the syntax tree that "ghdl -s -ds" prints; the
// place of the first that does: "file:line:column" as GHDL saw it.
bool findGhdlName(const char *name, const QString &treeFile, QString &place);

// Where in the text a place of GHDL's is, whose lines and columns count from 1, and whose tabulators end at
// every eighth column; at most the size of the text.
int ghdlOffset(const QByteArray &text, int line, int column);

} // namespace QUARRY
