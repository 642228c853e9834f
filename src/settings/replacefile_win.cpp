#include "settings/replacefile.h"

#include <chrono>
#include <filesystem>
#include <thread>

// No file is replaced that somebody has open, be it the window's thread that reads it or a virus scanner.
QString replaceFile(const QString &fresh, const QString &target)
{
    constexpr int mostAttempts = 20;
    constexpr std::chrono::milliseconds pause(25);
    std::error_code error;
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        std::filesystem::rename(fresh.toStdU16String(), target.toStdU16String(), error);
        if (!error)
            return QString();
        std::this_thread::sleep_for(pause);
    }
    return QString::fromLocal8Bit(error.message().c_str());
}
