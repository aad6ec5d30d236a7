#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

namespace QUARRY {

// Reading and mending the lines of the Verilog that GHDL writes: one port, wire or pin a line, escaped names
// closed by a blank. All in UTF-8, and in one pass over each line, since such a text may be large.

// A name or keyword in a line; what stands in literals, text and comments is none.
struct GhdlWord
{
    size_t begin = 0;
    size_t end = 0;
    std::string_view name; // without the backslash of an escaped one
    bool isFirst = false;  // in its line, where keywords stand
    bool isPin = false;    // ".name("
};

class GhdlWords
{
public:
    explicit GhdlWords(std::string_view line) : m_line(line) {}
    bool next(GhdlWord &word); // false: there are no more

private:
    void skipText();
    std::string_view m_line;
    size_t m_at = 0;
    bool m_anyBefore = false; // a word
};

// Names, without backslashes, to what stands for them in the text, "n1_o" or "\buf ".
using GhdlRenames = std::unordered_map<std::string, std::string>;

// The words of the line, but for the first and for pins, under their new names.
std::string renamedGhdlLine(std::string_view line, const GhdlRenames &renames);
// Pins of that instance under new names.
std::string renamedGhdlPin(std::string_view line, const GhdlRenames &renames);

// The extended identifier u2_\o[1]\ becomes the escaped name \u2_o[1] with its closing blank. A value of no
// width, "0'b", which Verilog does not have, becomes one of one bit.
std::string readableGhdlLine(std::string_view line);

std::string escapedGhdlName(std::string_view name);
bool isVerilogKeyword(std::string_view word); // that may be a name in VHDL

std::string_view ghdlDeclaredName(std::string_view line); // of a port, wire or register, or empty
std::string_view ghdlSignal(std::string_view line);       // "s" of "  assign s = n5_o; // (signal)", or empty

} // namespace QUARRY
