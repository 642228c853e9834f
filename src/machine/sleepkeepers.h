#pragma once

/// Main function of a process that keeps the computer awake for another one: asks the desktop or the system
/// until one of them grants it, writes "+" to standard output then, and gives the block back when standard
/// input ends. The last two words of the command line are the program and the reason that the user is told.
/// Ends within two seconds of its standard input, whatever the bus does.
int keepAwake(int argc, char **argv);
