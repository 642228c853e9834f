#include "files/datafileloader.h"

#include "data/systemmemory.h"
#include "documents/loadoutcome.h"
#include "support/columns.h"
#include "support/limits.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QTest>

#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const char cellFields[] = ",4100,1,4101,2,4102,3,0000,0,0000,0,0000,0,0000,0,0000,0"
                          ",0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0";

QByteArray recordLine(int time)
{
    return "#02C05____B2," + QByteArray::number(time).rightJustified(5, '0') + ",08200,02000,025,00150,00045"
        + cellFields;
}

std::unique_ptr<DataFileLoader> loaderOf(const QByteArray &bytes, const QString &name)
{
    auto buffer = std::make_unique<QBuffer>();
    buffer->setData(bytes);
    buffer->open(QIODevice::ReadOnly);
    return std::make_unique<DataFileLoader>(std::move(buffer), name);
}

const QString acp = QStringLiteral("x.acp");
const QString abp = QStringLiteral("x.ABP");

} // namespace

/// Files of the three dialects, whole, damaged and hostile.
class TestDataFileLoader : public QObject {
    Q_OBJECT

private slots:
    void outcomes_data();
    void outcomes();
    void recordLines();
    void chargerColumns_data();
    void chargerColumns();
    void chargerNumbers_data();
    void chargerNumbers();
    void balancerColumns();
    void balancerState_data();
    void balancerState();
    void chargeCountsFromTheStart();
    void whatIsNoFile_data();
    void whatIsNoFile();
    void binaryJunk();
    void hugeLine();
    void memoryRunsOut_data();
    void memoryRunsOut();
    void slowDiskIsNotWaitedFor();
    void changedMeanwhile_data();
    void changedMeanwhile();
};

// NOLINTNEXTLINE(readability-function-size): a table
void TestDataFileLoader::outcomes_data()
{
    columns<QString, QByteArray, QString, int, int, int>(
        {"name", "bytes", "text", "timeout", "count", "errorLine"});
    const auto good = [](const char *what, const QString &name, const QByteArray &bytes, int count) {
        QTest::newRow(what) << name << bytes << QStringLiteral("Data loaded from disk.") << 1000 << count
                            << 0;
    };
    const auto none = [](const char *what, const QString &name, const QByteArray &bytes, int count) {
        QTest::newRow(what) << name << bytes << QStringLiteral("No data in file.") << 1000 << count << 0;
    };
    const auto bad
        = [](const char *what, const QString &name, const QByteArray &bytes, int timeout, int line) {
              QTest::newRow(what) << name << bytes << "Format error in " + name << timeout << 0 << line;
          };
    const QByteArray line = recordLine(0);

    none("empty", acp, QByteArray(), 0);
    none("one record", acp, line, 1);
    good("two records", acp, line + '\n' + line, 2);
    good("mark and windows ends", acp, "\xef\xbb\xbf" + line + "\r\n" + line + "\r\n", 2);
    good("ends within a line", acp, line + '\n' + line + '\n' + line.left(90), 2);
    good("ends before the last balance", acp, line + '\n' + line + '\n' + line.chopped(1), 2);
    const QByteArray two = "#c0605 00123,25200+02000,025,01234";
    good("ends within a number", acp, two + '\n' + two + '\n' + two.chopped(1), 2);
    good("ends with a shorter line that is whole", acp, recordLine(100000) + '\n' + recordLine(5), 2);
    good("ends with a line of another device", acp, line + '\n' + two, 2);
    good("damaged lines between", acp, line + "\njunk\n#02C\n\n" + line.mid(1) + '\n' + line + '\n', 2);
    good("other dialects between", acp, line + "\n#c0605 00123,25200+02000,025,01234\n", 2);
    none("hash only", acp, "#\n", 0);
    good("charger", acp, "6\ncharge\n3\n0 12.5 1.5 25 100\n1 12.6 1.5 25 101\n", 2);
    none("charger, blank lines at the end", acp, "6\nc\n3\n0 12.5 1.5 25 100\n\n \r\n", 1);
    bad("charger, blank line between", acp, "6\nc\n3\n\n0 12.5 1.5 25 100\n", 8000, 5);
    good("charger, comment", acp, "6\nc\n3\n# 1\n0 1 1 1 1\n#\n1 1 1 1 1", 2);
    bad("charger, chemistry no number", acp, "x\nc\n3\n0 12.5 1.5 25 100\n", 2000, 1);
    bad("charger, mode", acp, "6\nC\n3\n0 12.5 1.5 25 100\n", 2000, 2);
    bad("charger, no mode", acp, "6\n\n3\n0 12.5 1.5 25 100\n", 2000, 2);
    bad("charger, count", acp, "6\nc\n3000000000\n0 12.5 1.5 25 100\n", 2000, 3);
    bad("charger, cut header", acp, "6\nc\n", 2000, 2);
    none("charger, header only", acp, "6\nc\n3", 0);
    bad("charger, four fields", acp, "6\nc\n3\n0 1 1 1 1\n0 12.5 1.5 25\n", 8000, 5);
    bad("charger, six fields", acp, "6\nc\n3\n0 12.5 1.5 25 100 1\n", 8000, 4);
    good("charger, count of 99", acp, "6\nc\n99\n0 1 1 1 1\n1 1 1 1 1\n", 2);
    good("charger, count of -5", acp, "6\nc\n-5\n0 1 1 1 1\n1 1 1 1 1\n", 2);
    none("charger, count too wide", acp, "6\nc\n100\n0 1 1 1 1\n1 1 1 1 1\n", 0);
    good("balancer", abp, "6\ntandor\n2\n4000 10 4001 20\n4000 10 4001 20\n", 2);
    bad("balancer, empty", abp, QByteArray(), 2000, 1);
    bad("balancer, mode", abp, "6\nc\n2\n4000 10 4001 20\n", 2000, 2);
    bad("balancer, odd fields", abp, "6\nt\n2\n4000 10 4001\n", 8000, 4);
    bad("balancer, decimal", abp, "6\nt\n2\n4000 10 4001 20.5\n", 8000, 4);
    bad("balancer, no cells", abp, "6\nt\n0\n4000 10\n", 8000, 4);
    bad("balancer, -5 cells", abp, "6\nt\n-5\n4000 10\n", 8000, 4);
    none("balancer, 99 cells", abp, "6\nt\n99\n" + QByteArray("4000 10 ").repeated(99) + '\n', 1);
    bad("balancer, 2000000000 cells", abp, "6\nt\n2000000000\n4000 10\n", 8000, 4);
    bad("balancer, 3000000000 cells", abp, "6\nt\n3000000000\n4000 10\n", 8000, 4);
    none("balancer, count no number, no data", abp, "6\nt\nx\n2\n", 0);
    bad("balancer, beyond 32 bits", abp, "6\nt\n1\n3000000000 10\n", 8000, 4);
    none("balancer, unknown chemistry", abp, "9\nt\n1\n4000 10\n", 0);
}

