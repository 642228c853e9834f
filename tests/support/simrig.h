#pragma once

#include "simulator/rack.h"
#include "support/shellrig.h"

#include <QApplication>

/// The program's window with simulated devices at the far ends of its lines. Base of a test class.
class SimRig : protected ShellRig {
protected:
    void setUp(double speed)
    {
        ShellRig::setUp();
        sim::RunSettings run;
        run.folder = fixture->portFolder();
        run.speed = speed;
        rack = std::make_unique<sim::Rack>(run);
        told.clear();
        QObject::connect(
            rack.get(), &sim::Rack::happened, rack.get(), [this](const QString &text) { told.append(text); });
    }
    void tearDown()
    {
        if (window)
            window->close();
        window.reset();
        rack.reset();
        ShellRig::tearDown();
    }

    /// Plugs the devices in and returns their ports.
    QStringList add(const QStringList &descriptions)
    {
        QStringList ports;
        QString error;
        for (const QString &description : descriptions) {
            if (!rack->add(description, &error))
                qFatal("%s", qPrintable(error));
            ports.append(description.section(QLatin1Char(':'), 0, 0));
        }
        return ports;
    }
    /// Plugs the devices in and listens on all of them.
    void start(const QStringList &descriptions)
    {
        open(add(descriptions));
        QTRY_COMPARE(listened().size(), descriptions.size());
    }

    sim::SimDevice *device(const char *port) const { return rack->device(QLatin1String(port)); }
    /// The box that waits for the user.
    static QMessageBox *modalBox() { return qobject_cast<QMessageBox *>(QApplication::activeModalWidget()); }

    std::unique_ptr<sim::Rack> rack;
    QStringList told; ///< by the devices: what they were sent, what happened to them
};
