#pragma once

#include <QtTest>

// Columns of a test's table, by their types, and those of texts alone.
template <class... Types, class... Names>
void columns(Names... names)
{
    (QTest::addColumn<Types>(names), ...);
}

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

// A table that a loop goes through: for (const auto &[name, count] : Rows<QString, int>{{"a", 1}, {"b", 2}})
template <class... Values>
using Rows = std::vector<std::tuple<Values...>>;

// A table of one column of texts, in which each row has its text for a name.
inline void textRows(const char *column, const QStringList &texts)
{
    textColumns(column);
    for (const QString &text : texts)
        row(text.toUtf8(), text);
}

// Cells of the row that runs, by the names of their columns: const auto [name, count] = cells<QString,
// int>("name", "count");
template <class... Types, class... Names>
std::tuple<Types...> cells(Names... names)
{
    return {*static_cast<Types *>(QTest::qData(names, qMetaTypeId<Types>()))...};
}

template <class... Names>
std::array<QString, sizeof...(Names)> textCells(Names... names)
{
    return {*static_cast<QString *>(QTest::qData(names, qMetaTypeId<QString>()))...};
}
