#include "resources/resources.h"

#include "desk/datatoolbar.h"
#include "app/stylesheet.h"
#include "data/varnel3data.h"
#include "support/pixels.h"

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QLabel>
#include <QMainWindow>
#include <QPainter>
#include <QRegularExpression>
#include <QtTest>

class TestResources : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { initResources(); }
    void iconIsLegible_data();
    void iconIsLegible();
    void styleSheetIsWhole();
    void figuresFitTheirPlaces();
};

void TestResources::iconIsLegible_data()
{
    QTest::addColumn<QString>("name");
    const char *names[] = {"open", "save", "saveAll", "preferences", "exit", "tile", "stack", "record",
        "clock-icon", "data", "wyk", "wykbar", "stop_sign", "varnel", "error", "cancel", "finish",
        "control-left", "control-right", "remote"};
    for (const char *name : names)
        QTest::newRow(name) << QStringLiteral(":/Icons/%1.png").arg(QLatin1String(name));
}

// On the light and on the dark ground a twelfth of the square at least stands out with a contrast of 2.5.
void TestResources::iconIsLegible()
{
    QFETCH(QString, name);
    const QIcon icon(name);
    QCOMPARE(icon.availableSizes().value(0), QSize(48, 48));
    for (int side : {16, 24, 48}) {
        for (const QColor &ground : {QColor(0xf3, 0xf5, 0xf7), QColor(0x2b, 0x2f, 0x33)}) {
            QImage image(side, side, QImage::Format_RGB32);
            image.fill(ground);
            QPainter painter(&image);
            icon.paint(&painter, image.rect());
            painter.end();
            int seen = 0;
            for (int i = 0; i < side * side; ++i)
                seen += contrast(image.pixel(i % side, i / side), ground) >= 2.5;
            QVERIFY2(seen * 12 >= side * side, qPrintable(QStringLiteral("%1 at %2").arg(seen).arg(side)));
        }
    }
}

// The sheet is read as Latin-1 up to the first zero byte, and a picture it names must be there.
void TestResources::styleSheetIsWhole()
{
    QVERIFY(QFile::exists(QStringLiteral(":/files/nostyle.qss")));
    QFile file(QStringLiteral(":/files/application.qss"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QVERIFY(std::all_of(bytes.begin(), bytes.end(), [](char c) { return c > 0; }));
    QCOMPARE(bytes.count('{'), bytes.count('}'));
    auto urls
        = QRegularExpression(QStringLiteral("url\\(([^)]*)\\)")).globalMatch(QString::fromLatin1(bytes));
    QVERIFY(urls.hasNext());
    while (urls.hasNext()) {
        const QString path = urls.next().captured(1);
        QVERIFY2(QFile::exists(path), qPrintable(path));
    }
}

// The labels of the data tool bar have fixed sizes; the sheet decides how large their letters are.
void TestResources::figuresFitTheirPlaces()
{
    installStyleSheet(qApp, QString());
    QVERIFY(!qApp->styleSheet().isEmpty());
    QMainWindow window;
    auto *bar = new DataToolBar(&window);
    window.addToolBar(bar);
    window.show();
    Varnel3Data record;
    record.mode = 1;
    record.cellCount = 16;
    record.cellType = 5;
    record.voltage = 70400;
    record.current = -40000;
    record.temperature = -105;
    record.energy = 99999;
    record.setTime(99 * 3600 + 59 * 60 + 59);
    bar->showRecord(record);
    const auto labels = bar->findChildren<QLabel *>();
    QCOMPARE(labels.size(), 6);
    for (const QLabel *label : labels) {
        QVERIFY(!label->text().isEmpty());
        QVERIFY2(label->fontMetrics().horizontalAdvance(label->text()) <= label->contentsRect().width()
                && label->fontMetrics().height() <= label->contentsRect().height(),
            qPrintable(label->text()));
    }
}

QTEST_MAIN(TestResources)
#include "tst_resources.moc"
