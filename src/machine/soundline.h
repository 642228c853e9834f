#pragma once

#include <QString>

#include <memory>

/// What sounds come out of, one at a time. Nothing here waits for the sound system, be it sick.
class SoundLine {
public:
    SoundLine();
    /// Silence.
    ~SoundLine();
    SoundLine(const SoundLine &) = delete;
    SoundLine &operator=(const SoundLine &) = delete;

    /// Plays `file`, which exists, instead of what is playing.
    void play(const QString &file);
    void stop();

private:
    class Private;
    std::unique_ptr<Private> d;
};
