#pragma once

#include <QString>

/// What the user is told of the end of a process, by Varnel3Data::End: a sentence and a short title, both
/// translated, and the names of an icon and of a sound, without folder and ending. All are empty for any
/// other code.
QString processEndText(int end);
QString processEndTitle(int end);
QString processEndIcon(int end);
QString processEndSound(int end);
