#include "logbook/logbookreader.h"
#include "logbook/window/logbookstatus.h"
#include "logbook/window/packlist.h"
#include "logbook/window/table/curvepicture.h"
#include "logbook/window/table/recordingcolumns.h"
#include "logbook/window/table/recordingtable.h"
#include "logbook/window/table/tablepages.h"
#include "sample.h"
#include "support/layoutfault.h"
#include "support/paintlog.h"
#include "widgets/displayscale.h"

#include <QBitmap>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QStandardItemModel>
#include <QStatusBar>
#include <QtTest>

using Columns = RecordingColumns;

namespace {

/// Text, alignment, colour and letters of a cell.
QString looksOf(const QModelIndex &cell)
{
    const auto font = cell.data(Qt::FontRole).value<QFont>();
    const QVariant colour = cell.data(Qt::ForegroundRole);
    return cell.data().toString() + QString(" %1").arg(cell.data(Qt::TextAlignmentRole).toInt())
        + (colour.isValid() ? ' ' + colour.value<QColor>().name() : "") + (font.italic() ? " italic" : "")
        + (font.bold() ? " bold" : "");
}

QString dayText(int day)
{
    return QLocale().toString(QDate(2026, 1, 1).addDays(day), QLocale::ShortFormat);
}

} // namespace

/// What the logbook's window is made of, each part alone.
class TestLogbookParts : public QObject, private BookRig {
    Q_OBJECT

private slots:
    void init() { renew(); }

    void rows()
    {
        const qint64 pack = addPack("A", 5000, {});
        QVector<qint64> ids;
        for (int day = 0; day < 4; ++day) {
            LogbookRecording recording = sampleRecording(day, Varnel::Discharge, 4800);
            recording.isLive = day == 3;
            ids += add(recording);
        }
        logbook->setGone(logbook->recording(ids[2])->file, true);
        editor->assign({ids[0], ids[2], ids[3]}, pack);
        RecordingTable table(logbook.get());
        table.refresh();
        QCOMPARE(table.ids(), (QVector<qint64>{ids[3], ids[2], ids[1], ids[0]}));
        const char *looks[][2]
            = {{"A 129 bold", " 130 bold"}, {"A 129 #5b6773 italic", "4800 130 #5b6773 italic"},
                {"A ? 129 #5b6773 italic", "4800 130"}, {"A 129", "4800 130"}};
        for (int row = 0; row < 4; ++row) {
            QCOMPARE(looksOf(table.index(row, Columns::Pack)), QString(looks[row][0]));
            QCOMPARE(looksOf(table.index(row, Columns::Charge)), QString(looks[row][1]));
            QVERIFY(looksOf(table.index(row, Columns::Start)).contains(" 129"));
        }
        const QString tip = table.index(3, 0).data(Qt::ToolTipRole).toString();
        QVERIFY(tip.startsWith("<img src='data:image/png;base64,iVBOR") && tip.endsWith("</p>"));
        QVERIFY(tip.contains("12:00<br>Pack: A<br>Device: Varnel 3<br>Port: COM3<br>Process: Discharge<br>")
            && tip.contains("<br>End [V]: 19.80<br>Resistance [mΩ]: 20<br>Spread")); // no temperature
        QVERIFY(curveToolTip({}, "<a>").startsWith("<p style='white-space:pre'>&lt;a&gt;</p>"));
        QVERIFY(!table.data({}).isValid() && !table.index(0, 0).data(Qt::CheckStateRole).isValid());
        QCOMPARE(table.headerData(Columns::Spread, Qt::Horizontal).toString(), QString("Spread [mV]"));
        QCOMPARE(table.headerData(Columns::Spread, Qt::Horizontal, Qt::ToolTipRole).toString(),
            QString("Highest cell less the lowest, at the end"));
        QVERIFY(!table.headerData(0, Qt::Vertical).isValid());
        QSignalSpy reset(&table, SIGNAL(modelReset()));
        QSignalSpy changed(&table, SIGNAL(dataChanged(QModelIndex,QModelIndex)));
        table.refresh();
        QCOMPARE(reset.size(), 0);
        QCOMPARE(changed.first().at(0).toModelIndex(), table.index(0, 0));
        QCOMPARE(changed.first().at(1).toModelIndex(), table.index(3, Columns::count - 1));
        table.sort(99, Qt::AscendingOrder);
        QCOMPARE(table.ids().first(), ids[0]); // by its file
        QCOMPARE(reset.size(), 1);
        QCOMPARE(table.rowCount(table.index(0, 0)) + table.columnCount(table.index(0, 0)), 0);
        for (const auto order : {Qt::AscendingOrder, Qt::DescendingOrder}) { // of equal ones the newest first
            table.sort(Columns::Cells, order);
            QCOMPARE(table.ids(), (QVector<qint64>{ids[3], ids[2], ids[1], ids[0]}));
        }
        table.sort(-1, Qt::AscendingOrder);
        QCOMPARE(table.ids().first(), ids[0]);
    }

