#pragma once

#include <QByteArray>
#include <QSet>
#include <QString>

#include <vector>

namespace QUARRY {

enum SourceLanguage { VerilogSource, VhdlSource };

// The bytes of a source; empty when it cannot be read: the tools say why.
QByteArray sourceOf(const QString &path);

// Of a text, the part from `start` up to `end`.
struct TextRange
{
    int start;
    int end;
};

// All comments of a source, in order, with the signs that open and close them; the end of a line is no part
// of one. What stands in a string or an escaped name is no comment.
std::vector<TextRange> commentsOf(const QByteArray &text, SourceLanguage language);

// Overwrites a part of the text with blanks. Line ends stay, and so does a backslash in front of one: the
// lines of a macro hang together by it.
void blank(QByteArray &text, TextRange range);

// The text with blanks in place of its comments.
QByteArray withoutComments(QByteArray text, SourceLanguage language);

// The same as a text of as many letters as the source has bytes.
QString bareText(const QByteArray &source, SourceLanguage language);

// Adds what the last bracket of a pattern holds, wherever it is found.
void collectWords(const QString &text, const char *pattern, QSet<QString> &words);

} // namespace QUARRY
