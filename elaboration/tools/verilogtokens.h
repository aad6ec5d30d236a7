#pragma once

#include "elaboration/tools/sourcetext.h"

#include <initializer_list>
#include <limits>

namespace QUARRY {

// The words of a Verilog source, its `directives and single signs; strings and comments are none of them.
// Places are those of the text, which is kept without its comments.
class VerilogTokens
{
public:
    struct Token
    {
        int start;
        int end;
        int define; // number of the macro in whose text it stands; 0: in none
    };

    explicit VerilogTokens(const QByteArray &text);

    int size() const { return int(m_tokens.size()); }
    const Token &at(int i) const { return m_tokens[size_t(i)]; }
    const QByteArray &text() const { return m_text; }
    QByteArray word(int i) const; // empty in front of the first and behind the last one
    bool is(int i, const char *word) const;
    bool isName(int i) const; // or a keyword
    bool isAny(int i, std::initializer_list<const char *> words) const;
    // Whether both stand in the same macro, or in none: no construct goes on behind its end.
    bool areTogether(int i, int j) const { return j < size() && at(i).define == at(j).define; }
    // Behind the parenthesis that closes the one at `i`; when none does, the end of the text or macro, or of
    // as many tokens as are looked at.
    int behindParentheses(int i, int most = std::numeric_limits<int>::max()) const;

private:
    int take(int at);
    int add(int start, int end);
    int behindString(int at) const;

    QByteArray m_text;
    std::vector<Token> m_tokens;
    int m_define = 0;
    int m_defines = 0;
};

} // namespace QUARRY
