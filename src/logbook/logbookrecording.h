#pragma once

#include "logbook/logbookfigures.h"

#include <QDateTime>
#include <QString>

/// A battery pack as its user knows it.
struct LogbookPack {
    static constexpr qint64 none = 0; ///< the id of no pack
    static constexpr int longestNote = 65536; ///< letters; what is longer is cut, of a recording's note, too

    qint64 id = none;
    QString name; ///< any text; not empty, and no two packs need to differ in it
    int cellType = Varnel3Data::noCellType; ///< index into the chemistry table, or noCellType: not said
    int cells = 0; ///< 1..16; 0: not said
    int capacity = 0; ///< nominal, mAh; 0: not said
    QString note;
};

/// A row of the logbook: one recording, the file that holds it, and what is known of both.
struct LogbookRecording {
    qint64 id = 0; ///< for as long as there is a logbook; never 0 in one
    QString file; ///< with its folder, '/' between names; no two rows have the same
    QDateTime start; ///< local time; invalid while nothing tells it
    bool isStartApproximate = false; ///< the file's time less the duration
    QString port; ///< as the journal's name has it; empty where nothing tells it
    qint64 pack = LogbookPack::none;
    QString note;
    bool isLive = false; ///< it is being recorded: the figures are those of its first record
    bool isGone = false; ///< the file was not there when it was looked for last
    LogbookFigures figures;
};
