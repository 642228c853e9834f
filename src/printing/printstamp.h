#pragma once

#include <QStringList>

/// How a printed page names the graph window `number`: with its device and with the file or port
/// that its records come from. Either may be empty.
QString printedName(int number, const QString &device, const QString &source);
/// What stands beside the title on a printed page: of which `windows`, and when it was printed.
QString printDetails(const QStringList &windows);
