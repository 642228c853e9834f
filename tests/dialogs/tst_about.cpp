#include "dialogs/about.h"

#include "resources/resources.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QtTest>

class TestAbout : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { initResources(); }
    void saysWhatItIs();
    void closesByItself();
};

void TestAbout::saysWhatItIs()
{
    QCoreApplication::setApplicationVersion(QStringLiteral("V1.2"));
    About about;
    QCOMPARE(about.windowTitle(), QStringLiteral("About"));
    QCOMPARE(about.minimumSize(), QSize(300, 300));
    QCOMPARE(about.maximumSize(), QSize(300, 300));
    about.show();
    int links = 0;
    int pictures = 0;
    int versions = 0;
    const auto labels = about.findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        links += label->openExternalLinks() && label->text().contains(QStringLiteral(".example."));
        pictures += label->pixmap(Qt::ReturnByValue).width() > 150;
        versions += label->text() == QStringLiteral("Version V1.2");
        QVERIFY2(label->height() >= label->minimumSizeHint().height()
                && label->width() >= label->minimumSizeHint().width(),
            qPrintable(label->text())); // nothing is cut off
    }
    QCOMPARE(links, 2);
    QCOMPARE(pictures, 1);
    QCOMPARE(versions, 1);
}

void TestAbout::closesByItself()
{
    About about;
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(about.exec(100), int(QDialog::Rejected));
    QVERIFY(clock.elapsed() >= 95 && clock.elapsed() < 2000);
}

QTEST_MAIN(TestAbout)
#include "tst_about.moc"
