#pragma once

#include "machine/sleepblock.h"

#include <QObject>

#include <functional>

/// Keeps the computer awake while a process is recorded. The settings key
/// "power/keepAwake" (true when absent) turns it off.
class SleepInhibitor : public QObject {
    Q_OBJECT

public:
    /// Asks `isRecording` every five seconds.
    explicit SleepInhibitor(std::function<bool()> isRecording, QObject *parent = nullptr);

    bool isHeld() const { return m_block.isHeld(); }

public slots:
    void update();

private:
    std::function<bool()> m_isRecording;
    SleepBlock m_block;
};
