#include "graph/curves/curvespans.h"
#include "graph/curves/linedashes.h"
#include "graph/curves/timecolumns.h"
#include "series/seriesstore.h"
#include "support/columns.h"

#include <qwt_scale_map.h>

namespace {

void append(SeriesStore *store, int seconds, int volts)
{
    Varnel3Data record;
    record.device = Varnel3Data::Varnel3;
    record.setTime(seconds);
    record.voltage = volts * 1000;
    store->append(record);
}

QwtScaleMap pixelMap() // each unit is a pixel
{
    QwtScaleMap map;
    map.setScaleInterval(0, 100);
    map.setPaintInterval(0, 100);
    return map;
}

// Column, first sample and end of each, of an area from 10 to 20, and how many samples lie in it.
QString told(const TimeColumns &columns)
{
    QString text;
    for (const TimeColumns::Stretch &stretch : columns.stretches())
        text += QString("%1:%2-%3 ").arg(stretch.x).arg(stretch.begin).arg(stretch.end);
    return text + QString("of %1").arg(columns.sampleCount());
}

QString stretches(const QVector<double> &times, bool ascending)
{
    TimeColumns columns;
    SeriesStore store;
    for (const double time : times)
        append(&store, int(time), 12);
    columns.assign(store.series(SeriesStore::Time), ascending, pixelMap(), 10, 20);
    return told(columns);
}

} // namespace

/// What curves are drawn from: columns of times, spans, dashes.
class TestCurveColumns : public QObject {
    Q_OBJECT

private slots:
    /// Of what lies on either side of the area only the ends count.
    void sortsTimesIntoColumns()
    {
        const QVector<double> times{0, 1, 2, 9, 10, 10.2, 15, 21, 22, 30, 40};
        const QString middle = "2:2-3 9:3-4 10:4-6 15:6-7 21:7-8 22:8-9 ";
        QCOMPARE(stretches(times, true), middle + "of 5");
        QCOMPARE(stretches(times, false), "0:0-1 " + middle + "40:10-11 of 5");
    }

    /// As though they had been sorted at once.
    void sortsOnAsTimesCome()
    {
        SeriesStore store;
        TimeColumns kept;
        kept.assign(store.series(SeriesStore::Time), true, pixelMap(), 10, 20);
        for (int time : {0, 3, 9, 9, 10, 10, 15, 20, 21, 21, 22, 30}) {
            append(&store, time, 12);
            TimeColumns anew;
            anew.assign(store.series(SeriesStore::Time), true, pixelMap(), 10, 20);
            kept.extend(store.series(SeriesStore::Time), pixelMap());
            QCOMPARE(told(kept), told(anew));
        }
    }

    /// What jumps about more than any device does is drawn in part: so many lines, or so much ink.
    void thinsOut()
    {
        for (const auto &[to, most] : {std::pair(11, 131072), {12, 45455}, {90, 40001}}) { // from 10 and back
            for (int count : {most, most + 1}) {
                QVector<double> times;
                for (int i = 0; i < count; ++i)
                    times.append(i % 2 == 0 ? 10 : to);
                const QString text = stretches(times, false);
                const int together = count > most ? 2 : 1;
                QCOMPARE(text.count(':'), (count + together - 1) / together);
                QVERIFY(text.startsWith(QString("10:0-%1 ").arg(together)));
                QVERIFY(text.contains(QString("-%1 of ").arg(count)));
            }
        }
    }

