#include "logbook/window/course/packcourse.h"
#include "sample.h"
#include "support/columns.h"
#include "support/paintlog.h"

#include <QLocale>

using Varnel = Varnel3Data;

/// What recordings tell of their packs, and the chart of it.
class TestPackCourse : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void whatIsFull_data()
    {
        columns<int, int, int, int, int, bool>({"chemistry", "mode", "start", "end", "ended", "full"});
        const auto row
            = [](const char *name, int chemistry, int mode, int start, int end, int ended, bool full) {
                  QTest::newRow(name) << chemistry << mode << start << end << ended << full;
              };
        const int lipo = 5;
        const int nimh = 1;
        row("from full to empty", lipo, Varnel::Discharge, 4150, 3300, Varnel::Completed, true);
        row("for storage", lipo, Varnel::Discharge, 4150, 3800, Varnel::Completed, false);
        row("from half", lipo, Varnel::Discharge, 3800, 3300, Varnel::Completed, false);
        row("stopped", lipo, Varnel::Discharge, 4150, 3300, Varnel::Aborted, false);
        row("failed", lipo, Varnel::Charge, 3500, 4200, Varnel::Failed, false);
        row("charge from empty", lipo, Varnel::Charge, 3500, 4200, Varnel::Completed, true);
        row("charge after a weak cell's discharge", lipo, Varnel::Charge, 3700, 4200, Varnel::Completed,
            true);
        row("charge from half", lipo, Varnel::Charge, 3800, 4200, Varnel::Completed, false);
        row("no letter, to empty", nimh, Varnel::Discharge, 1360, 1000, Varnel::NoEnd, true);
        row("no letter, in part", nimh, Varnel::Discharge, 1360, 1200, Varnel::NoEnd, false);
        row("no letter, charged", nimh, Varnel::Charge, 1110, 1390, Varnel::NoEnd, true);
        row("no letter, broken off", lipo, Varnel::Charge, 3500, 3900, Varnel::NoEnd, false);
        row("balancing", lipo, Varnel::Balancing, 4150, 3300, Varnel::Completed, false);
        row("unknown cells", Varnel::noCellType, Varnel::Discharge, 1, 1, Varnel::Completed, true);
    }

    void whatIsFull()
    {
        QFETCH(int, chemistry);
        QFETCH(int, mode);
        QFETCH(int, start);
        QFETCH(int, end);
        QFETCH(int, ended);
        LogbookRecording recording = sampleRecording(0, mode, 4000, 6 * start, 6 * end);
        recording.figures.cellType = chemistry;
        recording.figures.end = ended;
        QTEST(PackCourse::isFull(recording), "full");
        recording.isLive = true;
        QVERIFY(!PackCourse::isFull(recording));
    }

    /// Loses 2 % of the nominal capacity a month, by discharges; charges go in a little above.
    void healthAndCycles()
    {
        QVector<LogbookRecording> all;
        for (int month = 0; month < 6; ++month) {
            all.append(sampleRecording(30 * month, Varnel::Discharge, 5000 - 100 * month));
            all.append(sampleRecording(30 * month + 1, Varnel::Charge, 5100 - 100 * month, 20000, 25200));
        }
        all.append(sampleRecording(200, Varnel::Discharge, 1000, 25000, 23000)); // in part
        all.append(sampleRecording(201, Varnel::Charge, 1000, 23000, 25200));
        all.append(sampleRecording(202, Varnel::Charge, 100, 25000, 25200));
        PackCourse::Recordings recordings;
        for (LogbookRecording &recording : all) {
            recording.id = 1 + recordings.size();
            recordings.append(&recording);
        }
        all[10].figures.spread = 420; // the newest full discharge
        LogbookPack pack;
        pack.capacity = 5000;
        PackCourse::Health health = PackCourse::healthOf(pack, recordings);
        QCOMPARE(*health.percent, 90.0);
        QCOMPARE(qRound(*health.perYear * 100), qRound(-2.0 / 30 * 365.25 * 100));
        QCOMPARE(health.cycles, 8);
        QVERIFY(health.hasWeakCell && !health.isWornOut());
        QCOMPARE(
            PackCourse::cyclesOf(recordings), (QVector<int>{1, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6, 7, 7, 8}));
        const CourseChart chart
            = PackCourse::chartOf(pack, recordings, {PackCourse::Capacity, false, true, false});
        QCOMPARE(chart.lines.size(), 2);
        QCOMPARE(chart.lines[0].points.size(), 8); // charges
        QCOMPARE(chart.lines[1].points[5].value, 4.5);
        QVERIFY(!chart.lines[1].points[5].partial && chart.lines[1].points[6].partial);
        QCOMPARE(chart.lines[1].points[6].at, 7.0);
        QCOMPARE(chart.reference, 5.0);
        pack.capacity = 0;
        health = PackCourse::healthOf(pack, recordings);
        QVERIFY(!health.percent && !health.perYear);
        QVERIFY(!PackCourse::healthOf(pack, {}).percent);
    }

    void ticks_data()
    {
        columns<double, double, int, QString>({"low", "high", "most", "ticks"});
        QTest::newRow("ones") << 0.5 << 4.2 << 5 << "1 2 3 4";
        QTest::newRow("fives") << -1.0 << 21.0 << 6 << "0 5 10 15 20";
        QTest::newRow("tenths") << 4.41 << 4.79 << 2 << "4.6";
        QTest::newRow("nothing") << 1.0 << 1.0 << 5 << "";
    }

    void ticks()
    {
        QFETCH(double, low);
        QFETCH(double, high);
        QFETCH(int, most);
        QStringList texts;
        const QVector<double> found = roundTicks({low, high}, most);
        for (const double tick : found)
            texts.append(QString::number(tick));
        QTEST(texts.join(' '), "ticks");
    }

    void dates_data()
    {
        columns<QString, QString, int, QString>({"from", "to", "most", "ticks"});
        QTest::newRow("days") << "2026-02-27"
                              << "2026-03-02" << 5 << "02-27 02-28 03-01 03-02";
        QTest::newRow("weeks, by Monday") << "2026-03-01"
                                          << "2026-03-20" << 4 << "03-02 03-09 03-16";
        QTest::newRow("quarters") << "2025-11-20"
                                  << "2026-11-20" << 5 << "01-01 04-01 07-01 10-01";
    }

    void dates()
    {
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(int, most);
        const auto at = [](const QString &day) {
            return double(QDate::fromString(day, Qt::ISODate).startOfDay().toSecsSinceEpoch());
        };
        QStringList texts;
        const QVector<double> found = dateTicks({at(from), at(to)}, most);
        for (const double tick : found)
            texts.append(QDateTime::fromSecsSinceEpoch(qint64(tick)).toString("MM-dd"));
        QTEST(texts.join(' '), "ticks");
    }

    void chart()
    {
        CourseChart chart;
        chart.unit = "Ah";
        chart.byDate = false;
        chart.reference = 5;
        chart.referenceName = "nominal";
        chart.inPercent = true;
        chart.lines = {{"Discharge", Qt::red, CourseLine::Square, Qt::SolidLine,
            {{1, 5, 11, false}, {2, 4.8, 12, false}, {3, 4.5, 13, true}}}};
        const QSize size(400, 300);
        const CourseChart::Mapping map = chart.mapping(size);
        for (int i = 0; i < 3; ++i) {
            const QPointF place = map.place(chart.lines[0].points[i]);
            QVERIFY(map.area.contains(place.toPoint()));
            QCOMPARE(chart.hit(place + QPointF(3, -3), size).point, i);
        }
        QCOMPARE(chart.hit(QPointF(map.area.topLeft()), size).line, -1);
        PaintLog log(size);
        QPainter painter(&log);
        chart.paint(painter, size);
        painter.end();
        const QString painted = log.lines().join('\n');
        for (const char *text : {"'nominal'", "'Discharge'", "'Ah'", "'100 %'", "'5.0'", "'3'"})
            QVERIFY2(painted.contains(text), qPrintable(text + ("\n" + painted)));
        chart.lines.clear();
        chart.emptyText = "none";
        PaintLog empty(size);
        QPainter second(&empty);
        chart.paint(second, size);
        QVERIFY(empty.lines().join('\n').contains("'none'"));
    }
};

QTEST_MAIN(TestPackCourse)
#include "tst_packcourse.moc"
