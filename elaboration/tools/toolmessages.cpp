#include "elaboration/tools/toolmessages.h"

#include <QDir>
#include <QRegExp>

#include "elaboration/tools/safenames.h"

namespace QUARRY {
namespace {

// Takes "file:line:column: " off the front of the text. The names handed over have no blanks.
void takePlace(ToolMessage &message)
{
    QRegExp place(QLatin1String("^([^ ]*):(\\d+):(\\d+): ?(.*)$"));
    if (!place.exactMatch(message.text))
        return;
    message.file = place.cap(1);
    message.line = place.cap(2).toInt();
    message.column = place.cap(3).toInt();
    message.text = place.cap(4).trimmed();
}

// "Exiting due to 2 error(s)" and the hints that only repeat what a message says already.
bool isNoise(const ToolMessage &message)
{
    return message.text.startsWith(QLatin1String("Exiting due to")) ||
           message.text.startsWith(QLatin1String("This may be because there's no search path"));
}

} // namespace

QList<ToolMessage> parseVerilatorMessages(const QByteArray &output)
{
    QList<ToolMessage> messages;
    const QRegExp head(QLatin1String("^%(Error|Warning)(-([A-Z0-9_]+))?: (.*)$"));
    for (const QByteArray &raw : output.split('\n')) {
        const QString line = QString::fromUtf8(raw);
        QRegExp match(head);
        if (match.exactMatch(line)) {
            ToolMessage message;
            message.severity =
                match.cap(1) == QLatin1String("Error") ? ToolMessage::Error : ToolMessage::Warning;
            message.code = match.cap(3);
            message.text = match.cap(4);
            takePlace(message);
            messages.append(message);
        } else if (!messages.isEmpty() && line.contains(QLatin1String("... "))) {
            messages.last().notes.append(line.section(QLatin1String("... "), 1).trimmed());
        }
    }
    for (int i = messages.size() - 1; i >= 0; --i) {
        if (isNoise(messages.at(i)))
            messages.removeAt(i);
    }
    return messages;
}

QList<ToolMessage> parseGhdlMessages(const QByteArray &output)
{
    QList<ToolMessage> messages;
    QRegExp itself(QLatin1String("(?:.*/)?ghdl[^ :/]*: ?(.*)"));
    for (const QByteArray &raw : output.split('\n')) {
        ToolMessage message;
        message.text = QString::fromUtf8(raw);
        QRegExp place(QLatin1String("^([^ ]*):(\\d+):(\\d+):(warning|note|error)?:? ?(.*)$"));
        if (place.exactMatch(message.text)) {
            if (place.cap(4) == QLatin1String("note"))
                continue;
            message.file = place.cap(1);
            message.line = place.cap(2).toInt();
            message.column = place.cap(3).toInt();
            message.severity =
                place.cap(4) == QLatin1String("warning") ? ToolMessage::Warning : ToolMessage::Error;
            message.text = place.cap(5).trimmed();
        } else if (itself.exactMatch(message.text)) {
            message.text = itself.cap(1).trimmed();
            if (message.text.startsWith(QLatin1String("warning")))
                message.severity = ToolMessage::Warning;
        } else {
            continue;
        }
        messages.append(message);
    }
    return messages;
}

QString realFile(const ToolMessage &message, const SafeNames &names, const QString &workingDir)
{
    if (message.file.isEmpty())
        return QString();
    return names.real(QDir::cleanPath(QDir(workingDir).absoluteFilePath(message.file)));
}

QString messageText(const ToolMessage &message, const SafeNames &names, const QString &workingDir)
{
    QString text = QLatin1String(message.severity == ToolMessage::Error ? "ERROR: " : "WARNING: ");
    const QString file = realFile(message, names, workingDir);
    if (!file.isEmpty())
        text += file + QLatin1Char(':') + QString::number(message.line) + QLatin1String(": ");
    return text + message.text;
}

} // namespace QUARRY
