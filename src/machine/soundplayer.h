#pragma once

#include "machine/soundline.h"

#include <QLocale>
#include <QObject>

/// Plays one sound file at a time. Nothing here waits for the sound system or fails aloud.
class SoundPlayer : public QObject {
    Q_OBJECT

public:
    explicit SoundPlayer(QObject *parent = nullptr);

    /// Whether the system may have a device to play on now.
    virtual bool hasOutput() const;
    /// Plays `file` instead of what is playing, where there is such a file.
    virtual void play(const QString &file);
    virtual void stop();

    /// File of the sound `base` in `folder` with the system's separators: the variant of `country` where
    /// there is one, else the common one, which need not exist.
    static QString filePath(const QString &folder, const QString &base, QLocale::Country country);

private:
    SoundLine m_line;
};
