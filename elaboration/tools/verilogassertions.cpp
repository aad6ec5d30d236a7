#include "elaboration/tools/verilogassertions.h"

#include <QSet>

#include <cctype>
#include <cstring>

#include "elaboration/tools/sourcetext.h"

namespace QUARRY {
namespace {

// A word, `directive or single sign; strings, numbers and comments are none of them.
struct Token
{
    int start;
    int end;
    int define; // number of the macro in whose text it stands; 0: in none
};

bool isLetter(char c)
{
    return std::isalnum(uchar(c)) || c == '_' || c == '$';
}

class Tokens
{
public:
    explicit Tokens(const QByteArray &text) : m_text(withoutComments(text, VerilogSource))
    {
        for (int at = 0; at < m_text.size();)
            at = take(at);
    }

    int size() const { return int(m_tokens.size()); }
    const Token &at(int i) const { return m_tokens[size_t(i)]; }
    QByteArray word(int i) const
    {
        return i < 0 || i >= size() ? QByteArray() : m_text.mid(at(i).start, at(i).end - at(i).start);
    }
    bool is(int i, const char *text) const
    {
        if (i < 0 || i >= size())
            return *text == 0;
        const size_t length = size_t(at(i).end - at(i).start);
        return std::strncmp(m_text.constData() + at(i).start, text, length) == 0 && text[length] == 0;
    }
    // Whether both stand in the same macro, or in none: no construct goes on behind its end.
    bool areTogether(int i, int j) const { return j < size() && at(i).define == at(j).define; }

private:
    int take(int at)
    {
        const char c = m_text.at(at);
        if (c == '\n' && (at == 0 || m_text.at(at - 1) != '\\'))
            m_define = 0;
        if (c == '"')
            return behindString(at);
        if (!isLetter(c) && c != '`' && c != '\\')
            return std::isspace(uchar(c)) ? at + 1 : add(at, at + 1);
        int end = at + 1;
        if (c == '\\') // an escaped name ends at a blank; in front of a line end it is no name
            while (end < m_text.size() && !std::isspace(uchar(m_text.at(end))))
                ++end;
        else
            while (end < m_text.size() && isLetter(m_text.at(end)))
                ++end;
        if (c == '\\' && end == at + 1)
            return end;
        if (c == '`' && m_text.mid(at, end - at) == "`define")
            m_define = ++m_defines;
        return add(at, end);
    }

    int add(int start, int end)
    {
        m_tokens.push_back({start, end, m_define});
        return end;
    }

    int behindString(int at) const
    {
        for (++at; at < m_text.size() && m_text.at(at) != '"' && m_text.at(at) != '\n'; ++at)
            at += m_text.at(at) == '\\' ? 1 : 0;
        return at < m_text.size() && m_text.at(at) == '"' ? at + 1 : at;
    }

    QByteArray m_text;
    std::vector<Token> m_tokens;
    int m_define = 0;
    int m_defines = 0;
};

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
    explicit AssertionBlanker(QByteArray &text) : m_text(text), m_tokens(text) {}

    bool run()
    {
        for (int i = 0; i < m_tokens.size();)
            i = qMax(i + 1, takeConstruct(i));
        for (int i = 0; !m_groups.isEmpty() && i < m_tokens.size();)
            i = qMax(i + 1, takeUse(i));
        return m_changed;
    }

private:
    // The token behind what was blanked; `i` when nothing was.
    int takeConstruct(int i)
    {
        if (isWord(i, {"assert", "assume", "cover", "restrict"}) && isWord(i + 1, {"property", "sequence"}))
            return hideStatement(i, behindAction(behindParentheses(i + 2)));
        if (m_tokens.is(i, "expect") && m_tokens.is(i + 1, "("))
            return hideStatement(i, behindAction(behindParentheses(i + 1)));
        if (m_tokens.is(i, "default") && m_tokens.is(i + 1, "disable"))
            return hideStatement(i, behindSemicolon(i));
        if (m_tokens.is(i, "let") && m_tokens.areTogether(i, i + 2) && isWord(i + 2, {"(", "="}))
            return hideStatement(i, behindSemicolon(i));
        for (const auto &block : blocks) {
            if (m_tokens.is(i, block.open))
                return hideBlock(i, block.close, m_unclosed[&block - blocks]);
        }
        return i;
    }

