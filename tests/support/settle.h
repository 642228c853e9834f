#pragma once

#include "widgets/refreshgate.h"

#include <QTest>
#include <QTimer>
#include <QWidget>

/// Waits until `display`, which is shown, shows the newest that it was told.
inline void settle(const QWidget &display)
{
    const auto *gate = display.findChild<RefreshGate *>();
    gate->findChild<QTimer *>()->start(0); // its tenth of a second needs no waiting
    QTRY_VERIFY_WITH_TIMEOUT(!gate->isPending(), 30000);
}
