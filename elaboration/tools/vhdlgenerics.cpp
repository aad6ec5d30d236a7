#include "elaboration/tools/vhdlgenerics.h"

#include <QFile>
#include <QRegExp>
#include <QXmlStreamReader>

#include "elaboration/reading/verilatornames.h"

namespace QUARRY {

const char unsetGeneric[] = "64'hfeedfacecafef00d";

namespace {

// "101" of "3'h5" and "1X" of "2'b1x", most significant bit first; empty for what is no such number.
QString bitsOf(const QString &constant)
{
    const QRegExp number(QLatin1String("(\\d+)'s?([hb])([0-9a-fxz?_]+)"));
    if (!number.exactMatch(constant))
        return QString();
    const int each = number.cap(2) == QLatin1String("h") ? 4 : 1;
    QString bits;
    for (const QChar digit : number.cap(3)) {
        bool isNumber = false;
        const int value = QString(digit).toInt(&isNumber, 16);
        if (isNumber)
            bits += QString::number(value, 2).rightJustified(each, QLatin1Char('0'));
        else if (digit != QLatin1Char('_'))
            bits += QString(each, QLatin1Char(digit == QLatin1Char('x') ? 'X' : 'Z'));
    }
    return bits.rightJustified(number.cap(1).toInt(), QLatin1Char('0')).right(number.cap(1).toInt());
}

bool isTwoValued(const QString &bits)
{
    return !bits.isEmpty() && !bits.contains(QLatin1Char('X')) && !bits.contains(QLatin1Char('Z'));
}

// Verilator leaves leading zeros out, also before an unknown bit, which Verilog would then repeat.
QString exact(const QString &constant)
{
    const QString bits = bitsOf(constant);
    return bits.isEmpty() || isTwoValued(bits)
               ? constant
               : QString::number(bits.size()) + QLatin1String("'b") + bits.toLower();
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
    QString text = bits.isEmpty() ? QString() : QString(QLatin1String(""));
    for (int i = 0; i + 8 <= bits.size(); i += 8)
        text += QChar(bits.mid(i, 8).toInt(nullptr, 2));
    return text.remove(QChar(0)); // what Verilog fills up with, and all of its empty text
}

// Null for a value that GHDL does not take.
QString argumentOf(const QString &constant, const QString &type)
{
    const QString bits = bitsOf(constant);
    if (type == QLatin1String("string"))
        return textOf(constant);
    if (type == QLatin1String("boolean") || type == QLatin1String("bit"))
        return !isTwoValued(bits) ? QString()
               : type == QLatin1String("bit")
                   ? QLatin1Char('\'') + bits.right(1) + QLatin1Char('\'')
                   : QString::fromLatin1(bits.contains(QLatin1Char('1')) ? "true" : "false");
    if (type == QLatin1String("std_logic") || type == QLatin1String("std_ulogic"))
        return bits.isEmpty() ? QString() : QLatin1Char('\'') + bits.right(1) + QLatin1Char('\'');
    if (type == QLatin1String("bit_vector"))
        return isTwoValued(bits) ? bits : QString();
    if (isVhdlVector(type))
        return bits;
    return integerOf(constant);
}

} // namespace

bool isVhdlVector(const QString &type)
{
    return type.endsWith(QLatin1String("vector")) || type.endsWith(QLatin1String("signed")) ||
           type.endsWith(QLatin1String("fixed"));
}

QString VhdlGenericSet::condition(const QStringList &parameters) const
{
    QStringList terms;
    for (const QString &parameter : parameters) // as they are, unknown bits and all
        terms.append(QLatin1Char('\\') + parameter + QLatin1String(" === ") +
                     exact(values.value(parameter, QLatin1String(unsetGeneric))));
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
        if (argument.isNull())
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
