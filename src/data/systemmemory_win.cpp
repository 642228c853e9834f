#include "data/systemmemory.h"

#include <windows.h>

// The page file bounds what all programs are promised, be it used or not.
SystemMemory systemMemory()
{
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    if (!::GlobalMemoryStatusEx(&status))
        return {};
    return {qint64(status.ullTotalPhys), qint64(qMin(status.ullAvailPhys, status.ullAvailPageFile))};
}
