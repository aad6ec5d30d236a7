#include "elaboration/tools/sourcetext.h"

#include <QRegExp>

#include "host/regularfile.h"

namespace QUARRY {
namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

// Behind the string, or VHDL's \extended "name\, that begins at `at`. One that does not end ends with its
// line.
int behindString(const QByteArray &text, int at, SourceLanguage language)
{
    const char quote = text.at(at);
    for (++at; at < text.size() && text.at(at) != quote && text.at(at) != '\n'; ++at) {
        if (language == VerilogSource && text.at(at) == '\\')
            ++at;
    }
    return at + 1;
}

// Behind the escaped name, `\two"quotes `, or the sign behind a backslash.
int behindEscape(const QByteArray &text, int at)
{
    for (++at; at < text.size() && !isBlank(text.at(at));)
        ++at;
    return at + 1;
}

int behindComment(const QByteArray &text, int at)
{
    const bool isBlock = text.at(at + 1) == '*';
    const int end = isBlock ? text.indexOf("*/", at + 2) : text.indexOf('\n', at);
    return end < 0 ? text.size() : end + (isBlock ? 2 : 0);
}

} // namespace

QByteArray sourceOf(const QString &path)
{
    const qint64 limit = 512 * QUtil::MiB;
    QByteArray source;
    QString reason;
    return QUtil::readRegularFile(path, limit, &source, &reason) ? source : QByteArray();
}

std::vector<TextRange> commentsOf(const QByteArray &text, SourceLanguage language)
{
    std::vector<TextRange> comments;
    const char *const bytes = text.constData(); // which ends with a zero
    for (int at = 0; at < text.size();) {
        const char c = bytes[at];
        const char next = bytes[at + 1];
        const bool isLine = language == VerilogSource ? c == '/' && next == '/' : c == '-' && next == '-';
        if (isLine || (c == '/' && next == '*')) {
            const int end = behindComment(text, at);
            comments.push_back({at, end});
            at = end;
        } else if (c == '"') {
            at = behindString(text, at, language);
        } else if (c == '\'' && language == VhdlSource && next == '"' && bytes[at + 2] == '\'') {
            at += 3;
        } else if (c == '\\') {
            at = language == VerilogSource ? behindEscape(text, at) : behindString(text, at, language);
        } else {
            ++at;
        }
    }
    return comments;
}

void blank(QByteArray &text, TextRange range)
{
    char *const bytes = text.data();
    for (int at = range.start; at < qMin(range.end, text.size()); ++at) {
        const char next = bytes[at + 1];
        const bool joinsLines = bytes[at] == '\\' && (next == '\n' || next == '\r');
        if (bytes[at] != '\n' && bytes[at] != '\r' && !joinsLines)
            bytes[at] = ' ';
    }
}

QByteArray withoutComments(QByteArray text, SourceLanguage language)
{
    for (const TextRange &comment : commentsOf(text, language))
        blank(text, comment);
    return text;
}

QString bareText(const QByteArray &source, SourceLanguage language)
{
    return QString::fromLatin1(withoutComments(source, language));
}

void collectWords(const QString &text, const char *pattern, QSet<QString> &words)
{
    QRegExp word((QLatin1String(pattern)));
    for (int at = word.indexIn(text); at >= 0; at = word.indexIn(text, at + word.matchedLength()))
        words.insert(word.cap(word.captureCount()));
}

} // namespace QUARRY
