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
    void staysWithItsSerialNumber();
    void staysWithItsSocketWhereThereIsNoSerialNumber();
    void sharedSerialNumberGoesBySocket();
    void anotherAdapterInTheSocketOfOneThatMoved();
    void portsOfOneAdapterDiffer();
    void leavesForeignLinksAlone();
    void refusesWhatItCannotTell();
    void knownNumberNeedsNoWriting();
    void twoAtOnceGetTwoNumbers();

private:
    QString root() const { return machine->path(); }
    QProcess *start(const Adapter &adapter);
    QString plug(const Adapter &adapter);
    void unplug(const Adapter &adapter);
    void reboot(const QVector<Adapter> &present);

    std::unique_ptr<QTemporaryDir> machine;
};

void PortNumberTest::init()
{
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
    helper->waitForFinished();
    const QString number = QString::fromLatin1(helper->readAllStandardOutput()).trimmed();
    return helper->exitCode() == 0 ? number : QString();
}

void PortNumberTest::unplug(const Adapter &adapter)
{
    QDir(root() + QStringLiteral("/sys") + adapter.path()).removeRecursively();
}

void PortNumberTest::reboot(const QVector<Adapter> &present)
{
    for (const Adapter &adapter : present)
        unplug(adapter);
    QDir(root() + QStringLiteral("/run")).removeRecursively();
}

void PortNumberTest::staysWithItsSerialNumber()
{
    const Adapter first = {"A1", "1"};
    const Adapter second = {"A2", "2"};
    QCOMPARE(plug(first), QStringLiteral("1"));
    QCOMPARE(plug(second), QStringLiteral("2"));
    QCOMPARE(plug(first), QStringLiteral("1")); // an event for one that is there
    unplug(first);
    unplug(second);
    QCOMPARE(plug({"A2", "1"}), QStringLiteral("2"));
    QCOMPARE(plug({"A3", "3"}), QStringLiteral("3"));
    QCOMPARE(plug({"A1", "2"}), QStringLiteral("1"));
    reboot({{"A2", "1"}, {"A1", "2"}, {"A3", "3"}});
    QCOMPARE(plug({"A3", "1"}), QStringLiteral("3"));
    QCOMPARE(plug({"A1", "3"}), QStringLiteral("1"));
}

void PortNumberTest::staysWithItsSocketWhereThereIsNoSerialNumber()
{
    const Adapter first = {"", "1.1"};
    const Adapter second = {"", "1.1.1"};
    QCOMPARE(plug(first), QStringLiteral("1"));
    QCOMPARE(plug(second), QStringLiteral("2"));
    reboot({first, second});
    QCOMPARE(plug(second), QStringLiteral("2"));
    QCOMPARE(plug(first), QStringLiteral("1"));
}

// Whatever the order in which the system finds them after a reboot.
void PortNumberTest::sharedSerialNumberGoesBySocket()
{
    const Adapter first = {"0001", "1"};
    const Adapter second = {"0001", "2"};
    QCOMPARE(plug(first), QStringLiteral("1"));
    QCOMPARE(plug(second), QStringLiteral("2"));
    QCOMPARE(plug(first), QStringLiteral("1"));
    reboot({first, second});
    QCOMPARE(plug(second), QStringLiteral("2"));
    QCOMPARE(plug(first), QStringLiteral("1"));
    unplug(first);
    QCOMPARE(plug({"0001", "3"}), QStringLiteral("3"));
    QCOMPARE(plug(first), QStringLiteral("1"));
}

// The place where an adapter was last seen is no sign that it is still there.
void PortNumberTest::anotherAdapterInTheSocketOfOneThatMoved()
{
    const Adapter moved = {"A1", "1"};
    QCOMPARE(plug(moved), QStringLiteral("1"));
    unplug(moved);
    QCOMPARE(plug({"A2", "1"}), QStringLiteral("2"));
    QCOMPARE(plug({"A1", "2"}), QStringLiteral("1"));
    reboot({{"A2", "1"}, {"A1", "2"}});
    QCOMPARE(plug({"A1", "5"}), QStringLiteral("1"));
}

void PortNumberTest::portsOfOneAdapterDiffer()
{
    QCOMPARE(plug({"A1", "1", "0"}), QStringLiteral("1"));
    QCOMPARE(plug({"A1", "1", "1"}), QStringLiteral("2"));
    QCOMPARE(plug({"A1", "1", "0", "01"}), QStringLiteral("3"));
    QCOMPARE(plug({"A1", "1", "0"}), QStringLiteral("1"));
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
    reboot({known});
    const QString registry = root() + QStringLiteral("/state/ports");
    QFile file(registry);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    QVERIFY(QDir(root()).mkpath(QStringLiteral("state/ports.new"))); // no file can be made of that name
    QCOMPARE(plug(known), QStringLiteral("1"));
    QCOMPARE(plug({"A2", "2"}), QString());
    file.seek(0);
    QCOMPARE(file.readAll(), before);
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
