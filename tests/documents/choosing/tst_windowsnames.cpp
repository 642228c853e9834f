#include "documents/choosing/windowsnames.h"

#include <QtTest>

/// Names that would not come back as files on Windows.
class TestWindowsNames : public QObject {
    Q_OBJECT

private slots:
    void names()
    {
        for (const char *name : {"2026-11-21_06-40-50_COM3.acp", "com.acp", "COM10.acp", "COM3a.acp", "lpt0",
                 "Pack 1.5Ah, after 12.06.acp", "\u0142adowarka.acp", ".acp"})
            QVERIFY2(isNameForWindows(QString::fromUtf8(name)), name);
        for (const char *name : {"COM3.acp", "com3 .acp", "Aux", "nul.tar.gz", "LPT\u00b2.acp", "CONIN$.acp",
                 "con.", "Pack 12:30.acp", "a*.acp", "a?.acp", "a\tb.acp", "a|b.acp", "a.acp ", "a.", ""})
            QVERIFY2(!isNameForWindows(QString::fromUtf8(name)), name);
    }
};

QTEST_GUILESS_MAIN(TestWindowsNames)
#include "tst_windowsnames.moc"
