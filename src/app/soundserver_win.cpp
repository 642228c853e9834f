#include "app/soundserver.h"

bool maySound()
{
    return true;
}
