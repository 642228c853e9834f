#include "graph/scene/rounddivision.h"
#include "logbook/window/course/coursecanvas.h"
#include "support/columns.h"
#include "support/paintlog.h"
#include "widgets/displayscale.h"

#include <QHelpEvent>
#include <QToolTip>

namespace {

/// "AT:VALUE AT:VALUE~", recordings 11 and so on.
CourseLine lineOf(const QString &name, CourseLine::Marker marker, const QString &points)
{
    CourseLine line{name, Qt::red, marker, Qt::SolidLine, {}};
    const QStringList all = points.split(' ', Qt::SkipEmptyParts);
    for (const QString &point : all)
        line.points.append({point.section(':', 0, 0).toDouble(), point.section(':', 1).remove('~').toDouble(),
            11 + line.points.size(), point.endsWith('~')});
    return line;
}

} // namespace

/// The picture of how packs fare, and pointing at it.
class TestCourseChart : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void ticks()
    {
        const std::tuple<Interval, int, const char *> cases[] = {{{0.5, 4.2}, 5, "1 2 3 4"},
            {{-1, 21}, 6, "0 5 10 15 20"}, {{4.41, 4.79}, 2, "4.6"}, {{1.1, 1.3}, 2, "1.1 1.2 1.3"},
            {{0, 10}, 10, "0 1 2 3 4 5 6 7 8 9 10"}, {{0, 10}, 9, "0 2 4 6 8 10"}, {{0, 160}, 2, "0 100"},
            {{0, 10}, 0, "0 10"}, {{1, 1}, 5, ""}, {{-7, 24}, 3, "0 20"}, {{0, 0}, 3, ""}, {{5, 4}, 3, ""},
            {{0, 0.0012}, 3, "0.0000 0.0005 0.0010"}};
        for (const auto &[range, most, ticks] : cases) {
            QStringList texts;
            const RoundDivision division(range, most);
            for (const double tick : division.places)
                texts.append(division.text(tick));
            QCOMPARE(texts.join(' '), QString(ticks));
        }
    }

    void dates()
    {
        const std::tuple<const char *, const char *, int, const char *> cases[]
            = {{"2026-02-27", "2026-03-02", 3, "26-02-27 26-02-28 26-03-01 26-03-02"},
                {"2026-02-27", "2026-03-02", 2, "26-02-27 26-03-01"},
                {"2026-03-01", "2026-03-20", 4, "26-03-02 26-03-09 26-03-16"}, // Mondays
                {"2026-03-01", "2026-03-29", 2, "26-03-09 26-03-23"},
                {"2026-01-02", "2026-04-03", 4, "26-02-01 26-03-01 26-04-01"},
                {"2025-12-20", "2026-05-20", 3, "26-01-01 26-03-01 26-05-01"},
                {"2025-11-20", "2026-11-20", 5, "26-01-01 26-04-01 26-07-01 26-10-01"},
                {"2025-11-20", "2026-11-20", 3, "26-01-01 26-07-01"},
                {"2020-06-20", "2023-06-20", 4, "21-01-01 22-01-01 23-01-01"},
                {"2020-06-20", "2026-06-20", 4, "22-01-01 24-01-01 26-01-01"},
                {"2001-06-20", "2017-06-20", 4, "06-01-01 11-01-01 16-01-01"},
                {"2001-06-20", "2031-06-20", 4, "11-01-01 21-01-01 31-01-01"},
                {"2001-06-20", "2231-06-20", 4, "01-01-01 01-01-01"},
                {"2001-06-20", "2231-06-20", 1, "01-01-01 01-01-01"}, {"2026-03-01", "2026-03-01", 4, ""},
                {"2026-03-01", "2026-03-04", 0, "26-03-02"}};
        for (const auto &[from, to, most, ticks] : cases) {
            const auto at = [](const QString &day) {
                return double(QDate::fromString(day, Qt::ISODate).startOfDay().toSecsSinceEpoch());
            };
            QStringList texts;
            const QVector<double> found = dateTicks({at(from), at(to)}, most);
            for (const double tick : found)
                texts.append(QDateTime::fromSecsSinceEpoch(qint64(tick)).toString("yy-MM-dd"));
            QCOMPARE(texts.join(' '), QString(ticks));
        }
    }

    /// Points; the area with the ranges of values and times; what the line across stands for.
    void mappings()
    {
        struct Case {
            const char *points, *mapped;
            double reference = 0;
            bool inPercent = false, byDate = false;
            double scale = 1;
        };
        const Case cases[] = {{"", "54,32 332x246 0..1 0..1"},
            {"3:5", "54,32 332x246 4.855..5.145 2.5..3.5"}, // noise stays small
            {"0:2 1:5", "54,32 332x246 1.76..5.24 -0.5..1.5"},
            {"0:1.9 1:5", "54,32 332x246 0..5.4 -0.5..1.5"}, {"0:0 1:5", "54,32 332x246 0..5.4 -0.5..1.5"},
            {"0:-1 100:3", "54,32 332x246 -1.32..3.32 -3..103"},
            {"0:0.001", "54,32 332x246 0..0.00162 -0.5..0.5"},
            {"0:4.5 1:4.8", "54,32 332x246 4.425..5.075 -0.5..1.5", 5},
            {"0:4.5 1:4.8~", "54,32 298x246 4.425..5.075 -0.5..1.5", 5, true},
            {"0:1 86400:5", "54,32 332x246 0..5.4 -43200..129600", 0, false, true},
            {"0:1 8640000:5", "108,64 264x192 0..5.4 -259200..8.8992e+06", 0, false, true, 2}};
        for (const Case &one : cases) {
            CourseChart chart;
            chart.lines = {lineOf("x", {}, one.points), lineOf("y", {}, "")};
            chart.reference = one.reference;
            chart.inPercent = one.inPercent;
            chart.byDate = one.byDate;
            chart.scale = one.scale;
            const auto [area, values, times] = chart.mapping({400, 300});
            QCOMPARE(
                QString("%1,%2 %3x%4 ").arg(area.left()).arg(area.top()).arg(area.width()).arg(area.height())
                    + QString("%1..%2 %3..%4")
                          .arg(values.low)
                          .arg(values.high)
                          .arg(times.low)
                          .arg(times.high),
                QString(one.mapped));
            QCOMPARE(chart.isEmpty(), !*one.points);
            QCOMPARE(chart.mapping({10, 10}).area.size(), QSize(1, 1));
        }
    }

    /// From point to point in time, of whichever line, by keys; what the mouse meets.
    void canvas()
    {
        CourseCanvas canvas;
        canvas.resize(400, 300);
        CourseChart chart;
        chart.byDate = false;
        chart.scale = 2; // which is the display's matter
        chart.lines = {{"One", Qt::red, {}, Qt::SolidLine, {{1, 5, 11, false}, {3, 4, 13, false}}},
            {"Two", Qt::blue, {}, Qt::SolidLine, {{2, 3, 12, false}}}};
        canvas.setNamer([](const CourseLine &line, const CoursePoint &point) {
            return line.name + QString(" %1").arg(point.at);
        });
        canvas.setChart(chart);
        canvas.show();
        QCOMPARE(canvas.sizeHint(), QSize(600, 240));
        QCOMPARE(canvas.minimumSizeHint(), QSize(240, 120));
        canvas.activateWindow();
        QTRY_VERIFY(canvas.hasFocus());
        VERIFY_PAINTS(canvas,
            "text 'One' left 70,12 12 Arial #ffffff; rect 1,1 398x298 pen2 "
                + canvas.palette().color(QPalette::Highlight).name());
        QSignalSpy chosen(&canvas, SIGNAL(chosen(qint64)));
        const auto press = [&](Qt::Key key) {
            chosen.clear();
            QTest::keyClick(&canvas, key);
            const qint64 found = chosen.isEmpty() ? 0 : chosen.first().at(0).toLongLong();
            if (found != 0)
                canvas.mark(found);
            return found;
        };
        const std::pair<Qt::Key, qint64> steps[]
            = {{Qt::Key_Left, 13}, {Qt::Key_Left, 12}, {Qt::Key_Left, 11}, {Qt::Key_Left, 0},
                {Qt::Key_Right, 12}, {Qt::Key_Right, 13}, {Qt::Key_Right, 0}, {Qt::Key_Up, 0}};
        for (const auto &[key, recording] : steps)
            QCOMPARE(press(key), recording);
        QTRY_VERIFY(QToolTip::text().contains("One 3"));
        canvas.setChart(chart); // anew, as after any change
        QCOMPARE(canvas.chart().marked, qint64(13));
        canvas.mark(99);
        QCOMPARE(press(Qt::Key_Right), qint64(11));
        const QPoint point = canvas.chart().mapping(canvas.size()).place(chart.lines[1].points[0]).toPoint();
        QTest::mouseClick(&canvas, Qt::RightButton, {}, point);
        QTest::mouseClick(&canvas, Qt::LeftButton, {}, point + QPoint(20, 0));
        QCOMPARE(chosen.size(), 1);
        const auto moved = [&](const QPoint &to) {
            QMouseEvent event(QEvent::MouseMove, to, canvas.mapToGlobal(to), Qt::NoButton, {}, {});
            QCoreApplication::sendEvent(&canvas, &event);
            return canvas.cursor().shape();
        };
        QCOMPARE(moved(point), Qt::PointingHandCursor);
        QTRY_VERIFY(QToolTip::text().contains("Two 2"));
        QCOMPARE(moved(point + QPoint(20, 0)), Qt::ArrowCursor);
        QTRY_VERIFY(!QToolTip::isVisible());
        const auto asked = [&](const QPoint &at) {
            QHelpEvent event(QEvent::ToolTip, at, canvas.mapToGlobal(at));
            return QCoreApplication::sendEvent(&canvas, &event) ? QToolTip::text() : QString();
        };
        QVERIFY(asked(point).contains("Two 2"));
        QCOMPARE(asked({0, 0}), canvas.toolTip());
        QToolTip::hideText();
    }

    void chart()
    {
        CourseChart chart;
        chart.byDate = false;
        chart.lines = {lineOf("Discharge", CourseLine::Square, "1:5 1.05:5 3:4.5~ 3:4.5")};
        const QSize size(400, 300);
        const CourseChart::Mapping map = chart.mapping(size);
        for (int i = 0; i < 3; ++i) {
            const QPointF place = map.place(chart.lines[0].points[i]);
            QVERIFY(map.area.contains(place.toPoint()));
            QCOMPARE(chart.hit(place, size).point, i); // the nearest
            QCOMPARE(chart.hit(place + QPointF(0, 11.9), size).point, i);
            QCOMPARE(chart.hit(place + QPointF(0, 12.1), size).point, -1);
        }
        QCOMPARE(chart.hit(QPointF(map.area.topLeft()), size).line, -1);
        chart.scale = 2;
        const QPointF last = chart.mapping(size).place(chart.lines[0].points[2]);
        QCOMPARE(chart.hit(last + QPointF(0, 23.9), size).point, 2);
    }

    void paints_data()
    {
        const auto row = columnsOf<QString, QString>({"chart", "painted"});
        row("percent marked",
            "line 54,249 351,249 #505050; line 351,91 354,91 #aaaaaa; "
            "text '100 %' left 357,91 12 Arial #ffffff; text '102 %' left 357,59 12 Arial #ffffff; "
            "text '3' mid 302,288 12 Arial #ffffff; line 54,91 351,91 dash4,2 #ffa500; "
            "text 'nominal' right 346,83 12 Arial #ffa500; line 104,91 203,154 pen1.5 #ff0000; "
            "curve 199,150 199,150 of 5 pen1.5 #ff0000; disc 203,154 16x16 pen2 #ffffff; "
            "curve 203,118 199,126 of 3 pen1.5 #0000ff; disc 302,59 8x8 #000000; "
            "curve 104,180 98,186 of 4 pen1.5 #ff0000; shape 98,180 10.4x10.4 #ff0000; "
            "shape 199,118 8.8x8.8 #0000ff; shape 56,8 8x8 #ff0000; "
            "text 'One' left 70,12 12 Arial #ffffff; text 'Two' left %1,12 12 Arial #ffffff");
        row("white",
            "rect 0,0 400x300 #ffffff; line 54,260 385,260 #d7d7d7; "
            "text '4.5' right 48,260 12 Arial #000000; "
            "text '1' mid 109,288 12 Arial #000000; rect 54,32 332x246 pen1 #5a5a5a");
        row("scale",
            "text '4.5' right 96,233 24 Arial #ffffff; text 'Ah' right 96,40 24 Arial #ffffff; "
            "line 328,64 328,255 #505050; line 108,110 371,110 pen2 dash4,2 #ffa500; "
            "text 'nominal' right 360,95 24 Arial #ffa500; line 152,110 240,159 pen3 #ff0000; "
            "disc 328,85 16x16 pen3 #ff0000; curve 112,16 112,16 of 5 pen3 #ff0000");
        row("worn percent", "text 'nominal' left 60,223 12 Arial #ffa500");
        row("date", "line 190,32 190,277 #505050; text '5 Jan 1970' mid 190,288 12 Arial #ffffff");
        row("empty", "rect 0,0 400x300 #000000; text 'none' mid 220,155 12 Arial #ffffff");
    }

    void paints()
    {
        QFETCH(QString, chart);
        CourseChart shown;
        shown.unit = "Ah";
        shown.byDate = chart.contains("date");
        shown.lines = {lineOf("One", CourseLine::Square, "1:5 2:4.8 3:4.5~"),
            lineOf("Two", CourseLine::Triangle, "2:4.9"), lineOf("Three", CourseLine::Disc, "3:5.1~"),
            lineOf("Four", CourseLine::Diamond, "1:4.7")};
        shown.lines[1].colour = Qt::blue;
        shown.lines[1].style = Qt::DashLine;
        if (chart.contains("percent") || chart.contains("scale")) {
            shown.reference = 5;
            shown.referenceName = "nominal";
        }
        shown.inPercent = chart.contains("percent");
        shown.blackGround = !chart.contains("white");
        shown.scale = chart.contains("scale") ? 2 : 1;
        shown.marked = chart.contains("marked") ? 12 : 0;
        if (chart.contains("worn")) // down to the line across, where its name would stand
            shown.lines[0] = lineOf("One", CourseLine::Square, "1:8 3:5.1");
        if (chart.contains("date")) {
            shown.lines = {lineOf("One", CourseLine::Square, "0:0 864000:100")};
            for (CoursePoint &point : shown.lines[0].points)
                point.at += double(QDate(1970, 1, 1).startOfDay().toSecsSinceEpoch());
        }
        if (chart.contains("empty"))
            shown.lines.clear();
        shown.emptyText = "none";
        const int behind = 54 + QFontMetrics(drawingFont("Arial", 9, 1)).horizontalAdvance("One") + 30;
        QFETCH(QString, painted);
        PaintLog log({400, 300});
        QPainter painter(&log);
        shown.paint(painter, {400, 300});
        painter.end();
        const QStringList lines = log.lines();
        for (const QString &line : lines) // the legend has room for all
            QVERIFY2(line.section(' ', 1, 1).section(',', 0, 0).toInt() < 400, qPrintable(line));
        QCOMPARE(lines.filter("1970").size(), chart == "date" ? 1 : 0); // no more than have room
        QCOMPARE(log.fault(painted.arg(behind + 16), chart == "empty"), QByteArray());
    }
};

QTEST_MAIN(TestCourseChart)
#include "tst_coursechart.moc"
