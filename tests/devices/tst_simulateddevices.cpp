#include "dialogs/dialogremotecontrol.h"
#include "graph/mdigraphchild.h"
#include "resources/resources.h"
#include "support/literal.h"
#include "simulator/rack.h"
#include "support/shellrig.h"
#include "support/warningcollector.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTimer>

/// Simulated devices under the whole program, a hundred times as fast: its remote control of them, and what
/// becomes of their recordings when they break off.
class TestSimulatedDevices : public QObject, private ShellRig {
    Q_OBJECT
private slots:
    void initTestCase() { initResources(); }
    void init()
    {
        setUp();
        sim::RunSettings run;
        run.folder = fixture->portFolder();
        run.speed = 100;
        rack = std::make_unique<sim::Rack>(run);
    }
    void cleanup()
    {
        window->close();
        window.reset();
        rack.reset();
        tearDown();
    }

    void remoteControlRunsAProcess()
    {
        const QSignalSpy told(rack.get(), &sim::Rack::happened);
        start({"COM1:varnel3,cells=4,balance,start=remote,detect=1"});
        trigger(ActionId::RemoteControl);
        auto *dialog = window->findChild<DialogRemoteControl *>();
        const auto *pages = dialog->findChild<QStackedWidget *>("pages"_s);
        QTRY_COMPARE(pages->currentIndex(), 0);
        dialog->findChild<QComboBox *>("cbTryb0_nc"_s)->setCurrentIndex(6);
        QTRY_COMPARE(rack->device("COM1"_s)->panel().memory(), 7);
        QTRY_COMPARE(pages->currentIndex(), 2);
        auto *cells = dialog->findChild<QComboBox *>("cbTryb2_nr"_s);
        QTRY_COMPARE(cells->currentIndex(), 3);
        cells->setCurrentIndex(5);
        dialog->findChild<QPushButton *>("pbTryb2_start"_s)->click();
        QTRY_COMPARE(pages->currentIndex(), 3);
        QTRY_VERIFY(window->activeMdiChild() && window->activeMdiChild()->store().size() > 100);
        QCOMPARE(window->activeMdiChild()->store().records().first().cellCount, 6);
        dialog->findChild<QPushButton *>("pbTryb3_stop"_s)->click();
        QTRY_COMPARE(pages->currentIndex(), 4);
        const auto *box = QApplication::activeModalWidget();
        QTRY_VERIFY((box = QApplication::activeModalWidget()) && box->windowTitle() == "Aborted"_s);
        QVERIFY(told.contains(QVariantList({"COM1 told #STOP"})));
    }

    // Nothing that was received is lost, and the other devices go on. Four loose plugs, each going or coming
    // twice a second, 16 times in all or for VARNEL_SECONDS.
    void portsComeAndGo()
    {
        const QDir files("/proc/self/fd"_s);
        const int toggles = qMax(16, 8 * qEnvironmentVariableIntValue("VARNEL_SECONDS"));
        start({"COM1:varnel3,endless", "COM2:varnel3,balance,endless", "COM3:varnel2plus,endless",
            "COM4:varnel2,endless"});
        const auto allGoOn = [this] {
            for (const char *port : {"COM1", "COM2", "COM3", "COM4"}) {
                const int before = recordsOf(port);
                QTRY_VERIFY2(recordsOf(port) > before, port);
            }
        };
        allGoOn(); // each has its journal open
        const uint filesBefore = files.count();
        const WarningCollector collector;
        QString error;
        int toggled = 0;
        QTimer plugs;
        connect(&plugs, &QTimer::timeout, this, [&] {
            sim::SimDevice *one = rack->devices()[size_t(toggled++) % 4].get();
            if (one->isPlugged())
                one->unplug();
            else
                QVERIFY2(one->plug(&error), qPrintable(error));
        });
        plugs.start(125);
        QTRY_VERIFY_WITH_TIMEOUT(toggled >= toggles, 20000 + 250 * toggles);
        plugs.stop();
        for (const auto &one : rack->devices())
            QVERIFY2(one->plug(&error), qPrintable(error));
        QTRY_COMPARE_WITH_TIMEOUT(listened().size(), 4, 20000);
        allGoOn();
        const auto children = window->mdiChildren();
        for (const MdiGraphChild *child : children) {
            for (int i = 1; i < child->store().size(); ++i)
                QCOMPARE(child->store().records()[i].time, child->store().records()[i - 1].time + 1);
        }
        QVERIFY(fact(StatusFacts::Lost).isEmpty() && !window->findChild<QMessageBox *>());
        QCOMPARE(collector.warnings(), QStringList());
        QTRY_VERIFY(
            QDir(files.path()).count() <= filesBefore); // journals are closed once they are on the disk
    }

private:
    /// Plugs the devices in and listens on all of them.
    void start(const QStringList &descriptions)
    {
        QStringList ports;
        QString error;
        for (const QString &description : descriptions) {
            QVERIFY2(rack->add(description, &error), qPrintable(error));
            ports.append(description.section(':', 0, 0));
        }
        open(ports);
        QTRY_COMPARE(listened().size(), ports.size());
    }
    int recordsOf(const char *port) const
    {
        int records = 0;
        const auto children = window->mdiChildren();
        for (const MdiGraphChild *child : children)
            records += child->portName() == QLatin1String(port) ? child->store().size() : 0;
        return records;
    }

    std::unique_ptr<sim::Rack> rack;
};

QTEST_MAIN(TestSimulatedDevices)
#include "tst_simulateddevices.moc"
