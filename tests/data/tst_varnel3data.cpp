#include "data/balanceintegrator.h"
#include "data/figuretext.h"
#include "data/processend.h"
#include "data/recordlist.h"
#include "data/timetext.h"

#include <QLocale>
#include <QTest>

namespace {

// One value a code from `first` to `last`, with '|' between.
template <typename Function>
QString ofCodes(int first, int last, const Function &text)
{
    QStringList texts;
    for (int code = first; code <= last; ++code)
        texts += text(code);
    return texts.join(QLatin1Char('|'));
}

// Balancing data of `cells` cells at `balance` per cent, 500 mA.
Varnel3Data balanced(int time, int cells, int balance)
{
    Varnel3Data record;
    record.flag5 = 'B';
    record.cellCount = cells;
    record.ballansingCurrent = 500;
    record.time = time;
    for (CellData &cell : record.cells)
        cell.balance = balance;
    return record;
}

} // namespace

/// The record as a value: its defaults, code tables, sums over cells and texts.
class TestVarnel3Data : public QObject {
    Q_OBJECT

private slots:
    // Name, axis from, axis to, full, empty; mV.
    void chemistries()
    {
        const QString all = ofCodes(-1, Varnel3Data::noCellType, [](int code) {
            return QStringLiteral("%1 %2 %3 %4 %5")
                .arg(Varnel3Data::cellTypeName(code))
                .arg(Varnel3Data::cellTypeScaleMin(code))
                .arg(Varnel3Data::cellTypeScaleMax(code))
                .arg(Varnel3Data::cellTypeUpperVoltage(code))
                .arg(Varnel3Data::cellTypeLowerVoltage(code));
        });
        QCOMPARE(all,
            QStringLiteral(
                "None 0 0 0 0|NiCd 850 1850 1650 600|NiMh 1000 1850 1650 850|Pb 1800 2550 2450 1800"
                "|RAM 1000 1850 1650 1000|LiIo 3000 4300 4100 2700|LiPo 3300 4350 4200 3000"
                "|LiTa 2400 3600 3450 2400|LiFe 2800 3800 3650 2200|LiS 1700 2850 2500 1200"
                "|NiZn 1100 1980 1900 1000|LiXX 2800 4750 4500 2500|LiHV 3300 4550 4350 3000"
                "|LTO 1500 2900 2800 1300|None 0 0 0 0"));
        QCOMPARE(Varnel3Data::cellTypeName(INT_MAX), QStringLiteral("None"));
    }

    void names()
    {
        QCOMPARE(ofCodes(-1, 5, Varnel3Data::deviceName),
            QStringLiteral("None|Varnel 3|Varnel 2+|Varnel 2|Tandor|None|None"));
        QCOMPARE(ofCodes(-1, 6, Varnel3Data::modeName),
            QStringLiteral("|Charge|Discharge|Balancing|Format|Test|None|"));
        QStringList ends;
        for (const char letter : {'S', 'M', 'E', '_', 'B'}) {
            Varnel3Data record;
            record.flag3 = letter;
            const int end = record.processEnd();
            ends += processEndText(end) + processEndTitle(end) + processEndIcon(end) + processEndSound(end);
        }
        ends += processEndText(3) + processEndTitle(3) + processEndIcon(3) + processEndSound(3);
        QCOMPARE(ends.join(QLatin1Char('|')),
            QStringLiteral("Error in process !Error:/Icons/error.pngerror|Process aborted by user.Aborted"
                           ":/Icons/cancel.png"
                           "aborted|Process completed.End:/Icons/finish.pngend|||"));
    }

    void timeIsSplit()
    {
        const std::pair<double, const char *> times[] = {{0, "00:00:00"}, {59.99, "00:00:59"},
            {3600, "01:00:00"}, {3725, "01:02:05"}, {100000, "27:46:40"}, {INT_MAX, "596523:14:07"}};
        for (const auto &time : times) {
            Varnel3Data record;
            record.setTime(int(time.first));
            QCOMPARE(record.time, int(time.first));
            QCOMPARE(clockText(record), QString::fromLatin1(time.second));
            QCOMPARE(elapsedTimeText(time.first), QString::fromLatin1(time.second));
        }
        QCOMPARE(elapsedTimeText(-0.5), QString(8, QLatin1Char(' ')));
    }

