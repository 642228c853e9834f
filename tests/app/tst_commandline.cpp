#include "app/commandline.h"
#include "support/columns.h"

#include <QtTest>

class TestCommandLine : public QObject {
    Q_OBJECT

private slots:

    void task_data()
    {
        columns<QString, int, QString, int>({"words", "task", "output", "files"});

        const auto row = [](const char *name, const QString &words, int task, const char *output, int files) {
            QTest::newRow(name) << words << task << QString::fromLatin1(output) << files;
        };
        row("nothing", "", CommandLine::Run, "", 0);
        row("files", "a.acp b.abp", CommandLine::Run, "", 2);
        row("a file like an option", "-- --render", CommandLine::Run, "", 1);
        row("toolkit's words", "-platform offscreen --style=fusion a.acp -reverse", CommandLine::Run, "", 1);
        row("files like words of the toolkit", "-- -style b", CommandLine::Run, "", 2);
        row("help", "--help", CommandLine::Print, "", 0);
        row("version among files", "a.acp -v", CommandLine::Print, "", 1);
        row("export", "--export-csv out.csv a.acp", CommandLine::ExportCsv, "out.csv", 1);
        row("export to standard output", "--export-csv - a.acp", CommandLine::ExportCsv, "-", 1);
        row("render", "--render o.png --size 100x32767 a.acp", CommandLine::Render, "o.png", 1);
        row("render what", "--render o.gif a", CommandLine::Refuse, "o.gif", 1);
        row("render nothing", "--render o.png", CommandLine::Refuse, "", 0);
        row("export two", "--export-csv o a b", CommandLine::Refuse, "", 2);
        row("both", "--export-csv o --render p a", CommandLine::Refuse, "", 1);
        row("unknown option", "--colour red", CommandLine::Refuse, "", 0);
        row("unknown view", "--render o.png --view cell a", CommandLine::Refuse, "", 1);
        for (const char *size :
            {"640", "640x", "0x0", "-5x400", "640x480x2", "99x400", "400x99", "32768x400", "99999999999x1"})
            row(size, QLatin1String("--render o.png --size ") + size + " a", CommandLine::Refuse, "", 1);
    }

    void task()
    {
        QFETCH(QString, words);
        QFETCH(int, task);
        const CommandLine line = parseCommandLine(withoutToolkitWords(
            QStringList(QStringLiteral("varnelgraph")) + words.split(QLatin1Char(' '), Qt::SkipEmptyParts)));
        QCOMPARE(int(line.task), task);
        QTEST(line.output, "output");
        if (task != CommandLine::Refuse)
            QTEST(int(line.files.size()), "files");
        QCOMPARE(line.message.isEmpty(), task != CommandLine::Print && task != CommandLine::Refuse);
    }

    void drawingSwitches()
    {
        const CommandLine line = parseCommandLine(QString(
            "varnelgraph --render=o.svg --size=400x300 --background=white --view=average --right-axis=mah "
            "--hide=temperature --hide=resistance --cell-value=resistance a.acp")
                                                      .split(' '));
        ViewSwitches expected;
        expected.blackBackground = false;
        expected.balancer = expected.average = true;
        expected.rightAxis = RightAxis::Energy;
        expected.temperature = expected.resistance = false;
        expected.cellValue = CellValue::Resistance;
        QCOMPARE(int(line.task), int(CommandLine::Render));
        QVERIFY(line.switches == expected);
        QCOMPARE(line.size, QSize(400, 300));
    }
};

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
