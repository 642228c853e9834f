#pragma once

class QString;
class Varnel3Data;

/// Elapsed time "hh:mm:ss" of `seconds`, truncated; hours take more digits where they need
/// them. Eight blanks for a negative value.
QString elapsedTimeText(double seconds);

/// The clock of a record, "hh:mm:ss", from its `hour`, `minute` and `second`.
QString clockText(const Varnel3Data &record);
