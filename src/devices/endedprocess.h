#pragma once

#include "data/varnel3data.h"

#include <QDateTime>
#include <QPointer>
#include <QWidget>

/// One process that has ended: where, how and when, and the window that shows it.
struct EndedProcess {
    QString portName; ///< empty where only the kind of end is known
    int end = Varnel3Data::Completed; ///< a Varnel3Data::End, or whatever a caller put there
    Varnel3Data last; ///< its line with the end letter
    QDateTime at;
    QPointer<QWidget> window; ///< not owned; null when there is none any more
    bool hadWindow = false;

    /// "COM2, 14 x NiMh, 2.088 Ah in 00:57:04"; what the device does not tell is left out.
    QString facts() const;
};
