#include "displays/datadisplay.h"

#include "data/voltageslope.h"
#include "displays/samplepack.h"
#include "resources/resources.h"
#include "settings/viewstate.h"
#include "support/settle.h"
#include "widgets/displayscale.h"

#include <QLabel>
#include <QTest>

#include <memory>

namespace {

using Data = Varnel3Data;
using F = DataFigures;
constexpr DataFigures::View voltages{true, CellValue::Voltage};

DataFigures figuresOf(const Varnel3Data &record, const DataFigures::View &view = {})
{
    DataFigures figures;
    figures.show(record, view, resistancesOf(record));
    return figures;
}

/// The texts of these items, of all of them where none is named, apart by bars.
QString told(const DataFigures &figures, const QVector<DataFigures::Item> &items = {})
{
    QStringList texts;
    for (int item = 0; item < F::itemCount; ++item)
        if (items.isEmpty() || items.contains(F::Item(item)))
            texts << figures.text(F::Item(item));
    return texts.join('|');
}

} // namespace

/// The data display: what it says about a record, what its labels show when, and that nothing is cut off.
class TestDataDisplay : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }

    void init()
    {
        QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
        m_state.setSwitches({});
        open();
    }

    /// What one field of a record changes, value after value.
    void figures()
    {
        const QVector<std::tuple<DataFigures::Item, int Varnel3Data::*, QVector<int>, QString>> rows{
            {F::Voltage, &Data::voltage, {16806, 900}, "16,81| 0,90"},
            {F::Current, &Data::current, {0, -12340}, " 0,00|-12,34"},
            {F::Temperature, &Data::temperature, {0, -5}, "--,-|-0,5"},
            {F::Capacity, &Data::energy, {9999, 10000, 99990, 100000}, "  9,999| 10,00| 99,99|100,0"},
            {F::Resistance, &Data::internalResistance, {0, 37}, "-,---|0,037"},
            {F::Time, &Data::time, {-1, 360000}, "00:00:00|100:00:00"},
            {F::Slope, &Data::time, {89, 90}, "|-12"},
            {F::Slope, &Data::voltageSlope, {noVoltageSlope}, "--,-"},
            // Those that have no text leave the last one.
            {F::Mode, &Data::mode, {3, 1, 4, 2, 6, -1}, "|Discharge|Discharge|Balance|Balance|Balance"},
            {F::Cells, &Data::cellCount, {14}, "14 x LiPo"},
            {F::Cells, &Data::cellType, {99}, "4 x None"},
        };
        for (const auto &[item, field, values, expected] : rows) {
            Varnel3Data record = samplePack({4200, 4200, 4200, 4200});
            record.time = 90;
            record.voltageSlope = -12;
            DataFigures figures;
            QStringList texts;
            for (const int value : values) {
                record.*field = value;
                figures.show(record, {}, {});
                texts << figures.text(item);
            }
            QCOMPARE(texts.join('|'), expected);
        }
    }

    void clearing()
    {
        for (int Varnel3Data::*const field : {&Data::mode, &Data::cellCount}) {
            Varnel3Data record = samplePack({4100, 4200, 4100, 4000});
            DataFigures figures = figuresOf(record, voltages);
            record.*field = field == &Data::mode ? int(Data::NoMode) : 0;
            figures.show(record, voltages, {});
            QCOMPARE(told(figures), QString("|||||||||V||A||Ah||°C|mV/min|Ω"));
            QCOMPARE(figures.cellText(3), QString());
            figures.setPerCellVoltage(true);
            QCOMPARE(told(figures), QString("|||||||||Vc||A||Ah||°C|mV/min|Ω"));
        }

        // The display: another window's record clears it first.
        const auto shown = [this] { return label("modeLabel")->text() + ' ' + label("cellsLabel")->text(); };
        Varnel3Data record = samplePack({4100});
        show(record, 1);
        record.mode = Data::Format; // has no text of its own
        show(record, 1);
        QCOMPARE(shown(), QString("Charge 1 x LiPo"));
        show(record, 2);
        QCOMPARE(shown(), QString(" 1 x LiPo"));
        m_display->clear();
        m_state.setSwitches({}); // nothing comes back
        settle(*m_display);
        QCOMPARE(shown(), QString(" "));
    }

    void perCellVoltage()
    {
        const auto shown = [this] { return label("voltageLabel")->text() + label("voltageUnit")->text(); };
        const auto afterClick = [&](Qt::MouseButton button) {
            QTest::mouseClick(label("voltageLabel"), button);
            return shown();
        };
        Varnel3Data record = samplePack({4200, 4200, 4200, 4200});
        show(record);
        QCOMPARE(afterClick(Qt::RightButton), QString("4,200Vc"));
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_Enter, Qt::Key_Space}) {
            QTest::keyClick(m_display.get(), key);
            QCOMPARE(shown(), QString(key == Qt::Key_Space ? "4,200Vc" : "16,80V"));
        }
        record.cellCount = -3; // no mean of such a pack: the figure stays
        record.voltage = 1000;
        show(record);
        QCOMPARE(shown(), QString("4,200Vc"));
        QCOMPARE(afterClick(Qt::LeftButton), QString(" 1,00V"));
        setView(true, CellValue::Voltage);
        show(samplePack({4000}));
        QCOMPARE(afterClick(Qt::LeftButton), QString(" 4,000V avg")); // for later
        setView(false, CellValue::Voltage);
        settle(*m_display);
        QCOMPARE(shown(), QString("4,000Vc"));
        QCOMPARE(afterClick(Qt::LeftButton), QString(" 4,00V"));
    }

    void statistics()
    {
        const auto shown = [](const Varnel3Data &record) {
            return told(figuresOf(record, voltages), {F::MaxCellNote, F::MinCellNote, F::Temperature});
        };
        QCOMPARE(shown(samplePack({3900, 4200, 4200, 3900})), QString("0,300|cell 2|cell 1"));
        QCOMPARE(shown(samplePack({4000, 3999, 3998, 4001})), QString("0,003|cell 4|cell 3"));
        Varnel3Data record = samplePack({4000, 4100});
        record.cellMax = 4500; // no cell has it
        record.cellCount = 99;
        QCOMPARE(shown(record), QString("0,500|cell 1|cell 1"));
        QCOMPARE(figuresOf(record, voltages).cellText(15), QString("0,000"));
        record.flag5 = '_'; // no cell data: the normal view stays
        QCOMPARE(shown(record), QString("--,-||"));
        record = samplePack({4110, 4032});
        record.cells[1].balanceCharge = 360000 * 1234 + 359999;
        const DataFigures figures = figuresOf(record, {true, CellValue::Charge});
        QCOMPARE(figures.text(F::Resistance), QString("1,234"));
        QCOMPARE(figures.cellText(0) + figures.cellText(1) + figures.cellText(2), QString("0,0001,235"));
        QCOMPARE(figures.cellColour(), qRgb(140, 120, 100));
    }

    /// After the figures and notes, the first cell's and that of one cell too many.
    void resistancePanel()
    {
        const QVector<DataFigures::Item> captions{
            F::VoltageUnit, F::CurrentUnit, F::TemperatureUnit, F::CapacityUnit, F::ResistanceUnit};
        const QVector<DataFigures::Item> items{F::Voltage, F::Current, F::Temperature, F::Capacity,
            F::Resistance, F::MaxCellNote, F::MinCellNote};
        const QString none = "--,-|--,-|--,-|--,-|--,-||";
        const QVector<QPair<QVector<double>, QString>> rows = {
            {{2.0, 2.5, 3.0}, " 2,50|  3,0|   50|  2,0|  7,5|cell 3|cell 1/  2,0/"},
            {{2.0, 3.0, 3.0, 2.0}, " 2,50|  3,0|   50|  2,0| 10,0|cell 2|cell 1/  2,0/"}, // ties
            {{2.0, 0.0, 3.0}, none + "/  2,0/"},
            {{-1.0, 2.0}, none + "/--.-/"},
            {{150.0, 120.0}, "135,00|150,0|   51| 99,9|270,0|cell 1|cell 1/150,0/"}, // the lowest's limit
            {{100.0 / 149.49, 1.0}, " 0,83|  1,0|   50|  0,7|  1,7|cell 2|cell 1/  0,7/"}, // rounded upwards
            {{1.0, 1.1}, " 1,05|  1,1|   10|  1,0|  2,1|cell 2|cell 1/  1,0/"}, // halves go to even figures
            {{10.0, 11.1}, "10,55| 11,1|   12| 10,0| 21,1|cell 2|cell 1/ 10,0/"},
            {{2.5}, " 2,50|  2,5|    0|  2,5|  2,5|cell 1|cell 1/  2,5/"},
        };
        for (const auto &[milliohms, expected] : rows) {
            const DataFigures shown = figuresOf(sampleResistances(milliohms), {true, CellValue::Resistance});
            QCOMPARE(told(shown, items) + '/' + shown.cellText(0) + '/' + shown.cellText(milliohms.size()),
                expected);
            QCOMPARE(told(shown, captions), QString("Ri avg|Ri max|Ri min|%\nRi delta|Ri"));
            QCOMPARE(shown.cellColour(), qRgb(255, 165, 0));
        }
    }

    /// What each label shows, where, in which colour and size, in the normal view and in the statistics.
    void labels()
    {
        constexpr int bottom = Qt::AlignLeft | Qt::AlignBottom;
        constexpr int right = Qt::AlignRight | Qt::AlignVCenter;
        constexpr int left = Qt::AlignLeft | Qt::AlignVCenter;
        constexpr int mid = Qt::AlignCenter;
        static const struct {
            const char *name;
            QRect place; // at scale 1
            int alignment;
            int points;
            const char *shown[2]; // in the normal view, in the statistics
            const char *colours[2];
        } rows[] = {
            {"cellsLabel", {0, 0, 235, 58}, mid, 31, {"4 x LiPo", "4 x LiPo"}, {"#ffffff", "#ffffff"}},
            {"modeLabel", {235, 0, 235, 58}, mid, 33, {"Discharge", "Discharge"}, {"#ffffff", "#ffffff"}},
            {"voltageLabel", {0, 58, 180, 60}, mid, 35, {"16,80", " 4,200"}, {"#00ff00", "#00ff00"}},
            {"voltageUnit", {180, 58, 55, 30}, bottom, 13, {"V", "V avg"}, {"#00ff00", "#00ff00"}},
            {"voltageNote", {180, 89, 55, 29}, bottom, 13, {"", ""}, {"#00ff00", "#00ff00"}},
            {"currentLabel", {235, 58, 180, 60}, mid, 35, {"-1,50", "4,210"}, {"#00ffff", "#ffff00"}},
            {"currentUnit", {415, 58, 55, 30}, bottom, 13, {"A", "V max"}, {"#00ffff", "#ffff00"}},
            {"maxCellNote", {415, 89, 55, 29}, bottom, 13, {"", "cell 3"}, {"#ffff00", "#ffff00"}},
            {"slopeLabel", {0, 118, 120, 30}, right, 17, {"12", "30"}, {"#ffff00", "#00ffff"}},
            {"slopeUnit", {126, 118, 109, 30}, left, 13, {"mV/min", "%"}, {"#ffff00", "#00ffff"}},
            {"resistanceLabel", {0, 149, 120, 30}, right, 17, {"0,037", "0,500"}, {"#ff00ff", "#ff7f00"}},
            {"resistanceUnit", {126, 149, 109, 30}, left, 13, {"Ω", "Ah max"}, {"#ff00ff", "#ff7f00"}},
            {"temperatureLabel", {235, 118, 180, 60}, mid, 35, {"23,5", "0,020"}, {"#ff0000", "#00ffff"}},
            {"temperatureUnit", {415, 128, 55, 40}, left, 13, {"°C", "V delta"}, {"#ff0000", "#00ffff"}},
            {"timeLabel", {7, 179, 220, 60}, mid, 35, {"01:02:05", "01:02:05"}, {"#ffff00", "#ffff00"}},
            {"capacityLabel", {235, 179, 180, 60}, mid, 35, {"  1,044", "4,190"}, {"#ff7f00", "#ff7f00"}},
            {"capacityUnit", {415, 179, 55, 30}, bottom, 13, {"Ah", "V min"}, {"#ff7f00", "#ff7f00"}},
            {"minCellNote", {415, 210, 55, 29}, bottom, 13, {"", "cell 2"}, {"#ff7f00", "#ff7f00"}},
        };
        Varnel3Data record = samplePack({4200, 4190, 4210, 4200});
        record.mode = Data::Discharge;
        record.time = 3725;
        record.current = -1500;
        record.temperature = 235;
        record.energy = 1044;
        record.voltageSlope = 12;
        record.internalResistance = 37;
        record.balanceMax = 30;
        record.cells[1].balanceCharge = 360000 * 500;
        // The letters are smaller where a figure would be 54 pixels high or more.
        const int percent = qEnvironmentVariableIsSet("FONTCONFIG_FILE") ? 95 : 100;
        const QString spoken[] = {"16,80 V, -1,50 A, 23,5 °C, 1,044 Ah, 12 mV/min, 0,037 Ω, 01:02:05",
            "4,200 V avg, 4,210 V max, 0,020 V delta, 4,190 V min, 30 %, 0,500 Ah max, 01:02:05, cell 1 "
            "4,200, "
            "cell 2 4,190, cell 3 4,210, cell 4 4,200"};
        for (const bool statistics : {false, true, false}) {
            setView(statistics, CellValue::Voltage);
            show(record);
            QCOMPARE(m_display->spokenText(),
                "Varnel - Data Display, window 1, Discharge 4 x LiPo, " + spoken[statistics]);
            for (const auto &row : rows) {
                const QLabel *label = this->label(row.name);
                QCOMPARE(label->text(), QString(row.shown[statistics]));
                QCOMPARE(colourOf(label), row.colours[statistics] + QString(" on #000000"));
                QVERIFY2(label->autoFillBackground() && label->textFormat() == Qt::PlainText, row.name);
                QCOMPARE(int(label->alignment()), row.alignment);
                if (displayScale() == 1.0)
                    QCOMPARE(label->geometry(), row.place);
                const bool isFull = percent == 100 || row.place.y() > 0; // the names above are fitted
                if (isFull && !statistics && !label->text().isEmpty())
                    QCOMPARE(label->font().pointSizeF(), row.points * percent / 100 * fontScale());
            }
        }
    }

    void cellTable()
    {
        setView(true, CellValue::Voltage);
        QVector<int> rising(16);
        std::iota(rising.begin(), rising.end(), 3001);
        show(samplePack(rising));
        const int side = scaled(20);
        int right = -1; // of the slot before
        for (int i = 0; i < 16; ++i) {
            const QLabel *name = label(QString("cellName%1").arg(i + 1));
            const QLabel *value = label(QString("cellValue%1").arg(i + 1));
            QCOMPARE(
                name->text() + value->text(), QString("%1: 3,0%2").arg(i + 1).arg(i + 1, 2, 10, QChar('0')));
            QCOMPARE(colourOf(name) + colourOf(value), QString("#ffffff on #000000#6464ff on #000000"));
            QCOMPARE(int(name->alignment()), Qt::AlignRight | Qt::AlignVCenter);
            QCOMPARE(name->font(), label("cellName1")->font());
            const int top
                = m_display->height() - (i < 8 ? 2 * side + 1 : side); // two rows, read as a book is
            QCOMPARE(name->geometry(), QRect(i % 8 == 0 ? 0 : right + 1, top, side, side));
            QCOMPARE(value->geometry(), QRect(name->x() + side + 1, top, value->width(), side));
            right = value->x() + value->width();
        }
        QVERIFY(m_display->width() - right <= 1);
    }

    void window()
    {
        QCOMPARE(m_display->size(), QSize(scaled(470), scaled(280)));
        QCOMPARE(m_display->maximumSize(), m_display->minimumSize());
        QCOMPARE(m_display->palette().color(QPalette::Window), QColor(Qt::black));
        const QLabel *badge = label("windowNumberLabel");
        QCOMPARE(badge->text(), QString("--"));
        m_display->setVisible(true); // as it is
        QCOMPARE(m_display->findChildren<QLabel *>().size(), 51);
        show(samplePack({4100, 4200}), 7);
        QVERIFY(badge->isVisible() && badge->alignment() == Qt::AlignCenter);
        QCOMPARE(badge->geometry(), QRect(0, 0, scaled(18), scaled(18)));
        QCOMPARE(m_display->grab().toImage().pixel(1, 1), qRgb(255, 255, 0));
        show(samplePack({4100, 4200}), -1);
        QVERIFY(!badge->isVisible());
        m_display->setStaleSince(QDateTime({2026, 1, 2}, {3, 4, 5}));
        settle(*m_display);
        QCOMPARE(
            colourOf(label("voltageLabel")), QString("#006600 on #000000")); // two and a half times darker
        QCOMPARE(m_display->toolTip(), QString("No line since 03:04:05"));
        m_display->setStaleSince({});
        settle(*m_display);
        QCOMPARE(colourOf(label("voltageLabel")) + m_display->toolTip(), QString("#00ff00 on #000000"));
    }

    void keptResistances()
    {
        const auto second = [this] { return label("cellValue2")->text(); };
        setView(true, CellValue::Resistance);
        Varnel3Data measured = sampleResistances({2.0, 3.0});
        Varnel3Data bare = samplePack({4000, 4000});
        show(measured);
        show(bare, 1, true);
        QCOMPARE(second(), QString("  3,0"));
        show(bare, 1, true); // the last one has gone through the panel: what it carried is kept now
        QCOMPARE(second(), QString("--.-"));

        m_display->updateData(measured, 1); // lines closer together than repaints count all the same
        show(bare, 1, true);
        QCOMPARE(second(), QString("  3,0"));

        // The table is the program's, not the window's; outside the panel nothing is kept.
        DataDisplay other;
        other.updateData(bare, 1); // does without a view state
        other.setViewState(&m_state);
        other.updateData(measured, 1);
        setView(true, CellValue::Voltage);
        other.updateData(bare, 1);
        setView(false, CellValue::Resistance);
        other.updateData(bare, 1);
        setView(true, CellValue::Resistance);
        bare.flag5 = '_';
        other.updateData(bare, 1);
        bare.flag5 = 'B';
        show(bare, 1, true);
        QCOMPARE(second(), QString("  3,0"));
    }

    void nothingIsCutOff()
    {
        Varnel3Data record = samplePack(QVector<int>(16, 14999));
        record.mode = Data::Discharge;
        record.time = record.voltage = record.cells[15].balanceCharge = 2000000000;
        record.current = -1234567;
        record.temperature = -12345;
        record.energy = 1234567890;
        record.cells[15].resistance = 1234567.8;
        record.internalResistance = 1234567;
        record.voltageSlope = -2000000000;
        for (const CellValue value : {CellValue::Voltage, CellValue::Charge, CellValue::Resistance}) {
            setView(value != CellValue::Voltage, value);
            show(record, 1234);
            QCOMPARE(label("windowNumberLabel")->text(), QString("1234"));
            const auto labels = m_display->findChildren<QLabel *>();
            for (const QLabel *one : labels) {
                const QSize needed = QFontMetrics(one->font()).size(0, one->text());
                const bool fits = one->text().isEmpty() || one->size().expandedTo(needed) == one->size();
                QVERIFY2(fits && m_display->rect().contains(one->geometry()), qPrintable(one->objectName()));
            }
        }
    }

private:
    QLabel *label(const QString &name) const { return m_display->findChild<QLabel *>(name); }

    static QString colourOf(const QLabel *label)
    {
        const QPalette &colours = label->palette();
        return colours.color(QPalette::WindowText).name() + " on " + colours.color(QPalette::Window).name();
    }

    void open()
    {
        m_display = std::make_unique<DataDisplay>();
        m_display->setViewState(&m_state);
        m_display->show();
    }

    void setView(bool statistics, CellValue cellValue)
    {
        ViewSwitches switches;
        switches.balancer = statistics;
        switches.cellValue = cellValue;
        m_state.setSwitches(switches);
    }

    /// Shows `record` and waits until it stands there.
    void show(Varnel3Data record, int window = 1, bool useKeptRi = false)
    {
        m_display->updateData(record, window, useKeptRi);
        settle(*m_display);
    }

    ViewState m_state;
    std::unique_ptr<DataDisplay> m_display;
};

QTEST_MAIN(TestDataDisplay)
#include "tst_datadisplay.moc"
