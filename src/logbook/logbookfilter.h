#pragma once

#include "logbook/logbookrecording.h"

#include <QDate>

/// Which recordings are asked for. What is left as it is lets everything pass.
struct LogbookFilter {
    static constexpr qint64 everyPack = -1;
    static constexpr int any = -1;

    qint64 pack = everyPack; ///< an id, everyPack, or LogbookPack::none for those that are not assigned
    QString text; ///< words, each of which is somewhere in the row, in whatever case
    int cellType = any; ///< index into the chemistry table, or noCellType
    int mode = any; ///< Varnel3Data::Mode
    QDate from; ///< first day of the start; a row without a start passes only where neither is given
    QDate to; ///< last day
};
