#include "settings/replacefile.h"

#include <filesystem>

QString replaceFile(const QString &fresh, const QString &target)
{
    std::error_code error;
    std::filesystem::rename(fresh.toStdU16String(), target.toStdU16String(), error);
    return error ? QString::fromLocal8Bit(error.message().c_str()) : QString();
}
