#pragma once

/// A shown part of a whole, in whatever unit.
struct Interval {
    double low = 0.0;
    double high = 1.0;

    double length() const { return high - low; }
    bool contains(double value) const { return value >= low && value <= high; }
    /// Grows until it holds `other` too.
    void take(const Interval &other)
    {
        low = other.low < low ? other.low : low;
        high = other.high > high ? other.high : high;
    }
    /// Shorter by `factor`, with `centre` kept in its place, but not shorter than `least` nor longer than
    /// `whole`, and moved to lie inside it.
    Interval zoomed(double factor, double centre, double least, const Interval &whole) const;
    /// Moved by `distance`, up to the ends of `whole`.
    Interval moved(double distance, const Interval &whole) const;
};
