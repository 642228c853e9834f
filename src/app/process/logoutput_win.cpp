#include "app/process/logoutput.h"

#include <windows.h>

// A write to a pipe without a reader fails here, and no more. The system's own box would ask for a disk in an
// empty drive, which the settings may name, and wait.
void protectLog()
{
    ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
}
