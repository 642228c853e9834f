#pragma once

class Varnel3Data;

/// Bytes that a record line takes at most, a line end included.
constexpr int maxRecordLineLength = 384;

/// Writes `value` in decimal, filled with '0' to `width` characters (sign first); longer values are written
/// whole. At most max(width, 11) bytes. Returns the end of what was written.
char *writeZeroFilled(char *out, int value, int width);

/// Writes the record as one line without a line end, in Latin-1, and returns its end. `out` has room for
/// maxRecordLineLength bytes. A balance beyond what a character can say becomes '?', which reads as 0.
char *writeRecordLine(char *out, const Varnel3Data &record);

/// Whether the record's own line is taken by the parser again. Records in a mode without a letter or of no
/// known chemistry are not, nor those whose cell count takes three characters.
bool isRecordLineReadable(const Varnel3Data &record);
