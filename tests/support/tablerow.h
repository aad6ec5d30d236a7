#pragma once

#include <QtTest>

// Columns of texts for a test's table.
template <class... Names>
void textColumns(Names... names)
{
    (QTest::addColumn<QString>(names), ...);
}

template <class Value>
auto tableCell(const Value &value)
{
    if constexpr (std::is_convertible_v<Value, QString>)
        return QString(value);
    else
        return value;
}

// One row of a test's table; texts of all kinds become QStrings.
template <class... Values>
void row(const QByteArray &name, const Values &...values)
{
    (QTest::newRow(name.constData()) << ... << tableCell(values));
}
