#pragma once

#include <QByteArray>

// What brings windows to the screen, as the toolkit takes it: names in the order of trying, separated by ';'.
// Empty where the toolkit knows best.

QByteArray screenPlatforms();
/// For a command that draws, but shows nothing: there may be no screen.
QByteArray screenlessPlatforms();

/// The platform of the application object that is made while this lives, unless the user has chosen one. Goes
/// before other programs are started: they have their own.
class PlatformChoice {
public:
    /// Empty leaves the choice to the toolkit.
    explicit PlatformChoice(const QByteArray &platforms)
        : m_made(!platforms.isEmpty() && qEnvironmentVariableIsEmpty(variable))
    {
        if (m_made)
            qputenv(variable, platforms);
    }
    ~PlatformChoice()
    {
        if (m_made)
            qunsetenv(variable);
    }
    PlatformChoice(const PlatformChoice &) = delete;
    PlatformChoice &operator=(const PlatformChoice &) = delete;

private:
    static constexpr char variable[] = "QT_QPA_PLATFORM";

    const bool m_made;
};
