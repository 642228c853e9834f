#include "data/records/balanceintegrator.h"
#include "data/figuretext.h"
#include "data/processend.h"
#include "data/records/recordlist.h"
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

} // namespace

/// The record as a value: its defaults, code tables, sums over cells and texts.
class TestVarnel3Data : public QObject {
    Q_OBJECT

private slots:
    void init() { QLocale::setDefault(QLocale::c()); }

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
    }

    void names()
    {
        QCOMPARE(ofCodes(-1, 5, Varnel3Data::deviceName),
            QStringLiteral("None|Varnel 3|Varnel 2+|Varnel 2|Tandor|None|None"));
        QCOMPARE(ofCodes(-1, 6, Varnel3Data::modeName),
            QStringLiteral("|Charge|Discharge|Balancing|Format|Test|None|"));
        QString ends;
        for (const char letter : {'S', 'M', 'E', '_', 'B'}) {
            Varnel3Data record;
            record.flag3 = letter;
            const int end = record.processEnd();
            ends += QString::number(end) + processEndText(end) + processEndTitle(end) + processEndIcon(end)
                + processEndSound(end) + QLatin1Char('|');
        }
        QCOMPARE(ends + processEndText(3),
            QStringLiteral("0Error in process !Error:/Icons/error.pngerror"
                           "|1Process aborted by user.Aborted:/Icons/cancel.pngaborted"
                           "|2Process completed.End:/Icons/finish.pngend|-1|-1|"));
    }

    void timeIsSplit()
    {
        const std::pair<double, const char *> times[] = {{0, "00:00:00"}, {59.99, "00:00:59"},
            {3600, "01:00:00"}, {3725, "01:02:05"}, {100000, "27:46:40"}, {INT_MAX, "596523:14:07"}};
        for (const auto &time : times) {
            Varnel3Data record;
            record.setTime(int(time.first));
            QCOMPARE(record.time, int(time.first));
            QCOMPARE(clockText(record), QLatin1String(time.second));
            QCOMPARE(elapsedTimeText(time.first), QLatin1String(time.second));
        }
        QCOMPARE(elapsedTimeText(-0.5), QString(8, QLatin1Char(' ')));
    }

    // Cells; the largest charge in mAh, and the sum.
    void chargeOfCellsIsClamped()
    {
        const int cases[][3]
            = {{0, 0, 0}, {-5, 0, 0}, {1, 2, 720000}, {2, 3, 720000 + 1439999}, {99, 5965, INT_MAX}};
        for (const auto &values : cases) {
            Varnel3Data record;
            record.cellCount = values[0];
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
        for (int given = 0; given < 8; ++given) {
            Varnel3Data record;
            record.cellCount = given & 1 ? 3 : 0;
            record.mode = given & 2 ? Varnel3Data::Test : Varnel3Data::NoMode;
            record.flag5 = given & 4 ? 'B' : '_';
            QCOMPARE(record.hasCellData(), given == 7);
        }
    }

    void textNamesEveryField()
    {
        Varnel3Data record;
        record.device = Varnel3Data::Varnel2Plus;
        record.mode = Varnel3Data::Test;
        record.cellType = 12;
        char value = 'a';
        for (char *flag : {&record.flag1, &record.flag2, &record.flag3, &record.flag4, &record.flag5})
            *flag = value++;
        for (int *field : {&record.ballansingCurrent, &record.time, &record.hour, &record.minute,
                 &record.second, &record.voltage, &record.current, &record.temperature, &record.energy,
                 &record.internalResistance, &record.cellCount})
            *field = -value++;
        QCOMPARE(record.toString(),
            QStringLiteral(
                "Varnel3Data [device=Varnel 2+, mode=Test, cellType=LTO, flag1=a, flag2=b, flag3=c, "
                "flag4=d, flag5=e, ballansingCurrent=-102, time=-103, hour=-104, minute=-105, second=-106, "
                "voltage=-107, current=-108, temperature=-109, energy=-110, internalResistance=-111, "
                "cellCount=-112"));
    }

    void figures()
    {
        const auto all = [] {
            using namespace FigureText;
            return QStringList({volts(24216, 6, 2), amperes(-1500), degrees(0), degrees(-53), ohms(0),
                                   ohms(45), ampereHours(-1), ampereHours(9999), ampereHours(10000),
                                   ampereHours(99999), ampereHours(100000), cells(14, 1), shortDashes()})
                .join(QLatin1Char('|'));
        };
        QCOMPARE(all(),
            QStringLiteral(
                " 24.22|-1.50|--.-|-5.3|-.---|0.045| -0.001|  9.999| 10.00|100.00|100.0|14 x NiMh|--.-"));
        QLocale::setDefault(QLocale(QLocale::German));
        QCOMPARE(all(),
            QStringLiteral(
                " 24,22|-1,50|--,-|-5,3|-,---|0,045| -0,001|  9,999| 10,00|100,00|100,0|14 x NiMh|--,-"));
    }

    void oneLineOfInformation()
    {
        Varnel3Data record;
        record.cellCount = 6;
        record.mode = Varnel3Data::Charge;
        record.cellType = 5;
        record.voltage = 24216;
        record.current = 1500;
        record.temperature = 253;
        record.energy = 99999;
        record.setTime(3725);
        QCOMPARE(FigureText::fixed(-0.04, 0, 1), QString("0.0"));
        QCOMPARE(FigureText::fixed(-0.05, 5, 1), QString(" -0.1"));
        const auto upTo = [&record](int parts) { return FigureText::information(record, parts); };
        QCOMPARE(ofCodes(0, 6, upTo),
            QStringLiteral("|24.22 V|24.22 V   1.50 A|24.22 V   1.50 A  99.999 Ah"
                           "|24.22 V   1.50 A  99.999 Ah  01:02:05"
                           "|24.22 V   1.50 A  25.3 \u00b0C  99.999 Ah  01:02:05"
                           "|Charge  24.22 V   1.50 A  25.3 \u00b0C  99.999 Ah  01:02:05"));
        record.energy = 100000;
        record.mode = 6; // without a name
        QCOMPARE(FigureText::information(record),
            QStringLiteral("6xLiPo  24.22 V   1.50 A  25.3 \u00b0C  100.00 Ah  01:02:05"));
    }

    // What it sums otherwise is told by the recordings that it is part of.
    void integratorStaysWithinItsRange()
    {
        Varnel3Data record;
        record.flag5 = 'B';
        record.cellCount = 99;
        record.ballansingCurrent = INT_MAX;
        record.cells[0].balance = INT_MIN;
        record.cells[15].balance = 100;
        BalanceIntegrator integrator;
        Varnel3Data plain; // such as a device sends
        plain.flag5 = 'B';
        plain.cellCount = 3;
        plain.ballansingCurrent = 1000;
        plain.cells[0].balance = plain.cells[2].balance = 100;
        plain.cells[1].balance = 1;
        for (int hours = 0; hours <= 100; hours += 25) {
            plain.time = hours * 1000;
            integrator.add(plain);
            QCOMPARE(plain.cells[0].balanceCharge, hours == 0 ? 0 : INT_MAX);
            QCOMPARE(plain.cells[1].balanceCharge, hours * 1000000);
            QCOMPARE(plain.cells[2].balanceCharge, hours == 0 ? 0 : INT_MAX);
        }
        integrator.reset(INT_MIN);
        for (int i = 0; i < 5; ++i) { // back to the exact sum, not stuck
            record.time = i % 2 ? INT_MIN : INT_MAX;
            integrator.add(record);
            QCOMPARE(record.cells[0].balanceCharge, i % 2 ? 0 : INT_MIN);
            QCOMPARE(record.cells[15].balanceCharge, i % 2 ? 0 : INT_MAX);
        }
        plain.time = INT_MAX;
        integrator.add(plain);
        QVERIFY(plain.totalBalanceCharge() == INT_MIN && plain.balancedMah == 0);
    }
};

QTEST_GUILESS_MAIN(TestVarnel3Data)
#include "tst_varnel3data.moc"