    /// Texts as a reader sorts them: numbers in them by their value, in whatever case, nothing last, as with
    /// figures.
    void rowsByText()
    {
        for (const char *note : {"pack 10", "", "Pack 9", "b", "A"}) {
            LogbookRecording recording = sampleRecording(logbook->size(), Varnel::Charge, 100);
            recording.note = note;
            recording.isLive = !*note;
            add(recording);
        }
        QLocale::setDefault(QLocale("en_US"));
        RecordingTable table(logbook.get());
        const auto notes = [&](Qt::SortOrder order) {
            table.sort(Columns::Charge, order);
            if (!logbook->recording(table.ids().constLast())->isLive)
                return QString("what is not known is not last");
            table.sort(Columns::Note, order);
            QStringList texts;
            for (const qint64 id : table.ids())
                texts += logbook->recording(id)->note;
            return texts.join(',');
        };
        QCOMPARE(notes(Qt::AscendingOrder), QString("A,b,Pack 9,pack 10,"));
        QCOMPARE(notes(Qt::DescendingOrder), QString("pack 10,Pack 9,b,A,"));
    }

    void columnsOfARow()
    {
        const auto told = [&](const LogbookRecording &recording) {
            QString texts;
            for (int column = 0; column < Columns::count; ++column)
                texts += Columns::text(*logbook, recording, column) + '|';
            return texts.replace(" 1 Jan", " 01 Jan");
        };
        LogbookRecording full = sampleRecording(0, Varnel::Discharge, 4800);
        full.isStartApproximate = full.isGone = true;
        full.note = "two\nlines";
        full.figures.cellResistances[0] = 1.5;
        full.figures.cellResistances[1] = 2.5;
        full.figures.records = full.figures.resistance = 1;
        full.figures.highestTemperature = 415;
        full.figures.spread = 0;
        QCOMPARE(told(full),
            QString(
                "≈ 01 Jan 2026 12:00||Varnel 3|COM3|Discharge|LiPo|6|01:00:00|4800|106.56|25.00|19.80|41.5|1|"
                "1.5  2.5  0.0  0.0  0.0  0.0|0|Completed|two lines|2026-0_1.acp (gone)|"));
        QCOMPARE(Columns::number(full, Columns::CellResistances), 1.5);
        LogbookRecording unread;
        unread.file = "/r/x.acp";
        QCOMPARE(told(unread), QString("|").repeated(16) + "No end||x.acp|");
        QCOMPARE(Columns::label(*logbook, unread), QString("x"));
        unread.isLive = true;
        for (const auto &[end, text] : {std::pair(Varnel::NoEnd, "Recording"),
                 std::pair(Varnel::Aborted, "Aborted"), std::pair(Varnel::Failed, "Error")}) {
            unread.figures.end = end;
            QCOMPARE(Columns::text(*logbook, unread, Columns::Ended), QString(text));
        }
    }

