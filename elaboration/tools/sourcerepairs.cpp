#include "elaboration/tools/sourcerepairs.h"

#include <QRegExp>
#include <QStringList>

#include <cstring>

#include "elaboration/tools/verilogassertions.h"
#include "elaboration/tools/veriloglets.h"
#include "elaboration/tools/verilogmodules.h"
#include "elaboration/tools/vhdlgenerates.h"
#include "elaboration/tools/vhdlscan.h"

namespace QUARRY {
namespace {

const char byteOrderMark[] = "\xef\xbb\xbf";
const char xilinxMark[] = "XlxV"; // begins a whole encrypted file: "XlxV64EB"

// "synthesis translate_off": 1 for off, -1 for on, 0 for any other comment.
int switchIn(const QByteArray &comment)
{
    static const QRegExp pattern(
        QLatin1String(
            "(?://|--|/\\*)\\s*(?:(?:synthesis|synopsys|pragma|exemplar|cadence|ambit|altera|quartus|"
            "xilinx|vivado|lattice|gowin|verific)\\s+)?"
            "(?:(?:translate|synthesis|synth)_o(ff|n)|rtl_synthesis\\s+o(ff|n))\\b.*"),
        Qt::CaseInsensitive);
    QRegExp words(pattern);
    if (!comment.contains('_') || !words.exactMatch(QString::fromLatin1(comment.left(512))))
        return 0;
    return (words.cap(1) + words.cap(2)).compare(QLatin1String("ff"), Qt::CaseInsensitive) == 0 ? 1 : -1;
}

bool hideSimulation(QByteArray &text, SourceLanguage language, BlankedNames &)
{
    std::vector<TextRange> hidden;
    int from = -1;
    for (const TextRange &comment : commentsOf(text, language)) {
        const int way = switchIn(text.mid(comment.start, comment.end - comment.start));
        if (way > 0 && from < 0)
            from = comment.end;
        if (way < 0 && from >= 0) {
            hidden.push_back({from, comment.start});
            from = -1;
        }
    }
    if (from >= 0)
        hidden.push_back({from, text.size()});
    for (const TextRange &range : hidden)
        blank(text, range);
    return !hidden.empty();
}

enum Fence { NoFence, OpensEnvelope, ClosesEnvelope, OtherFence };

// "`pragma protect begin_protected", also in a comment; "`protected"; VHDL's "`protect begin_protected".
Fence fenceIn(const QByteArray &line)
{
    static const QRegExp pattern(QLatin1String("\\s*(?://\\s*|--\\s*)?"
                                               "(?:`?pragma\\s+protect\\b|`(end_?)?protect(ed)?\\b)"
                                               "\\s*((?:begin|end)_protected)?.*"));
    if (!line.contains("protect"))
        return NoFence;
    QRegExp words(pattern);
    if (!words.exactMatch(QString::fromLatin1(line.left(512)).toLower()))
        return NoFence;
    const QString attribute = words.cap(3);
    if (attribute.startsWith(QLatin1String("begin")) || (words.cap(1).isEmpty() && !words.cap(2).isEmpty()))
        return OpensEnvelope;
    if (attribute.startsWith(QLatin1String("end")) || !words.cap(2).isEmpty())
        return ClosesEnvelope;
    return OtherFence;
}

int wordCount(const QByteArray &text, const char *words)
{
    return bareText(text, VerilogSource).count(QRegExp(QLatin1String(words)));
}

// Where the envelope took more of a construct than its inside, what is missing takes the envelope's place.
void closeConstruct(QByteArray &text, TextRange envelope, SourceLanguage language)
{
    QByteArray end;
    if (language == VerilogSource &&
        wordCount(text, "\\b(?:macro)?module\\b") > wordCount(text, "\\bendmodule\\b"))
        end = "endmodule";
    const QString before = QString::fromLatin1(text.left(envelope.start)).toLower();
    const QRegExp body(QLatin1String("\\barchitecture\\s+\\w+\\s+of\\s+\\w+\\s+is\\b"));
    const QRegExp ending(QLatin1String("\\s*end\\b.*"), Qt::CaseInsensitive);
    const int opened = language == VhdlSource ? body.lastIndexIn(before) : -1;
    if (opened >= 0 && before.indexOf(QRegExp(QLatin1String("\\bbegin\\b")), opened) < 0 &&
        ending.exactMatch(QString::fromLatin1(text.mid(envelope.end))))
        end = "begin";
    if (text.mid(envelope.start, end.size()).trimmed().isEmpty())
        text.replace(envelope.start, end.size(), end);
}

bool hideEncrypted(QByteArray &text, SourceLanguage language, BlankedNames &)
{
    if (text.startsWith(xilinxMark)) {
        blank(text, {0, text.size()});
        return true;
    }
    std::vector<TextRange> envelopes;
    std::vector<TextRange> others;
    bool isInside = false;
    for (int at = 0; at < text.size();) {
        const int newline = text.indexOf('\n', at);
        const int end = newline < 0 ? text.size() : newline;
        const Fence fence = fenceIn(text.mid(at, end - at));
        if (fence == OpensEnvelope && !isInside)
            envelopes.push_back({at, end});
        isInside = isInside ? fence != ClosesEnvelope : fence == OpensEnvelope;
        if (!envelopes.empty() && (isInside || fence == ClosesEnvelope))
            envelopes.back().end = end;
        else if (fence != NoFence)
            others.push_back({at, end});
        at = end + 1;
    }
    for (const TextRange &range : others)
        blank(text, range);
    for (const TextRange &range : envelopes)
        blank(text, range);
    if (!envelopes.empty())
        closeConstruct(text, envelopes.back(), language);
    return !envelopes.empty() || !others.empty();
}

bool dropByteOrderMark(QByteArray &text, SourceLanguage, BlankedNames &)
{
    if (!text.startsWith(byteOrderMark))
        return false;
    blank(text, {0, 3});
    return true;
}

bool hideAssertions(QByteArray &text, SourceLanguage, BlankedNames &names)
{
    const bool isExpanded = expandLets(text, names);
    return blankAssertions(text, names) || isExpanded;
}

bool hideModules(QByteArray &text, SourceLanguage, BlankedNames &names)
{
    return blankModules(text, names.modules);
}

bool replaceCases(QByteArray &text, SourceLanguage, BlankedNames &)
{
    return replaceCaseGenerates(text);
}

bool splitGenerics(QByteArray &text, SourceLanguage, BlankedNames &)
{
    return splitVhdlGenerics(text);
}

bool replaceInstances(QByteArray &text, SourceLanguage, BlankedNames &names)
{
    return replaceVhdlInstances(text, names.vhdl);
}

bool quoteNames(QByteArray &text, SourceLanguage, BlankedNames &names)
{
    return quoteVhdlNames(text, names.vhdl);
}

bool leaveOutUnits(QByteArray &text, SourceLanguage, BlankedNames &names)
{
    return leaveOutVhdlUnits(text, names.vhdl);
}

struct RepairRow
{
    SourceRepair repair;
    bool forVerilog;
    bool forVhdl;
    const char *beginning; // a text that needs the repair begins with it,
    const char *marks[9];  // or holds one of these
    bool (*apply)(QByteArray &text, SourceLanguage language, BlankedNames &names); // false: nothing to do
    const char
        *words; // the tool's, a pattern, when the repair is for what it refused at a place; null: it is not
};

const char misplacedWord[] =
    "interface declaration expected|an identifier is expected instead of|unexpected token";
const char missingUnit[] = "unit \"\\w+\" not found in library|no declaration for \"";

// In the order in which they are made.
const RepairRow repairs[] = {
    {DropByteOrderMark, false, true, byteOrderMark, {}, dropByteOrderMark, nullptr},
    {HideEncrypted, true, true, xilinxMark, {"protect"}, hideEncrypted, nullptr},
    {HideSimulation, true, true, nullptr, {"translate_o", "synth"}, hideSimulation, nullptr},
    {HideAssertions,
     true,
     false,
     nullptr,
     {"property", "sequence", "cover", "checker", "disable", "let", "expect", "iff", "bind"},
     hideAssertions,
     nullptr},
    {ReplaceCaseGenerates, false, true, nullptr, {"generate"}, replaceCases, nullptr},
    {SplitGenerics, false, true, nullptr, {"generic"}, splitGenerics, nullptr},
    {HideModules, true, false, nullptr, {"module"}, hideModules, nullptr},
    {ReplaceInstances, false, true, nullptr, {}, replaceInstances, missingUnit},
    {QuoteNames, false, true, nullptr, {}, quoteNames, misplacedWord},
    {LeaveOutUnits, false, true, nullptr, {}, leaveOutUnits, ""},
};

bool isNeeded(const RepairRow &row, const QByteArray &text, const QByteArray &searched)
{
    if (row.beginning && text.startsWith(row.beginning))
        return true;
    for (const char *mark : row.marks) {
        if (mark && memmem(searched.constData(), size_t(searched.size()), mark, std::strlen(mark)))
            return true;
    }
    return false;
}

} // namespace

int neededRepairs(const QByteArray &text, SourceLanguage language, int wanted)
{
    const QByteArray searched = language == VhdlSource ? text.toLower() : text;
    int needed = 0;
    for (const RepairRow &row : repairs) {
        const bool isForIt = language == VhdlSource ? row.forVhdl : row.forVerilog;
        if ((wanted & row.repair) && isForIt && isNeeded(row, text, searched))
            needed |= row.repair;
    }
    return needed;
}

int repairsFor(const QString &words, SourceLanguage language)
{
    int repairsFound = 0;
    for (const RepairRow &row : repairs) {
        const bool isForIt = language == VhdlSource ? row.forVhdl : row.forVerilog;
        if (isForIt && row.words && words.contains(QRegExp(QLatin1String(row.words))))
            repairsFound |= row.repair;
    }
    return repairsFound;
}

int repairSource(QByteArray &text, SourceLanguage language, int wanted, BlankedNames &names)
{
    int made = 0;
    for (const RepairRow &row : repairs) {
        if ((wanted & row.repair) && !(made & row.repair) && row.apply(text, language, names))
            made |= row.repair;
    }
    return made;
}

QString unreadableReason(const QByteArray &text)
{
    // "en" without a byte order mark
    const bool isWide = text.size() >= 4 && (text.at(0) == 0) != (text.at(1) == 0) &&
                        (text.at(0) == 0) == (text.at(2) == 0) && (text.at(1) == 0) == (text.at(3) == 0);
    if (isWide || text.startsWith("\xff\xfe") || text.startsWith("\xfe\xff"))
        return QLatin1String("it is written in UTF-16, which no tool reads. Save it as UTF-8");
    return QString();
}

} // namespace QUARRY
