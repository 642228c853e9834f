#pragma once

#include <QtGlobal>

namespace soak {

/// Processor time of this process so far, in seconds.
double processorSeconds();
/// Memory that this process alone keeps, in bytes: what is resident less what is mapped from files.
qint64 ownMemory();

} // namespace soak
