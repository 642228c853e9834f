#pragma once

#include <QStringList>

/// What stands beside the title on a printed page: of which `devices`, each with its window's number, and when.
QString printDetails(const QStringList &devices);