    // What uses a covergroup: "cg cg0 = new();", "cg0 = new;", "cg0.sample();"
    int takeUse(int i)
    {
        const bool declares = m_groups.contains(m_tokens.word(i)) && isWord(i + 2, {"=", ";", "["});
        if (declares)
            m_objects.insert(m_tokens.word(i + 1));
        else if (!m_objects.contains(m_tokens.word(i)) ||
                 !((m_tokens.is(i + 1, "=") && m_tokens.is(i + 2, "new")) || m_tokens.is(i + 1, ".")))
            return i;
        return hideStatement(i, behindSemicolon(i));
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
        if (m_tokens.is(i, "covergroup"))
            m_groups.insert(m_tokens.word(i + 1));
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
                                isLetter(m_tokens.word(i - 2).at(0)) && !m_tokens.is(i - 2, "default");
        const bool isWhole = isWord(end - 1, {";", "end"}) || m_tokens.at(i).define == 0;
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

    bool isWord(int i, std::initializer_list<const char *> words) const
    {
        for (const char *word : words) {
            if (m_tokens.is(i, word))
                return true;
        }
        return false;
    }

    int behindSemicolon(int i) const
    {
        int end = i;
        while (m_tokens.areTogether(i, end) && !m_tokens.is(end, ";"))
            ++end;
        return m_tokens.areTogether(i, end) ? end + 1 : end;
    }

    // Behind the parenthesis that closes the one at `i`; the end of the text or macro when none does.
    int behindParentheses(int i) const
    {
        int depth = 0;
        int at = i;
        for (; m_tokens.areTogether(i, at); ++at) {
            depth += isWord(at, {"(", "[", "{"}) ? 1 : isWord(at, {")", "]", "}"}) ? -1 : 0;
            if (depth <= 0)
                return at + 1;
        }
        return at;
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
                i = behindParentheses(i + 1);
            i = behindPlainStatement(i);
            if (ifs-- == 0 || !m_tokens.is(i, "else"))
                return i;
        }
    }

    int behindPlainStatement(int i) const
    {
        if (i >= m_tokens.size() || !m_tokens.areTogether(i - 1, i))
            return i;
        if (isWord(i, {"begin", "fork"}))
            return behindBlock(i);
        if (m_tokens.word(i).startsWith('`')) { // a macro call, which may hold its own semicolon
            const int end = m_tokens.is(i + 1, "(") ? behindParentheses(i + 1) : i + 1;
            return m_tokens.is(end, ";") && m_tokens.areTogether(i, end) ? end + 1 : end;
        }
        return behindSemicolon(i);
    }

    int behindBlock(int i) const
    {
        int depth = 0;
        int at = i;
        for (; m_tokens.areTogether(i, at); ++at) {
            depth += isWord(at, {"begin", "fork", "case", "casez", "casex"}) ? 1 : 0;
            depth -= isWord(at, {"end", "join", "join_any", "join_none", "endcase"}) ? 1 : 0;
            if (depth == 0)
                return m_tokens.is(at + 1, ":") ? at + 3 : at + 1;
        }
        return at;
    }

    QByteArray &m_text;
    const Tokens m_tokens;
    QSet<QByteArray> m_groups;  // names of covergroups
    QSet<QByteArray> m_objects; // and of what is made of them
    int m_unclosed[sizeof blocks / sizeof *blocks] = {};
    bool m_changed = false;
};

} // namespace

bool blankAssertions(QByteArray &systemVerilog)
{
    return AssertionBlanker(systemVerilog).run();
}

} // namespace QUARRY
