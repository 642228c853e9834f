#include "app/process/logoutput.h"

void protectLog()
{
    // A write to a pipe without a reader fails here, and no more.
}