void TestDataFileLoader::outcomes()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    const auto loader = loaderOf(bytes, name);
    while (loader->readSome(0)) { }
    QTEST(loadOutcome(*loader).text, "text");
    QTEST(loadOutcome(*loader).timeout, "timeout");
    QTEST(loader->errorLine(), "errorLine");
    QCOMPARE(loader->reason().isEmpty(), loader->status() == DataFileLoader::Status::Loaded);
    QCOMPARE(loader->progress(), 1.0);
    QTEST(loader->takeRecords().size(), "count");
}

void TestDataFileLoader::recordLines()
{
    const QByteArray resistances = "!10,20,30,40,50,60,70,80,90,100,110,120,130,140,150,160";
    const auto loader = loaderOf(resistances + '\n' + recordLine(0), acp);
    QVERIFY(!loader->readAll()); // a '!' line at the beginning makes it no record file

    const auto whole
        = loaderOf(recordLine(5) + '\n' + resistances + "\r\n" + recordLine(10) + " \n!1,2,3,4,5\n", acp);
    QVERIFY(whole->readAll());
    const RecordList records = whole->takeRecords();
    QCOMPARE(records.size(), 2);
    QCOMPARE(records[0].cells[1].resistance, 2.0);
    QVERIFY(!records[1].resistanceValid);
    QCOMPARE(records[1].time, 10);
    QCOMPARE(records[1].cells[1].voltage, 4101);

    const auto cut = loaderOf(recordLine(5) + '\n' + resistances, acp); // the last value may lack a digit
    QVERIFY(cut->readAll());
    QVERIFY(!cut->takeRecords().last().resistanceValid);
}

