#pragma once

#include <QString>

/// A widget that is one picture: what a screen reader says of it is found when it is asked.
class Spoken {
public:
    /// What the picture shows, in words, most important first.
    virtual QString spokenText() const = 0;
    /// Once in a program, before a reader may ask.
    static void install();

protected:
    ~Spoken() = default;
};
