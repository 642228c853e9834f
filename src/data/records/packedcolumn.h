#pragma once

#include "data/records/narrownumbers.h"

/// One figure of a block of records, packed: as many bytes for each as the highest needs above the lowest,
/// none where all are the same.
struct PackedColumn {
    static constexpr int length = 128; ///< figures of a block
    static constexpr int mostBytes = 4 * length;

    int low = 0; ///< lowest figure
    int high = 0; ///< highest figure
    quint32 place = 0; ///< of the bytes in their block

    /// Packs the `length` figures at `figures` to `block` + *`end`, and moves *`end` behind them.
    static PackedColumn pack(const int *figures, char *block, quint32 *end);

    NarrowNumbers numbers(const char *block) const { return {block + place, low, width()}; }
    bool isAll(int figure) const { return low == figure && high == figure; }

private:
    int width() const
    {
        const quint32 span = quint32(high) - quint32(low);
        return span == 0 ? 0 : span <= 0xff ? 1 : span <= 0xffff ? 2 : 4;
    }
};
