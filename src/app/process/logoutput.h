#pragma once

/// From here on the program neither ends nor waits when nobody reads what it writes to standard error; such
/// messages are lost. Nor does the system ask for disks that are not there.
void protectLog();
