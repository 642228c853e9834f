#include "documents/csvexport.h"
#include "series/seriesstore.h"

#include <QtTest>

/// The table of a recording, column by column.
class TestCsvExport : public QObject {
    Q_OBJECT

private slots:
    void columnsHoldTheirFigures()
    {
        SeriesStore store;
        store.append(plain());
        store.append(balanced()); // of more cells: the widest record decides
        Varnel3Data tandor = balanced();
        tandor.device = Varnel3Data::Tandor;
        tandor.flag1 = '"';
        tandor.flag2 = '\0';
        tandor.flag4 = char(0xb0);
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
                "record|1|2|3; device|Varnel 3|Varnel 3|Tandor; time [s]|5|6|6; mode|Charge|Charge|Charge; "
                "chemistry|LiPo|LiPo|LiPo; cells|2|3|3; voltage [mV]|8000|12345|12345; "
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

private:
    static Varnel3Data record(const QString &figures)
    {
        Varnel3Data record;
        record.parseLine(figures + QString(",0000,0").repeated(13));
        return record;
    }
    static Varnel3Data plain()
    {
        return record("#02C05_____0,00005,08000,01500,250,00012,00045,4000,0,4000,0,0000,0");
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
        return CsvRows(store).writeAll(buffer) ? buffer.data().split('\n') : QList<QByteArray>();
    }
};

QTEST_APPLESS_MAIN(TestCsvExport)
#include "tst_csvexport.moc"
