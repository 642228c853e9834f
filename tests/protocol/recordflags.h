#pragma once

#include "data/varnel3data.h"

#include <QByteArray>

/// The five status characters in a row.
inline QByteArray flagsOf(const Varnel3Data &record)
{
    const char flags[] = {record.flag1, record.flag2, record.flag3, record.flag4, record.flag5};
    return QByteArray(flags, sizeof flags);
}
