#include "elaboration/tools/verilatorerrors.h"

#include <QRegExp>

namespace QUARRY {

QString missingModule(const ToolMessage &message)
{
    QRegExp missing(QLatin1String("(?:Cannot find file containing module|Can't resolve module reference): "
                                  "'(.*)'"));
    return missing.exactMatch(message.text) ? missing.cap(1) : QString();
}

bool isTypeName(const QString &name)
{
    for (const char *type : {"logic", "bit", "byte", "shortint", "int", "longint", "string", "var"}) {
        if (name == QLatin1String(type))
            return true;
    }
    return false;
}

bool isUnknownTop(const ToolMessage &message)
{
    return message.text.startsWith(QLatin1String("Specified --top-module"));
}

QList<ToolMessage> ofSeverity(const QList<ToolMessage> &messages, ToolMessage::Severity severity)
{
    QList<ToolMessage> chosen;
    for (const ToolMessage &message : messages) {
        if (message.severity == severity)
            chosen.append(message);
    }
    return chosen;
}

bool isEmptyDesign(const QList<ToolMessage> &errors)
{
    return errors.size() == 1 && errors.first().text == QLatin1String("No top level module found");
}

} // namespace QUARRY
