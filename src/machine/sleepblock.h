#pragma once

#include <QObject>

#include <memory>

/// Keeps the computer from going to sleep by itself, through whatever the system or the desktop offers for
/// it; where nothing is offered nothing happens. Never waits for an answer: where a bus has to be asked, that
/// is done by a process of its own, the same program with other words, which goes with this one.
class SleepBlock : public QObject {
    Q_OBJECT

public:
    /// Whether this process was started to ask for another one. Has to be called first thing in main():
    /// programs that don't are given no block where that takes a process.
    static bool isHelper(int argc, char **argv);
    /// What main() does and returns then.
    static int runHelper(int argc, char **argv);

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
