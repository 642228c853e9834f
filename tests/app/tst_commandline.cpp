#include "app/commandline.h"
#include "support/columns.h"

#include <QtTest>

class TestCommandLine : public QObject {
    Q_OBJECT

private slots:
    void task_data();
    void task();
    void drawingSwitches();
};

void TestCommandLine::task_data()
{
    columns<QString, int, QString, int>({"words", "task", "output", "files"});

    QTest::newRow("nothing") << "" << int(CommandLine::Run) << "" << 0;
    QTest::newRow("files") << "a.acp b.abp" << int(CommandLine::Run) << "" << 2;
    QTest::newRow("a file like an option") << "-- --render" << int(CommandLine::Run) << "" << 1;
    QTest::newRow("help") << "--help" << int(CommandLine::Print) << "" << 0;
    QTest::newRow("version among files") << "a.acp -v" << int(CommandLine::Print) << "" << 1;
    QTest::newRow("export") << "--export-csv out.csv a.acp" << int(CommandLine::ExportCsv) << "out.csv" << 1;
    QTest::newRow("export to standard output")
        << "--export-csv - a.acp" << int(CommandLine::ExportCsv) << "-" << 1;
    QTest::newRow("render") << "--render o.png --size 640x480 a.acp" << int(CommandLine::Render) << "o.png"
                            << 1;
    QTest::newRow("render what") << "--render o.gif a" << int(CommandLine::Refuse) << "o.gif" << 1;
    QTest::newRow("render nothing") << "--render o.png" << int(CommandLine::Refuse) << "" << 0;
    QTest::newRow("export two") << "--export-csv o a b" << int(CommandLine::Refuse) << "" << 2;
    QTest::newRow("both") << "--export-csv o --render p a" << int(CommandLine::Refuse) << "" << 1;
    QTest::newRow("unknown option") << "--colour red" << int(CommandLine::Refuse) << "" << 0;
    QTest::newRow("unknown view") << "--render o.png --view cell a" << int(CommandLine::Refuse) << "" << 1;
    for (const char *size : {"640", "640x", "0x0", "-5x400", "640x480x2", "99999x400", "99999999999x1"})
        QTest::newRow(size) << QStringLiteral("--render o.png --size %1 a").arg(QLatin1String(size))
                            << int(CommandLine::Refuse) << "" << 1;
}

void TestCommandLine::task()
{
    QFETCH(QString, words);
    QFETCH(int, task);
    const CommandLine line = parseCommandLine(
        QStringList(QStringLiteral("varnelgraph")) + words.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    QCOMPARE(int(line.task), task);
    QTEST(line.output, "output");
    if (task != CommandLine::Refuse)
        QTEST(int(line.files.size()), "files");
    QCOMPARE(line.message.isEmpty(), task != CommandLine::Print && task != CommandLine::Refuse);
}

void TestCommandLine::drawingSwitches()
{
    const CommandLine line
        = parseCommandLine({QStringLiteral("varnelgraph"), QStringLiteral("--render=o.svg"),
            QStringLiteral("--size=400x300"), QStringLiteral("--background=white"),
            QStringLiteral("--view=average"), QStringLiteral("--right-axis=mah"),
            QStringLiteral("--hide=temperature"), QStringLiteral("--hide=resistance"),
            QStringLiteral("--cell-value=resistance"), QStringLiteral("a.acp")});
    ViewSwitches expected;
    expected.blackBackground = false;
    expected.balancer = expected.average = true;
    expected.deltaMode = 2;
    expected.temperature = expected.resistance = false;
    expected.energyMode = 2;
    QCOMPARE(int(line.task), int(CommandLine::Render));
    QVERIFY(line.switches == expected);
    QCOMPARE(line.size, QSize(400, 300));
}

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
