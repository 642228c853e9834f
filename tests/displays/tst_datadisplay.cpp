#include "displays/datadisplay.h"

#include "displays/clickedlabel.h"
#include "widgets/displayscale.h"
#include "widgets/refreshgate.h"
#include "displays/samplepack.h"
#include "resources/resources.h"
#include "settings/viewstate.h"
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

    void showsRecordsAndNumber();
    void hiddenKeepsTheNewest();
    void shownRepaintsTenTimesASecond();
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

void TestDataDisplay::showsRecordsAndNumber()
{
    auto *badge = m_display->findChild<QLabel *>(QStringLiteral("windowNumberLabel"));
    QCOMPARE(badge->text(), QStringLiteral("--"));
    show(samplePack({4100, 4200}), 7);
    QCOMPARE(text("voltageLabel"), QStringLiteral(" 8,30"));
    QCOMPARE(text("cellsLabel"), QStringLiteral("2 x LiPo"));
    QCOMPARE(badge->text(), QStringLiteral("7"));
    QVERIFY(badge->isVisible());
    show(samplePack({4100, 4200}), -1);
    QVERIFY(!badge->isVisible());
}

void TestDataDisplay::hiddenKeepsTheNewest()
{
    m_display->hide();
    for (const int voltage : {4000, 4100}) {
        Varnel3Data record = samplePack({voltage});
        m_display->updateData(record, 1);
    }
    QCOMPARE(text("voltageLabel"), QString());
    m_display->show();
    QCOMPARE(text("voltageLabel"), QStringLiteral(" 4,10"));
}

void TestDataDisplay::shownRepaintsTenTimesASecond()
{
    QSignalSpy refreshes(m_display->findChild<RefreshGate *>(), SIGNAL(refresh()));
    Varnel3Data record = samplePack({3000});
    QElapsedTimer elapsed;
    elapsed.start();
    while (refreshes.count() < 4 && elapsed.elapsed() < 30000) {
        record.voltage += 10;
        m_display->updateData(record, 1);
        QTest::qWait(1);
    }
    QCOMPARE(refreshes.count(), 4);
    QVERIFY2(elapsed.elapsed() > 5 * RefreshGate::interval / 2, QByteArray::number(elapsed.elapsed()));
    settle(*m_display);
    QCOMPARE(text("voltageLabel"), QStringLiteral("%L1").arg(record.voltage / 1000.0, 5, 'f', 2));
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
    m_display->setStaleSince(QDateTime::currentDateTime());
    settle(*m_display);
    QVERIFY(brightness() < 130 && brightness() > 60);
    m_display->setStaleSince({});
    settle(*m_display);
    QCOMPARE(brightness(), 255);
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
    QTest::addColumn<qreal>("fontFactor");
    QTest::addColumn<int>("cellValue"); // -1: the normal view
    for (const qreal factor : {1.0, 1.5})
        for (int mode = -1; mode <= 2; ++mode)
            QTest::addRow("fonts %.1f, view %d", factor, mode) << factor << mode;
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
