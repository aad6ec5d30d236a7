#include "elaboration/tools/verilogtokens.h"

#include <cctype>
#include <cstring>

namespace QUARRY {
namespace {

bool isLetter(char c)
{
    return std::isalnum(uchar(c)) || c == '_' || c == '$';
}

} // namespace

VerilogTokens::VerilogTokens(const QByteArray &text) : m_text(withoutComments(text, VerilogSource))
{
    for (int at = 0; at < m_text.size();)
        at = take(at);
}

QByteArray VerilogTokens::word(int i) const
{
    return i < 0 || i >= size() ? QByteArray() : m_text.mid(at(i).start, at(i).end - at(i).start);
}

bool VerilogTokens::is(int i, const char *word) const
{
    if (i < 0 || i >= size())
        return *word == 0;
    const size_t length = size_t(at(i).end - at(i).start);
    return std::strlen(word) == length && std::memcmp(m_text.constData() + at(i).start, word, length) == 0;
}

bool VerilogTokens::isName(int i) const
{
    const char c = i < 0 || i >= size() ? ' ' : m_text.at(at(i).start);
    return std::isalpha(uchar(c)) || c == '_' || c == '\\';
}

bool VerilogTokens::isAny(int i, std::initializer_list<const char *> words) const
{
    for (const char *word : words) {
        if (is(i, word))
            return true;
    }
    return false;
}

int VerilogTokens::behindParentheses(int i, int most) const
{
    int depth = 0;
    int at = i;
    for (; areTogether(i, at) && at - i < most; ++at) {
        depth += isAny(at, {"(", "[", "{"}) ? 1 : isAny(at, {")", "]", "}"}) ? -1 : 0;
        if (depth <= 0)
            return at + 1;
    }
    return at;
}

int VerilogTokens::take(int at)
{
    const char c = m_text.at(at);
    if (c == '\n' && (at == 0 || m_text.at(at - 1) != '\\'))
        m_define = 0;
    if (c == '"')
        return behindString(at);
    if (!isLetter(c) && c != '`' && c != '\\')
        return std::isspace(uchar(c)) ? at + 1 : add(at, at + 1);
    int end = at + 1;
    if (c == '\\') { // an escaped name ends at a blank; in front of a line end it is no name
        while (end < m_text.size() && !std::isspace(uchar(m_text.at(end))))
            ++end;
    } else {
        while (end < m_text.size() && isLetter(m_text.at(end)))
            ++end;
    }
    if (c == '\\' && end == at + 1)
        return end;
    if (c == '`' && m_text.mid(at, end - at) == "`define")
        m_define = ++m_defines;
    return add(at, end);
}

int VerilogTokens::add(int start, int end)
{
    m_tokens.push_back({start, end, m_define});
    return end;
}

int VerilogTokens::behindString(int at) const
{
    for (++at; at < m_text.size() && m_text.at(at) != '"' && m_text.at(at) != '\n'; ++at)
        at += m_text.at(at) == '\\' ? 1 : 0;
    return at < m_text.size() && m_text.at(at) == '"' ? at + 1 : at;
}

} // namespace QUARRY
