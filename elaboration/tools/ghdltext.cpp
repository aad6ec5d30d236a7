#include "elaboration/tools/ghdltext.h"

#include <algorithm>
#include <unordered_set>

namespace QUARRY {
namespace {

bool isNameLetter(char letter)
{
    const auto code = static_cast<unsigned char>(letter);
    return (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9') ||
           code == '_' || code >= 0x80;
}

bool isDigit(char letter)
{
    return letter >= '0' && letter <= '9';
}

size_t endOfLetters(std::string_view line, size_t at)
{
    while (at < line.size() && isNameLetter(line[at]))
        ++at;
    return at;
}

std::string_view wordOf(std::string_view line, const GhdlWord &word)
{
    return line.substr(word.begin, word.end - word.begin);
}

bool endsWith(std::string_view line, std::string_view end)
{
    return line.size() >= end.size() && line.substr(line.size() - end.size()) == end;
}

std::string renamed(std::string_view line, const GhdlRenames &renames, bool pins)
{
    std::string result;
    size_t copied = 0;
    GhdlWords words(line);
    for (GhdlWord word; words.next(word);) {
        const bool isEdge = word.begin > 1 && line.substr(word.begin - 2, 2) == "@(";
        if (word.isPin != pins || ((word.isFirst || isEdge) && !pins))
            continue;
        const auto found = renames.find(std::string(word.name));
        if (found == renames.end())
            continue;
        result.append(line, copied, word.begin - copied);
        result += found->second;
        copied = word.end;
    }
    return result.append(line, copied, std::string_view::npos);
}

} // namespace

bool GhdlWords::next(GhdlWord &word)
{
    skipText();
    if (m_at >= m_line.size())
        return false;
    const bool isEscaped = m_line[m_at] == '\\';
    word.begin = m_at;
    m_at = isEscaped ? m_line.find(' ', m_at) : endOfLetters(m_line, m_at);
    m_at = std::min(m_at, m_line.size());
    word.end = m_at;
    word.name = m_line.substr(word.begin + (isEscaped ? 1 : 0), word.end - word.begin - (isEscaped ? 1 : 0));
    word.isPin = word.begin > 0 && m_line[word.begin - 1] == '.';
    word.isFirst = !m_anyBefore;
    m_anyBefore = true;
    return true;
}

// Over everything that no name begins with: 8'hA5 is a number, and so is the 3 of [3:0].
void GhdlWords::skipText()
{
    while (m_at < m_line.size() && m_line[m_at] != '\\') {
        const char letter = m_line[m_at];
        if (letter == '/' && m_line.substr(m_at, 2) == "//")
            m_at = m_line.size();
        else if (letter == '"')
            m_at = std::min(m_line.find('"', m_at + 1), m_line.size() - 1) + 1;
        else if (letter == '\'' || isDigit(letter))
            m_at = endOfLetters(m_line, m_at + 1);
        else if (isNameLetter(letter))
            return;
        else
            ++m_at;
    }
}

std::string renamedGhdlLine(std::string_view line, const GhdlRenames &renames)
{
    return renamed(line, renames, false);
}

std::string renamedGhdlPin(std::string_view line, const GhdlRenames &renames)
{
    return renamed(line, renames, true);
}

std::string readableGhdlLine(std::string_view line)
{
    std::string result;
    for (size_t at = 0; at < line.size();) {
        std::string name; // may be made of several, plain and extended: \my u\_q
        bool isExtended = false;
        const size_t start = at;
        // VHDL has names of Latin letters, too, and Verilog none.
        const auto isForeign = [&] { return (line[at] & 0x80) != 0; };
        while (at < line.size() && (isNameLetter(line[at]) || line[at] == '\\' || isForeign())) {
            const size_t end = line[at] == '\\' ? line.find('\\', at + 1) : at;
            if (end == std::string_view::npos)
                break;
            for (const char letter : end > at ? line.substr(at + 1, end - at - 1) : line.substr(at, 1))
                name += letter == ' ' ? '_' : letter;
            isExtended = isExtended || end > at || isForeign();
            at = end + 1;
        }
        if (at == start && line[at] == '"') {
            const size_t end = std::min(line.find('"', at + 1), line.size() - 1) + 1;
            result += line.substr(at, end - at);
            at = end;
        } else if (name == "0" && line.substr(at, 2) == "'b") {
            result += "1'bX";
            at = endOfLetters(line, at + 2);
        } else if (isExtended) {
            result += escapedGhdlName(name);
        } else if (at > start) {
            result += name;
        } else {
            result += line[at++];
        }
    }
    return result;
}

std::string escapedGhdlName(std::string_view name)
{
    return '\\' + std::string(name) + ' ';
}

bool isVerilogKeyword(std::string_view word)
{
    static const std::unordered_set<std::string_view> keywords{
        "always",     "and",        "assign",      "automatic", "begin",       "buf",         "case",
        "cell",       "config",     "deassign",    "default",   "defparam",    "design",      "disable",
        "edge",       "else",       "end",         "endmodule", "event",       "for",         "force",
        "forever",    "fork",       "function",    "generate",  "genvar",      "if",          "initial",
        "inout",      "input",      "instance",    "integer",   "join",        "large",       "liblist",
        "library",    "localparam", "macromodule", "medium",    "module",      "nand",        "negedge",
        "nor",        "not",        "or",          "output",    "parameter",   "posedge",     "primitive",
        "pulldown",   "pullup",     "real",        "realtime",  "reg",         "release",     "repeat",
        "scalared",   "signed",     "small",       "specify",   "specparam",   "strong0",     "strong1",
        "supply0",    "supply1",    "table",       "task",      "time",        "tran",        "tri",
        "tri0",       "tri1",       "triand",      "trior",     "trireg",      "unsigned",    "use",
        "vectored",   "wait",       "wand",        "weak0",     "weak1",       "while",       "wire",
        "wor",        "xnor",       "xor",         "bufif0",    "bufif1",      "cmos",        "nmos",
        "pmos",       "rcmos",      "rnmos",       "rpmos",     "notif0",      "notif1",      "casex",
        "casez",      "endcase",    "endtask",     "endtable",  "endfunction", "endgenerate", "endprimitive",
        "endspecify", "highz0",     "highz1",      "pull0",     "pull1",       "rtran",       "rtranif0",
        "rtranif1",   "tranif0",    "tranif1",     "ifnone",    "incdir",      "include",     "uwire"};
    return keywords.count(word) > 0;
}

std::string_view ghdlDeclaredName(std::string_view line)
{
    GhdlWords words(line);
    GhdlWord word;
    if (!words.next(word) || word.isPin)
        return std::string_view();
    const std::string_view kind = wordOf(line, word);
    const bool isDeclaration = kind == "input" || kind == "output" || kind == "inout" || kind == "wire" ||
                               kind == "reg" || kind == "localparam";
    return isDeclaration && words.next(word) ? word.name : std::string_view();
}

std::string_view ghdlSignal(std::string_view line)
{
    const std::string_view assign = "  assign ";
    GhdlWords words(line);
    GhdlWord word;
    const bool isSignal = line.substr(0, assign.size()) == assign && endsWith(line, "// (signal)") &&
                          words.next(word) && words.next(word);
    return isSignal ? word.name : std::string_view();
}

} // namespace QUARRY
