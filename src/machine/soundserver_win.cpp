#include "machine/soundserver.h"

// The list of devices may be long in coming: the thread that plays asks for it.
bool hasSoundOutput()
{
    return true;
}