    /// COLUMN:ROW of each sample in an area of four columns; the rectangles, and after a '|' the lines.
    void spans()
    {
        const std::tuple<int, const char *, const char *> cases[]
            = {{1, "0:5 1:5 2:6 3:9", "0,5 2x1 2,6 1x3 3,9 1x1 |"},
                {1, "0:9 1:6 2:5 3:5", "0,7 1x3 1,6 1x1 2,5 2x1 |"},
                {1, "0:5 2:5 3:9", "0,5 1x1 2,5 1x4 3,9 1x1 | 0,5-2,5"},
                {2, "0:5 1:6 2:8 3:5", "0,4 1x2 0,5 2x2 1,7 2x2 2,4 2x2 | 1,6-2,8 2,8-3,5"},
                {1, "1:5 0:5", "1,5 1x1 0,5 1x1 | 1,5-0,5"}, {2, "0:5 0:9 1:10 1:14", "0,4 1x6 0,9 2x6 |"},
                {2, "0:5 0:9 1:6 1:9 2:6 2:8", "0,4 1x6 0,5 2x5 1,5 2x4 | 1,9-2,6"},
                {1, "0:5 1:6 2:5 3:6 0:7", "0,5 1x1 1,6 1x1 2,5 1x1 3,6 1x1 0,7 1x1 | 3,6-0,7"},
                {1, "0:6 0:5 1:7 1:5 2:6 2:5 3:7 3:5 0:5 0:6 1:5 1:7", "0,5 1x2 1,5 1x3 2,5 1x2 3,5 1x3 |"},
                {2, "0:6 0:5 1:7 1:5 2:6 2:5 3:7 3:5 0:5 0:6 1:5 1:7", "0,4 1x4 1,4 1x4 2,4 1x4 3,4 1x4 |"},
                {1, "0:150 1:150 2:50 3:50 9:0", "1,51 1x49 2,50 2x1 | 3,50-9,0"}};
        for (const auto &[width, samples, told] : cases) {
            SeriesStore store;
            const QStringList all = QString(samples).split(' ');
            for (const QString &sample : all)
                append(&store, sample.section(':', 0, 0).toInt(), sample.section(':', 1).toInt());
            TimeColumns columns;
            columns.assign(store.series(SeriesStore::Time), store.isTimeMonotone(), pixelMap(), 0, 3);
            CurveSpans spans;
            spans.assign({store.series(SeriesStore::Voltage), 0, columns, pixelMap()}, {0, 0, 4, 100}, width);
            QStringList texts;
            for (const QRect &r : spans.spans())
                texts += QString("%1,%2 %3x%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
            texts += "|";
            for (const QLine &l : spans.lines())
                texts += QString("%1,%2-%3,%4").arg(l.x1()).arg(l.y1()).arg(l.x2()).arg(l.y2());
            QCOMPARE(texts.join(' '), QString(told));
        }
    }

    /// A pattern begins at its origin, from wherever one looks at it.
    void strokesOfDashes()
    {
        const auto strokes = [](Qt::PenStyle style, double origin, double unit, double begin, double end) {
            QStringList texts;
            const auto all = LineDashes(style, origin, unit).strokes(begin, end);
            for (const LineDashes::Stroke &stroke : all)
                texts += QString("%1-%2").arg(stroke.begin).arg(stroke.end);
            return texts.join(' ');
        };
        QCOMPARE(strokes(Qt::SolidLine, 10, 1, 6, 20), QString("6-20"));
        QCOMPARE(strokes(Qt::DashLine, 10, 1, 6, 20), QString("6-7 10-14 17-20"));
        QCOMPARE(strokes(Qt::DashLine, 10, 1, 9, 17), QString("10-14"));
        QCOMPARE(strokes(Qt::DashLine, 10, 1, 28, 32), QString("31-32"));
        QCOMPARE(strokes(Qt::DotLine, 0, 2, 0, 12), QString("0-4 8-12"));
        QCOMPARE(strokes(Qt::DashDotLine, 0, 1, 0, 30), QString("0-8 10-12 14-22 24-26 28-30"));
        QCOMPARE(strokes(Qt::DashDotDotLine, 0, 1, 0, 30), QString("0-8 10-12 14-16 18-26 28-30"));
    }

    /// Dashes from 0 to 4, from 7 to 11 and so on, in an area from 2 to 13.
    void piecesOfLines()
    {
        using Points = QVector<QPointF>;
        const LineDashes dashes(Qt::DashLine, 0, 1);
        const QRect inside(2, 0, 12, 50);
        const std::pair<Points, QString> cases[] = {{{{0, 0}, {20, 0}}, " 1,0 4,0 | 7,0 11,0 | 14,0 15,0"},
            {{{20, 0}, {0, 0}}, " 1,0 4,0 | 7,0 11,0 | 14,0 15,0"}, {{{7, 0}, {7, 3}}, " 7,0 7,3"},
            {{{4, 0}, {4, 3}}, ""}, {{{5, 0}, {5, 4}}, " 5,0 5,4"}, {{{4, 0}, {8, 4}}, " 7,3 8,4"},
            {{{4, 0}, {7, 4}}, " 4,0 7,4"}, {{{3, 0}, {4, 0}, {4, 4}, {9, 3}}, " 3,0 4,0 4,4 | 7,3.4 9,3"}};
        for (const auto &[points, told] : cases) {
            QString text;
            const QVector<QPolygonF> pieces = dashes.pieces(inside, points);
            for (const QPolygonF &piece : pieces) {
                text += text.isEmpty() ? "" : " |";
                for (const QPointF &point : piece)
                    text += QString(" %1,%2").arg(point.x()).arg(point.y());
            }
            QCOMPARE(text, told);
        }
        QString inked;
        const QVector<QRect> spans{{5, 0, 1, 3}, {12, 0, 1, 4}};
        for (const QRect &rect : dashes.inked(inside, spans, Points{{6, 0}, {6, 3}, {6, 7}}))
            inked += QString(" %1-%2").arg(rect.left()).arg(rect.right());
        QCOMPARE(inked, QString(" 2-3 5-10 12-12"));
    }
};

QTEST_GUILESS_MAIN(TestCurveColumns)
#include "tst_curvecolumns.moc"
