#pragma once

#include <QList>
#include <QString>

#include "cli/json.h"
#include "model/jex/zubfields.h"

namespace Cli {

// What jex prints of the fields of a record, by their table.

// By the words of the ".zub" format; null for no port.
template <class Record>
Json valueOf(const JEX::Field<Record> &field, const Record &record)
{
    if (field.kind == JEX::TextField)
        return QUtil::toUtf8(record.*field.text);
    if (field.kind == JEX::FlagField)
        return record.*field.flag;
    const int number = field.numberOf(record);
    if (field.kind == JEX::PortField && number < 0)
        return nullptr;
    return field.rule.kind == JEX::Rule::Words ? Json(QUtil::toUtf8(field.rule.toText(number)))
                                               : Json(number);
}

// Without quotes around a text.
inline QString valueText(const Json &value)
{
    return value.is_string() ? QUtil::fromUtf8(value.get<std::string>()) : QUtil::fromUtf8(value.dump());
}

// All fields, by their names.
template <class Record>
Json fieldsJson(const Record &record)
{
    Json json;
    for (const JEX::Field<Record> &field : JEX::fieldsOf<Record>())
        json[field.name] = valueOf(field, record);
    return json;
}

// The fields that are columns of a table of such records. Texts come last, since they have any length.
template <class Record>
QList<JEX::Field<Record>> columnsOf()
{
    QList<JEX::Field<Record>> columns, texts;
    for (const JEX::Field<Record> &field : JEX::fieldsOf<Record>()) {
        if (field.isColumn)
            (field.kind == JEX::TextField ? texts : columns) << field;
    }
    return columns + texts;
}

template <class Record>
QString cellText(const JEX::Field<Record> &field, const Record &record)
{
    if (field.kind == JEX::FlagField)
        return record.*field.flag ? field.on : field.off;
    const Json value = valueOf(field, record);
    return value.is_null() ? QString(field.off) : field.before + valueText(value);
}

} // namespace Cli
