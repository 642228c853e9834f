#include "app/batch.h"
#include "app/commandline.h"
#include "support/pixels.h"
#include "support/columns.h"
#include "support/limits.h"

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

/// The tasks of the command line, from a data file to what they write.
class TestBatch : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void writes_data();
    void writes();
    void drawsTheSwitches();
    void fails_data();
    void fails();
    void failsForMemory();
    void refusesWithoutDisplay();

private:
    QString path(const QString &name) const { return folder.filePath(name); }
    int run(const QStringList &words) const
    {
        return runBatch(parseCommandLine(QStringList(QStringLiteral("varnelgraph")) + words));
    }

    QTemporaryDir folder;
};

void TestBatch::initTestCase()
{
    QFile data(path(QStringLiteral("a.acp")));
    QVERIFY(data.open(QIODevice::WriteOnly));
    data.write("5\nc\n2\n"); // charger columns: two cells of type 5
    for (int i = 0; i < 60; ++i)
        data.write(QByteArray::number(5 * i) + ' ' + QByteArray::number(8.0 + i * 0.002) + " 1.5 25.0 "
            + QByteArray::number(2 * i) + '\n');
    QFile broken(path(QStringLiteral("broken.acp")));
    QVERIFY(broken.open(QIODevice::WriteOnly));
    broken.write("5\nc\n2\n0 8.4 1.5\n");
    QVERIFY(data.copy(path(QStringLiteral("plain"))));
    QVERIFY(QFile::link(path(QStringLiteral("plain")), path(QStringLiteral("link"))));
    QVERIFY(QFile::link(path(QStringLiteral("broken.acp")), path(QStringLiteral("o.csv.link"))));
    QFile empty(path(QStringLiteral("empty.acp")));
    QVERIFY(empty.open(QIODevice::WriteOnly));
}

void TestBatch::writes_data()
{
    columns<QString, QString, QByteArray>({"option", "output", "beginning"});

    const auto row = [](const char *option, const char *output, const QByteArray &beginning) {
        QTest::newRow(output) << QString::fromLatin1(option) << QString::fromLatin1(output) << beginning;
    };
    row("--export-csv", "o.csv", "record,device,time [s],");
    row("--render", "o.png", "\x89PNG");
    row("--render", "o.svg", "<?xml");
    row("--render", "o.PDF", "%PDF-");
}

void TestBatch::writes()
{
    QFETCH(QString, option);
    QFETCH(QString, output);
    QFETCH(QByteArray, beginning);
    QCOMPARE(run({option, path(output), path(QStringLiteral("a.acp"))}), 0);
    QFile file(path(output));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    QVERIFY2(content.startsWith(beginning), content.left(40).constData());
    if (option == QLatin1String("--export-csv"))
        QCOMPARE(content.count('\n'), 61);
}

void TestBatch::drawsTheSwitches()
{
    const QString out = path(QStringLiteral("white.png"));
    QCOMPARE(run({QStringLiteral("--render"), out, QStringLiteral("--size=640x480"),
                 QStringLiteral("--background=white"), QStringLiteral("--hide=temperature"),
                 path(QStringLiteral("a.acp"))}),
        0);
    const QImage image(out);
    QCOMPARE(image.size(), QSize(640, 480));
    QCOMPARE(image.pixelColor(638, 2), QColor(Qt::white));
    const QRect plots(42, 0, 498, 480);
    QVERIFY(countOf(image, plots, QColor(0, 255, 0)) > 0); // the voltage
    QCOMPARE(countOf(image, plots, QColor(255, 0, 0)), 0); // the temperature
}

void TestBatch::fails_data()
{
    columns<QStringList, int>({"words", "status"});

    const auto row = [this](const char *name, const QString &out, const char *file, int status) {
        QStringList words = {QStringLiteral("--export-csv"), out};
        if (*file)
            words << path(QLatin1String(file));
        QTest::newRow(name) << words << status;
    };
    const QString out = path(QStringLiteral("never.csv"));
    row("no file", out, "missing.acp", 1);
    row("a broken file", out, "broken.acp", 1);
    row("no record", out, "empty.acp", 1);
    row("no place", path(QStringLiteral("no/place.csv")), "a.acp", 1);
    row("full disk", QStringLiteral("/dev/full"), "a.acp", 1);
    row("no words", out, "", 2);
    row("another recording", path(QStringLiteral("b.ACP")), "a.acp", 2);
    row("the input under another name", path(QStringLiteral("link")), "plain", 2);
    row("a recording by a link", path(QStringLiteral("o.csv.link")), "plain", 2);
}

void TestBatch::fails()
{
    QFETCH(QStringList, words);
    QTEST(run(words), "status");
    QVERIFY(!QFile::exists(path(QStringLiteral("never.csv"))));
    QVERIFY(!QFile::exists(path(QStringLiteral("b.ACP"))));
}

// First for the records, with more room for the series, in the end not at all.
void TestBatch::failsForMemory()
{
    QFile data(path(QStringLiteral("large.acp")));
    QVERIFY(data.open(QIODevice::WriteOnly));
    data.write(QByteArray("#c0605 00123,25200+02000,025,01234\n").repeated(200000));
    data.close();
    const QString out = path(QStringLiteral("late.csv"));
    int failures = 0;
    for (;; ++failures) {
        const AddressSpaceLimit limit(qint64(8 + 8 * failures) << 20);
        if (run({QStringLiteral("--export-csv"), out, data.fileName()}) == 0)
            break;
        QVERIFY(!QFile::exists(out));
    }
    QVERIFY(failures > 3);
}

void TestBatch::refusesWithoutDisplay()
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QLatin1String(name));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(VARNELGRAPH_PROGRAM), {QStringLiteral("--foo")});
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 2);
    QVERIFY(program.readAllStandardError().contains("Usage: varnelgraph"));
}

QTEST_MAIN(TestBatch)
#include "tst_batch.moc"
