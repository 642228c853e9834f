#include "displays/datadisplay.h"

#include "displays/clickedlabel.h"
#include "widgets/displayscale.h"
#include "displays/samplepack.h"
#include "resources/resources.h"
#include "settings/viewstate.h"
#include "support/columns.h"
#include "support/settle.h"
#include "support/warningcollector.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

/// The data display as a window: what its labels show when, and that nothing is cut off.
class TestDataDisplay : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        initResources();
        QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
    }
    void init();
    void cleanup();

    void labels();
    void cellTable();
    void window();
    void anotherWindowClearsFirst();
    void clickingTheVoltageToggles();
    void keptResistances();
    void staleFiguresAreDimmed();
    void closingTells();
    void nothingIsCutOff_data();
    void nothingIsCutOff();

private:
    QString text(const char *name) const;
    void setView(bool statistics, int cellValue);
    void show(Varnel3Data record, int window = 1, bool useKeptRi = false);

    ViewState *m_state = nullptr;
    DataDisplay *m_display = nullptr;
    WarningCollector *m_warnings = nullptr;
};

void TestDataDisplay::init()
{
    m_warnings = new WarningCollector;
    m_state = new ViewState(this);
    m_display = new DataDisplay;
    m_display->setViewState(m_state);
    m_display->show();
}

void TestDataDisplay::cleanup()
{
    delete m_display;
    delete m_state;
    const QStringList warnings = m_warnings->warnings();
    delete m_warnings;
    QCOMPARE(warnings, QStringList());
}

QString TestDataDisplay::text(const char *name) const
{
    return m_display->findChild<QLabel *>(QLatin1String(name))->text();
}

void TestDataDisplay::setView(bool statistics, int cellValue)
{
    ViewSwitches switches;
    switches.balancer = statistics;
    switches.cellValue = CellValue(cellValue);
    m_state->setSwitches(switches);
}

/// Shows `record` and waits until it stands there.
void TestDataDisplay::show(Varnel3Data record, int window, bool useKeptRi)
{
    m_display->updateData(record, window, useKeptRi);
    settle(*m_display);
}

/// What each label shows, where, in which colour and size, in the normal view and in the statistics.
void TestDataDisplay::labels()
{
    constexpr int bottom = Qt::AlignLeft | Qt::AlignBottom;
    constexpr int right = Qt::AlignRight | Qt::AlignVCenter;
    constexpr int left = Qt::AlignLeft | Qt::AlignVCenter;
    static const struct {
        const char *name;
        QRect place; // at scale 1
        int alignment;
        int points;
        const char *normal;
        const char *colour;
        const char *statistics;
        const char *itsColour;
    } rows[] = {
        {"cellsLabel", {0, 0, 235, 58}, Qt::AlignCenter, 31, "4 x LiPo", "#ffffff", "4 x LiPo", "#ffffff"},
        {"modeLabel", {235, 0, 235, 58}, Qt::AlignCenter, 33, "Discharge", "#ffffff", "Discharge", "#ffffff"},
        {"voltageLabel", {0, 58, 180, 60}, Qt::AlignCenter, 35, "16,80", "#00ff00", " 4,200", "#00ff00"},
        {"voltageUnit", {180, 58, 55, 30}, bottom, 13, "V", "#00ff00", "V avg", "#00ff00"},
        {"voltageNote", {180, 89, 55, 29}, bottom, 13, "", "#00ff00", "", "#00ff00"},
        {"currentLabel", {235, 58, 180, 60}, Qt::AlignCenter, 35, "-1,50", "#00ffff", "4,210", "#ffff00"},
        {"currentUnit", {415, 58, 55, 30}, bottom, 13, "A", "#00ffff", "V max", "#ffff00"},
        {"maxCellNote", {415, 89, 55, 29}, bottom, 13, "", "#ffff00", "cell 3", "#ffff00"},
        {"slopeLabel", {0, 118, 120, 30}, right, 17, "12", "#ffff00", "30", "#00ffff"},
        {"slopeUnit", {126, 118, 109, 30}, left, 13, "mV/min", "#ffff00", "%", "#00ffff"},
        {"resistanceLabel", {0, 149, 120, 30}, right, 17, "0,037", "#ff00ff", "0,500", "#ff7f00"},
        {"resistanceUnit", {126, 149, 109, 30}, left, 13, "Ω", "#ff00ff", "Ah max", "#ff7f00"},
        {"temperatureLabel", {235, 118, 180, 60}, Qt::AlignCenter, 35, "23,5", "#ff0000", "0,020", "#00ffff"},
        {"temperatureUnit", {415, 128, 55, 40}, left, 13, "°C", "#ff0000", "V delta", "#00ffff"},
        {"timeLabel", {7, 179, 220, 60}, Qt::AlignCenter, 35, "01:02:05", "#ffff00", "01:02:05", "#ffff00"},
        {"capacityLabel", {235, 179, 180, 60}, Qt::AlignCenter, 35, "  1,044", "#ff7f00", "4,190", "#ff7f00"},
        {"capacityUnit", {415, 179, 55, 30}, bottom, 13, "Ah", "#ff7f00", "V min", "#ff7f00"},
        {"minCellNote", {415, 210, 55, 29}, bottom, 13, "", "#ff7f00", "cell 2", "#ff7f00"},
    };
    Varnel3Data record = samplePack({4200, 4190, 4210, 4200});
    record.mode = Varnel3Data::Discharge;
    record.time = 3725;
    record.current = -1500;
    record.temperature = 235;
    record.energy = 1044;
    record.voltageSlope = 12;
    record.internalResistance = 37;
    record.balanceMax = 30;
    record.cells[1].balanceCharge = 360000 * 500;
    for (const bool statistics : {false, true, false}) {
        setView(statistics, 0);
        show(record);
        for (const auto &row : rows) {
            const auto *label = m_display->findChild<QLabel *>(row.name);
            QCOMPARE(label->text(), QString(statistics ? row.statistics : row.normal));
            QCOMPARE(label->palette().color(QPalette::WindowText).name(),
                QString(statistics ? row.itsColour : row.colour));
            QVERIFY2(label->autoFillBackground() && label->textFormat() == Qt::PlainText, row.name);
            QCOMPARE(label->palette().color(QPalette::Window), QColor(Qt::black));
            QCOMPARE(int(label->alignment()), row.alignment);
            if (displayScale() == 1.0)
                QCOMPARE(label->geometry(), row.place);
            if (!statistics && !label->text().isEmpty())
                QCOMPARE(label->font().pointSizeF(), row.points * fontScale());
        }
    }
}