void TestDataFileLoader::chargerColumns_data()
{
    QTest::addColumn<QByteArray>("header");
    QTest::addColumn<QString>("text");
    QTest::newRow("charge") << QByteArray("1\ncharge\n8\n") << "Charge NiCd 8";
    QTest::newRow("discharge") << QByteArray(" 6 \r\nd\r\n12\r\n") << "Discharge LiPo 12";
    QTest::newRow("forming is a discharge: no sign says otherwise")
        << QByteArray("12\nf\n1\n") << "Discharge LiHV 1";
    QTest::newRow("unknown chemistry: no record") << QByteArray("13\nc\n1\n") << "";
}

void TestDataFileLoader::chargerColumns()
{
    QFETCH(QByteArray, header);
    const auto loader = loaderOf(header + " 3725\t12.3456  -1.5 25.35 -7\n", acp);
    QVERIFY(loader->readAll());
    const RecordList records = loader->takeRecords();
    QString text;
    if (!records.isEmpty()) {
        const Varnel3Data &r = records.first();
        QCOMPARE(r.device, int(Varnel3Data::Varnel2Plus));
        QCOMPARE(QVector<int>({r.time, r.hour, r.voltage, r.current, r.temperature, r.energy}),
            QVector<int>({3725, 1, 12346, 1500, 254, -7}));
        text = QStringLiteral("%1 %2 %3")
                   .arg(Varnel3Data::modeName(r.mode), Varnel3Data::cellTypeName(r.cellType))
                   .arg(r.cellCount);
    }
    QTEST(text, "text");
}

void TestDataFileLoader::chargerNumbers_data()
{
    QTest::addColumn<QByteArray>("voltage");
    QTest::addColumn<int>("millivolts"); // -1 is a format error
    QTest::newRow("whole") << QByteArray("12") << 12000;
    QTest::newRow("half") << QByteArray("0.0005") << 1;
    QTest::newRow("just below half") << QByteArray("0.0004999") << 0;
    QTest::newRow("negative") << QByteArray("-0.25") << -250;
    QTest::newRow("exponent") << QByteArray("1.25e1") << 12500;
    QTest::newRow("many digits") << QByteArray("12.34549999999") << 12345;
    QTest::newRow("point first") << QByteArray(".5") << 500;
    QTest::newRow("point last") << QByteArray("5.") << 5000;
    QTest::newRow("largest") << QByteArray("2147483") << 2147483000;
    QTest::newRow("beyond 32 bits") << QByteArray("3000000") << -1;
    QTest::newRow("beyond doubles") << QByteArray("1e400") << -1;
    QTest::newRow("nan") << QByteArray("NaN") << -1;
    QTest::newRow("inf") << QByteArray("inf") << -1;
    QTest::newRow("comma") << QByteArray("12,5") << -1;
    QTest::newRow("two points") << QByteArray("1.2.3") << -1;
    QTest::newRow("only a point") << QByteArray(".") << -1;
}

void TestDataFileLoader::chargerNumbers()
{
    QFETCH(QByteArray, voltage);
    const auto loader = loaderOf("6\nc\n3\n0 " + voltage + " 1 1 1\n", acp);
    loader->readAll();
    const bool loaded = loader->status() == DataFileLoader::Status::Loaded;
    const RecordList records = loader->takeRecords();
    QTEST(loaded ? records.last().voltage : -1, "millivolts");
}

void TestDataFileLoader::balancerColumns()
{
    const auto loader
        = loaderOf("7\nt\n2\n3\n3300 0 3310 100\n# note\n33000 0 3310 0\n3301 57 3311 1000\n", abp);
    QVERIFY(loader->readAll());
    const RecordList records = loader->takeRecords();
    QCOMPARE(records.size(), 2); // the voltage of five digits is dropped, but its 5 s pass
    const Varnel3Data &first = records[0];
    QCOMPARE(first.device, int(Varnel3Data::Tandor));
    QCOMPARE(Varnel3Data::cellTypeName(first.cellType), QStringLiteral("LiFe"));
    QCOMPARE(first.ballansingCurrent, 750);
    QCOMPARE(first.voltage, 6610);
    QCOMPARE(first.cells[1].balance, 100);
    QCOMPARE(first.time, 0);
    const Varnel3Data &last = records[1];
    QCOMPARE(last.time, 10);
    QCOMPARE(last.cells[0].balance, 50);
    QCOMPARE(last.cells[1].balance, 0);
    QCOMPARE(last.cells[0].balanceCharge, 50 * 750 * 10);
}

