#pragma once

#include <QByteArray>

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

} // namespace QUARRY
