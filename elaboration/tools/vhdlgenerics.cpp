#include "elaboration/tools/vhdlgenerics.h"

#include <QFile>
#include <QRegExp>
#include <QXmlStreamReader>

#include "elaboration/reading/verilatornames.h"

namespace QUARRY {

const char unsetGeneric[] = "64'hfeedfacecafef00d";

namespace {

// "101" of "3'h5", most significant bit first; empty for what is no such number.
QString bitsOf(const QString &constant)
{
    const QRegExp number(QLatin1String("(\\d+)'s?h([0-9a-f]+)"));
    if (!number.exactMatch(constant))
        return QString();
    QString bits;
    for (const QChar digit : number.cap(2))
        bits += QString::number(QString(digit).toInt(nullptr, 16), 2).rightJustified(4, QLatin1Char('0'));
    return bits.rightJustified(number.cap(1).toInt(), QLatin1Char('0')).right(number.cap(1).toInt());
}

// Numbers without a width have 32 bits, and may be negative.
QString integerOf(const QString &constant)
{
    const QString bits = bitsOf(constant);
    bool ok = false;
    const qulonglong number = bits.toULongLong(&ok, 2);
    if (!ok)
        return QString();
    return bits.size() == 32 ? QString::number(qint32(quint32(number))) : QString::number(number);
}

QString textOf(const QString &constant)
{
    const QString bits = bitsOf(constant);
    QString text;
    for (int i = 0; i + 8 <= bits.size(); i += 8)
        text += QChar(bits.mid(i, 8).toInt(nullptr, 2));
    return text;
}

// Empty for a value that GHDL does not take.
QString argumentOf(const QString &constant, const QString &type)
{
    const QString bits = bitsOf(constant);
    if (type == QLatin1String("string"))
        return textOf(constant);
    if (type == QLatin1String("boolean") || type == QLatin1String("bit"))
        return bits.isEmpty() ? QString()
               : type == QLatin1String("bit")
                   ? QLatin1Char('\'') + bits.right(1) + QLatin1Char('\'')
                   : QString::fromLatin1(bits.contains(QLatin1Char('1')) ? "true" : "false");
    if (type == QLatin1String("std_logic") || type == QLatin1String("std_ulogic"))
        return bits.isEmpty() ? QString() : QLatin1Char('\'') + bits.right(1) + QLatin1Char('\'');
    if (type.endsWith(QLatin1String("vector")) || type == QLatin1String("unsigned") ||
        type == QLatin1String("signed"))
        return bits;
    return integerOf(constant);
}

} // namespace

QString VhdlGenericSet::condition(const QStringList &parameters) const
{
    QStringList terms;
    for (const QString &parameter : parameters)
        terms.append(QLatin1Char('\\') + parameter + QLatin1String(" == ") +
                     values.value(parameter, QLatin1String(unsetGeneric)));
    return terms.join(QLatin1String(" && "));
}

QStringList VhdlGenericSet::arguments(const VhdlGenericList &generics, QStringList &unknown) const
{
    QStringList result;
    for (auto value = values.begin(); value != values.end(); ++value) {
        QString argument;
        for (const QPair<QString, QString> &generic : generics) {
            if (generic.first == value.key().toLower())
                argument = argumentOf(value.value(), generic.second);
        }
        if (argument.isEmpty())
            unknown.append(value.key());
        else
            result.append(value.key().toLower() + QLatin1Char('=') + argument);
    }
    return result;
}

QMap<QString, QList<VhdlGenericSet>> readVhdlGenerics(const QString &xmlFile, const QStringList &standIns)
{
    QMap<QString, QList<VhdlGenericSet>> found;
    QFile file(xmlFile);
    if (!file.open(QIODevice::ReadOnly))
        return found;
    QXmlStreamReader xml(&file);
    QString module, parameter;
    while (!xml.atEnd()) {
        const QXmlStreamReader::TokenType token = xml.readNext();
        const auto attribute = [&xml](const char *name) {
            return xml.attributes().value(QLatin1String(name)).toString();
        };
        if (token == QXmlStreamReader::EndElement && xml.name() == QLatin1String("module"))
            module.clear();
        if (token == QXmlStreamReader::EndElement && xml.name() == QLatin1String("var"))
            parameter.clear();
        if (token != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("module")) {
            module = decodedVerilatorName(attribute("origName").toUtf8().constData());
            if (standIns.contains(module))
                found[module].append(VhdlGenericSet());
            else
                module.clear();
        } else if (!module.isEmpty() && xml.name() == QLatin1String("var") && !attribute("param").isEmpty()) {
            parameter = decodedVerilatorName(attribute("origName").toUtf8().constData());
        } else if (!parameter.isEmpty() && xml.name() == QLatin1String("const")) {
            if (attribute("name") != QLatin1String(unsetGeneric))
                found[module].last().values.insert(parameter, attribute("name"));
        }
    }
    return found;
}

} // namespace QUARRY
