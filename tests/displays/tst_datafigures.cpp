#include "displays/datafigures.h"

#include "data/voltageslope.h"
#include "displays/samplepack.h"
#include "support/columns.h"

#include <QLocale>
#include <QTest>

Q_DECLARE_METATYPE(int Varnel3Data::*)

namespace {

using Item = DataFigures::Item;

DataFigures figuresOf(const Varnel3Data &record, const DataFigures::View &view = {})
{
    DataFigures figures;
    figures.show(record, view, resistancesOf(record));
    return figures;
}

} // namespace

/// What the data display says about a record, item by item.
class TestDataFigures : public QObject {
    Q_OBJECT

private slots:
    void init() { QLocale::setDefault(QLocale(QStringLiteral("de_DE"))); }

    void normalFigures_data()
    {
        columns<int, int Varnel3Data::*, int, QString>({"item", "field", "value", "comma"});
        const auto row = [](Item item, int Varnel3Data::*field, int value, const char *comma) {
            QTest::addRow("item %d, %d", item, value)
                << int(item) << field << value << QString::fromUtf8(comma);
        };
        row(DataFigures::Voltage, &Varnel3Data::voltage, 16806, "16,81");
        row(DataFigures::Voltage, &Varnel3Data::voltage, 900, " 0,90");
        row(DataFigures::Current, &Varnel3Data::current, 0, " 0,00");
        row(DataFigures::Current, &Varnel3Data::current, -12340, "-12,34");
        row(DataFigures::Temperature, &Varnel3Data::temperature, 0, "--,-");
        row(DataFigures::Temperature, &Varnel3Data::temperature, 235, "23,5");
        row(DataFigures::Temperature, &Varnel3Data::temperature, -5, "-0,5");
        row(DataFigures::Capacity, &Varnel3Data::energy, 9999, "  9,999");
        row(DataFigures::Capacity, &Varnel3Data::energy, 10000, " 10,00");
        row(DataFigures::Capacity, &Varnel3Data::energy, 99990, " 99,99");
        row(DataFigures::Capacity, &Varnel3Data::energy, 100000, "100,0");
        row(DataFigures::Resistance, &Varnel3Data::internalResistance, 0, "-,---");
        row(DataFigures::Resistance, &Varnel3Data::internalResistance, 37, "0,037");
        row(DataFigures::Time, &Varnel3Data::time, 3725, "01:02:05");
        row(DataFigures::Time, &Varnel3Data::time, -1, "00:00:00");
        row(DataFigures::Time, &Varnel3Data::time, 360000, "100:00:00");
        row(DataFigures::Mode, &Varnel3Data::mode, 1, "Discharge");
        row(DataFigures::Mode, &Varnel3Data::mode, 2, "Balance");
        row(DataFigures::Cells, &Varnel3Data::cellCount, 14, "14 x LiPo");
        row(DataFigures::Cells, &Varnel3Data::cellType, 99, "4 x None");
    }

    void normalFigures()
    {
        QFETCH(int, item);
        QFETCH(int Varnel3Data::*, field);
        QFETCH(int, value);
        QFETCH(QString, comma);
        Varnel3Data record = samplePack({4200, 4200, 4200, 4200});
        record.*field = value;
        QCOMPARE(figuresOf(record).text(Item(item)), comma);
        QLocale::setDefault(QLocale::c());
        QCOMPARE(
            figuresOf(record).text(Item(item)), QString(comma).replace(QLatin1Char(','), QLatin1Char('.')));
    }

    void slopeIsEmptyWhileItMeansNothing()
    {
        Varnel3Data record = samplePack({4200});
        record.voltageSlope = -12;
        record.time = 89;
        QCOMPARE(figuresOf(record).text(DataFigures::Slope), QString());
        record.time = 90;
        QCOMPARE(figuresOf(record).text(DataFigures::Slope), QStringLiteral("-12"));
        record.voltageSlope = noVoltageSlope;
        QCOMPARE(figuresOf(record).text(DataFigures::Slope), QStringLiteral("--,-"));
    }

