#include "desk/datatoolbar.h"
#include "data/varnel3data.h"
#include "support/columns.h"

#include <QLabel>

Q_DECLARE_METATYPE(Varnel3Data)

/// The six figures of the data tool bar. Run under several locales: the decimal sign is the environment's.
class TestDataToolBar : public QObject {
    Q_OBJECT

private slots:

    void figures_data()
    {
        columns<Varnel3Data, QString>({"record", "expected"});
        const auto row = [](const char *name, int cells, int voltage, int current, int temperature,
                             int energy, int time, const char *expected, int mode = Varnel3Data::Charge) {
            Varnel3Data record;
            record.mode = mode;
            record.cellType = 5;
            record.cellCount = cells;
            record.voltage = voltage;
            record.current = current;
            record.temperature = temperature;
            record.energy = energy;
            record.setTime(time);
            QTest::newRow(name) << record << QString::fromUtf8(expected);
        };
        row("six cells", 6, 25200, 2000, 251, 150, 3723,
            "Charge  6xLiPo|25.20 V| 2.00 A|25.1 \u00b0C|0.150 Ah|01:02:03");
        row("two digits", 14, 5, -1500, -35, 99999, 0,
            "Charge 14xLiPo| 0.01 V|-1.50 A|-3.5 \u00b0C|99.999 Ah|00:00:00");
        row("no sensor", 1, 4200, 0, 0, 100000, 360000,
            "Charge  1xLiPo| 4.20 V| 0.00 A|--.- \u00b0C|100.00 Ah|100:00:00");
        row("no cells", 0, 4200, 2000, 251, 150, 3723, "|||||");
        row("no process", 6, 4200, 2000, 251, 150, 3723, "|||||", Varnel3Data::NoMode);
    }

    void figures()
    {
        QFETCH(Varnel3Data, record);
        QFETCH(QString, expected);
        const QByteArray locale = qgetenv("LC_ALL");
        if (locale.startsWith("de") || locale.startsWith("pl"))
            expected.replace('.', ',');
        DataToolBar bar(nullptr);
        Varnel3Data before;
        before.mode = Varnel3Data::Test;
        before.cellCount = 3;
        bar.showRecord(before);
        bar.showRecord(record);
        QStringList texts;
        for (const char *name :
            {"modeLabel", "voltageLabel", "currentLabel", "temperatureLabel", "energyLabel", "timeLabel"})
            texts << bar.findChild<QLabel *>(QLatin1String(name))->text();
        QCOMPARE(texts.join('|'), expected);
    }
};

QTEST_MAIN(TestDataToolBar)
#include "tst_datatoolbar.moc"
