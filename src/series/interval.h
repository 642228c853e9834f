#pragma once

/// What lies between two numbers, in whatever unit: times, values, or shares of them.
struct Interval {
    double low = 0.0;
    double high = 1.0;

    double length() const { return high - low; }
    bool contains(double value) const { return value >= low && value <= high; }
    /// The part between the shares low..high of `share`, 0 the low end and 1 the high one.
    Interval part(const Interval &share) const
    {
        return {low + (high - low) * share.low, low + (high - low) * share.high};
    }
    /// The share at which `value` lies.
    double shareOf(double value) const { return (value - low) / (high - low); }
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
