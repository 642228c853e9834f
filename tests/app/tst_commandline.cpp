#include "app/batch/commandline.h"
#include "support/columns.h"

#include <QtTest>

class TestCommandLine : public QObject {
    Q_OBJECT

private slots:
    void task_data()
    {
        const auto row = columns<QString, int, QString, int>({"words", "task", "output", "files"});
        row("nothing", "", CommandLine::Run, "", 0);
        row("files", "a.acp b.abp", CommandLine::Run, "", 2);
        row("a file like an option", "-- --render", CommandLine::Run, "", 1);
        row("toolkit's words", "-name x --style=fusion a.acp -reverse -icon y b", CommandLine::Run, "", 2);
        row("files like words of the toolkit", "style -- -style b", CommandLine::Run, "", 3);
        row("help", "--help", CommandLine::Print, "", 0);
        row("version among files", "a.acp -v", CommandLine::Print, "", 1);
        row("export", "--export-csv out.csv a.acp", CommandLine::ExportCsv, "out.csv", 1);
        row("export to standard output", "--export-csv - a.acp", CommandLine::ExportCsv, "-", 1);
        row("render", "--render o.png --size 100x32767 a.acp", CommandLine::Render, "o.png", 1);
        row("logbook", "--logbook-csv -", CommandLine::LogbookCsv, "-", 0);
        row("logbook and export", "--logbook-csv o --export-csv p a", CommandLine::Refuse, "p", 1);
        row("render nothing", "--render o.png", CommandLine::Refuse, "", 0);
        row("export two", "--export-csv o a b", CommandLine::Refuse, "", 2);
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

    /// Behind it stands where help is to be had.
    void refusals()
    {
        const QString recording = "A recording is not written over: ";
        const std::pair<const char *, QString> rows[]
            = {{"--colour red", "Unknown option 'colour'."}, {"--language=xx", "--language: unknown word xx"},
                {"--render o.png --view cell a", "--view: unknown word cell"},
                {"--render o.png --size 99x400 a", "Not a size between 100x100 and 32767x32767: 99x400"},
                {"--export-csv o --render p a", "Only one of --export-csv, --logbook-csv and --render."},
                {"--export-csv o", "One recording FILE is needed."},
                {"--logbook-csv o a", "The logbook needs no recording FILE."},
                {"--export-csv o.acp a", recording + "o.acp"}, {"--export-csv o.ABP a", recording + "o.ABP"},
                {"--render o.gif a", "The drawing's name must end in .png, .svg or .pdf: o.gif"}};
        for (const auto &[words, message] : rows) {
            const CommandLine line = parseCommandLine(QString("varnelgraph %1").arg(words).split(' '));
            QCOMPARE(line.message,
                message + "\nUsage: varnelgraph [options] [FILE...]; see varnelgraph --help.\n");
            QCOMPARE(int(line.task), int(CommandLine::Refuse));
        }
        QCoreApplication::setApplicationVersion("V1");
        QCOMPARE(parseCommandLine({"varnelgraph", "-v"}).message, QString("VarnelGraph V1\n"));
        const QString help = parseCommandLine({"varnelgraph", "--help-all"}).message;
        for (const char *said : {"[FILE...]", "--logbook-csv <out>", "Recordings (.acp, .abp) to open."})
            QVERIFY2(help.contains(said), qPrintable(help));
    }

    /// Background, lines, balancer, average, dV, temperature, resistance; right axis; cell value. The last
    /// word counts.
    void drawingSwitches()
    {
        const std::pair<const char *, const char *> rows[] = {{"", "100011110"},
            {"--background=white", "000011110"}, {"--background=white --background=black", "100011110"},
            {"--lines=distinct", "110011110"}, {"--lines=distinct --lines=usual", "100011110"},
            {"--view=average", "101111110"}, {"--view=average --view=cells", "101011110"},
            {"--view=average --view=charger", "100011110"}, {"--right-axis=mah", "100011120"},
            {"--right-axis=none", "100001100"}, {"--right-axis=mah --right-axis=dv", "100011110"},
            {"--hide=temperature", "100010110"}, {"--hide=temperature --hide=resistance", "100010010"},
            {"--cell-value=charge", "100011111"}, {"--cell-value=resistance", "100011112"},
            {"--cell-value=charge --cell-value=voltage", "100011110"}};
        for (const auto &[words, expected] : rows) {
            const QString all = QString("varnelgraph --render=o.svg --size=400x300 a.acp %1").arg(words);
            const CommandLine line = parseCommandLine(all.split(' ', Qt::SkipEmptyParts));
            const ViewSwitches &on = line.switches;
            QString drawn;
            for (const int one : {int(on.blackBackground), int(on.distinctLines), int(on.balancer),
                     int(on.average), int(on.delta), int(on.temperature), int(on.resistance),
                     int(on.rightAxis), int(on.cellValue)})
                drawn += QString::number(one);
            QCOMPARE(drawn + ' ' + words, QString("%1 %2").arg(expected, words));
            QCOMPARE(line.size, QSize(400, 300));
        }
    }
};

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
