#pragma once

#include <QByteArray>
#include <QString>

#include <string_view>
#include <vector>

namespace QUARRY {

// A word of a VHDL text, a character literal, or one character of punctuation.
struct VhdlWord
{
    std::string_view text; // in lower case but for extended identifiers and characters
    int at = 0;
    int line = 0;

    bool is(const char *word) const { return text == word; }
    bool isName() const;
    int end() const { return at + int(text.size()); }
};

// The words of a text without comments and strings. All refer to this.
class VhdlWords
{
public:
    explicit VhdlWords(const QByteArray &text);

    int count() const { return int(m_words.size()); }
    const VhdlWord &at(int i) const; // an empty one before the first and behind the last
    QString name(int i) const;       // in lower case
    QString spelled(int i) const;
    int end() const { return m_text.size(); }

private:
    void readOne();
    char next() const { return m_at + 1 < m_text.size() ? m_text.at(m_at + 1) : '\0'; }
    int indexOf(char letter, int from) const;
    void skipLines(int end, int closing);
    bool isAttribute() const;
    int endOfWord() const;
    void add(int end);

    const QByteArray m_text, m_lower;
    std::vector<VhdlWord> m_words;
    int m_at = 0;
    int m_line = 1;
};

} // namespace QUARRY
