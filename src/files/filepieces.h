#pragma once

#include <QIODevice>

#include <functional>
#include <utility>

/// Writes all of `bytes`. False when the device does not take them, and then it says why: one that takes a
/// part without a word, as a disk does that is nearly full, is asked again.
inline bool writeAllBytes(QIODevice &device, const char *bytes, qint64 length)
{
    while (length > 0) {
        const qint64 taken = device.write(bytes, length);
        if (taken <= 0)
            return false;
        bytes += taken;
        length -= taken;
    }
    return true;
}

/// What a file is to hold, written a piece at a time so that the caller stays responsive.
class FilePieces {
public:
    virtual ~FilePieces() = default;

    /// Writes what takes some milliseconds; false when `device` did not take all of
    /// it. Not to be called at the end.
    virtual bool writeNext(QIODevice &device) = 0;
    virtual bool atEnd() const = 0;
    /// How much is written, 0 to 1.
    virtual double progress() const = 0;

    /// Writes all that is left.
    bool writeAll(QIODevice &device)
    {
        bool good = true;
        while (good && !atEnd())
            good = writeNext(device);
        return good;
    }
};

/// What is written at once.
class OnePiece : public FilePieces {
public:
    using Content = std::function<bool(QIODevice &device)>;

    explicit OnePiece(Content content)
        : m_content(std::move(content))
    {
    }

    bool writeNext(QIODevice &device) override
    {
        m_written = true;
        return m_content(device);
    }
    bool atEnd() const override { return m_written; }
    double progress() const override { return m_written ? 1.0 : 0.0; }

private:
    Content m_content;
    bool m_written = false;
};
