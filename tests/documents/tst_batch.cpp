#include "app/batch/batch.h"
#include "app/batch/commandline.h"
#include "support/columns.h"
#include "support/files.h"
#include "support/pixels.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

/// The tasks of the command line, from a data file to what they write.
class TestBatch : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QByteArray lines = "5\nc\n2\n"; // charger columns: two cells of type 5
        for (int i = 0; i < 60; ++i)
            lines += QByteArray::number(5 * i) + ' ' + QByteArray::number(8.0 + i * 0.002) + " 1.5 25.0 "
                + QByteArray::number(2 * i) + '\n';
        QVERIFY(writeFile(path("a.acp"), lines) && writeFile(path("plain"), lines));
        QVERIFY(writeFile(path("broken.acp"), "5\nc\n2\n0 8.4 1.5\n") && writeFile(path("empty.acp"), ""));
        QVERIFY(QFile::link(path("plain"), path("link")));
        QVERIFY(QFile::link(path("broken.acp"), path("o.csv.link")));
    }

    void drawsTheSwitches()
    {
        const QStringList words{"--render", path("white.png"), "--size=640x480", "--background=white",
            "--hide=temperature", path("a.acp")};
        QCOMPARE(run(words), 0);
        const QImage image(words[1]);
        QCOMPARE(image.size(), QSize(640, 480));
        QCOMPARE(image.dotsPerMeterX(), 3780);
        QCOMPARE(image.pixelColor(638, 2), QColor(Qt::white));
        QVERIFY(countOf(image, QRect(42, 0, 498, 480), Qt::green) > 0); // the voltage
        QCOMPARE(countOf(image, QRect(42, 0, 498, 480), Qt::red), 0); // the temperature
    }

    void tasks_data()
    {
        columns<QString, QString, int, QByteArray>({"output", "file", "status", "beginning"});
        const auto row = [this](const char *name, const char *out, const char *file, int status,
                             const QByteArray &beginning = {}) {
            QTest::newRow(name) << (*out == '/' ? out : path(out)) << file << status << beginning;
        };
        row("table", "o.csv", "a.acp", 0, "record,device,time [s],");
        row("png", "o.png", "a.acp", 0, "\x89PNG");
        row("svg", "o.svg", "a.acp", 0, "<?xml");
        row("pdf", "o.PDF", "a.acp", 0, "%PDF-");
        row("no file", "never.csv", "missing.acp", 1);
        row("a broken file", "never.csv", "broken.acp", 1);
        row("no record", "never.csv", "empty.acp", 1);
        row("no place", "no/place.csv", "a.acp", 1);
        row("full disk", "/dev/full", "a.acp", 1);
        row("no words", "never.csv", "", 2);
        row("another recording", "b.ACP", "a.acp", 2);
        row("the input under another name", "link", "plain", 2);
        row("a recording by a link", "o.csv.link", "plain", 2);
    }

    void tasks()
    {
        QFETCH(QString, output);
        QFETCH(QString, file);
        QFETCH(int, status);
        QFETCH(QByteArray, beginning);
        const bool draws = status == 0 && !output.endsWith(".csv");
        QStringList words{draws ? "--render" : "--export-csv", output, path(file)};
        if (file.isEmpty())
            words.removeLast();
        QCOMPARE(run(words), status);
        if (status == 0)
            QVERIFY(contents(output).startsWith(beginning));
        QVERIFY(!output.endsWith(".svg") || contents(output).contains(">1</text>")); // the window's badge
        QVERIFY(output != path("o.csv") || contents(output).count('\n') == 61);
        QVERIFY(!QFile::exists(path("never.csv")) && !QFile::exists(path("b.ACP")));
    }

    // With what stands in the folder of recordings now.
    void logbook()
    {
        const QString data = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
        QVERIFY(QDir(data).removeRecursively() && QDir().mkpath(data + "/recordings"));
        QVERIFY(QFile::copy(path("a.acp"), data + "/recordings/2026-01-02_03-04-05_COM7.acp"));
        QCOMPARE(run({"--logbook-csv", path("book.csv")}), 0);
        QVERIFY(contents(path("book.csv"))
                    .contains("\n,2026-01-02 03:04:05,0,Varnel "
                              "2+,COM7,Charge,LiIo,2,60,295,118,0.9906,8000,8118,250,"));
        QVERIFY(QFile::exists(data + "/logbook.sqlite"));
        QCOMPARE(run({"--logbook-csv", "/dev/full"}), 1);
    }

    void needsNoDisplay()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR"})
            environment.remove(name);
        environment.insert("LC_ALL", "C");
        environment.insert("XDG_DATA_HOME", path("nothing"));
        const std::pair<QString, int> tasks[] // lines written; to a pipe, by two names
            = {{"--export-csv - " + path("a.acp"), 61}, {"--export-csv /dev/stdout " + path("a.acp"), 61},
                {"--logbook-csv -", 1}, {"--foo", 0}};
        for (const auto &[words, lines] : tasks) {
            const bool good = lines > 0;
            QProcess program;
            program.setProcessEnvironment(environment);
            program.start(VARNELGRAPH_PROGRAM, words.split(' '));
            QVERIFY(program.waitForFinished() && program.exitStatus() == QProcess::NormalExit);
            QCOMPARE(program.exitCode(), good ? 0 : 2);
            QCOMPARE(program.readAllStandardOutput().count('\n'), lines);
            const QByteArray said = program.readAllStandardError();
            QVERIFY(good ? said.isEmpty() : said.contains("Usage: varnelgraph"));
        }
        QProcess full;
        full.setProcessEnvironment(environment);
        full.setStandardOutputFile("/dev/full");
        full.start(VARNELGRAPH_PROGRAM, {"--export-csv", "-", path("a.acp")});
        QVERIFY(full.waitForFinished() && full.exitCode() == 1);
        QCOMPARE(full.readAllStandardError(), QByteArray("varnelgraph: -: No space left on device\n"));
    }

private:
    QString path(const QString &name) const { return folder.filePath(name); }
    static int run(const QStringList &words)
    {
        return runBatch(parseCommandLine(QStringList("varnelgraph") + words));
    }

    QTemporaryDir folder;
};

QTEST_MAIN(TestBatch)
#include "tst_batch.moc"
