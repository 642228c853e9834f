#pragma once

#include <QByteArray>

// What brings windows to the screen, as the toolkit takes it: names in the order of trying, separated by ';'.
// Empty where the toolkit knows best.

QByteArray screenPlatforms();
/// For a command that draws, but shows nothing: there may be no screen.
QByteArray screenlessPlatforms();

/// What the toolkit reads in an environment variable while this lives, unless the user has written something
/// there. Goes before other programs are started: they have their own.
class ToolkitChoice {
public:
    /// What the application object that is made meanwhile takes. Empty leaves the choice to the toolkit.
    static ToolkitChoice platform(const QByteArray &platforms) { return {"QT_QPA_PLATFORM", platforms}; }
    /// The first window that is shown meanwhile loads no OpenGL, nor does any later one. Nothing is drawn by
    /// it, and loading it takes as long as all the rest of the toolkit, and 14 MB.
    static ToolkitChoice noOpenGl() { return {"QT_XCB_GL_INTEGRATION", "none"}; }

    ~ToolkitChoice()
    {
        if (m_made)
            qunsetenv(m_variable);
    }
    ToolkitChoice(const ToolkitChoice &) = delete;
    ToolkitChoice &operator=(const ToolkitChoice &) = delete;

private:
    ToolkitChoice(const char *variable, const QByteArray &value)
        : m_variable(variable)
        , m_made(!value.isEmpty() && qEnvironmentVariableIsEmpty(variable))
    {
        if (m_made)
            qputenv(m_variable, value);
    }

    const char *const m_variable; // a literal
    const bool m_made;
};
