#pragma once

#include <QString>

// What a command that opens no window says to whoever has called it.

/// Lets standard output and standard error reach the console that the program was called from, where it has
/// none of its own and they lead nowhere. To be called before either is used.
void joinConsole();

enum class Channel { Output, Error };

/// Writes `text` to standard output or standard error; where nobody could read it there, as when an icon was
/// clicked, a box shows it and is waited for.
void tellCaller(const QString &text, Channel channel);
