#pragma once

#include <QStringList>

/// Collects the warnings that Qt and the program write while it lives; other messages pass as before.
class WarningCollector {
public:
    WarningCollector();
    ~WarningCollector();
    WarningCollector(const WarningCollector &) = delete;
    WarningCollector &operator=(const WarningCollector &) = delete;

    QStringList warnings() const;
};
