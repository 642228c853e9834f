#include "graph/mdigraphchild.h"
#include "simulator/rack.h"
#include "support/literal.h"
#include "support/shellrig.h"
#include "support/warningcollector.h"

#include <QDir>
#include <QTimer>

/// Simulated devices under the whole program, a hundred times as fast, and what becomes of their recordings
/// when they break off.
class TestSimulatedDevices : public ShellRig {
    Q_OBJECT
private slots:
    // Nothing that was received is lost, and the other devices go on. Four loose plugs, each going or coming
    // twice a second, 16 times in all or for VARNEL_SECONDS.
    void portsComeAndGo()
    {
        const QDir files("/proc/self/fd"_s);
        const int toggles = qMax(16, 8 * qEnvironmentVariableIntValue("VARNEL_SECONDS"));
        sim::RunSettings run;
        run.folder = fixture->portFolder();
        run.speed = 100;
        sim::Rack rack(run);
        QString error;
        for (const char *device : {"COM1:varnel3,endless", "COM2:varnel3,balance,endless",
                 "COM3:varnel2plus,endless", "COM4:varnel2,endless"})
            QVERIFY2(rack.add(device, &error), qPrintable(error));
        open({"COM1", "COM2", "COM3", "COM4"});
        QTRY_COMPARE(listened().size(), 4);
        const auto allGoOn = [this] {
            for (const char *port : {"COM1", "COM2", "COM3", "COM4"}) {
                const int before = recordsOf(port);
                QTRY_VERIFY2(recordsOf(port) > before, port);
            }
        };
        allGoOn(); // each has its journal open
        const uint filesBefore = files.count();
        const WarningCollector collector;
        int toggled = 0;
        QTimer plugs;
        connect(&plugs, &QTimer::timeout, this, [&] {
            sim::SimDevice *one = rack.devices()[size_t(toggled++) % 4].get();
            if (one->isPlugged())
                one->unplug();
            else
                QVERIFY2(one->plug(&error), qPrintable(error));
        });
        plugs.start(125);
        QTRY_VERIFY_WITH_TIMEOUT(toggled >= toggles, 20000 + 250 * toggles);
        plugs.stop();
        for (const auto &one : rack.devices())
            QVERIFY2(one->plug(&error), qPrintable(error));
        QTRY_COMPARE_WITH_TIMEOUT(listened().size(), 4, 20000);
        allGoOn();
        for (const MdiGraphChild *child : constant(window->mdiChildren())) {
            for (int i = 1; i < child->store().size(); ++i)
                QCOMPARE(child->store().records()[i].time, child->store().records()[i - 1].time + 1);
        }
        QVERIFY(fact(StatusFacts::Lost).isEmpty() && !part<QMessageBox>());
        QCOMPARE(collector.warnings(), QStringList());
        QTRY_VERIFY(
            QDir(files.path()).count() <= filesBefore); // journals are closed once they are on the disk
    }

private:
    int recordsOf(const char *port) const
    {
        int records = 0;
        for (const MdiGraphChild *child : constant(window->mdiChildren()))
            records += child->portName() == QLatin1String(port) ? child->store().size() : 0;
        return records;
    }
};

QTEST_MAIN(TestSimulatedDevices)
#include "tst_simulateddevices.moc"
