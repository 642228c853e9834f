#pragma once

/// Readies the processor for a long loop over floating-point values after painting.
///
/// Qt's AVX fill routines return with the upper halves of the vector registers in use. Until they are
/// cleared, code compiled for plain SSE2, as ours is, runs three to four times slower on many processors.
void clearVectorState();
