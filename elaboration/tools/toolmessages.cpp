#include "elaboration/tools/toolmessages.h"

#include <QCoreApplication>
#include <QHash>
#include <QRegExp>

#include "elaboration/tools/safenames.h"
#include "host/absolutepath.h"

namespace QUARRY {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(QUARRY::ToolMessage)
};

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

// "                 t.v:1:8: ... Location of original declaration"
void takeOtherPlace(const QString &line, ToolMessage &message)
{
    QRegExp place(QLatin1String("\\s*([^ ]*):(\\d+):\\d+: \\.\\.\\. Location of original declaration.*"));
    if (!place.exactMatch(line))
        return;
    message.otherFile = place.cap(1);
    message.otherLine = place.cap(2).toInt();
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
            takeOtherPlace(line, messages.last());
            messages.last().notes.append(line.section(QLatin1String("... "), 1).trimmed());
        }
    }
    for (int i = messages.size() - 1; i >= 0; --i) {
        if (isNoise(messages.at(i)))
            messages.removeAt(i);
    }
    return messages;
}

QList<ToolMessage> folded(const QList<ToolMessage> &messages)
{
    const auto isFolded = [](const ToolMessage &message) {
        return message.severity == ToolMessage::Warning && !message.otherLine;
    };
    QHash<QString, int> counts;
    for (const ToolMessage &message : messages)
        counts[message.text] += isFolded(message) ? 1 : 0;
    QList<ToolMessage> once;
    for (ToolMessage message : messages) {
        const int count = isFolded(message) ? counts.take(message.text) : 1;
        if (count > 1)
            message.text += QLatin1Char(' ') + Texts::tr("(%1 times)").arg(count);
        if (count > 0)
            once.append(message);
    }
    return once;
}

namespace {

QString real(const QString &file, const SafeNames &names, const QString &workingDir)
{
    return file.isEmpty() ? file : names.real(QUtil::absoluteIn(workingDir, file));
}

} // namespace

QString realFile(const ToolMessage &message, const SafeNames &names, const QString &workingDir)
{
    return real(message.file, names, workingDir);
}

QString messageText(const ToolMessage &message, const SafeNames &names, const QString &workingDir)
{
    QString text = QLatin1String(message.severity == ToolMessage::Error ? "ERROR: " : "WARNING: ");
    const QString file = realFile(message, names, workingDir);
    if (!file.isEmpty())
        text += file + QLatin1Char(':') + QString::number(message.line) + QLatin1String(": ");
    QRegExp twice(QLatin1String("Duplicate declaration of module: '(.*)'"));
    if (!message.otherLine || !twice.exactMatch(message.text))
        return text + message.text;
    return text + Texts::tr("Module %1 is declared a second time. What %2:%3 declares is used.")
                      .arg(twice.cap(1), real(message.otherFile, names, workingDir),
                           QString::number(message.otherLine));
}

} // namespace QUARRY
