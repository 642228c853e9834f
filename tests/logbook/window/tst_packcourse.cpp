#include "logbook/window/course/coursecanvas.h"
#include "logbook/window/course/coursepanel.h"
#include "logbook/window/course/packcourse.h"
#include "sample.h"

#include <QLabel>
#include <QtTest>

#include <cmath>

namespace {

/// All that a chart holds, a line each; dates as days since the first of January. '~' marks what is partial.
QStringList told(const CourseChart &chart)
{
    const auto first = double(QDateTime({2026, 1, 1}, {12, 0}).toSecsSinceEpoch());
    QStringList lines{
        QString("%1 by %2, %3 %4%5%6")
            .arg(chart.unit, chart.byDate ? "date" : "cycle")
            .arg(chart.reference)
            .arg(chart.referenceName, chart.inPercent ? " %" : "", chart.blackGround ? "" : " white")};
    for (const CourseLine &line : chart.lines) {
        QStringList points;
        for (const CoursePoint &point : line.points)
            points += QString("%1:%2%3")
                          .arg(chart.byDate ? std::round((point.at - first) / 86400) : point.at)
                          .arg(point.value)
                          .arg(point.partial ? "~" : "");
        lines += QString("%1 %2 %3 %4 %5")
                     .arg(line.name, line.colour.name())
                     .arg(line.marker)
                     .arg(line.style)
                     .arg(points.join(' '));
    }
    return lines;
}

} // namespace

/// What recordings tell of their packs.
class TestPackCourse : public QObject, private BookRig {
    Q_OBJECT

private slots:
    void init() { renew(); }

    /// Chemistry, what was done, voltages of a cell at the start and at the end, and how it ended.
    void whatIsFull()
    {
        const int lipo = 5;
        const int nimh = 1;
        const std::tuple<const char *, int, int, int, int, int, bool> cases[]
            = {{"from full to empty", lipo, Varnel::Discharge, 3840, 3660, Varnel::Completed, true},
                {"for storage", lipo, Varnel::Discharge, 4150, 3661, Varnel::Completed, false},
                {"from half", lipo, Varnel::Discharge, 3839, 3300, Varnel::Completed, false},
                {"stopped", lipo, Varnel::Discharge, 4150, 3300, Varnel::Aborted, false},
                {"failed", lipo, Varnel::Charge, 3500, 4200, Varnel::Failed, false},
                {"after a weak cell's discharge", lipo, Varnel::Charge, 3744, 4200, Varnel::Completed, true},
                {"charge from half", lipo, Varnel::Charge, 3745, 4200, Varnel::Completed, false},
                {"no letter, to empty", nimh, Varnel::Discharge, 1210, 1130, Varnel::NoEnd, true},
                {"no letter, in part", nimh, Varnel::Discharge, 1360, 1131, Varnel::NoEnd, false},
                {"no letter, from half", nimh, Varnel::Discharge, 1209, 1000, Varnel::NoEnd, false},
                {"no letter, charged", nimh, Varnel::Charge, 1110, 1330, Varnel::NoEnd, true},
                {"no letter, not charged", nimh, Varnel::Charge, 1110, 1329, Varnel::NoEnd, false},
                {"no letter, charged LiPo", lipo, Varnel::Charge, 3500, 4140, Varnel::NoEnd, true},
                {"no letter, broken off", lipo, Varnel::Charge, 3500, 4139, Varnel::NoEnd, false},
                {"balancing", lipo, Varnel::Balancing, 4150, 3300, Varnel::Completed, false},
                {"unknown cells", Varnel::noCellType, Varnel::Discharge, 1, 1, Varnel::Completed, true}};
        for (const auto &[name, chemistry, mode, start, end, ended, full] : cases) {
            for (const int cells : {1, 6}) {
                LogbookRecording recording = sampleRecording(0, mode, 4000, cells * start, cells * end);
                recording.figures.cells = cells;
                recording.figures.cellType = chemistry;
                recording.figures.end = ended;
                QVERIFY2(PackCourse::isFull(recording) == full, name);
                recording.isLive = true;
                QVERIFY2(!PackCourse::isFull(recording), name);
            }
        }
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
        all[10].figures.lowestCell = 0;
        LogbookPack pack;
        pack.capacity = 5000;
        PackCourse::Health health = PackCourse::healthOf(pack, recordings);
        QCOMPARE(*health.percent, 90.0);
        QVERIFY2(qAbs(*health.perYear + 2.0 / 30 * 365.25) < 0.015, // where clocks are put forward, too
            qPrintable(QString::number(*health.perYear, 'f', 5)));
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
        QVERIFY(!health.percent && !health.perYear && health.hasWeakCell);
        QVERIFY(!PackCourse::healthOf(pack, {}).percent);
    }

