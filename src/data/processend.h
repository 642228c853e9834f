#pragma once

#include <QString>

/// What the user is told of the end of a process, by Varnel3Data::End: a sentence, translated, and the name
/// of an icon. Both are empty for any other code.
QString processEndText(int end);
QString processEndIcon(int end);