void TestDataFileLoader::balancerState_data()
{
    QTest::addColumn<QByteArray>("fourth");
    QTest::addColumn<int>("current"); // -1 is a format error
    QTest::newRow("none") << QByteArray() << 500;
    QTest::newRow("1") << QByteArray("1\n") << 250;
    QTest::newRow("2") << QByteArray(" 2\r\n") << 500;
    QTest::newRow("3") << QByteArray("3\n") << 750;
    QTest::newRow("7") << QByteArray("7\n") << -1;
    QTest::newRow("0") << QByteArray("0\n") << -1;
    QTest::newRow("comment") << QByteArray("# 1\n") << 500;
}

void TestDataFileLoader::balancerState()
{
    QFETCH(QByteArray, fourth);
    const auto loader = loaderOf("7\nt\n1\n" + fourth + "3300 0\n", abp);
    loader->readAll();
    const bool loaded = loader->status() == DataFileLoader::Status::Loaded;
    QCOMPARE(loadOutcome(*loader).timeout, loaded ? 1000 : 8000);
    const RecordList records = loader->takeRecords();
    QTEST(loaded ? records.last().ballansingCurrent : -1, "current");
}

void TestDataFileLoader::chargeCountsFromTheStart()
{
    const auto loader = loaderOf(recordLine(3600) + '\n' + recordLine(7200), acp);
    QVERIFY(loader->readAll());
    const RecordList records = loader->takeRecords();
    QCOMPARE(records[0].cells[1].balanceCharge, 20 * 500 * 3600); // the time before it counts as well
    QCOMPARE(records[1].cells[1].balanceCharge, 20 * 500 * 7200);
    QCOMPARE(records[1].balancedMah, 200);
}

