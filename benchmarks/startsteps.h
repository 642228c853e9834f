#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

#include <chrono>
#include <cstdio>

/// Tells how far a start has come, in ms since the process was asked for.
class StartSteps {
public:
    /// `begun`: ns on the steady clock.
    explicit StartSteps(long long begun)
        : m_begun(begun)
    {
    }
    void done(const char *step) const
    {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        const auto passed = std::chrono::duration_cast<std::chrono::nanoseconds>(now).count() - m_begun;
        std::printf("%s: %.1f\n", step, double(passed) * 1e-6);
    }

private:
    long long m_begun;
};

/// Ends the program once the window that it watches has been painted and sent to the screen.
class PaintWatch : public QObject {
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            watched->removeEventFilter(this);
            QTimer::singleShot(0, qApp, SLOT(quit())); // the painting ends with what is sent
        }
        return false;
    }
};
