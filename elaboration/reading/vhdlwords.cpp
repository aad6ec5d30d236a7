#include "elaboration/reading/vhdlwords.h"

namespace QUARRY {
namespace {

bool isLetter(char letter)
{
    const auto code = static_cast<unsigned char>(letter);
    return (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9') ||
           code == '_' || code >= 0x80;
}

} // namespace

bool VhdlWord::isName() const
{
    return !text.empty() && (isLetter(text[0]) || text[0] == '\\');
}

VhdlWords::VhdlWords(const QByteArray &text) : m_text(text), m_lower(text.toLower())
{
    while (m_at < m_text.size())
        readOne();
}

const VhdlWord &VhdlWords::at(int i) const
{
    static const VhdlWord none;
    return i >= 0 && i < count() ? m_words[size_t(i)] : none;
}

QString VhdlWords::name(int i) const
{
    return QString::fromLatin1(at(i).text.data(), int(at(i).text.size()));
}

QString VhdlWords::spelled(int i) const
{
    return QString::fromLatin1(m_text.constData() + at(i).at, int(at(i).text.size()));
}

void VhdlWords::readOne()
{
    const char letter = m_text.at(m_at);
    if (letter == '\n')
        ++m_line;
    if (letter == '-' && next() == '-')
        m_at = indexOf('\n', m_at);
    else if (letter == '/' && next() == '*')
        skipLines(m_text.indexOf("*/", m_at + 2), 2);
    else if (letter == '"')
        skipLines(m_text.indexOf('"', m_at + 1), 1);
    else if (letter == '\'' && m_at + 2 < m_text.size() && m_text.at(m_at + 2) == '\'' && !isAttribute())
        add(m_at + 3);
    else if (letter == '\\')
        add(indexOf('\\', m_at + 1) + 1);
    else if (isLetter(letter))
        add(endOfWord());
    else if (letter > ' ')
        add(m_at + 1);
    else
        ++m_at;
}

int VhdlWords::indexOf(char letter, int from) const
{
    const int found = m_text.indexOf(letter, from);
    return found < 0 ? m_text.size() : found;
}

void VhdlWords::skipLines(int end, int closing)
{
    end = end < 0 ? m_text.size() : end + closing;
    for (; m_at < end; ++m_at)
        m_line += m_text.at(m_at) == '\n' ? 1 : 0;
}

bool VhdlWords::isAttribute() const // "x'('1')", "x'a"
{
    return !m_words.empty() && m_words.back().end() == m_at &&
           (m_words.back().isName() || m_words.back().is(")"));
}

int VhdlWords::endOfWord() const
{
    int end = m_at;
    while (end < m_text.size() && isLetter(m_text.at(end)))
        ++end;
    return end;
}

void VhdlWords::add(int end)
{
    end = qMin(end, m_text.size());
    const bool isVerbatim = m_text.at(m_at) == '\\' || end - m_at == 3;
    const char *text = (isVerbatim && !isLetter(m_text.at(m_at)) ? m_text : m_lower).constData();
    m_words.push_back({std::string_view(text + m_at, size_t(end - m_at)), m_at, m_line});
    m_at = end;
}

} // namespace QUARRY
