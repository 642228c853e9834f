#pragma once

#include <QtGlobal>

#include <cstring>

/// A view on whole numbers that lie side by side, each in `width` bytes as what it is above `low`.
struct NarrowNumbers {
    struct Range {
        int low, high;
    };

    const char *bytes = nullptr; ///< not owned; none are needed for a width of 0
    int low = 0;
    int width = 0; ///< 0, where all are `low`, 1, 2 or 4

    int operator[](int index) const
    {
        switch (width) {
        case 0:
            return low;
        case 1:
            return int(quint32(low) + quint8(bytes[index]));
        case 2:
            return int(quint32(low) + read<quint16>(index));
        default:
            return int(quint32(low) + read<quint32>(index));
        }
    }
    /// Writes the numbers `begin`..`begin` + `count` - 1 to `numbers`.
    void copy(int begin, int count, int *numbers) const;
    /// The lowest and the highest of the numbers `begin`..`end` - 1, of which there is at least one.
    Range extremes(int begin, int end) const;

private:
    template <typename Number>
    Number read(int index) const
    {
        Number number;
        std::memcpy(&number, bytes + sizeof(Number) * size_t(index), sizeof number);
        return number;
    }
    template <typename Number>
    void copyAll(int begin, int count, int *numbers) const;
    template <typename Number>
    Range extremesOf(int begin, int end) const;
};