    /// A change a year takes three discharges over more than a month; a weak cell a third of the range.
    void healthNeeds()
    {
        using Days = QVector<int>;
        for (const auto &[days, spread, perYear, weak] : {std::tuple(Days{0, 300}, 396, false, false),
                 std::tuple(Days{0, 7, 30}, 397, false, true), std::tuple(Days{0, 7, 31}, 0, true, false)}) {
            renew();
            QVector<std::pair<int, int>> discharges;
            for (const int day : days)
                discharges.append({day, 4000});
            const qint64 pack = addPack("A", 5000, discharges, spread);
            LogbookRecording unknown = sampleRecording(500, Varnel::Charge, 1);
            unknown.start = QDateTime();
            editor->assign({add(unknown)}, pack);
            const auto recordings = PackCourse::of(*logbook, pack);
            QCOMPARE(recordings, PackCourse::byPack(*logbook).value(pack));
            const PackCourse::Health health = PackCourse::healthOf(*logbook->pack(pack), recordings);
            LogbookPack tiny;
            tiny.capacity = 1;
            QVERIFY(PackCourse::healthOf(tiny, recordings).percent);
            QCOMPARE(PackCourse::chartOf(tiny, recordings, {}).reference, 0.001);
            QVERIFY(bool(health.perYear) == perYear && health.hasWeakCell == weak);
            QVERIFY(!health.isWornOut()); // at 80 %
            QVERIFY(health.spread == spread && health.lowestCell == 3 && health.recordings == days.size());
            QCOMPARE(health.newest, sampleRecording(days.last(), 0, 0).start.toMSecsSinceEpoch());
        }
    }

    void charts()
    {
        const std::pair<PackCourse::Request, const char *> cases[] = {
            {{PackCourse::Capacity, true, true, false},
                "Ah by date, 5 nominal 5.000 Ah %\nCharge #00be3c 2 1 1:5.1\n"
                "Discharge #ff503c 0 1 0:5 10:4.5 12:2~"},
            {{PackCourse::Energy, false, true, false},
                "Wh by cycle, 0 \nCharge #00be3c 2 1 1:113.22\nDischarge #ff503c 0 1 1:111 2:99.9 3:44.4~"},
            {{PackCourse::Resistance, true, false, true},
                "mΩ by date, 0  white\nCharge #000000 2 1 1:21\nDischarge #b07000 0 2 0:20 10:30 12:32~"},
            {{PackCourse::Spread, true, true, true},
                "mV by date, 0 \nDischarge #ffb000 0 2 0:0 10:420 12:12~"}};
        const qint64 id = addPack("A", 5000, {{0, 5000}, {10, 4500}}, 420);
        QVector<LogbookRecording> more{sampleRecording(1, Varnel::Charge, 5100, 20000, 25200),
            sampleRecording(12, Varnel::Discharge, 2000, 25000, 23000),
            sampleRecording(13, Varnel::Charge, 0), sampleRecording(14, Varnel::Discharge, 7),
            sampleRecording(15, Varnel::Charge, 7), sampleRecording(16, Varnel::Balancing, 7)};
        more[0].figures.spread = more[2].figures.spread = -1;
        more[2].figures.energy = more[2].figures.resistance = 0;
        more[3].isLive = true;
        more[4].figures.records = 0;
        for (const LogbookRecording &recording : qAsConst(more))
            editor->assign({add(recording)}, id);
        PackCourse::Recordings recordings = PackCourse::of(*logbook, id);
        const_cast<LogbookRecording *>(recordings[0])->figures.spread = 0;
        for (const auto &[request, chart] : cases)
            QCOMPARE(told(PackCourse::chartOf(*logbook->pack(id), recordings, request)).join('\n'),
                QString(chart));
    }

