#pragma once

#include <QString>

#include <string_view>

namespace QUARRY {

// One line of the syntax tree that GHDL writes: a node, a member that is a node, or one that is a value.
//   signal_declaration "s" [1360]
//     subtype_type_mark: simple_name "std_logic_vector" [1362]
//     left_limit_expr: integer_literal [1363] 7
//     location: entity.vhd:7:64
// Members stand two columns right of their node. A node that was written before is only named again: it
// has none then. Refers to the line.
struct GhdlTreeLine
{
    explicit GhdlTreeLine(std::string_view line);
    bool isOf(std::string_view kinds) const; // the kind ends so

    size_t depth = 0;
    std::string_view role;             // of a member
    std::string_view kind, name, rest; // of a node; rest: "7"
    std::string_view value;            // all behind the role
    int id = 0;
};

// Whether anything in that tree refers to that name, in small letters; the place of the first that does:
// "file:line:column" as GHDL saw it.
bool findGhdlName(const char *name, const QString &treeFile, QString &place);

// Where in the text a place of GHDL's is, whose lines and columns count from 1, and whose tabulators end at
// every eighth column; at most the size of the text.
int ghdlOffset(const QByteArray &text, int line, int column);

int ghdlNumber(std::string_view digits);

} // namespace QUARRY
