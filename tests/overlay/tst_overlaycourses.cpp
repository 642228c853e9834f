#include "overlay/courses/courseoutline.h"
#include "support/columns.h"
#include "support/graphcase.h"

#include <cmath>

/// What an overlay keeps of a recording, and the line that is drawn of it.
class TestOverlayCourses : public QObject {
    Q_OBJECT

private slots:
    /// Which values there are, as digits; where the current starts; the points next to some places.
    void courses()
    {
        const std::tuple<QString, QString, QString> cases[] = {
            {"20", "01234567 start 0 time 0..1140 charge 0..1900", "-1:-1 29:0 31:1 89:1 1140:19 1141:-1"},
            {"17", "0123456 start 0 time 0..960 charge 0..1600", ""},
            {"20 mode=1 temperature=0", "012345 start 0 time 0..1140 charge 0..1900", ""},
            {"20 celldata=0 resistance=0", "056 start 0 time 0..1140 charge 0..1900", ""},
            {"10 current=0 current@3=100 current@5-9=1001", "0123456 start 5 time 0..540 charge 0..900", ""},
            {"10 current=-2000 current@0-1=-199", "0123456 start 2 time 0..540 charge 0..900", ""},
            {"10 current=0 current@3=1000 current@5-9=10000", "0123456 start 3 time 0..540 charge 0..900",
                ""},
            {"10 current=0 current@3-9=900", "0123456 start 3 time 0..540 charge 0..900", ""},
            {"4 temperature=0 temperature@3=300", "0123456 start 0 time 0..180 charge 0..300", ""},
            {"4 current=0", "0123456 start 0 time 0..180 charge 0..300", ""},
            {"6 period@3=-100", "0123456 start 0 time 0..140 charge 0..500 back",
                "19:3 21:3 141:-1 79:4 70:1"},
            {"4 period@1-3=0", "0123456 start 0 time 0..0 charge 0..300", "0:0 1:-1"},
            {"5 period@2-3=0", "0123456 start 0 time 0..120 charge 0..400", "80:1 100:4"}, {"0", "", ""}};
        for (const auto &[records, wanted, near] : cases) {
            SeriesStore heard; // line by line
            const RecordList lines = recordsOf(records);
            for (int i = 0; i < lines.size(); ++i)
                heard.append(lines[i]);
            QCOMPARE(OverlayCourse(heard).has(OverlayValue::Resistance), wanted.contains("7 "));
            const OverlayCourse course(storeOf(records));
            QString told;
            for (int value = 0; value < int(OverlayValue::Count); ++value)
                told += course.has(OverlayValue(value)) ? QString::number(value) : QString();
            const auto reach = [&](OverlayAxis axis) {
                return QString("%1..%2").arg(course.reach(axis).low).arg(course.reach(axis).high);
            };
            if (course.size() > 0)
                told += QString(" start %1 time ").arg(course.currentStart()) + reach(OverlayAxis::Time)
                    + " charge " + reach(OverlayAxis::Charge)
                    + (course.isAscending(OverlayAxis::Time) ? "" : " back");
            QCOMPARE(told, wanted);
            const QStringList places = near.split(' ', Qt::SkipEmptyParts);
            for (const QString &place : places)
                QCOMPARE(course.pointAt(OverlayAxis::Time, place.section(':', 0, 0).toDouble()),
                    place.section(':', 1).toInt());
        }
    }

    void outlineCoversAllSamples_data()
    {
        const auto row = columns<double, double, int, int>({"from", "to", "jump", "most"});
        row("all", 0, 20000, 0, 2500);
        row("zoomed", 9000, 9400, 0, 500);
        row("three a column", 9000, 10797, 0, 2600);
        row("beside", 30000, 40000, 0, 4);
        row("set back", 0, 20000, 500, 100000);
        row("set back again and again", 1000, 15000, 1, 2000);
    }

    /// On each half column the lowest and the highest, the first and the last of all; few points.
    void outlineCoversAllSamples()
    {
        QFETCH(double, from);
        QFETCH(double, to);
        QFETCH(int, jump);
        const int count = jump == 1 ? 120000 : 20000;
        RecordList records;
        for (int i = 0; i < count; ++i) {
            Varnel3Data record;
            record.setTime(jump == 1 ? i % 2 * 10000 + i / 20 : jump > 0 && i > 10000 ? i - jump : i);
            if (count > 20000 && i == 0)
                record.setTime(8000); // alone on its column
            record.voltage = 12000 + i * 7919 % 1000;
            records.append(record);
        }
        SeriesStore store;
        store.load(std::move(records));
        const OverlayCourse course(store);
        constexpr int left = 100;
        constexpr int right = 399;
        const CoursePlace place
            = {(right - left) / (to - from), left - from * (right - left) / (to - from), -50, 900};
        const QVector<QPointF> outline
            = courseOutline(course, OverlayAxis::Time, OverlayValue::PackVoltage, place, left, right);
        const auto inkOf = [&](const auto &points) {
            QMap<int, QVector<double>> ink;
            for (const QPointF &point : points) {
                const int column = int(std::floor(point.x() * 2));
                if (column < left * 2 || column > right * 2)
                    continue;
                ink[column].append(point.y());
            }
            QStringList lines;
            for (auto it = ink.cbegin(); it != ink.cend(); ++it) {
                const auto [low, high] = std::minmax_element(it->begin(), it->end());
                lines.append(QString("%1 %2 %3").arg(it.key()).arg(*low, 0, 'f', 1).arg(*high, 0, 'f', 1));
                if (jump == 0) // each is gone through once
                    lines += QString("%1 %2").arg(it->first(), 0, 'f', 1).arg(it->last(), 0, 'f', 1);
            }
            return lines;
        };
        QVector<QPointF> all;
        for (int i = 0; i < count; ++i)
            all.append({place.x + place.perX * store.series(SeriesStore::Time)[i],
                place.y + place.perY * double(float(store.series(SeriesStore::Voltage)[i]))});
        QCOMPARE(inkOf(outline), inkOf(all));
        QFETCH(int, most);
        QVERIFY2(outline.size() <= most, QByteArray::number(outline.size()));
        if (jump == 0 && from == 0)
            QVERIFY(outline.first().x() == left && outline.last().x() == all.last().x());
        const Interval reach{outline.first().x(), outline.last().x()};
        QVERIFY(jump != 1 || (reach.low == left && reach.high == right + 0.5));
        const Interval whole{left - 1, right + 1}; // beyond, what leads in and out, and no more
        if (from == 9000)
            QVERIFY(reach.low < whole.low && reach.low >= whole.low - place.perX && reach.high >= whole.high
                && reach.high < whole.high + place.perX);
    }
};

QTEST_GUILESS_MAIN(TestOverlayCourses)
#include "tst_overlaycourses.moc"
