#pragma once

#include <QString>

/// Gives `fresh` the name of `target`, which need not exist; the system's reason where that fails.
QString replaceFile(const QString &fresh, const QString &target);