    void perCellVoltage()
    {
        Varnel3Data record = samplePack({4200, 4200, 4200, 4200});
        DataFigures figures = figuresOf(record);
        figures.setPerCellVoltage(true);
        QCOMPARE(figures.text(DataFigures::Voltage), QStringLiteral("4,200"));
        QCOMPARE(figures.text(DataFigures::VoltageUnit), QStringLiteral("Vc"));
        record.cellCount = -3; // no mean of such a pack: the figure stays
        record.voltage = 1000;
        figures.show(record, {}, {});
        QCOMPARE(figures.text(DataFigures::Voltage), QStringLiteral("4,200"));
        figures.setPerCellVoltage(false);
        QCOMPARE(figures.text(DataFigures::Voltage), QStringLiteral(" 1,00"));
        QCOMPARE(figures.text(DataFigures::VoltageUnit), QStringLiteral("V"));
    }

    void modesWithoutTextKeepTheLastOne()
    {
        Varnel3Data record = samplePack({4200});
        DataFigures figures = figuresOf(record);
        for (const int mode : {3, 4, 6, -1}) {
            record.mode = mode;
            figures.show(record, {}, {});
            QCOMPARE(figures.text(DataFigures::Mode), QStringLiteral("Charge"));
        }
    }

    void emptyRecords()
    {
        for (const bool cells : {true, false}) {
            Varnel3Data record = samplePack({4100, 4200, 4100, 4000});
            DataFigures figures = figuresOf(record, {true, CellValue::Voltage});
            if (cells)
                record.mode = Varnel3Data::NoMode;
            else
                record.cellCount = 0;
            figures.show(record, {true, CellValue::Voltage}, {});
            for (const Item item : {DataFigures::Time, DataFigures::Voltage, DataFigures::Current,
                     DataFigures::Mode, DataFigures::Cells, DataFigures::Slope, DataFigures::Resistance,
                     DataFigures::MaxCellNote})
                QCOMPARE(figures.text(item), QString());
            QCOMPARE(figures.text(DataFigures::VoltageUnit), QStringLiteral("V"));
            QCOMPARE(figures.text(DataFigures::SlopeUnit), QStringLiteral("mV/min"));
            QCOMPARE(figures.cellText(0), QString());
        }
    }

