// Loaded into the program before everything else (LD_PRELOAD), makes its machine ill as the files in the
// folder VARNEL_TEST_SICK say:
//   hang    while it is there, nothing gets onto the disk: fsync() and fdatasync() do not return
//   hung    written when that happens; "window" in it when the window's thread waits

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
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

int waitForDisk()
{
    if (isThere("hang")) {
        if (std::FILE *file = std::fopen(path("hung").c_str(), "a")) {
            std::fputs(::gettid() == ::getpid() ? "window\n" : "another\n", file);
            std::fclose(file);
        }
    }
    while (isThere("hang"))
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return 0;
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