    /// How packs fare; what sorts them; what is not known comes last, either way.
    void packs()
    {
        const qint64 a = addPack("A", 5000, {{0, 5000}, {20, 4500}, {40, 3940}}, 420);
        addPack("B", 0, {{5, 1000}}, 420);
        editor->addPack({0, "C", 5, 0, 1, ""});
        addPack("D", 5000, {{1, 3800}, {21, 3900}, {41, 4000}});
        add(sampleRecording(9, Varnel::Charge, 77));
        PackList list(logbook.get());
        list.refresh();
        const auto texts = [&](int row, int role = Qt::DisplayRole) {
            QStringList all;
            for (int column = 0; column < PackList::columnTotal; ++column)
                all += list.index(row, column).data(role).toString();
            return all.join('|');
        };
        QCOMPARE(list.rowCount(), 6);
        QCOMPARE(list.rowCount(list.index(0, 0)) + list.columnCount(list.index(0, 0)), 0);
        QCOMPARE(texts(0), QString("All recordings (8)||||"));
        QCOMPARE(texts(1), QString("Not assigned (1)||||"));
        QCOMPARE(texts(2), "A|78 %|-194 %|3|" + dayText(40));
        QCOMPARE(texts(3), "B|||1|" + dayText(5));
        QCOMPARE(texts(4), QString("C|||0|"));
        QCOMPARE(texts(5), "D|80 %|+37 %|3|" + dayText(41));
        QCOMPARE(texts(2, Qt::AccessibleTextRole), "A|78 %, worn out|-194 %|3|" + dayText(40));
        QCOMPARE(texts(5, Qt::AccessibleTextRole), texts(5));
        QCOMPARE(looksOf(list.index(2, PackList::Health)), QString("78 % 130 bold"));
        QCOMPARE(looksOf(list.index(2, PackList::PerYear)), QString("-194 % 130"));
        QCOMPARE(looksOf(list.index(5, PackList::Name)), QString("D 129"));
        QCOMPARE(list.index(2, 0).data(Qt::ToolTipRole).toString(),
            QString("A\n6 x LiPo\n5000 mAh nominal\nits note\nWorn out: below 80 % of its nominal capacity.\n"
                    "Cell 4 is weak: 420 mV between the highest and the lowest when the pack is empty."));
        QCOMPARE(list.index(3, 0).data(Qt::ToolTipRole).toString(),
            QString("B\n6 x LiPo\nGive the nominal capacity to see the state of health.\nits note\n"
                    "Cell 4 is weak: 420 mV between the highest and the lowest when the pack is empty."));
        QCOMPARE(list.index(4, 0).data(Qt::ToolTipRole).toString(), QString("C\n1 mAh nominal"));
        const auto mark = [&](int row, int column) {
            const QVariant pixmap = list.index(row, column).data(Qt::DecorationRole);
            const QImage image = pixmap.value<QPixmap>().toImage();
            return image.isNull() ? QString()
                                  : image.pixelColor(image.rect().center()).name()
                    + QString::number(image.pixelColor(1, image.height() - 2).alpha() > 200)
                    + QString::number(image.pixelColor(5, image.height() - 1).value() > 99); // no edge
        };
        QCOMPARE(mark(2, PackList::Health) + mark(5, PackList::Health), QString("#c6282811#1e8a3c01"));
        QCOMPARE(mark(3, PackList::Health) + mark(4, PackList::Health) + mark(2, PackList::Name),
            QString("#c6282811"));
        for (const int row : {2, 5}) {
            const auto pixmap = list.index(row, PackList::Health).data(Qt::DecorationRole).value<QPixmap>();
            QCOMPARE(QRegion(pixmap.createHeuristicMask()).boundingRect(), QRect(0, 0, 12, 12));
        }
        for (const auto &[section, title] :
            {std::pair(PackList::Name, "Pack"), std::pair(PackList::PerYear, "Per year")})
            QCOMPARE(list.headerData(section, Qt::Horizontal).toString(), QString(title));
        QVERIFY(list.headerData(4, Qt::Horizontal, Qt::ToolTipRole).toString().startsWith("Start of"));
        for (const QVariant &none : {list.headerData(5, Qt::Horizontal), list.headerData(0, Qt::Vertical),
                 list.headerData(-1, Qt::Horizontal), list.headerData(0, Qt::Horizontal, Qt::FontRole)})
            QVERIFY(!none.isValid());
        const std::pair<PackList::Column, const char *> orders[] = {{PackList::Name, "ABCD DCBA"},
            {PackList::Health, "ADBC DABC"}, {PackList::PerYear, "ADBC DABC"},
            {PackList::Cycles, "CBAD ADBC"}, {PackList::Newest, "BADC DABC"}};
        for (const auto &[column, order] : orders) {
            QString found;
            for (const auto way : {Qt::AscendingOrder, Qt::DescendingOrder}) {
                list.sort(column, way);
                found += found.isEmpty() ? "" : " ";
                for (int row = 2; row < 6; ++row)
                    found += list.index(row, 0).data().toString();
            }
            QCOMPARE(found, QString(order));
        }
        QCOMPARE(list.packAt(list.rowOf(a)), a);
        for (const int row : {-1, 6})
            QCOMPARE(list.packAt(row), qint64(LogbookFilter::everyPack));
        QCOMPARE(list.rowOf(99), 0);
        QSignalSpy reset(&list, SIGNAL(modelReset()));
        QSignalSpy changed(&list, SIGNAL(dataChanged(QModelIndex,QModelIndex)));
        add(sampleRecording(10, Varnel::Charge, 77));
        list.refresh();
        QCOMPARE(texts(0), QString("All recordings (9)||||"));
        QCOMPARE(reset.size(), 0);
        QCOMPARE(changed.first().at(0).toModelIndex(), list.index(0, 0));
        QCOMPARE(changed.first().at(1).toModelIndex(), list.index(5, PackList::Newest));
    }

    /// The columns in their order, as wide as their texts up to a limit; on the last page the last row.
    void pages()
    {
        // none, full, one more, as wide as it may be, small letters, one more
        for (const auto &[rows, columns, count] : {std::tuple(0, 2, 1), std::tuple(41, 2, 1),
                 std::tuple(42, 2, 2), std::tuple(42, 4, 2), std::tuple(48, 5, 1), std::tuple(49, 5, 2)})
            paintPages(rows, columns, count);
    }

