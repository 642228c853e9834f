#include "machine/soundline.h"

#include <QDir>

#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>

#include <windows.h>

#include <mmsystem.h>

namespace {

// A sick sound system keeps whoever asks it, for its devices as for a sound. That is a thread of its own,
// which is left to itself should it never come back.
struct Wishes {
    std::mutex mutex;
    std::condition_variable changed;
    std::optional<std::wstring> newest; // a file, or nothing for silence; guarded by the mutex, as the next
    bool ended = false;
};

void fulfil(const std::shared_ptr<Wishes> &wishes)
{
    std::unique_lock<std::mutex> lock(wishes->mutex);
    for (;;) {
        wishes->changed.wait(lock, [&] { return wishes->newest || wishes->ended; });
        if (!wishes->newest)
            return;
        const std::wstring file = *std::exchange(wishes->newest, std::nullopt);
        lock.unlock();
        if (file.empty())
            ::PlaySoundW(nullptr, nullptr, 0);
        else if (::waveOutGetNumDevs() > 0)
            ::PlaySoundW(file.c_str(), nullptr, SND_FILENAME | SND_ASYNC | SND_NODEFAULT);
        lock.lock();
    }
}

} // namespace

class SoundLine::Private {
public:
    void wish(const std::wstring &file)
    {
        const std::lock_guard<std::mutex> lock(wishes->mutex);
        wishes->newest = file;
        wishes->changed.notify_one();
    }

    std::shared_ptr<Wishes> wishes = std::make_shared<Wishes>(); // with the thread
    bool started = false;
};

SoundLine::SoundLine()
    : d(std::make_unique<Private>())
{
}

SoundLine::~SoundLine()
{
    stop();
    const std::lock_guard<std::mutex> lock(d->wishes->mutex);
    d->wishes->ended = true;
    d->wishes->changed.notify_one();
}

void SoundLine::play(const QString &file)
{
    if (!std::exchange(d->started, true))
        std::thread(fulfil, d->wishes).detach();
    d->wish(QDir::toNativeSeparators(file).toStdWString());
}

void SoundLine::stop()
{
    if (d->started)
        d->wish(std::wstring());
}
