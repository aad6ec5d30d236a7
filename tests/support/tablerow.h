#pragma once

#include <QtTest>

// Columns of texts for a test's table.
template <class... Names>
void textColumns(Names... names)
{
    (QTest::addColumn<QString>(names), ...);
}

inline QString tableCell(const char *text)
{
    return QString::fromUtf8(text);
}

template <class Value>
const Value &tableCell(const Value &value)
{
    return value;
}

// One row of a test's table; literals become QStrings.
template <class... Values>
void row(const char *name, const Values &...values)
{
    (QTest::newRow(name) << ... << tableCell(values));
}
