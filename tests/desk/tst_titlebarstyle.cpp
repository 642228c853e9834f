#include "desk/titlebarstyle.h"

#include "support/columns.h"
#include "support/paintlog.h"

#include <QStyleOptionTitleBar>
#include <QTest>

#include <cmath>

namespace {

double luminance(const QColor &colour)
{
    const auto linear
        = [](double part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
        + 0.0722 * linear(colour.blueF());
}

double contrast(const QColor &one, const QColor &other)
{
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

} // namespace

/// Whether the titles of graph windows can be read.
class TestTitleBarStyle : public QObject {
    Q_OBJECT

private slots:
    void titleIsLegible_data()
    {
        columns<bool>({"active"});
        QTest::newRow("active") << true;
        QTest::newRow("inactive") << false;
    }

    void titleIsLegible()
    {
        QFETCH(bool, active);
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
