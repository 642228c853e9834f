#include "app/batch.h"
#include "app/commandline.h"
#include "support/columns.h"
#include "support/files.h"
#include "support/limits.h"
#include "support/pixels.h"

#include <QProcess>
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

    void writes_data()
    {
        columns<QString, QString, QByteArray>({"option", "output", "beginning"});
        QTest::newRow("table") << "--export-csv"
                               << "o.csv" << QByteArray("record,device,time [s],");
        QTest::newRow("png") << "--render"
                             << "o.png" << QByteArray("\x89PNG");
        QTest::newRow("svg") << "--render"
                             << "o.svg" << QByteArray("<?xml");
        QTest::newRow("pdf") << "--render"
                             << "o.PDF" << QByteArray("%PDF-");
    }

    void writes()
    {
        QFETCH(QString, option);
        QFETCH(QString, output);
        QFETCH(QByteArray, beginning);
        QCOMPARE(run({option, path(output), path("a.acp")}), 0);
        const QByteArray content = contents(path(output));
        QVERIFY2(content.startsWith(beginning), content.left(40).constData());
        if (output == "o.csv")
            QCOMPARE(content.count('\n'), 61);
    }

    void drawsTheSwitches()
    {
        const QString out = path("white.png");
        QCOMPARE(run({"--render", out, "--size=640x480", "--background=white", "--hide=temperature",
                     path("a.acp")}),
            0);
        const QImage image(out);
        QCOMPARE(image.size(), QSize(640, 480));
        QCOMPARE(image.pixelColor(638, 2), QColor(Qt::white));
        const QRect plots(42, 0, 498, 480);
        QVERIFY(countOf(image, plots, QColor(0, 255, 0)) > 0); // the voltage
        QCOMPARE(countOf(image, plots, QColor(255, 0, 0)), 0); // the temperature
    }

    void fails_data()
    {
        columns<QString, QString, int>({"output", "file", "status"});
        const auto row = [this](const char *name, const char *out, const char *file, int status) {
            QTest::newRow(name) << (*out == '/' ? out : path(out)) << file << status;
        };
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

    void fails()
    {
        QFETCH(QString, output);
        QFETCH(QString, file);
        QStringList words{"--export-csv", output};
        if (!file.isEmpty())
            words << path(file);
        QTEST(run(words), "status");
        QVERIFY(!QFile::exists(path("never.csv")) && !QFile::exists(path("b.ACP")));
    }

    // First for the records, with more room for the series, in the end not at all.
    void failsForMemory()
    {
        const QByteArray line = "#c0605 00123,25200+02000,025,01234\n";
        QVERIFY(writeFile(path("large.acp"), line.repeated(200000)));
        const QString out = path("late.csv");
        int failures = 0;
        for (;; ++failures) {
            const AddressSpaceLimit limit(qint64(8 + 8 * failures) << 20);
            if (run({"--export-csv", out, path("large.acp")}) == 0)
                break;
            QVERIFY(!QFile::exists(out));
        }
        QVERIFY(failures > 3);
    }

    void refusesWithoutDisplay()
    {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            environment.remove(name);
        program.setProcessEnvironment(environment);
        program.start(VARNELGRAPH_PROGRAM, {"--foo"});
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 2);
        QVERIFY(program.readAllStandardError().contains("Usage: varnelgraph"));
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
