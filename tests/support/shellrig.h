#pragma once

#include "app/actionset.h"
#include "devices/listenedports.h"
#include "app/mainwindow.h"
#include "desk/statusfacts.h"
#include "ports/portwatcher.h"
#include "resources/resources.h"
#include "settings/varnelsettings.h"
#include "support/ptypair.h"
#include "support/shellfixture.h"

#include <QAction>
#include <QMessageBox>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

#include <memory>
#include <vector>

/// For a loop over what a function returns, which would copy a container that is not constant.
template <typename Container>
const Container constant(Container container)
{
    return container;
}

/// The program's window with settings and ports of its own, the test at the far
/// ends of its lines. Base of a test class; figures are written as in C, whatever the machine's locale is.
class ShellRig : public QObject {
    Q_OBJECT

protected slots:
    virtual void initTestCase() { initResources(); }
    virtual void init()
    {
        QLocale::setDefault(QLocale::c());
        fixture = std::make_unique<ShellFixture>();
    }
    virtual void cleanup()
    {
        window.reset();
        plugged.clear();
        fixture.reset();
    }

protected:
    PtyPair *plug(const QString &port)
    {
        plugged.push_back(std::make_unique<PtyPair>(fixture->portFolder(), port));
        return plugged.back().get();
    }
    /// Shows a window for which `ports` are ticked, and waits until it has tried to listen on them.
    void open(const QStringList &ports)
    {
        VarnelSettings().setPorts(ports);
        window = std::make_unique<MainWindow>();
        window->show();
        part<PortWatcher>()->findChild<QTimer *>()->setInterval(50);
        QTRY_VERIFY(message() != QLatin1String("Ready") && !message().endsWith(QLatin1String("...")));
    }

    /// Plugs so many devices in, "COM1" first, and listens on them.
    void listen(int count)
    {
        QStringList ports;
        for (int i = 1; i <= count; ++i)
            ports.append(plug(QStringLiteral("COM%1").arg(i))->portName());
        open(ports);
        QCOMPARE(listened(), ports);
    }

    /// The one of its kind in the window.
    template <typename Part>
    Part *part() const
    {
        return window->findChild<Part *>();
    }
    void trigger(ActionId id) const { window->actionSet()[id]->trigger(); }
    QString message() const { return window->statusBar()->currentMessage(); }
    QString fact(StatusFacts::Kind kind) const { return window->statusFacts().text(kind); }
    QStringList listened() const { return window->listenedPorts().portNames(); }
    QMessageBox *box(const char *name) const { return window->findChild<QMessageBox *>(QLatin1String(name)); }

    std::unique_ptr<ShellFixture> fixture;
    std::vector<std::unique_ptr<PtyPair>> plugged;
    std::unique_ptr<MainWindow> window;
};
