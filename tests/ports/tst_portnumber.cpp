#include "support/files.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// A USB serial adapter as it shows itself to the system in one socket.
struct Adapter {
    QString serial; // empty: it has none
    QString socket;
    QString port = QString(); // of an adapter with several
    QString interface = QStringLiteral("00");

    QString path() const { return QStringLiteral("/devices/usb/%1/%2/tty%3").arg(socket, interface, port); }
};

} // namespace

/// A machine with sockets, whose helper gives each adapter its number.
class PortNumberTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void numbersStay_data();
    void numbersStay();
    void leavesForeignLinksAlone();
    void refusesWhatItCannotTell();
    void knownNumberNeedsNoWriting();
    void twoAtOnceGetTwoNumbers();

private:
    QString root() const { return machine->path(); }
    QProcess *start(const Adapter &adapter);
    QString plug(const Adapter &adapter);
    void unplug(const Adapter &adapter);
    void reboot();
    void tell(const QString &story);

    std::unique_ptr<QTemporaryDir> machine;
    QVector<Adapter> present;
};

void PortNumberTest::init()
{
    present.clear();
    machine = std::make_unique<QTemporaryDir>();
    QVERIFY(machine->isValid());
    QVERIFY(QDir(root()).mkpath(QStringLiteral("dev")));
}

QProcess *PortNumberTest::start(const Adapter &adapter)
{
    QDir(root()).mkpath(QStringLiteral("sys") + adapter.path());
    auto *helper = new QProcess(this);
    QStringList environment = {QStringLiteral("DEVPATH=") + adapter.path(),
        QStringLiteral("ID_PATH=pci-0000:00:14.0-usb-0:") + adapter.socket,
        QStringLiteral("ID_VENDOR_ID=0403"), QStringLiteral("ID_MODEL_ID=6001"),
        QStringLiteral("ID_USB_INTERFACE_NUM=") + adapter.interface,
        QStringLiteral("VARNELGRAPH_PORT=") + adapter.port};
    if (!adapter.serial.isEmpty())
        environment.append(QStringLiteral("ID_SERIAL_SHORT=") + adapter.serial);
    helper->setEnvironment(environment);
    helper->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    helper->start(QStringLiteral(PORT_NUMBER_HELPER),
        {QStringLiteral("-s"), root() + QStringLiteral("/state"), QStringLiteral("-r"),
            root() + QStringLiteral("/run"), QStringLiteral("-y"), root() + QStringLiteral("/sys"),
            QStringLiteral("-d"), root() + QStringLiteral("/dev")});
    return helper;
}

/// The number that the adapter gets when it is plugged in; empty when it gets none.
QString PortNumberTest::plug(const Adapter &adapter)
{
    const std::unique_ptr<QProcess> helper(start(adapter));
    present.append(adapter);
    helper->waitForFinished();
    const QString number = QString::fromLatin1(helper->readAllStandardOutput()).trimmed();
    return helper->exitCode() == 0 ? number : QString();
}

void PortNumberTest::unplug(const Adapter &adapter)
{
    QDir(root() + QStringLiteral("/sys") + adapter.path()).removeRecursively();
}

void PortNumberTest::reboot()
{
    for (const Adapter &adapter : qAsConst(present))
        unplug(adapter);
    QDir(root() + QStringLiteral("/run")).removeRecursively();
}

/// Steps of a story: "A1@2:0:01=3" plugs the adapter of serial number A1, port 0 and interface 01 into socket
/// 2 and expects the number 3, "-A1@2" pulls it.
void PortNumberTest::tell(const QString &story)
{
    const QStringList steps = story.split(QLatin1Char(' '));
    for (const QString &step : steps) {
        if (step == QLatin1String("reboot")) {
            reboot();
            continue;
        }
        const bool leaves = step.startsWith(QLatin1Char('-'));
        const QString place = step.section(QLatin1Char('@'), 1).section(QLatin1Char('='), 0, 0);
        Adapter adapter = {step.mid(leaves).section(QLatin1Char('@'), 0, 0),
            place.section(QLatin1Char(':'), 0, 0), place.section(QLatin1Char(':'), 1, 1)};
        if (place.count(QLatin1Char(':')) == 2)
            adapter.interface = place.section(QLatin1Char(':'), 2);
        if (leaves)
            unplug(adapter);
        else
            QVERIFY2(plug(adapter) == step.section(QLatin1Char('='), 1), qPrintable(step));
    }
}

void PortNumberTest::numbersStay_data()
{
    QTest::addColumn<QString>("story");
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
    tell(story);
}

void PortNumberTest::leavesForeignLinksAlone()
{
    QVERIFY(QFile::link(QStringLiteral("ttyS0"), root() + QStringLiteral("/dev/COM1")));
    QCOMPARE(plug({"A1", "1"}), QStringLiteral("2"));
}

void PortNumberTest::refusesWhatItCannotTell()
{
    Adapter strange = {"A 1\n2 serial x", "1"};
    QCOMPARE(plug(strange), QStringLiteral("1"));
    QCOMPARE(plug(strange), QStringLiteral("1"));
    QProcess helper;
    helper.setEnvironment({QStringLiteral("DEVPATH=/devices/x")});
    helper.start(
        QStringLiteral(PORT_NUMBER_HELPER), {QStringLiteral("-s"), root(), QStringLiteral("-r"), root()});
    helper.waitForFinished();
    QVERIFY(helper.exitCode() != 0);
    QCOMPARE(helper.readAllStandardOutput(), QByteArray());
}

// Early in the start of a machine nothing but the run folder can be written.
void PortNumberTest::knownNumberNeedsNoWriting()
{
    const Adapter known = {"A1", "1"};
    QCOMPARE(plug(known), QStringLiteral("1"));
    reboot();
    const QString registry = root() + QStringLiteral("/state/ports");
    const QByteArray before = contents(registry);
    QVERIFY(QDir(root()).mkpath(QStringLiteral("state/ports.new"))); // no file can be made of that name
    QCOMPARE(plug(known), QStringLiteral("1"));
    QCOMPARE(plug({"A2", "2"}), QString());
    QCOMPARE(contents(registry), before);
}

void PortNumberTest::twoAtOnceGetTwoNumbers()
{
    QVector<QProcess *> helpers;
    for (int i = 0; i < 12; ++i)
        helpers.append(start({QStringLiteral("A%1").arg(i), QString::number(i)}));
    QSet<QByteArray> numbers;
    for (QProcess *helper : qAsConst(helpers)) {
        QVERIFY(helper->waitForFinished());
        QCOMPARE(helper->exitCode(), 0);
        numbers.insert(helper->readAllStandardOutput());
    }
    QCOMPARE(numbers.size(), helpers.size());
    qDeleteAll(helpers);
}

QTEST_GUILESS_MAIN(PortNumberTest)
#include "tst_portnumber.moc"
