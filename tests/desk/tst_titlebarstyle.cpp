#include "desk/titlebarstyle.h"

#include "support/paintlog.h"
#include "support/pixels.h"

#include <QStyleOptionTitleBar>
#include <QTest>

/// Whether the titles of graph windows can be read.
class TestTitleBarStyle : public QObject {
    Q_OBJECT

private slots:
    void titleIsLegible()
    {
        for (const bool active : {true, false})
            look(active);
    }

private:
    static void look(bool active)
    {
        const TitleBarStyle style;
        QStyleOptionTitleBar option;
        option.rect = QRect(0, 0, 300, 28);
        option.titleBarFlags = Qt::Window | Qt::WindowTitleHint;
        option.titleBarState = active ? QStyle::State_Active : QStyle::State_None;
        option.state = active ? QStyle::State_Active : QStyle::State_None;
        option.palette.setColor(QPalette::Highlight, QColor(0x30, 0x8c, 0xc6)); // as desktops have it
        option.palette.setColor(QPalette::Text, Qt::lightGray);
        QImage ground(option.rect.size(), QImage::Format_RGB32);
        QPainter painter(&ground);
        style.drawComplexControl(QStyle::CC_TitleBar, &option, &painter, nullptr);
        painter.end();
        option.text = QStringLiteral("COM3");
        PaintLog log(option.rect.size());
        QPainter logged(&log);
        style.drawComplexControl(QStyle::CC_TitleBar, &option, &logged, nullptr);
        logged.end();
        const QStringList titles = log.lines().filter(QStringLiteral("'COM3'"));
        QVERIFY(!titles.isEmpty());
        const QColor text(titles.last().section(QLatin1Char(' '), -1)); // an active one lies on its shadow
        for (int y = 4; y < 24; ++y)
            QVERIFY2(contrast(text, ground.pixelColor(100, y)) >= 4.5,
                qPrintable(ground.pixelColor(100, y).name()));
    }
};

QTEST_MAIN(TestTitleBarStyle)
#include "tst_titlebarstyle.moc"
