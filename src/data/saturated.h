#pragma once

#include <QtGlobal>

#include <cstdint>

/// Numbers beyond 32 bits become the nearest that 32 bits hold.
constexpr int saturated(qint64 value)
{
    return value > INT32_MAX ? INT32_MAX : value < INT32_MIN ? INT32_MIN : int(value);
}