    // Cells; the largest charge in mAh, and the sum.
    void chargeOfCellsIsClamped()
    {
        const int cases[][3]
            = {{0, 0, 0}, {-5, 0, 0}, {1, 2, 720000}, {2, 3, 720000 + 1439999}, {99, 5965, INT_MAX}};
        for (const auto &values : cases) {
            Varnel3Data record = balanced(0, values[0], 0);
            for (CellData &cell : record.cells)
                cell.balanceCharge = 720000;
            record.cells[1].balanceCharge = 1439999; // all but 4 mAh
            record.cells[15].balanceCharge = INT_MAX;
            QCOMPARE(record.maxBalanceChargeMah(), values[1]);
            QCOMPARE(record.totalBalanceCharge(), values[2]);
        }
    }

    void cellDataNeedsAll()
    {
        for (int lacking = 0; lacking < 4; ++lacking) {
            Varnel3Data record = balanced(0, 3, 0);
            record.mode = Varnel3Data::Test;
            if (lacking == 1)
                record.cellCount = 0;
            if (lacking == 2)
                record.mode = Varnel3Data::NoMode;
            if (lacking == 3)
                record.flag5 = '_';
            QCOMPARE(record.hasCellData(), lacking == 0);
        }
    }

    void textNamesEveryField()
    {
        QCOMPARE(Varnel3Data().toString(),
            QStringLiteral(
                "Varnel3Data [device=None, mode=None, cellType=None, flag1=_, flag2=_, flag3=_, flag4=_, "
                "flag5=_, ballansingCurrent=0, time=0, hour=0, minute=0, second=0, voltage=0, current=0, "
                "temperature=0, energy=0, internalResistance=0, cellCount=0"));
        Varnel3Data record;
        record.device = Varnel3Data::Varnel2Plus;
        record.mode = Varnel3Data::Test;
        record.cellType = 12;
        const char flags[] = {'%', '1', 'S', 'E', 'B'};
        char *const places[] = {&record.flag1, &record.flag2, &record.flag3, &record.flag4, &record.flag5};
        for (int i = 0; i < 5; ++i)
            *places[i] = flags[i];
        int value = 10;
        for (int *field : {&record.ballansingCurrent, &record.time, &record.hour, &record.minute,
                 &record.second, &record.voltage, &record.current, &record.temperature, &record.energy,
                 &record.internalResistance, &record.cellCount})
            *field = -++value;
        QCOMPARE(record.toString(),
            QStringLiteral(
                "Varnel3Data [device=Varnel 2+, mode=Test, cellType=LTO, flag1=%, flag2=1, flag3=S, "
                "flag4=E, flag5=B, ballansingCurrent=-11, time=-12, hour=-13, minute=-14, second=-15, "
                "voltage=-16, current=-17, temperature=-18, energy=-19, internalResistance=-20, "
                "cellCount=-21"));
    }

    void oneLineOfInformation()
    {
        QLocale::setDefault(QLocale::c());
        Varnel3Data record = balanced(0, 6, 0);
        record.mode = Varnel3Data::Charge;
        record.cellType = 5;
        record.voltage = 24216;
        record.current = 1500;
        record.temperature = 253;
        record.energy = 99999;
        record.setTime(3725);
        const QStringList shorter = {"", "24.22 V", "24.22 V   1.50 A", "24.22 V   1.50 A  99.999 Ah",
            "24.22 V   1.50 A  99.999 Ah  01:02:05", "24.22 V   1.50 A  25.3 \u00b0C  99.999 Ah  01:02:05",
            "Charge  24.22 V   1.50 A  25.3 \u00b0C  99.999 Ah  01:02:05"};
        for (int parts = 0; parts < shorter.size(); ++parts)
            QCOMPARE(FigureText::information(record, parts), shorter[parts]);
        record.energy = 100000;
        record.temperature = -53;
        record.mode = 6; // without a name
        QCOMPARE(FigureText::information(record),
            QStringLiteral("6xLiPo  24.22 V   1.50 A  -5.3 \u00b0C  100.00 Ah  01:02:05"));
        record.temperature = 0;
        QCOMPARE(FigureText::information(record, 5).section(QStringLiteral("  "), 2, 2),
            QStringLiteral("--.- \u00b0C"));
    }

