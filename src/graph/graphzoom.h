#pragma once

/// The part of a recording that is shown. Both plots share the times; each has its own share of the values.
struct GraphZoom {
    /// A share of a plot's value range, 0 the bottom and 1 the top of what is shown in full.
    struct Share {
        double low = 0.0;
        double high = 1.0;
    };

    bool active = false; ///< otherwise all is shown, whatever the rest says
    double from = 0.0; ///< s
    double to = 0.0; ///< s, above `from`
    Share upper;
    Share lower;
};
