#include "elaboration/tools/verilogassertions.h"

#include "elaboration/tools/verilogtokens.h"

namespace QUARRY {
namespace {

// A construct that lasts until a closing word.
const struct
{
    const char *open;
    const char *close;
} blocks[] = {{"property", "endproperty"},
              {"sequence", "endsequence"},
              {"covergroup", "endgroup"},
              {"checker", "endchecker"}};

class AssertionBlanker
{
public:
    AssertionBlanker(QByteArray &text, BlankedNames &names) : m_text(text), m_tokens(text), m_names(names) {}

    bool run()
    {
        for (int i = 0; i < m_tokens.size();)
            i = qMax(i + 1, takeConstruct(i));
        for (int i = 0; m_names.haveUses() && i < m_tokens.size();)
            i = qMax(i + 1, takeUse(i));
        return m_changed;
    }

private:
    // The token behind what was blanked; `i` when nothing was.
    int takeConstruct(int i)
    {
        if (m_tokens.isAny(i, {"assert", "assume", "cover", "restrict"}) &&
            m_tokens.isAny(i + 1, {"property", "sequence"}))
            return hideStatement(i, behindAction(m_tokens.behindParentheses(i + 2)));
        if (m_tokens.is(i, "expect") && m_tokens.is(i + 1, "("))
            return hideStatement(i, behindAction(m_tokens.behindParentheses(i + 1)));
        if (m_tokens.is(i, "default") && m_tokens.is(i + 1, "disable"))
            return hideStatement(i, behindSemicolon(i));
        if (m_tokens.is(i, "iff") && !m_tokens.is(i - 1, "disable"))
            return hideCondition(i);
        if (m_tokens.is(i, "let") && m_tokens.areTogether(i, i + 2) && m_tokens.isAny(i + 2, {"(", "="})) {
            m_names.others.insert(m_tokens.word(i + 1));
            return hideStatement(i, behindSemicolon(i));
        }
        if (m_tokens.is(i, "bind") && isPath(i + 1)) {
            m_names.binds.append(m_tokens.at(i).start);
            return hideStatement(i, behindSemicolon(i));
        }
        for (const auto &block : blocks) {
            if (m_tokens.is(i, block.open))
                return hideBlock(i, block.close, m_unclosed[&block - blocks]);
        }
        return i;
    }

    // "top.u0 probe p(.*);", "leaf : top.u[1].v probe p(.*);"
    bool isPath(int i) const
    {
        while (m_tokens.isName(i) && !m_tokens.is(i, "bind") && m_tokens.isAny(i + 1, {":", ","}))
            i += 2;
        return m_tokens.isAny(i + 1, {".", "["});
    }

    // "@(posedge clk iff enable or negedge reset)": which nets there are does not depend on it.
    int hideCondition(int i)
    {
        int end = i + 1;
        while (m_tokens.areTogether(i, end) && !m_tokens.isAny(end, {")", ",", "or", ";"}))
            end = m_tokens.is(end, "(") ? m_tokens.behindParentheses(end) : end + 1;
        hide(i, end);
        return end;
    }

    int takeUse(int i)
    {
        if (m_tokens.is(i, "bind"))
            return takeBind(i);
        if (isCheckerInstance(i))
            return hideStatement(isQualified(i) ? i - 3 : i, behindSemicolon(i));
        return usesGroup(i) ? hideStatement(i, behindSemicolon(i)) : i;
    }

    // "cg cg0 = new();", "cg0 = new;", "cg0.sample();"
    bool usesGroup(int i)
    {
        if (m_names.groups.contains(m_tokens.word(i)) && m_tokens.isAny(i + 2, {"=", ";", "["})) {
            m_objects.insert(m_tokens.word(i + 1));
            return true;
        }
        return m_objects.contains(m_tokens.word(i)) &&
               ((m_tokens.is(i + 1, "=") && m_tokens.is(i + 2, "new")) || m_tokens.is(i + 1, "."));
    }

    // "once c0(clk, a);", "checks::once c0[3:0](.*);"
    bool isCheckerInstance(int i) const
    {
        return m_names.checkers.contains(m_tokens.word(i)) && m_tokens.isName(i + 1) &&
               m_tokens.isAny(i + 2, {"(", "["});
    }

    bool isQualified(int i) const
    {
        return i > 2 && m_tokens.is(i - 1, ":") && m_tokens.is(i - 2, ":") && m_tokens.isName(i - 3);
    }

    // "bind top once c0(clk, a);", "bind top : u0, u1 once c0(clk, a);"
    int takeBind(int i)
    {
        const int end = behindSemicolon(i);
        for (int at = i + 1; at < end; ++at) {
            if (isCheckerInstance(at))
                return hideStatement(i, end);
        }
        return end;
    }

