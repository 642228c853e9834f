#include "app/batch/batch.h"
#include "app/batch/commandline.h"
#include "documents/csvexport.h"
#include "series/seriesstore.h"
#include "support/columns.h"
#include "support/files.h"

#include <QImage>

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
        if (draws)
            words = QStringList{"--size=640x480", "--background=white"} + words;
        if (file.isEmpty())
            words.removeLast();
        QCOMPARE(run(words), status);
        if (status == 0)
            QVERIFY(contents(output).startsWith(beginning));
        const QImage image(output);
        QVERIFY(!output.endsWith(".png")
            || (image.size() == QSize(640, 480) && image.pixelColor(638, 2) == QColor(Qt::white)));
        QVERIFY(!output.endsWith(".svg") || contents(output).contains(">1</text>")); // the window's badge
        QVERIFY(output != path("o.csv") || contents(output).count('\n') == 61);
        QVERIFY(!QFile::exists(path("never.csv")) && !QFile::exists(path("b.ACP")));
    }

    void tableHoldsTheFigures()
    {
        SeriesStore store;
        QCOMPARE(rowsOf(store).size(), 2); // the titles alone
        store.append(record("#02C05_____0,00005,08000,01500,250,00012,00045,4000,0,4000,0,0000,0"));
        store.append(balanced()); // of more cells: the widest record decides
        Varnel3Data tandor = balanced();
        tandor.device = Varnel3Data::Tandor;
        tandor.flag1 = '"';
        tandor.flag2 = '\0';
        tandor.flag4 = char(0xb0);
        tandor.mode = Varnel3Data::NoMode + 3; // as nobody knows it
        tandor.cellType = -1;
        store.append(tandor);
        QVERIFY(rowsOf(store).at(2).endsWith(",25,,"));
        for (int i = 3; i < 20; ++i) // then the smoothed curves are more than copies of one point
            store.append(balanced());
        const QList<QByteArray> rows = rowsOf(store);
        QCOMPARE(rows.size(), 22);
        QStringList table; // TITLE|FIRST|SECOND|THIRD RECORD
        for (int column = 0; column <= rows[0].count(','); ++column) {
            QStringList fields;
            for (int row = 0; row < 4; ++row)
                fields << rows[row].split(',').value(column, "missing");
            table << fields.join('|');
        }
        QCOMPARE(table.join("; "),
            QString::fromUtf8(
                "record|1|2|3; device|Varnel 3|Varnel 3|Tandor; time [s]|5|6|6; mode|Charge|Charge|; "
                "chemistry|LiPo|LiPo|None; cells|2|3|3; voltage [mV]|8000|12345|12345; "
                "current [mA]|1500|1500|1500; temperature [0.1 C]|250|251|251; capacity [mAh]|12|13|13; "
                "internal resistance [mOhm]|45|45|45; balancing current [mA]|0|500|500; "
                "flag 1|_|_|\"\"\"\"; flag 2|_|_|; flag 3|_|_|_; flag 4|_|_|\u00b0; flag 5|_|B|B; "
                "cell maximum [mV]||4125|4125; cell minimum [mV]||4100|4100; cell average [mV]||4115|4115; "
                "cell spread [mV]||25|25; balance maximum [%]||100|100; balanced charge maximum [mAh]||0|0; "
                "cell 1 voltage [mV]|4000|4100|4100; cell 1 balance [%]||10|10; cell 1 balanced charge "
                "[mAh]||0.013888888888888888|0.013888888888888888; cell 1 resistance [mOhm]||2.5|2.5; "
                "cell 2 voltage [mV]|4000|4120|4120; cell 2 balance [%]||100|100; cell 2 balanced charge "
                "[mAh]||0.1388888888888889|0.1388888888888889; cell 2 resistance [mOhm]||3|3; "
                "cell 3 voltage [mV]||4125|4125; cell 3 balance [%]||0|0; cell 3 balanced charge [mAh]||0|0; "
                "cell 3 resistance [mOhm]||0|0; smoothed temperature [C]|25|25|25; "
                "smoothed internal resistance [mOhm]|45|45|45; smoothed voltage slope [mV/min]|0|0|0"));
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
        const QString book = path("nothing/VarnelGraph/VarnelGraph/logbook.sqlite");
        QVERIFY(QFile::exists(book) && writeFile(book, QByteArray(5000, 'x')));
        full.setStandardOutputFile(QProcess::nullDevice());
        full.start(VARNELGRAPH_PROGRAM, {"--logbook-csv", "-"});
        QVERIFY(full.waitForFinished() && full.exitCode() == 0);
        QVERIFY(full.readAllStandardError().startsWith("varnelgraph: "));
    }

private:
    QString path(const QString &name) const { return folder.filePath(name); }
    static int run(const QStringList &words)
    {
        return runBatch(parseCommandLine(QStringList("varnelgraph") + words));
    }

    static Varnel3Data record(const QString &figures)
    {
        Varnel3Data record;
        record.parseLine(figures + QString(",0000,0").repeated(13));
        return record;
    }
    static Varnel3Data balanced()
    {
        Varnel3Data data = record("#03C05____B2,00006,12345,01500,251,00013,00045,4100,1,4120,:,4125,0");
        data.parseResistanceLine("!25,30,0,0,0,0,0,0,0,0,0,0,0,0,0,0");
        return data;
    }
    static QList<QByteArray> rowsOf(const SeriesStore &store)
    {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        CsvRows rows(store);
        const bool good = rows.progress() == 0.0 && rows.writeAll(buffer) && rows.progress() == 1.0;
        return good ? buffer.data().split('\n') : QList<QByteArray>();
    }

    QTemporaryDir folder;
};

QTEST_MAIN(TestBatch)
#include "tst_batch.moc"
