#include "host/variable.h"

#include <QRegExp>

namespace Core {

QString Variable::fault() const
{
    return QString::fromLatin1("the environment variable \"%1\" is not set.").arg(name);
}

bool readVariable(const QString &text, int at, Variable &variable)
{
    QRegExp form(QLatin1String("\\$(?:(\\w+)|\\{(\\w+)\\}|\\((\\w+)\\))"));
    if (form.indexIn(text, at, QRegExp::CaretAtOffset) != at)
        return false;
    variable.name = form.cap(1) + form.cap(2) + form.cap(3);
    const QByteArray value = qgetenv(variable.name.toLocal8Bit().constData());
    variable.isSet = !value.isNull();
    variable.value = QString::fromLocal8Bit(value);
    variable.length = form.matchedLength();
    return true;
}

bool putVariables(QString &text, QString &fault)
{
    for (int at = text.indexOf(QLatin1Char('$')); at >= 0; at = text.indexOf(QLatin1Char('$'), at)) {
        Variable variable;
        if (!readVariable(text, at, variable)) {
            ++at;
            continue;
        }
        if (!variable.isSet) {
            fault = variable.fault();
            return false;
        }
        text.replace(at, variable.length, variable.value);
        at += variable.value.size();
    }
    return true;
}

} // namespace Core
