#include "app/process/console.h"

#include <QCoreApplication>

#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace {

HANDLE handleOf(std::FILE *stream)
{
    const int descriptor = _fileno(stream);
    return descriptor < 0 ? INVALID_HANDLE_VALUE : reinterpret_cast<HANDLE>(_get_osfhandle(descriptor));
}

/// A console, a file or a pipe is behind it.
bool leadsSomewhere(std::FILE *stream)
{
    const HANDLE handle = handleOf(stream);
    return handle != nullptr && handle != INVALID_HANDLE_VALUE && ::GetFileType(handle) != FILE_TYPE_UNKNOWN;
}

bool isConsole(std::FILE *stream)
{
    DWORD mode = 0;
    return ::GetConsoleMode(handleOf(stream), &mode) != 0;
}

} // namespace

// A program with windows gets no console. What was redirected is there all the same, and stays as it is;
// tables are the same bytes on every system.
void joinConsole()
{
    bool attached = ::AttachConsole(ATTACH_PARENT_PROCESS) != 0;
    for (std::FILE *stream : {stdout, stderr}) {
        if (leadsSomewhere(stream))
            _setmode(_fileno(stream), _O_BINARY);
        else if (attached)
            attached = std::freopen("CONOUT$", "w", stream) != nullptr;
    }
}

// A console takes letters that the code page of files lacks.
void tellCaller(const QString &text, Channel channel)
{
    std::FILE *const stream = channel == Channel::Output ? stdout : stderr;
    if (!leadsSomewhere(stream)) {
        const UINT icon = channel == Channel::Output ? MB_ICONINFORMATION : MB_ICONERROR;
        ::MessageBoxW(nullptr, text.toStdWString().c_str(),
            QCoreApplication::applicationName().toStdWString().c_str(), MB_OK | icon);
        return;
    }
    std::fflush(stream);
    if (isConsole(stream)) {
        const std::wstring letters = text.toStdWString();
        DWORD written = 0;
        ::WriteConsoleW(handleOf(stream), letters.data(), DWORD(letters.size()), &written, nullptr);
        return;
    }
    std::fputs(qPrintable(text), stream);
    std::fflush(stream);
}
