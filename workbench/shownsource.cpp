#include "workbench/shownsource.h"

#include <QCoreApplication>
#include <QDir>

#include "host/regularfile.h"

namespace Workbench {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Workbench::ShownSource)
};

const qint64 sizeLimit = 8 * QUtil::MiB;
const int colourLimit = 1 << 20; // letters
const int longColoured = 1000;   // letters of a line: finding colours takes more for each, the more there are
const int lineLimit = 4000;      // letters that are shown of a line
const int mostLines = 300000;    // that are shown: each takes the widget memory and time

// What the widget takes for a line's end and the tools do not, or for no letter at all.
bool endsNoLine(QChar letter)
{
    const ushort code = letter.unicode();
    return code == '\r' || code == 0x2028 || code == 0x2029 || code == 0xfdd0 || code == 0xfdd1;
}

bool cutEnd(QString &text)
{
    int end = -1;
    for (int line = 0; line < mostLines; ++line) {
        end = text.indexOf('\n', end + 1);
        if (end < 0)
            return false;
    }
    const bool isCut = end + 1 < text.size();
    text.truncate(isCut ? end : text.size());
    return isCut;
}

bool hasLongLine(const QString &text)
{
    int from = 0, end = 0;
    for (; (end = text.indexOf('\n', from)) >= 0; from = end + 1) {
        if (end - from > longColoured)
            return true;
    }
    return text.size() - from > longColoured;
}

bool cutLines(QString &text)
{
    QString cut;
    bool isCut = false;
    int from = 0;
    while (from < text.size()) {
        const int end = text.indexOf('\n', from) < 0 ? text.size() : text.indexOf('\n', from);
        const bool isLong = end - from > lineLimit;
        cut += text.midRef(from, isLong ? lineLimit : end - from);
        isCut = isCut || isLong;
        if (end < text.size())
            cut += '\n';
        from = end + 1;
    }
    text = cut;
    return isCut;
}

} // namespace

ShownSource readShownSource(const QString &path)
{
    ShownSource source;
    QByteArray bytes;
    QString reason;
    const QString shown = QDir::toNativeSeparators(path);
    if (!QUtil::readRegularFile(path, sizeLimit, &bytes, &reason)) {
        source.notice = Texts::tr("Can not show %1: %2.").arg(shown, reason);
        return source;
    }
    if (bytes.contains('\0')) {
        source.notice = Texts::tr("%1 is a binary file, which is not shown.").arg(shown);
        return source;
    }
    source.text = QString::fromUtf8(bytes);
    if (source.text.contains(QChar::ReplacementCharacter))
        source.text = QString::fromLatin1(bytes);
    source.text.replace("\r\n", "\n");
    for (QChar &letter : source.text) {
        if (endsNoLine(letter))
            letter = ' ';
    }
    source.isLarge = source.text.size() > colourLimit || hasLongLine(source.text);
    QStringList notices;
    if (cutEnd(source.text))
        notices << Texts::tr("The first %1 lines are shown.").arg(mostLines);
    if (cutLines(source.text))
        notices << Texts::tr("Lines are shown up to their first %1 letters.").arg(lineLimit);
    source.notice = notices.join(' ');
    return source;
}

} // namespace Workbench
