// Loaded into the program before everything else (LD_PRELOAD), makes its machine ill as the files in the
// folder VARNEL_TEST_SICK say:
//   hang    while it is there, nothing gets onto the disk: fsync() and fdatasync() do not return
//   hung    written when that happens; "window" in it when the window's thread waits
//   clock   seconds by which the computer's clock is off

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <string>
#include <sys/time.h>
#include <thread>
#include <unistd.h>

namespace {

std::string path(const char *name)
{
    const char *folder = std::getenv("VARNEL_TEST_SICK");
    return std::string(folder ? folder : "/nonexistent") + '/' + name;
}

bool isThere(const char *name)
{
    return ::access(path(name).c_str(), F_OK) == 0;
}

void pause()
{
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

int waitForDisk()
{
    if (isThere("hang")) {
        if (std::FILE *file = std::fopen(path("hung").c_str(), "a")) {
            std::fputs(::gettid() == ::getpid() ? "window\n" : "another\n", file);
            std::fclose(file);
        }
    }
    while (isThere("hang"))
        pause();
    return 0;
}

long clockOffset()
{
    long seconds = 0;
    if (std::FILE *file = std::fopen(path("clock").c_str(), "r")) {
        if (std::fscanf(file, "%ld", &seconds) != 1)
            seconds = 0;
        std::fclose(file);
    }
    return seconds;
}

} // namespace

extern "C" int fsync(int)
{
    return waitForDisk();
}

extern "C" int fdatasync(int)
{
    return waitForDisk();
}

extern "C" int gettimeofday(timeval *time, void *zone) noexcept
{
    static const auto real = reinterpret_cast<int (*)(timeval *, void *)>(::dlsym(RTLD_NEXT, "gettimeofday"));
    const int result = real(time, zone);
    time->tv_sec += clockOffset();
    return result;
}
