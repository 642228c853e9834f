#pragma once

struct CommandLine;

/// Does what a command line that isBatch() asks for and returns the exit status: 0 done, 1 could not be done,
/// 2 the words were off. Messages go to standard error.
int runBatch(const CommandLine &line);
