#pragma once

#include <QtTest>

/// The columns of a table of test data, by type and name: columns<int, QString>({"mode", "text"}).
template <typename... Types>
void columns(const char *const (&names)[sizeof...(Types)])
{
    const char *const *name = names;
    (QTest::addColumn<Types>(*name++), ...);
}
