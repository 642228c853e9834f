#pragma once

#include <QtTest>

/// The columns of a table of test data, by type and name, and what adds a row to it:
/// const auto row = columns<int, QString>({"mode", "text"}); row("charge", 1, "Charge");
template <typename... Types>
auto columns(const char *const (&names)[sizeof...(Types)])
{
    const char *const *name = names;
    (QTest::addColumn<Types>(*name++), ...);
    return [](const char *row, const Types &...values) { (QTest::newRow(row) << ... << values); };
}

/// The same, where the first column names the row, too: row("charge", "Charge").
template <typename... Types>
auto columnsOf(const char *const (&names)[sizeof...(Types)])
{
    return [row = columns<Types...>(names)](
               const char *first, const auto &...others) { row(first, first, others...); };
}
