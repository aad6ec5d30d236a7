#pragma once

#include <QHash>
#include <QString>
#include <QVariant>

#include "model/jex/zubfields.h"

class QWidget;

namespace JEX {

// The widgets of a form that show one field of a record each, and nothing else: which one says the property
// "field" of a widget, by the name in the record's table. A flag has a check box; a number has a spin box, or
// a combo box whose items have the numbers as data.

QHash<QString, QWidget *> fieldWidgets(const QWidget *form); // by the names of their fields
void showValue(QWidget *widget, const QVariant &value);      // a number that is not offered changes nothing
QVariant shownValue(const QWidget *widget);

// Lets every change of those with a field of that kind reach the form's signal modified().
void reportFields(QWidget *form, FieldKind kind);

// In the order of the table: some boxes fill those of later fields.
template <class Record>
void showFields(const QWidget *form, const Record &record)
{
    const QHash<QString, QWidget *> widgets = fieldWidgets(form);
    for (const Field<Record> &field : fieldsOf<Record>()) {
        if (QWidget *widget = widgets.value(QLatin1String(field.name))) {
            const bool isFlag = field.kind == FlagField;
            showValue(widget, isFlag ? QVariant(record.*field.flag) : QVariant(field.numberOf(record)));
        }
    }
}

template <class Record>
void collectFields(const QWidget *form, Record *record)
{
    const QHash<QString, QWidget *> widgets = fieldWidgets(form);
    for (const Field<Record> &field : fieldsOf<Record>()) {
        const QWidget *widget = widgets.value(QLatin1String(field.name));
        if (widget && field.kind == FlagField)
            record->*field.flag = shownValue(widget).toBool();
        else if (widget)
            record->*field.number = shownValue(widget).toInt();
    }
}

} // namespace JEX