    // There is no closing word in front of `unclosed`.
    int hideBlock(int i, const char *close, int &unclosed)
    {
        if (i < unclosed)
            return i;
        int end = i;
        while (end < m_tokens.size() && m_tokens.areTogether(i, end) && !m_tokens.is(end, close))
            ++end;
        if (!m_tokens.is(end, close) || !m_tokens.areTogether(i, end)) {
            unclosed = end;
            return i; // a name, in a file that is no SystemVerilog
        }
        QSet<QByteArray> &names = m_tokens.is(i, "covergroup") ? m_names.groups
                                  : m_tokens.is(i, "checker")  ? m_names.checkers
                                                               : m_names.others;
        names.insert(m_tokens.word(i + 1));
        end += m_tokens.is(end + 1, ":") ? 3 : 1;
        hide(i, end);
        return end;
    }

    // With its label. One that ends otherwise than by a semicolon gets one, as far as it is whole.
    int hideStatement(int i, int end)
    {
        end = qMin(end, m_tokens.size());
        if (end <= i)
            return i;
        const bool isLabelled = i > 1 && m_tokens.is(i - 1, ":") && m_tokens.areTogether(i - 2, i) &&
                                m_tokens.isName(i - 2) && !m_tokens.is(i - 2, "default");
        const bool isWhole = m_tokens.isAny(end - 1, {";", "end"}) || m_tokens.at(i).define == 0;
        hide(isLabelled ? i - 2 : i, end);
        if (isWhole)
            m_text[m_tokens.at(end - 1).start] = ';';
        return end;
    }

    void hide(int from, int end)
    {
        end = qMin(end, m_tokens.size());
        blank(m_text, {m_tokens.at(from).start, m_tokens.at(end - 1).end});
        m_changed = true;
    }

    int behindSemicolon(int i) const
    {
        int end = i;
        while (m_tokens.areTogether(i, end) && !m_tokens.is(end, ";"))
            ++end;
        return m_tokens.areTogether(i, end) ? end + 1 : end;
    }

    // "else $error;", "begin ... end else begin ... end" or a lone semicolon
    int behindAction(int i) const
    {
        int end = m_tokens.is(i, "else") ? i : behindStatement(i);
        if (end < m_tokens.size() && m_tokens.is(end, "else") && m_tokens.areTogether(i - 1, end))
            end = behindStatement(end + 1);
        return end;
    }

    // An "else" belongs to the innermost "if". They are counted: a source may nest them without end.
    int behindStatement(int i) const
    {
        for (int ifs = 0;; ++i) {
            for (; m_tokens.is(i, "if") && m_tokens.areTogether(i - 1, i); ++ifs)
                i = m_tokens.behindParentheses(i + 1);
            i = behindPlainStatement(i);
            if (ifs-- == 0 || !m_tokens.is(i, "else"))
                return i;
        }
    }

    int behindPlainStatement(int i) const
    {
        if (i >= m_tokens.size() || !m_tokens.areTogether(i - 1, i))
            return i;
        if (m_tokens.isAny(i, {"begin", "fork"}))
            return behindBlock(i);
        if (m_tokens.word(i).startsWith('`')) { // a macro call, which may hold its own semicolon
            const int end = m_tokens.is(i + 1, "(") ? m_tokens.behindParentheses(i + 1) : i + 1;
            return m_tokens.is(end, ";") && m_tokens.areTogether(i, end) ? end + 1 : end;
        }
        return behindSemicolon(i);
    }

    int behindBlock(int i) const
    {
        int depth = 0;
        int at = i;
        for (; m_tokens.areTogether(i, at); ++at) {
            depth += m_tokens.isAny(at, {"begin", "fork", "case", "casez", "casex"}) ? 1 : 0;
            depth -= m_tokens.isAny(at, {"end", "join", "join_any", "join_none", "endcase"}) ? 1 : 0;
            if (depth == 0)
                return m_tokens.is(at + 1, ":") ? at + 3 : at + 1;
        }
        return at;
    }

    QByteArray &m_text;
    const VerilogTokens m_tokens;
    BlankedNames &m_names;
    QSet<QByteArray> m_objects; // made of covergroups
    int m_unclosed[sizeof blocks / sizeof *blocks] = {};
    bool m_changed = false;
};

} // namespace

bool blankAssertions(QByteArray &systemVerilog, BlankedNames &names)
{
    return AssertionBlanker(systemVerilog, names).run();
}

} // namespace QUARRY
