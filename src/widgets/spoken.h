#pragma once

#include <QString>

/// A widget that is one picture: what a screen reader says of it is found when it is asked.
class Spoken {
public:
    /// What the picture shows, in words, most important first.
    virtual QString spokenText() const = 0;

protected:
    /// The first makes all of them known to what a reader asks through.
    Spoken();
    ~Spoken() = default;
};
