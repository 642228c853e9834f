#include "files/datafileloader.h"

#include "data/systemmemory.h"
#include "documents/loadoutcome.h"
#include "support/asnobody.h"
#include "support/columns.h"
#include "support/files.h"
#include "support/limits.h"

#include <QBuffer>
#include <QDir>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <csignal>
#include <fcntl.h>
#include <optional>
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
    void initTestCase() { QLocale::setDefault(QLocale(QStringLiteral("de_DE"))); } // files follow none
    // Named by how the file ends.
    void outcomes_data()
    {
        columns<QString, QByteArray, QString>({"name", "bytes", "outcome"});
        const auto rows = [](const QString &name, const char *outcome, const QByteArrayList &files) {
            for (const QByteArray &bytes : files)
                QTest::newRow((outcome + (": " + bytes.right(70))).simplified())
                    << name << bytes << QString::fromLatin1(outcome);
        };
        const QByteArray line = recordLine(0);
        const QByteArray lines = line + '\n' + line + '\n';
        const QByteArray two = "#c0605 00123,25200+02000,025,01234";
        const QByteArray gap(300000, ' '); // longer than what is read at once

        // A last line without its end may be cut short: within the cells, a balance or a number.
        rows(acp, "Data loaded from disk. 1000 ms, 2 records",
            {lines, lines + line.left(90), lines + line.chopped(1), lines + line.chopped(2),
                two + '\n' + two + '\n' + two.chopped(1), recordLine(100000) + '\n' + recordLine(5), // whole
                line + '\n' + two, line + "\njunk\n#02C\n\n" + line.mid(1) + '\n' + line + '\n',
                "6\ncharge\n3\n0 12.5 1.5 25 100\n1 12.6 1.5 25 101\n",
                "6\nc\n3\n# 1\n \t0\v1\f1 1 1\r\n#\n1 1 1 1 1", "6\nc\n99\n0 1 1 1 1\n1 1 1 1 1\n",
                "6\nc\n-5\n0 1 1 1 1\n1 1 1 1 1\n"});
        rows(acp, "No data in file. 1000 ms, 1 records", {line, "6\nc\n3\n0 12.5 1.5 25 100\n\n \r\n"});
        rows(acp, "No data in file. 1000 ms, 0 records",
            {"", "#\n", "#c060000\n", "6\nc\n3", "6\nc\n100\n0 1 1 1 1\n1 1 1 1 1\n"}); // the count too wide
        rows(acp, "Format error in x.acp 2000 ms, line 1", {"\n", "x\nc\n3\n0 12.5 1.5 25 100\n"});
        rows(acp, "Format error in x.acp 2000 ms, line 2", {"6\nC\n3\n", "6\n\n3\n", "6\nc\n"});
        rows(acp, "Format error in x.acp 2000 ms, line 3", {"6\nc\n3000000000\n", "6\nc\n" + gap + "3\n"});
        rows(acp, "Format error in x.acp 8000 ms, line 4",
            {"6\nc\n3\n0 12.5 1.5 25 100 1\n", "6\nc\n3\n0 12.5" + gap + "1.5 25 100\n"});
        rows(acp, "Format error in x.acp 8000 ms, line 5",
            {"6\nc\n3\n\n0 12.5 1.5 25 100\n", "6\nc\n3\n0 1 1 1 1\n0 12.5 1.5 25\n"});
        rows(abp, "Data loaded from disk. 1000 ms, 2 records",
            {"6\ntandor\n2\n4000 10 4001 20\n4000 10 4001 20\n"});
        rows(abp, "No data in file. 1000 ms, 1 records",
            {"6\nt\n99\n" + QByteArray("4000 10 ").repeated(99) + '\n'});
        rows(abp, "No data in file. 1000 ms, 0 records", {"6\nt\nx\n2\n", "9\nt\n1\n4000 10\n"});
        rows(abp, "Format error in x.ABP 2000 ms, line 1", {""});
        rows(abp, "Format error in x.ABP 2000 ms, line 2", {"6\nc\n2\n4000 10 4001 20\n", "6\nt\n"});
        rows(abp, "Format error in x.ABP 8000 ms, line 4",
            {"6\nt\n2\n4000 10 4001\n", "6\nt\n2\n4000 10 4001 20.5\n", "6\nt\n0\n4000 10\n",
                "6\nt\n-5\n4000 10\n", "6\nt\n2000000000\n4000 10\n", "6\nt\n1\n3000000000 10\n"});
    }

    void outcomes()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        const auto loader = loaderOf(bytes, name);
        while (loader->readSome(0)) { }
        const LoadOutcome said = loadOutcome(*loader);
        const bool loaded = loader->status() == DataFileLoader::Status::Loaded;
        QCOMPARE(loader->reason(),
            loaded ? QString() : QStringLiteral("format error in line %1").arg(loader->errorLine()));
        QCOMPARE(loader->progress(), 1.0);
        const int count = loader->recordCount();
        QCOMPARE(loader->takeRecords().size(), count);
        QTEST(QStringLiteral("%1 %2 ms, ").arg(said.text).arg(said.timeout)
                + (loaded ? QStringLiteral("%1 records").arg(count)
                          : QStringLiteral("line %1").arg(loader->errorLine())),
            "outcome");
    }

    void recordLines()
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

    void chargerColumns()
    {
        const auto read = [](const char *header) {
            const auto loader = loaderOf(header + QByteArray(" 3725\t12.3456  -1.5 25.35 -7\n"), acp);
            loader->readAll();
            const RecordList records = loader->takeRecords();
            if (records.isEmpty())
                return QString();
            const Varnel3Data &r = records.first();
            return QStringLiteral("%1 %2 %3 %4 t=%5 U=%6 I=%7 T=%8 E=%9")
                .arg(Varnel3Data::deviceName(r.device), Varnel3Data::modeName(r.mode),
                    QString::number(r.cellCount), Varnel3Data::cellTypeName(r.cellType),
                    QString::number(r.time), QString::number(r.voltage), QString::number(r.current),
                    QString::number(r.temperature), QString::number(r.energy));
        };
        const QString figures = QStringLiteral(" t=3725 U=12346 I=1500 T=254 E=-7");
        QCOMPARE(read("1\ncharge\n8\n"), "Varnel 2+ Charge 8 NiCd" + figures);
        QCOMPARE(read(" 6 \r\nd\r\n12\r\n"), "Varnel 2+ Discharge 12 LiPo" + figures);
        QCOMPARE(read("12\nf\n1\n"), "Varnel 2+ Discharge 1 LiHV" + figures); // no sign says otherwise
        QCOMPARE(read("13\nc\n1\n"), QString());
    }

    // In volts, and what becomes of it in millivolts; -1 is a format error.
    void chargerNumbers()
    {
        const std::pair<const char *, int> numbers[]
            = {{"12", 12000}, {"0.0005", 1}, {"0.0004999", 0}, {"-0.25", -250}, {"+0.25", 250},
                {"1.25e1", 12500}, {"12.34549999999", 12345}, {".5", 500}, {"5.", 5000},
                {"2147483", 2147483000}, {"2147484", -1}, {"3000000", -1}, {"1e400", -1}, {"NaN", -1},
                {"inf", -1}, {"12,5", -1}, {"1.2.3", -1}, {".", -1}, {"+", -1}, {"+-5", -1}, {"0x10", -1}};
        for (const auto &number : numbers) {
            const auto loader = loaderOf(QByteArray("6\nc\n3\n0 ") + number.first + " 1 1 1\n", acp);
            const bool loaded = loader->readAll();
            QVERIFY2((loaded ? loader->takeRecords().last().voltage : -1) == number.second, number.first);
        }
    }

    void balancerColumns()
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
        QCOMPARE(last.cells[1].balance, 0); // beyond 100 per cent
        QCOMPARE(last.cells[0].balanceCharge, 50 * 750 * 10);
    }

    // The fourth line, and the balancing current that it stands for; -1 is a format error.
    void balancerState()
    {
        const std::pair<const char *, int> states[] = {
            {"", 500}, {"1\n", 250}, {" 2\r\n", 500}, {"3\n", 750}, {"4\n", -1}, {"0\n", -1}, {"# 1\n", 500}};
        for (const auto &state : states) {
            const auto loader = loaderOf(QByteArray("7\nt\n1\n") + state.first + "3300 0\n", abp);
            const bool loaded = loader->readAll();
            QCOMPARE(loadOutcome(*loader).timeout, loaded ? 1000 : 8000);
            QCOMPARE(loaded ? loader->takeRecords().last().ballansingCurrent : -1, state.second);
        }
    }

    void chargeCountsFromTheStart()
    {
        const auto loader = loaderOf(recordLine(3600) + '\n' + recordLine(7200), acp);
        QVERIFY(loader->readAll());
        const RecordList records = loader->takeRecords();
        QCOMPARE(records[0].cells[1].balanceCharge, 20 * 500 * 3600); // the time before it counts as well
        QCOMPARE(records[1].cells[1].balanceCharge, 20 * 500 * 7200);
        QCOMPARE(records[1].balancedMah, 200);
    }

    void whatIsNoFile_data()
    {
        QTest::addColumn<QString>("kind");
        for (const char *kind : {"missing", "folder", "fifo", "forbidden", "device"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }

    void whatIsNoFile()
    {
        QFETCH(QString, kind);
        QTemporaryDir folder;
        QString name = folder.filePath(QStringLiteral("100%1.acp"));
        if (kind == QLatin1String("folder"))
            QVERIFY(QDir().mkdir(name));
        else if (kind == QLatin1String("fifo"))
            QCOMPARE(::mkfifo(QFile::encodeName(name).constData(), 0600), 0);
        else if (kind == QLatin1String("forbidden"))
            QVERIFY(writeFile(name, "x") && QFile::setPermissions(name, QFileDevice::Permissions()));
        else if (kind == QLatin1String("device"))
            name = QStringLiteral("/dev/zero");
        std::optional<AsNobody> mayNotReadAll;
        if (kind == QLatin1String("forbidden"))
            mayNotReadAll.emplace();
        DataFileLoader loader(name);
        QVERIFY(!loader.readAll());
        QCOMPARE(loader.status(), DataFileLoader::Status::CanNotOpen);
        QCOMPARE(loadOutcome(loader).text, QStringLiteral("Can not open file ") + name);
        QCOMPARE(loadOutcome(loader).timeout, 0);
        QVERIFY(!loader.reason().isEmpty());
    }

    void hugeLine()
    {
        QTemporaryDir folder;
        QFile file(folder.filePath(acp));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(recordLine(0) + "\n#");
        QVERIFY(file.resize(Q_INT64_C(300) << 20)); // sparse
        file.seek(file.size());
        file.write("\n" + recordLine(5) + "\n");
        file.close();
        DataFileLoader loader(file.fileName());
        double progress = 0;
        int slices = 0;
        for (; loader.readSome(5); ++slices) {
            QVERIFY(loader.progress() >= progress && loader.progress() <= 1.0);
            progress = loader.progress();
            QVERIFY(loadOutcome(loader).text.isEmpty());
        }
        QVERIFY(slices > 1 && progress > 0.5);
        QCOMPARE(loader.takeRecords().size(), 2);
    }

    void memoryRunsOut_data()
    {
        QTest::addColumn<bool>("toldBefore");
        QTest::newRow("the system tells how much is left") << true;
        QTest::newRow("the system refuses") << false;
    }

    // A short line becomes a record of twenty times its size.
    void memoryRunsOut()
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
    void slowDiskIsNotWaitedFor()
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

    void changedMeanwhile_data()
    {
        columns<qint64, bool, bool>({"newSize", "isJournal", "loads"});
        QTest::newRow("untouched") << qint64(-1) << false << true;
        QTest::newRow("cut") << qint64(1000) << false << false;
        QTest::newRow("cut journal") << qint64(1000) << true << false;
        QTest::newRow("longer") << qint64(9000000) << false << false;
        QTest::newRow("growing journal") << qint64(9000000) << true << true;
    }

    // The file is longer than what is read ahead.
    void changedMeanwhile()
    {
        QFETCH(qint64, newSize);
        QFETCH(bool, isJournal);
        QTemporaryDir folder;
        QFile file(folder.filePath(acp));
        QVERIFY(
            file.open(QIODevice::WriteOnly) && file.write((recordLine(1) + '\n').repeated(20000)) > 3000000);
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
};

QTEST_GUILESS_MAIN(TestDataFileLoader)
#include "tst_datafileloader.moc"
