#pragma once

#include <QString>

namespace JEX {

inline QLatin1String latin(const char *text)
{
    return QLatin1String(text);
}

// The names and words of the format are short and ASCII, and there are a million of them in a large file, so
// they are compared in place.
inline bool isWord(const QStringRef &text, const char *word)
{
    const QChar *c = text.unicode();
    const QChar *const end = c + text.size();
    while (c != end && *word && c->unicode() == uchar(*word)) {
        ++c;
        ++word;
    }
    return c == end && !*word;
}

bool isPowerOfTwo(int value); // not of what is below 1

// The values that a field may hold, and how the ".zub" format spells them.
struct Rule
{
    // How the values are told: by a range of numbers, by words, by the characters of a match value.
    enum Kind { Any, Range, PowerOfTwo, PowerOfTwoOrZero, Words, Bits };

    Kind kind = Any;
    int low = 0; // of Words: the number that the first word stands for
    int high = 0;
    const char *const *words = nullptr;

    // One word for each number from Low to High.
    template <int Low, int High, int Count>
    static constexpr Rule wordsFor(const char *const (&words)[Count])
    {
        static_assert(Count == High - Low + 1, "each value has a word");
        return {Words, Low, High, words};
    }

    bool holds(int value) const;
    bool holds(const QString &text) const;
    QString toText(int value) const;                         // value must hold
    bool fromText(const QStringRef &text, int *value) const; // false: no such word, no number, or not held
    QString description() const;                             // "a number from 0 to 15", for messages
};

} // namespace JEX
