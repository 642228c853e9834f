#include "data/varnel3data.h"
#include "desk/datatoolbar.h"

#include <QLabel>
#include <QtTest>

/// The six figures of the data tool bar. Run under several locales: the decimal sign is the environment's.
class TestDataToolBar : public QObject {
    Q_OBJECT

private slots:
    void figures()
    {
        using V = Varnel3Data;
        const struct {
            int mode, cells, voltage, current, temperature, energy, time;
            const char *shown;
        } rows[] = {
            {V::Test, 3, 0, 0, 0, 0, 0, "Test  3xLiPo| 0.00 V| 0.00 A|--.- \u00b0C|0.000 Ah|00:00:00"},
            {V::Charge, 6, 25200, 2000, 251, 150, 3723,
                "Charge  6xLiPo|25.20 V| 2.00 A|25.1 \u00b0C|0.150 Ah|01:02:03"},
            {V::Charge, 14, 5, -1500, -35, 99999, 0,
                "Charge 14xLiPo| 0.01 V|-1.50 A|-3.5 \u00b0C|99.999 Ah|00:00:00"},
            {V::Charge, 0, 4200, 2000, 251, 150, 3723, "|||||"}, // no cells
            {V::Charge, 1, 4200, 0, 0, 100000, 360000,
                "Charge  1xLiPo| 4.20 V| 0.00 A|--.- \u00b0C|100.00 Ah|100:00:00"},
            {V::NoMode, 6, 4200, 2000, 251, 150, 3723, "|||||"}, // no process
        };
        DataToolBar bar(nullptr);
        QVERIFY(!bar.isMovable() && !bar.isFloatable());
        const auto labels = bar.findChildren<QLabel *>();
        for (const QLabel *label : labels)
            QVERIFY(label->frameStyle() == QFrame::Box && label->alignment() == Qt::AlignCenter);
        for (const auto &row : rows) {
            V record;
            record.mode = row.mode;
            record.cellType = 5;
            record.cellCount = row.cells;
            record.voltage = row.voltage;
            record.current = row.current;
            record.temperature = row.temperature;
            record.energy = row.energy;
            record.setTime(row.time);
            bar.showRecord(record);
            const QString expected = QString::fromUtf8(row.shown).replace('.', QLocale().decimalPoint());
            QStringList texts;
            for (const char *name :
                {"modeLabel", "voltageLabel", "currentLabel", "temperatureLabel", "energyLabel", "timeLabel"})
                texts << bar.findChild<QLabel *>(name)->text();
            QCOMPARE(texts.join('|'), expected);
            for (const QLabel *label : labels) // for those who can't see it
                QCOMPARE(
                    label->accessibleName(), (label->toolTip() + ' ' + label->text().simplified()).trimmed());
        }
    }
};

QTEST_MAIN(TestDataToolBar)
#include "tst_datatoolbar.moc"