void TestDataDisplay::cellTable()
{
    setView(true, 0);
    QVector<int> voltages;
    for (int i = 0; i < 16; ++i)
        voltages.append(3001 + i);
    show(samplePack(voltages));
    int row = 0;
    int right = 0;
    for (int i = 1; i <= 16; ++i) {
        const auto *name = m_display->findChild<QLabel *>(QString("cellName%1").arg(i));
        const auto *value = m_display->findChild<QLabel *>(QString("cellValue%1").arg(i));
        QCOMPARE(name->text(), QString("%1: ").arg(i));
        QCOMPARE(value->text(), QString("3,0%1").arg(i, 2, 10, QChar('0')));
        QCOMPARE(name->palette().color(QPalette::WindowText), QColor(Qt::white));
        QCOMPARE(value->palette().color(QPalette::WindowText), QColor(100, 100, 255));
        QCOMPARE(value->palette().color(QPalette::Window), QColor(Qt::black));
        QCOMPARE(int(name->alignment()), Qt::AlignRight | Qt::AlignVCenter);
        QCOMPARE(name->font(), m_display->findChild<QLabel *>("cellName1")->font());
        QCOMPARE(name->size(), QSize(scaled(20), scaled(20)));
        QCOMPARE(value->height(), scaled(20));
        // Two rows of eight, read as a book is.
        QVERIFY(i == 9 ? name->y() == row + scaled(20) + 1 : i == 1 || name->y() == row);
        QVERIFY(name->x() == (i % 8 == 1 ? 0 : right + 1) && value->x() == name->x() + name->width() + 1);
        row = name->y();
        right = value->x() + value->width();
    }
    QCOMPARE(row, m_display->height() - scaled(20));
    QVERIFY(m_display->width() - right <= 1);
}

