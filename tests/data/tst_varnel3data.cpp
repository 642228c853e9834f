#include "data/varnel3data.h"

#include "data/balanceintegrator.h"
#include "data/timetext.h"
#include "support/columns.h"

#include <QTest>

/// The record as a value: its defaults, code tables, sums over cells and texts.
class TestVarnel3Data : public QObject {
    Q_OBJECT

private slots:
    void unknownCodesHaveNoFigures_data();
    void unknownCodesHaveNoFigures();
    void timeIsSplit_data();
    void timeIsSplit();
    void chargeOfCellsIsClamped_data();
    void chargeOfCellsIsClamped();
    void textHasNoClosingBracket();
    void integratorSumsPerCell();
    void integratorStaysWithinItsRange();
};

void TestVarnel3Data::unknownCodesHaveNoFigures_data()
{
    columns<int, QString, QString, int>({"code", "mode", "chemistry", "scaleMax"});
    const auto row = [](const char *name, int code, const char *mode, const char *chemistry, int scaleMax) {
        QTest::newRow(name) << code << QString::fromLatin1(mode) << QString::fromLatin1(chemistry)
                            << scaleMax;
    };
    row("first", 0, "Charge", "NiCd", 1850);
    row("no mode", 5, "None", "LiPo", 4350);
    row("above the modes", 6, "", "LiTa", 3600);
    row("last chemistry", 12, "", "LTO", 2900);
    row("no chemistry", 13, "", "None", 0);
    row("negative", -1, "", "None", 0);
    row("hostile", INT_MAX, "", "None", 0);
}

void TestVarnel3Data::unknownCodesHaveNoFigures()
{
    QFETCH(int, code);
    QTEST(Varnel3Data::modeName(code), "mode");
    QTEST(Varnel3Data::cellTypeName(code), "chemistry");
    QTEST(Varnel3Data::cellTypeScaleMax(code), "scaleMax");
}

void TestVarnel3Data::timeIsSplit_data()
{
    columns<int, QString>({"seconds", "clock"});
    QTest::newRow("an hour and more") << 3725 << "01:02:05";
    QTest::newRow("more than a day") << 100000 << "27:46:40";
    QTest::newRow("largest") << INT_MAX << "596523:14:07";
}

void TestVarnel3Data::timeIsSplit()
{
    QFETCH(int, seconds);
    Varnel3Data record;
    record.setTime(seconds);
    QCOMPARE(record.time, seconds);
    QTEST(clockText(record), "clock");
    QTEST(elapsedTimeText(seconds), "clock");
    QCOMPARE(elapsedTimeText(59.99), QStringLiteral("00:00:59"));
    QCOMPARE(elapsedTimeText(-0.5), QStringLiteral("        "));
}

void TestVarnel3Data::chargeOfCellsIsClamped_data()
{
    columns<int, int, int>({"cellCount", "mAh", "total"});
    QTest::newRow("none") << 0 << 0 << 0;
    QTest::newRow("negative") << -5 << 0 << 0;
    QTest::newRow("two") << 2 << 2 << 2 * 720000;
    QTest::newRow("beyond the array") << 99 << 5965 << INT_MAX;
}

void TestVarnel3Data::chargeOfCellsIsClamped()
{
    QFETCH(int, cellCount);
    Varnel3Data record;
    record.cellCount = cellCount;
    for (CellData &cell : record.cells)
        cell.balanceCharge = 720000;
    record.cells[15].balanceCharge = INT_MAX;
    QTEST(record.maxBalanceChargeMah(), "mAh");
    QTEST(record.totalBalanceCharge(), "total");
}

void TestVarnel3Data::textHasNoClosingBracket()
{
    Varnel3Data record;
    record.device = Varnel3Data::Varnel2Plus;
    record.flag1 = '%';
    record.cellCount = 6;
    const QString text = record.toString();
    QVERIFY2(
        text.startsWith(QLatin1String("Varnel3Data [device=Varnel 2+, mode=None, cellType=None, flag1=%, ")),
        qPrintable(text));
    QVERIFY(text.endsWith(QLatin1String(", internalResistance=0, cellCount=6")));
}

void TestVarnel3Data::integratorSumsPerCell()
{
    Varnel3Data record;
    record.flag5 = 'B';
    record.cellCount = 2;
    record.ballansingCurrent = 500;
    record.cells[0].balance = 100;
    record.cells[2].balance = 100; // behind the last cell
    BalanceIntegrator integrator;
    integrator.reset(0);
    record.time = 3600;
    integrator.add(record);
    record.time = 7200;
    record.cells[1].balance = 50;
    integrator.add(record);
    QCOMPARE(record.cells[0].balanceCharge, 2 * 100 * 500 * 3600);
    QCOMPARE(record.cells[1].balanceCharge, 50 * 500 * 3600);
    QCOMPARE(record.cells[2].balanceCharge, 0);
    QCOMPARE(record.maxBalanceChargeMah(), 1000);

    record.flag5 = '_';
    record.time = 9000;
    integrator.add(record);
    QCOMPARE(record.cells[0].balanceCharge, 2 * 100 * 500 * 3600);
}

void TestVarnel3Data::integratorStaysWithinItsRange()
{
    Varnel3Data record;
    record.flag5 = 'B';
    record.cellCount = 99;
    record.ballansingCurrent = INT_MAX;
    record.cells[0].balance = INT_MIN;
    record.cells[15].balance = 100;
    BalanceIntegrator integrator;
    integrator.reset(INT_MIN);
    for (int i = 0; i < 4; ++i) {
        record.time = i % 2 ? INT_MIN : INT_MAX;
        integrator.add(record);
        QCOMPARE(record.cells[15].balanceCharge, i % 2 ? 0 : INT_MAX); // back to the exact sum, not stuck
    }
    integrator.reset(0);
    record.time = 0;
    integrator.add(record);
    QCOMPARE(record.cells[15].balanceCharge, 0);
}

QTEST_GUILESS_MAIN(TestVarnel3Data)
#include "tst_varnel3data.moc"
