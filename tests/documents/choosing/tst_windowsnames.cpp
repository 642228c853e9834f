#include "documents/choosing/windowsnames.h"

#include "support/columns.h"

/// Names that would not come back as files on Windows.
class TestWindowsNames : public QObject {
    Q_OBJECT

private slots:
    void names_data()
    {
        columns<bool, QStringList>({"possible", "names"});
        QTest::newRow("files") << true
                               << QStringList{"2026-11-21_06-40-50_COM3.acp", "com.acp", "COM10.acp",
                                      "COM3a.acp", "lpt0", "Pack 1.5Ah, after 12.06.acp",
                                      "\u0142adowarka.acp", ".acp"};
        QTest::newRow("devices") << false
                                 << QStringList{"COM3.acp", "com3 .acp", "Aux", "nul.tar.gz", "LPT\u00b2.acp",
                                        "CONIN$.acp", "con."};
        QTest::newRow("parts, patterns, ends")
            << false
            << QStringList{"Pack 12:30.acp", "a*.acp", "a?.acp", "a\tb.acp", "a|b.acp", "a.acp ", "a.", ""};
    }

    void names()
    {
        QFETCH(bool, possible);
        QFETCH(QStringList, names);
        for (const QString &name : names)
            QVERIFY2(isNameForWindows(name) == possible, qPrintable(name));
    }
};

QTEST_GUILESS_MAIN(TestWindowsNames)
#include "tst_windowsnames.moc"