void TestDataDisplay::window()
{
    QVERIFY(m_display->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    QCOMPARE(m_display->windowTitle(), QString("Varnel - Data Display"));
    QVERIFY(!m_display->windowIcon().isNull());
    QCOMPARE(m_display->minimumSize(), QSize(scaled(470), scaled(280)));
    QCOMPARE(m_display->maximumSize(), QSize(scaled(470), scaled(280)));
    QCOMPARE(m_display->palette().color(QPalette::Window), QColor(Qt::black));
    const auto *badge = m_display->findChild<QLabel *>("windowNumberLabel");
    QCOMPARE(badge->text(), QString("--"));
    show(samplePack({4100, 4200}), 7);
    QCOMPARE(badge->text(), QString("7"));
    QVERIFY(badge->isVisible());
    QCOMPARE(badge->geometry(), QRect(0, 0, scaled(18), scaled(18)));
    const QRgb ground = m_display->grab().toImage().pixel(1, 1);
    QCOMPARE(ground, qRgb(255, 255, 0));
    show(samplePack({4100, 4200}), -1);
    QVERIFY(!badge->isVisible());
}

void TestDataDisplay::anotherWindowClearsFirst()
{
    show(samplePack({4100}), 1);
    Varnel3Data forming = samplePack({4100});
    forming.mode = Varnel3Data::Format; // has no text of its own
    show(forming, 1);
    QCOMPARE(text("modeLabel"), QStringLiteral("Charge"));
    show(forming, 2);
    QCOMPARE(text("modeLabel"), QString());
    m_display->clear();
    settle(*m_display);
    QCOMPARE(text("cellsLabel"), QString());
    m_state->setSwitches({}); // nothing comes back
    settle(*m_display);
    QCOMPARE(text("cellsLabel"), QString());
}

void TestDataDisplay::clickingTheVoltageToggles()
{
    auto *label = m_display->findChild<ClickedLabel *>();
    show(samplePack({4200, 4200, 4200, 4200}));
    QTest::mouseClick(label, Qt::RightButton);
    QCOMPARE(label->text(), QStringLiteral("4,200"));
    QCOMPARE(text("voltageUnit"), QStringLiteral("Vc"));
    QTest::mouseClick(label, Qt::LeftButton);
    QCOMPARE(label->text(), QStringLiteral("16,80"));
    QCOMPARE(text("voltageUnit"), QStringLiteral("V"));
}

void TestDataDisplay::keptResistances()
{
    setView(true, 2);
    const Varnel3Data measured = sampleResistances({2.0, 3.0});
    const Varnel3Data bare = samplePack({4000, 4000});
    show(measured);
    show(bare, 1, true);
    QCOMPARE(text("cellValue2"), QStringLiteral("  3,0"));
    // The bare record has gone through the panel: what it carried is kept now.
    show(bare, 1, true);
    QCOMPARE(text("cellValue2"), QStringLiteral("--.-"));

    // Lines closer together than repaints, and those of a hidden display, count all the same.
    Varnel3Data first = measured;
    Varnel3Data second = bare;
    m_display->hide();
    m_display->updateData(first, 1);
    m_display->updateData(second, 1, true);
    m_display->show();
    settle(*m_display);
    QCOMPARE(text("cellValue2"), QStringLiteral("  3,0"));

    // The table is the program's, not the window's; outside the panel nothing is kept.
    DataDisplay other;
    other.setViewState(m_state);
    other.updateData(first, 1);
    setView(true, 0);
    other.updateData(second, 1);
    setView(true, 2);
    show(bare, 1, true);
    QCOMPARE(text("cellValue2"), QStringLiteral("  3,0"));
}

void TestDataDisplay::staleFiguresAreDimmed()
{
    const auto brightness = [this] {
        auto *label = m_display->findChild<QLabel *>(QStringLiteral("voltageLabel"));
        return label->palette().color(QPalette::WindowText).green();
    };
    show(samplePack({4100}));
    QCOMPARE(brightness(), 255);
    m_display->setStaleSince(QDateTime({2026, 1, 2}, {3, 4, 5}));
    settle(*m_display);
    QCOMPARE(brightness(), 102); // two and a half times darker
    QCOMPARE(m_display->toolTip(), QString("No line since 03:04:05"));
    m_display->setStaleSince({});
    settle(*m_display);
    QCOMPARE(brightness(), 255);
    QCOMPARE(m_display->toolTip(), QString());
}

void TestDataDisplay::closingTells()
{
    QSignalSpy closed(m_display, SIGNAL(closed()));
    m_display->hide();
    QCOMPARE(closed.count(), 0);
    m_display->show();
    m_display->close();
    QCOMPARE(closed.count(), 1);
    QVERIFY(m_display->isHidden());
}

void TestDataDisplay::nothingIsCutOff_data()
{
    columns<qreal, int>({"fontFactor", "cellValue"}); // -1: the normal view
    QTest::newRow("normal") << 1.0 << -1;
    QTest::newRow("resistances, usual fonts") << 1.0 << 2;
    QTest::newRow("larger fonts") << 1.5 << -1;
    QTest::newRow("charges, larger fonts") << 1.5 << 1;
}

void TestDataDisplay::nothingIsCutOff()
{
    QFETCH(qreal, fontFactor);
    QFETCH(int, cellValue);
    const QFont usual = QApplication::font();
    QFont larger = usual;
    larger.setPointSizeF(usual.pointSizeF() * fontFactor);
    QApplication::setFont(larger);
    delete m_display;
    m_display = new DataDisplay;
    m_display->setViewState(m_state);
    m_display->show();
    setView(cellValue >= 0, qMax(0, cellValue));
    Varnel3Data record = samplePack(QVector<int>(16, 14999));
    record.mode = Varnel3Data::Discharge;
    record.time = 2000000000;
    record.voltage = 2000000000;
    record.current = -1234567;
    record.temperature = -12345;
    record.energy = 1234567890;
    record.cells[15].resistance = 1234567.8;
    record.cells[15].balanceCharge = 2000000000;
    record.internalResistance = 1234567;
    record.voltageSlope = -2000000000;
    show(record, 1234);
    QCOMPARE(text("windowNumberLabel"), QString("1234"));
    const auto labels = m_display->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->text().isEmpty())
            continue;
        const QSize needed = QFontMetrics(label->font()).size(0, label->text());
        const QByteArray what = (label->objectName() + QLatin1Char(' ') + label->text()).toUtf8();
        QVERIFY2(needed.width() <= label->width() && needed.height() <= label->height(), what);
        QVERIFY2(m_display->rect().contains(label->geometry()), what);
    }
    QApplication::setFont(usual);
}

QTEST_MAIN(TestDataDisplay)
#include "tst_datadisplay.moc"
