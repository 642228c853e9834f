#pragma once

#include "widgets/refreshgate.h"

#include <QTest>
#include <QWidget>

/// Waits until `display`, which is shown, shows the newest that it was told.
inline void settle(const QWidget &display)
{
    const auto *gate = display.findChild<RefreshGate *>();
    QTRY_VERIFY_WITH_TIMEOUT(!gate->isPending(), 30000);
}