void TestDataFileLoader::whatIsNoFile_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind : {"missing", "folder", "fifo", "forbidden", "device"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void TestDataFileLoader::whatIsNoFile()
{
    QFETCH(QString, kind);
    QTemporaryDir folder;
    QString name = folder.filePath(QStringLiteral("100%1.acp"));
    if (kind == QLatin1String("folder")) {
        QVERIFY(QDir().mkdir(name));
    } else if (kind == QLatin1String("fifo")) {
        QCOMPARE(::mkfifo(QFile::encodeName(name).constData(), 0600), 0);
    } else if (kind == QLatin1String("forbidden")) {
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.setPermissions(QFileDevice::Permissions());
        if (::geteuid() == 0)
            QSKIP("root may read everything");
    } else if (kind == QLatin1String("device")) {
        name = QStringLiteral("/dev/zero");
    }
    DataFileLoader loader(name);
    QVERIFY(!loader.readAll());
    QCOMPARE(loader.status(), DataFileLoader::Status::CanNotOpen);
    QCOMPARE(loadOutcome(loader).text, QStringLiteral("Can not open file ") + name);
    QCOMPARE(loadOutcome(loader).timeout, 0);
    QVERIFY(!loader.reason().isEmpty());
}

void TestDataFileLoader::binaryJunk()
{
    QRandomGenerator random(3);
    for (const QString &name : {acp, abp}) {
        for (int round = 0; round < 200; ++round) {
            QByteArray bytes(20000, Qt::Uninitialized);
            for (char &byte : bytes)
                byte = char(random.generate());
            if (round % 2)
                bytes[0] = '#';
            const auto loader = loaderOf(bytes, name);
            loader->readAll();
            const bool taken = round % 2 && name == acp;
            QCOMPARE(
                loader->status(), taken ? DataFileLoader::Status::Loaded : DataFileLoader::Status::BadHeader);
            QVERIFY(loader->takeRecords().isEmpty());
        }
    }
}

void TestDataFileLoader::hugeLine()
{
    QTemporaryDir folder;
    QFile file(folder.filePath(acp));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(recordLine(0) + "\n#");
    QVERIFY(file.resize(Q_INT64_C(300) * 1024 * 1024)); // sparse
    file.seek(file.size());
    file.write("\n" + recordLine(5) + "\n");
    file.close();
    DataFileLoader loader(file.fileName());
    double progress = 0;
    int slices = 0;
    QElapsedTimer timer;
    for (timer.start(); loader.readSome(5); timer.restart(), ++slices) {
        QVERIFY2(timer.elapsed() < 500, qPrintable(QString::number(timer.elapsed())));
        QVERIFY(loader.progress() >= progress && loader.progress() <= 1.0);
        progress = loader.progress();
    }
    QVERIFY(slices > 1);
    QCOMPARE(loader.takeRecords().size(), 2);

    file.open(QIODevice::ReadWrite);
    file.write("x");
    file.close();
    DataFileLoader headerless(file.fileName());
    headerless.readAll();
    QCOMPARE(loadOutcome(headerless).timeout, 2000);
}

void TestDataFileLoader::memoryRunsOut_data()
{
    QTest::addColumn<bool>("toldBefore");
    QTest::newRow("the system tells how much is left") << true;
    QTest::newRow("the system refuses") << false;
}

// A short line becomes a record of twenty times its size.
void TestDataFileLoader::memoryRunsOut()
{
    QFETCH(bool, toldBefore);
    constexpr qint64 megabyte = 1 << 20;
    const QByteArray line = "#c0605 00123,25200+02000,025,01234\n";
    const auto loader = loaderOf(line.repeated(400000), acp);
    const auto next = loaderOf(line.repeated(10000), acp);
    const LargeBlock space(size_t(2048 * megabyte)); // makes the limit large, and what is kept back of it
    const AddressSpaceLimit told((toldBefore ? 64 : 1024) * megabyte);
    const WritableMemoryLimit refused((toldBefore ? 4096 : 24) * megabyte);
    const qint64 before = residentBytes();
    qint64 left = systemMemory().available;
    while (loader->readSome(1))
        left = qMin(left, systemMemory().available);
    QVERIFY(left > 64 * megabyte);
    QCOMPARE(loadOutcome(*loader).text, "Not enough memory to open " + acp);
    QCOMPARE(loader->reason(), QStringLiteral("not enough memory"));
    QCOMPARE(loader->recordCount(), 0);
    QCOMPARE(loader->takeRecords().size(), 0);
    QVERIFY(residentBytes() - before < 8 * megabyte);
    QVERIFY(next->readAll());
    const AddressSpaceLimit nothing(-16 * megabyte);
    QVERIFY(loaderOf(line, acp)->readAll()); // a short one opens all the same
}

// A lease on the file makes the system hold up whoever opens it.
void TestDataFileLoader::slowDiskIsNotWaitedFor()
{
    std::signal(SIGIO, SIG_IGN);
    QTemporaryFile file;
    QVERIFY(file.open() && file.write((recordLine(1) + '\n').repeated(3)) > 0 && file.flush());
    QCOMPARE(::fcntl(file.handle(), F_SETLEASE, F_WRLCK), 0);
    auto given = std::make_unique<DataFileLoader>(file.fileName());
    DataFileLoader loader(file.fileName());
    for (int i = 0; i < 3; ++i)
        QVERIFY(loader.readSome(1) && loader.isWaiting());
    given.reset(); // does not wait, either
    QCOMPARE(::fcntl(file.handle(), F_SETLEASE, F_UNLCK), 0);
    QTRY_VERIFY(!loader.readSome(1));
    QCOMPARE(loader.recordCount(), 3);
}

void TestDataFileLoader::changedMeanwhile_data()
{
    columns<qint64, bool, bool>({"newSize", "isJournal", "loads"});
    QTest::newRow("untouched") << qint64(-1) << false << true;
    QTest::newRow("cut") << qint64(1000) << false << false;
    QTest::newRow("cut journal") << qint64(1000) << true << false;
    QTest::newRow("longer") << qint64(9000000) << false << false;
    QTest::newRow("growing journal") << qint64(9000000) << true << true;
}

// The file is longer than what is read ahead.
void TestDataFileLoader::changedMeanwhile()
{
    QFETCH(qint64, newSize);
    QFETCH(bool, isJournal);
    QTemporaryDir folder;
    QFile file(folder.filePath(acp));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write((recordLine(1) + '\n').repeated(20000)) > 3000000);
    QVERIFY(file.flush()
        && file.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime));
    if (isJournal)
        QCOMPARE(::flock(file.handle(), LOCK_EX), 0);
    DataFileLoader loader(file.fileName());
    while (loader.progress() <= 0)
        QVERIFY(loader.readSome(0));
    QVERIFY(newSize < 0 || file.resize(newSize));
    QTEST(loader.readAll(), "loads");
    QCOMPARE(loader.reason().isEmpty(), loader.status() == DataFileLoader::Status::Loaded);
}

QTEST_GUILESS_MAIN(TestDataFileLoader)
#include "tst_datafileloader.moc"