    /// The most worn first; sixteen at most; only what is full counts.
    void chartOfAll()
    {
        addPack("A", 5000, {{0, 5000}, {10, 4500}}, 30);
        addPack("B", 4000, {{5, 3000}}, 20);
        addPack("C", 0, {{6, 1000}}, 40);
        const qint64 d = addPack("D", 1000, {});
        LogbookRecording part = sampleRecording(7, Varnel::Discharge, 2000, 25000, 23000);
        part.file = "/r/part.acp";
        editor->assign({add(part)}, d); // of it the resistance and the spread alone tell something
        const auto chart = [&](PackCourse::Quantity quantity) {
            return told(PackCourse::chartOfAll(*logbook, {quantity, true, true, false})).join('\n');
        };
        QCOMPARE(chart(PackCourse::Capacity),
            QString("% by date, 80 worn out below 80 %\nB #ff0022 0 1 5:75\nA #00bb00 1 1 0:100 10:90"));
        QCOMPARE(chart(PackCourse::Energy),
            QString(
                "Wh by date, 0 \nC #ff0022 0 1 6:22.2\nB #00bb00 1 1 5:66.6\nA #0a6cff 2 1 0:111 10:99.9"));
        QCOMPARE(chart(PackCourse::Spread).section('\n', 1),
            QString("C #ff0022 0 1 6:40\nA #00bb00 1 1 0:12 10:30\nB #0a6cff 2 1 5:20\nD #ff8800 3 1 7:12~"));
        for (int i = 0; i < 16; ++i)
            addPack(qPrintable(QString("E%1").arg(i)), 1000, {{20 + i, 500 + i}});
        QCOMPARE(PackCourse::chartOfAll(*logbook, {}).lines.size(), 16);
        renew();
        const auto missing = [&](PackCourse::Quantity quantity) {
            return PackCourse::chartOfAll(*logbook, {quantity, true, true, false})
                .emptyText.section(' ', 0, 1);
        };
        QCOMPARE(chart(PackCourse::Capacity), QString("% by date, 0 worn out below 80 %"));
        QCOMPARE(missing(PackCourse::Capacity), QString("No recordings"));
        part.figures.spread = -1;
        part.pack = LogbookPack::none;
        const qint64 id = add(part);
        QCOMPARE(missing(PackCourse::Capacity), QString("Assign recordings"));
        LogbookPack pack;
        editor->assign({id}, editor->addPack(pack));
        QCOMPARE(missing(PackCourse::Capacity), QString("Tell the"));
        QCOMPARE(missing(PackCourse::Energy), QString("No recording"));
        pack.capacity = 1;
        editor->addPack(pack);
        QCOMPARE(missing(PackCourse::Capacity), QString("No recording"));
    }

    void panel()
    {
        const qint64 a = addPack("A", 5000, {{0, 5000}, {10, 4000}}, 420);
        const qint64 b = editor->addPack({0, "B", Varnel::noCellType, 0, 0, ""});
        LogbookRecording part = sampleRecording(12, Varnel::Discharge, 2000, 25000, 23000);
        part.file = "/r/part.acp";
        const qint64 partial = add(part);
        editor->assign({partial}, a);
        CoursePanel panel(logbook.get());
        QSignalSpy chosen(&panel, SIGNAL(chosen(qint64)));
        auto *canvas = panel.findChild<CourseCanvas *>();
        const auto headline = [&](qint64 pack) {
            panel.setPack(pack);
            return panel.findChild<QLabel *>("courseHeadline")->toolTip();
        };
        QCOMPARE(headline(LogbookFilter::everyPack), QString("All packs"));
        QCOMPARE(canvas->spokenText(), QString("All packs: Capacity\nA: from 100.00 % to 80.00 %"));
        QCOMPARE(headline(LogbookPack::none), QString("Not assigned"));
        QCOMPARE(canvas->spokenText(),
            QString("Not assigned: Capacity\nAssign recordings to a pack to see its course."));
        headline(b);
        QCOMPARE(
            canvas->spokenText(), QString("B, 0 cycle(s): Capacity\nNo recording of this pack tells it."));
        QCOMPARE(headline(a),
            QString("A, 6 x LiPo, 5000 mAh, state of health 80\u00A0%, 3 cycle(s), cell 4 is weak"));
        panel.mark(partial);
        QVERIFY(canvas->spokenText().startsWith(headline(a) + ": Capacity\nA, "));
        QVERIFY(canvas->spokenText().contains(
            "\nDischarge: 2.00 Ah (40 %)\nNot from full to empty, or not to the end: not to be "
            "compared with the others.\nDischarge: from 5.00 Ah to 2.00 Ah"));
        panel.choose(1, false);
        QVERIFY(canvas->spokenText().contains("Discharge: 44.40 Wh\n") && !panel.isByDate());
        for (const auto &[asked, shown] : {std::pair(-1, 0), std::pair(9, 3)}) {
            panel.choose(asked, true);
            QCOMPARE(panel.quantity(), shown);
        }
        QVERIFY(panel.isByDate());
        panel.setGround(false, true);
        QVERIFY(!panel.chart().blackGround && panel.chart().lines[0].colour == QColor(0xb0, 0x70, 0));
        panel.setPack(LogbookPack::none);
        QVERIFY(!panel.chart().blackGround);
        emit canvas->chosen(partial);
        QCOMPARE(chosen.first().at(0).toLongLong(), partial);
    }
};

QTEST_MAIN(TestPackCourse)
#include "tst_packcourse.moc"
