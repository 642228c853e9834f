#pragma once

/// Starts the program as its main() does, waits until its window is painted, prints the milliseconds since
/// `begun` (ns on the steady clock, when the process was asked for) at each step, and ends. Settings and
/// ports are those of the environment.
int profileStart(int argc, char **argv, long long begun);