    void pictures()
    {
        const QSize size(100, 50);
        QVERIFY(curvePicture({}, size).isNull());
        const QImage image = curvePicture(QByteArray("\0\0\xff", 3), size);
        QRect ink;
        QSet<QRgb> shades;
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width(); ++x)
                if (shades += image.pixel(x, y); image.pixel(x, y) != 0xffffffff)
                    ink |= QRect(x, y, 1, 1);
        QVERIFY(shades.size() > 9); // smooth
        QCOMPARE(ink, QRect(QPoint(3, 3), QPoint(96, 46)));
        QVERIFY(image.pixelColor(25, 45).blue() > image.pixelColor(25, 45).red() + 50);
        QCOMPARE(image.pixelColor(25, 40), QColor(Qt::white));
    }

    void status()
    {
        LogbookReader reader(logbook.get(), "/nowhere");
        QStatusBar bar;
        LogbookStatus status(&bar, &reader);
        auto *progress = bar.findChild<QProgressBar *>();
        auto *cancel = bar.findChild<QPushButton *>();
        bar.show();
        QVERIFY(!progress->isVisible() && !cancel->isVisible());
        emit reader.progressed(3, 10);
        QVERIFY(progress->isVisible() && cancel->isVisible());
        QCOMPARE(progress->text(), QString("3 of 10 files"));
        QCOMPARE(layoutFault(bar), QByteArray());
        QVERIFY(progress->maximumWidth() == 200 && !progress->toolTip().isEmpty()
            && !cancel->toolTip().isEmpty());
        QCOMPARE(bar.findChild<QLabel *>()->contentsMargins(), QMargins(0, 0, 8, 0));
        QSignalSpy finished(&reader, SIGNAL(finished()));
        cancel->click();
        QCOMPARE(finished.size(), 1);
        QVERIFY(!progress->isVisible() && !cancel->isVisible());
        const auto told = [&](int shown, int total, int chosen) {
            status.tell(shown, total, chosen);
            return bar.findChild<QLabel *>("logbookCount")->text();
        };
        QCOMPARE(told(5, 5, 1), QString("5 recording(s)"));
        QCOMPARE(told(4, 5, 0), QString("4 of 5 recording(s)"));
        QCOMPARE(told(5, 5, 2), QString("5 recording(s), 2 chosen"));
    }

private:
    static void paintPages(int rows, int columns, int count)
    {
        QStandardItemModel model(rows, columns + 1);
        for (int column = 0; column <= columns; ++column) {
            model.setHeaderData(column, Qt::Horizontal, QString(8, QChar('A' + column)));
            for (int row = 0; row < rows; ++row) {
                const QString text = row == 0 ? QString(100, 'W') : QString("%1.%2").arg(row).arg(column);
                model.setData(model.index(row, column), text);
                model.setData(model.index(row, column), int(column == 1 ? Qt::AlignRight : Qt::AlignLeft),
                    Qt::TextAlignmentRole);
            }
        }
        QHeaderView header(Qt::Horizontal);
        header.setModel(&model);
        header.hideSection(2);
        header.moveSection(1, 0);
        const TablePages pages(model, header);
        QCOMPARE(pages.count(), count);
        const QFontMetricsF letters(drawingFont("Arial", 8, 1, true));
        const auto width
            = [&](char title) { return int(letters.horizontalAdvance(QString(8, title)) + 8) + 1; };
        if (rows == 0) // as wide as the titles
            VERIFY_PAINTS(
                TablePages::size().toSize(), [&](QPainter &painter) { pages.paint(painter, 0); },
                QString("text 'BBBBBBBB' left 0,9 11 bold Arial #000000; "
                        "text 'AAAAAAAA' left %1,9 11 bold Arial #000000; "
                        "line 0,17 %2,17 #000000; text '1 / 1' right 1120,732 11 Arial #000000")
                    .arg(width('B'))
                    .arg(width('B') + width('A')),
                true);
        if (rows == 49)
            VERIFY_PAINTS(
                TablePages::size().toSize(), [&](QPainter &painter) { pages.paint(painter, 1); },
                "text 'BBBBBBBB' right 217,7 9.47692 bold Arial #000000; "
                "text 'AAAAAAAA' left 224,7 9.47692 bold Arial #000000; "
                "text '48.1' right 217,22 9.47692 Arial #000000; "
                "text '48.0' left 224,22 9.47692 Arial #000000; "
                "text '2 / 2' right 1120,733 9.47692 Arial #000000");
    }
};

QTEST_MAIN(TestLogbookParts)
#include "tst_logbookparts.moc"
