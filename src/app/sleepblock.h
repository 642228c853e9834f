#pragma once

#include <QObject>

#include <memory>

/// Keeps the computer from going to sleep by itself, through whatever the system or the desktop offers for
/// it; where nothing is offered nothing happens. Never waits for an answer.
class SleepBlock : public QObject {
    Q_OBJECT

public:
    explicit SleepBlock(QObject *parent = nullptr);
    /// Releases.
    ~SleepBlock() override;

    /// `reason` is what the desktop tells the user. Without effect while a block is held or asked for.
    void acquire(const QString &reason);
    /// Without effect when none is held or asked for.
    void release();
    /// The system has granted the block.
    bool isHeld() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};
