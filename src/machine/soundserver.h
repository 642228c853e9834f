#pragma once

/// Whether this computer may have something to play sounds on, as far as that can be told at once: the answer
/// is never waited for, and nothing is complained of where it is no.
bool hasSoundOutput();