    void extremes_data()
    {
        columns<QVector<int>, QString, QString, QString>({"millivolts", "highest", "lowest", "delta"});
        const auto row = [](const char *name, const QVector<int> &cells, const char *high, const char *low,
                             const char *delta) {
            QTest::newRow(name) << cells << QString::fromLatin1(high) << QString::fromLatin1(low)
                                << QString::fromLatin1(delta);
        };
        row("ties go to the first", {3900, 4200, 4200, 3900}, "cell 2", "cell 1", "0,300");
        row("all alike", {4000, 4000, 4000}, "cell 1", "cell 1", "0,000");
        row("last cell", {4000, 3999, 3998, 4001}, "cell 4", "cell 3", "0,003");
        row("sixteen", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}, "cell 16", "cell 1", "0,015");
    }

    void extremes()
    {
        QFETCH(QVector<int>, millivolts);
        QFETCH(QString, highest);
        QFETCH(QString, lowest);
        QFETCH(QString, delta);
        const DataFigures figures = figuresOf(samplePack(millivolts), {true, CellValue::Voltage});
        QCOMPARE(figures.text(DataFigures::MaxCellNote), highest);
        QCOMPARE(figures.text(DataFigures::MinCellNote), lowest);
        QCOMPARE(figures.text(DataFigures::Temperature), delta);
    }

    void statisticsOfAnInconsistentRecord()
    {
        Varnel3Data record = samplePack({4000, 4100});
        record.cellMax = 4500; // no cell has it
        record.cellCount = 99;
        DataFigures figures = figuresOf(record, {true, CellValue::Voltage});
        QCOMPARE(figures.text(DataFigures::MaxCellNote), QStringLiteral("cell 1"));
        QCOMPARE(figures.text(DataFigures::Cells), QStringLiteral("99 x LiPo"));
        QCOMPARE(figures.cellText(15), QStringLiteral("0,000"));
        record.flag5 = '_'; // no cell data: the normal view stays
        QCOMPARE(figuresOf(record, {true, CellValue::Voltage}).text(DataFigures::CurrentUnit),
            QStringLiteral("A"));
    }

    void statisticsFigures()
    {
        Varnel3Data record = samplePack({4110, 4032});
        record.balanceMax = 100;
        record.cells[1].balanceCharge = 360000 * 1234 + 359999;
        DataFigures figures = figuresOf(record, {true, CellValue::Charge});
        QCOMPARE(figures.text(DataFigures::Slope), QStringLiteral("100"));
        QCOMPARE(figures.text(DataFigures::SlopeUnit), QStringLiteral("%"));
        QCOMPARE(figures.text(DataFigures::Resistance), QStringLiteral("1,234"));
        QCOMPARE(figures.text(DataFigures::Voltage), QStringLiteral(" 4,071"));
        QCOMPARE(figures.text(DataFigures::Current), QStringLiteral("4,110"));
        QCOMPARE(figures.text(DataFigures::Capacity), QStringLiteral("4,032"));
        QCOMPARE(figures.cellText(1), QStringLiteral("1,235"));
        QCOMPARE(figures.cellText(2), QString());
        QCOMPARE(figures.cellColour(), qRgb(140, 120, 100));
        figures.show(record, {true, CellValue::Voltage}, {});
        QCOMPARE(figures.cellText(1), QStringLiteral("4,032"));
        QCOMPARE(figures.cellColour(), qRgb(100, 100, 255));
    }

    void resistancePanel_data()
    {
        QTest::addColumn<QVector<double>>("milliohms");
        QTest::addColumn<QStringList>(
            "figures"); // mean, sum, spread, highest, its note, lowest, its note, first cell
        const auto row = [](const char *name, const QVector<double> &cells, const QStringList &figures) {
            QTest::newRow(name) << cells << figures;
        };
        row("plain", {2.0, 2.5, 3.0},
            {" 2,50", "  7,5", "   50", "  3,0", "cell 3", "  2,0", "cell 1", "  2,0"});
        row("ties", {2.0, 3.0, 3.0, 2.0},
            {" 2,50", " 10,0", "   50", "  3,0", "cell 2", "  2,0", "cell 1", "  2,0"});
        row("one without", {2.0, 0.0, 3.0}, {"--,-", "--,-", "--,-", "--,-", "", "--,-", "", "  2,0"});
        row("none at all", {0.0, 0.0}, {"--,-", "--,-", "--,-", "--,-", "", "--,-", "", "--.-"});
        row("below zero", {-1.0, 2.0}, {"--,-", "--,-", "--,-", "--,-", "", "--,-", "", "--.-"});
        row("above the lowest's limit", {150.0, 120.0},
            {"135,00", "270,0", "   51", "150,0", "cell 1", " 99,9", "cell 1", "150,0"});
        row("a little below a half", {100.0 / 149.49, 1.0},
            {" 0,83", "  1,7", "   50", "  1,0", "cell 2", "  0,7", "cell 1", "  0,7"});
        row("half to even, down", {1.0, 1.1},
            {" 1,05", "  2,1", "   10", "  1,1", "cell 2", "  1,0", "cell 1", "  1,0"});
        row("half to even, up", {10.0, 11.1},
            {"10,55", " 21,1", "   12", " 11,1", "cell 2", " 10,0", "cell 1", " 10,0"});
        row("no spread", {2.5}, {" 2,50", "  2,5", "    0", "  2,5", "cell 1", "  2,5", "cell 1", "  2,5"});
    }

    void resistancePanel()
    {
        QFETCH(QVector<double>, milliohms);
        QFETCH(QStringList, figures);
        const DataFigures shown = figuresOf(sampleResistances(milliohms), {true, CellValue::Resistance});
        QCOMPARE((QStringList{shown.text(DataFigures::Voltage), shown.text(DataFigures::Resistance),
                     shown.text(DataFigures::Temperature), shown.text(DataFigures::Current),
                     shown.text(DataFigures::MaxCellNote), shown.text(DataFigures::Capacity),
                     shown.text(DataFigures::MinCellNote), shown.cellText(0)}),
            figures);
        QCOMPARE(shown.text(DataFigures::TemperatureUnit), QStringLiteral("%\nRi delta"));
        QCOMPARE(shown.text(DataFigures::VoltageUnit), QStringLiteral("Ri avg"));
        QCOMPARE(shown.cellColour(), qRgb(255, 165, 0));
        QCOMPARE(shown.cellText(milliohms.size()), QString());
    }
};

QTEST_APPLESS_MAIN(TestDataFigures)
#include "tst_datafigures.moc"
