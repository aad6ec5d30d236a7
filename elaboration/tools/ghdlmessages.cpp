#include "elaboration/tools/ghdlmessages.h"

#include <QRegExp>

namespace QUARRY {

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

} // namespace QUARRY
