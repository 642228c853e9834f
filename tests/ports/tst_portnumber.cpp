#include "support/columns.h"
#include "support/files.h"
#include "support/literal.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

/// A machine with sockets for USB serial adapters, whose helper gives each adapter its number.
class PortNumberTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void numbersStay_data();
    void numbersStay();
    void refusesWhatItCannotTell();
    void knownNumberNeedsNoWriting();
    void twoAtOnceGetTwoNumbers();

private:
    QString root(const char *below) const { return machine->filePath(QLatin1String(below)); }
    /// "A1@2:0:01" is the adapter of serial number A1, with port 0 and interface 01, in socket 2.
    static QString deviceOf(const QString &adapter) { return "/devices/usb/"_s + adapter.section('@', 1); }
    std::unique_ptr<QProcess> start(const QString &adapter) const;
    /// The number that it gets when it is plugged in; empty when it gets none.
    QString plug(const QString &adapter) const;
    void unplug(const QString &device) const { QDir(root("sys") + device).removeRecursively(); }
    void reboot() const
    {
        unplug("/devices"_s);
        QDir(root("run")).removeRecursively();
    }

    std::unique_ptr<QTemporaryDir> machine;
};

void PortNumberTest::init()
{
    machine = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(machine->path()).mkpath("dev"_s));
}

std::unique_ptr<QProcess> PortNumberTest::start(const QString &adapter) const
{
    const QString serial = adapter.section('@', 0, 0);
    const QStringList place = adapter.section('@', 1).split(':');
    QDir().mkpath(root("sys") + deviceOf(adapter));
    QStringList environment{"DEVPATH=" + deviceOf(adapter), "ID_PATH=pci-0000:00:14.0-usb-0:" + place[0],
        "ID_VENDOR_ID=0403", "ID_MODEL_ID=6001", "ID_USB_INTERFACE_NUM=" + place.value(2, "00"),
        "VARNELGRAPH_PORT=" + place.value(1)};
    if (!serial.isEmpty())
        environment.append("ID_SERIAL_SHORT=" + serial);
    auto helper = std::make_unique<QProcess>();
    helper->setEnvironment(environment);
    helper->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    helper->start(QStringLiteral(PORT_NUMBER_HELPER),
        {"-s", root("state"), "-r", root("run"), "-y", root("sys"), "-d", root("dev")});
    return helper;
}

QString PortNumberTest::plug(const QString &adapter) const
{
    const auto helper = start(adapter);
    helper->waitForFinished();
    const QString number = QString::fromLatin1(helper->readAllStandardOutput()).trimmed();
    return helper->exitCode() == 0 ? number : QString();
}

void PortNumberTest::numbersStay_data()
{
    // "A1@2=3": the adapter gets the number 3; "-A1@2" pulls it
    columns<QString>({"story"});
    QTest::newRow("with the serial number")
        << "A1@1=1 A2@2=2 A1@1=1 -A1@1 -A2@2 A2@1=2 A3@3=3 A1@2=1 reboot A3@1=3 A1@3=1";
    QTest::newRow("with the socket, where there is none") << "@1.1=1 @1.1.1=2 reboot @1.1.1=2 @1.1=1";
    QTest::newRow("with the socket, where it is shared")
        << "0001@1=1 0001@2=2 0001@1=1 reboot 0001@2=2 0001@1=1 -0001@1 0001@3=3 0001@1=1";
    // The place where an adapter was last seen is no sign that it is still there.
    QTest::newRow("in whose socket another sits now") << "A1@1=1 -A1@1 A2@1=2 A1@2=1 reboot A1@5=1";
    QTest::newRow("each port of one adapter") << "A1@1:0=1 A1@1:1=2 A1@1:0:01=3 A1@1:0=1";
}

void PortNumberTest::numbersStay()
{
    QFETCH(QString, story);
    const QStringList steps = story.split(' ');
    for (const QString &step : steps) {
        if (step == "reboot"_s)
            reboot();
        else if (step.startsWith('-'))
            unplug(deviceOf(step));
        else
            QVERIFY2(plug(step.section('=', 0, 0)) == step.section('=', 1), qPrintable(step));
    }
}

void PortNumberTest::refusesWhatItCannotTell()
{
    QVERIFY(QFile::link("ttyS0"_s, root("dev/COM1"))); // somebody else's
    for (int time = 0; time < 2; ++time)
        QCOMPARE(plug("A 1\n2 serial x@1"_s), "2"_s);
    QProcess helper;
    helper.setEnvironment({"DEVPATH=/devices/x"});
    helper.start(QStringLiteral(PORT_NUMBER_HELPER), {"-s", machine->path(), "-r", machine->path()});
    helper.waitForFinished();
    QVERIFY(helper.exitCode() != 0 && helper.readAllStandardOutput().isEmpty());
}

// Early in the start of a machine nothing but the run folder can be written.
void PortNumberTest::knownNumberNeedsNoWriting()
{
    QCOMPARE(plug("A1@1"_s), "1"_s);
    reboot();
    const QByteArray before = contents(root("state/ports"));
    QVERIFY(QDir().mkpath(root("state/ports.new"))); // no file can be made of that name
    QCOMPARE(plug("A1@1"_s) + plug("A2@2"_s), "1"_s);
    QCOMPARE(contents(root("state/ports")), before);
}

void PortNumberTest::twoAtOnceGetTwoNumbers()
{
    std::vector<std::unique_ptr<QProcess>> helpers;
    for (int i = 0; i < 12; ++i)
        helpers.push_back(start("A%1@%1"_s.arg(i)));
    QSet<QByteArray> numbers;
    for (const auto &helper : helpers) {
        QVERIFY(helper->waitForFinished() && helper->exitCode() == 0);
        numbers.insert(helper->readAllStandardOutput());
    }
    QCOMPARE(numbers.size(), 12);
}

QTEST_GUILESS_MAIN(PortNumberTest)
#include "tst_portnumber.moc"
