#pragma once

#include <QtGlobal>

#include <limits>

/// What the system can give this program, in bytes: without end where the system does not tell.
struct SystemMemory {
    static constexpr qint64 endless = std::numeric_limits<qint64>::max();

    qint64 total = endless;
    qint64 available = endless; ///< without other programs being put out to disk
};

/// As it is now, within the address space and the control groups that this process may use. Takes some ten
/// microseconds, and a few more for each group.
SystemMemory systemMemory();

/// Demands that `bytes` more leave some to live recordings and to other programs: a sixteenth of all memory,
/// or 512 MB where that is less. Throws std::bad_alloc when they don't. To be asked now and then while
/// something large grows: a system that promises more memory than it has ends a program instead of refusing.
void demandMemory(qint64 bytes = 0);
/// The same for a live recording, which leaves a sixteenth, or 64 MB where that is less, to the rest of the
/// program: windows must be drawn and lines written to their journals.
void demandLiveMemory(qint64 bytes);