    void integratorSumsPerCell()
    {
        BalanceIntegrator integrator;
        integrator.reset(600);
        Varnel3Data record = balanced(600 + 3600, 2, 100);
        record.cells[1].balance = 0;
        integrator.add(record);
        record.flag5 = '_';
        record.time += 900;
        integrator.add(record); // tells nothing of the cells
        record.flag5 = 'B';
        record.time += 2700;
        record.cells[1].balance = 50;
        integrator.add(record);
        QCOMPARE(record.cells[0].balanceCharge, 2 * 100 * 500 * 3600);
        QCOMPARE(record.cells[1].balanceCharge, 50 * 500 * 3600);
        QCOMPARE(record.cells[2].balanceCharge, 0); // behind the last cell
        QCOMPARE(record.maxBalanceChargeMah(), 1000);
        for (int i = 0; i < 20; ++i) { // 32 bits hold less
            record.time += 3600;
            integrator.add(record);
        }
        QCOMPARE(record.cells[0].balanceCharge, INT_MAX);
        record.ballansingCurrent = -500;
        for (int i = 0; i < 20; ++i) {
            record.time += 3600;
            integrator.add(record);
        }
        QCOMPARE(record.cells[0].balanceCharge, 2 * 100 * 500 * 3600); // exact in between
    }

    void integratorStaysWithinItsRange()
    {
        Varnel3Data record = balanced(INT_MAX, 99, 0);
        record.ballansingCurrent = INT_MAX;
        record.cells[0].balance = INT_MIN;
        record.cells[15].balance = 100;
        BalanceIntegrator integrator;
        integrator.reset(INT_MIN);
        for (int i = 0; i < 4; ++i) {
            record.time = i % 2 ? INT_MIN : INT_MAX;
            integrator.add(record);
            QCOMPARE(record.cells[0].balanceCharge, i % 2 ? 0 : INT_MIN);
            QCOMPARE(record.cells[15].balanceCharge, i % 2 ? 0 : INT_MAX); // back to the exact sum, not stuck
        }
        integrator.reset(0);
        record.time = 0;
        integrator.add(record);
        QCOMPARE(record.cells[15].balanceCharge, 0);
    }

    // What a cell had is in the newest record that still had the cell.
    void integratorGoesOn()
    {
        RecordList records;
        records.append(balanced(100, 3, 10));
        records.append(balanced(200, 2, 10));
        records.append(balanced(300, 2, 10)).flag5 = '_';
        for (int i = 0; i < 3; ++i) {
            for (int cell = 0; cell < 3; ++cell)
                records[i].cells[cell].balanceCharge = 1000 * (i + 1) + cell;
        }
        BalanceIntegrator integrator;
        integrator.goOn(records);
        Varnel3Data next = balanced(202, 3, 10);
        integrator.add(next);
        const int step = 10 * 500 * 2;
        QCOMPARE(next.cells[0].balanceCharge, 2000 + step);
        QCOMPARE(next.cells[1].balanceCharge, 2001 + step);
        QCOMPARE(next.cells[2].balanceCharge, 1002 + step);
        integrator.goOnFrom(400);
        next.time = 401;
        integrator.add(next);
        QCOMPARE(next.cells[0].balanceCharge, 2000 + step + step / 2);

        RecordList plain; // no balancing data yet
        plain.append(balanced(50, 3, 10)).flag5 = '_';
        integrator.goOn(plain);
        next.time = 51;
        integrator.add(next);
        QCOMPARE(next.cells[0].balanceCharge, step / 2);
    }
};

QTEST_GUILESS_MAIN(TestVarnel3Data)
#include "tst_varnel3data.moc"
