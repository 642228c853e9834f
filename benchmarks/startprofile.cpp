#include "startprofile.h"

#include "app/mainwindow.h"
#include "app/process/singleinstance.h"
#include "app/stylesheet.h"
#include "resources/resources.h"
#include "settings/varnelsettings.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>

#include <chrono>
#include <cstdio>

namespace {

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

class Steps {
public:
    explicit Steps(long long begun)
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

} // namespace

int profileStart(int argc, char **argv, long long begun)
{
    const Steps steps(begun);
    steps.done("libraries loaded");
    QApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("VarnelGraph"));
    QCoreApplication::setApplicationName(QStringLiteral("VarnelGraph"));
    steps.done("connected to the screen");
    SingleInstance instance(VarnelSettings().fileName());
    if (instance.settle({}) != SingleInstance::Role::First)
        return 1;
    initResources();
    installStyleSheet(&application, QCoreApplication::applicationDirPath());
    steps.done("the only one, style sheet read");
    MainWindow window;
    steps.done("window built");
    PaintWatch watch;
    window.installEventFilter(&watch);
    window.show();
    steps.done("window shown");
    QApplication::exec();
    steps.done("window painted");
    return 0;
}
