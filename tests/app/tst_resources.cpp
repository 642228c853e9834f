#include "resources/resources.h"
#include "support/files.h"
#include "support/pixels.h"

#include <QIcon>
#include <QPainter>
#include <QtTest>

/// What is built into the program: icons and style sheets.
class TestResources : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }

    // On the light and on the dark ground a twelfth of the square at least stands out with a contrast of 2.5.
    void iconsAreLegible()
    {
        for (const char *name : {"open", "save", "saveAll", "preferences", "exit", "tile", "stack", "record",
                 "export", "picture", "clock-icon", "data", "wyk", "wykbar", "stop_sign", "varnel", "error",
                 "cancel", "finish", "control-left", "control-right", "remote"}) {
            const QIcon icon(QString(":/Icons/%1.png").arg(name));
            QCOMPARE(icon.availableSizes().value(0), QSize(48, 48));
            for (const int side : {16, 24, 48}) {
                for (const QColor &ground : {QColor(0xf3, 0xf5, 0xf7), QColor(0x2b, 0x2f, 0x33)}) {
                    QImage image(side, side, QImage::Format_RGB32);
                    image.fill(ground);
                    QPainter painter(&image);
                    icon.paint(&painter, image.rect());
                    int seen = 0;
                    for (int i = 0; i < side * side; ++i)
                        seen += contrast(image.pixel(i % side, i / side), ground) >= 2.5;
                    QVERIFY2(seen * 12 >= side * side, name);
                }
            }
        }
    }

    // The sheet is read as Latin-1 up to the first zero byte, and a picture it names must be there.
    void styleSheetIsWhole()
    {
        QVERIFY(QFile::exists(":/files/nostyle.qss"));
        const QByteArray bytes = contents(":/files/application.qss");
        QVERIFY(std::all_of(bytes.begin(), bytes.end(), [](char c) { return c > 0; }));
        QCOMPARE(bytes.count('{'), bytes.count('}'));
        static const QRegularExpression url("url\\(([^)]*)\\)");
        auto urls = url.globalMatch(QString::fromLatin1(bytes));
        QVERIFY(urls.hasNext());
        while (urls.hasNext())
            QVERIFY(QFile::exists(urls.next().captured(1)));
    }
};

QTEST_MAIN(TestResources)
#include "tst_resources.moc"
