#pragma once

#include <QString>

/// How the legend of an overlay names the recording in `fileName`, which took so many `seconds`: by port and
/// start as a journal's name tells them, else by the file's name and the time of its last change less the
/// duration, marked as approximate; without a time where there is no such file.
QString overlayLabel(const QString &fileName, double seconds);
