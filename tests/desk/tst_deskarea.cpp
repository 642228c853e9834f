#include "desk/deskarea.h"
#include "desk/titlebarstyle.h"
#include "support/paintlog.h"
#include "support/pixels.h"

#include <QMdiSubWindow>
#include <QStyleOptionTitleBar>
#include <QtTest>

/// The ground on which graph windows stand, where they are put, and their titles.
class TestDeskArea : public QObject {
    Q_OBJECT

private slots:
    void windowsTakeFreeRoom()
    {
        const QRect own(100, 100, 300, 200); // what the new one would take by itself
        const std::pair<QVector<QRect>, QRect> rows[] = {{{}, own}, {{{500, 0, 300, 600}}, own}, // uncovered
            {{{0, 0, 500, 600}}, {500, 0, 500, 600}}, {{{350, 0, 650, 600}}, {0, 0, 350, 600}},
            {{{0, 0, 1000, 300}}, {0, 300, 1000, 300}}, {{{0, 250, 1000, 350}}, {0, 0, 1000, 250}},
            {{{0, 0, 1000, 150}, {0, 450, 1000, 150}}, {0, 150, 1000, 300}},
            {{{0, 0, 700, 600}}, {700, 0, 300, 600}}, {{{0, 0, 701, 600}}, own}, // just wide enough, or not
            {{{0, 0, 1000, 420}}, {0, 420, 1000, 180}}, {{{0, 0, 1000, 421}}, own}, // or high enough
            {{{500, 200, 500, 400}, {0, 0, 500, 350}}, {0, 350, 500, 250}}, // the largest
            {{{0, 300, 600, 300}, {0, 0, 500, 290}}, {600, 0, 400, 600}}};
        for (const auto &[others, room] : rows) {
            for (const char *state : {"normal", "hidden", "maximised"}) {
                DeskArea area(nullptr);
                area.resize(1000, 600);
                area.show();
                for (const QRect &rect : others) {
                    QMdiSubWindow *one = area.addSubWindow(new QWidget);
                    one->setGeometry(rect);
                    one->setVisible(*state != 'h');
                    if (*state == 'm')
                        one->showMaximized();
                }
                QMdiSubWindow *fresh = area.addSubWindow(new QWidget);
                fresh->setGeometry(own);
                area.takeFreeRoom(fresh);
                QCOMPARE(fresh->geometry(), *state == 'n' ? room : own);
            }
        }
    }

    void tilesGoByNumber()
    {
        DeskArea area(nullptr);
        area.resize(1000, 600);
        area.show();
        QList<QMdiSubWindow *> windows;
        for (int i = 0; i < 6; ++i) {
            windows << area.addSubWindow(new QWidget);
            windows.last()->show();
        }
        windows.takeAt(4)->showMinimized();
        windows.takeAt(2)->hide();
        area.setActiveSubWindow(windows[2]);
        area.tileSubWindows();
        for (int i = 0; i < windows.size(); ++i) // two rows of two
            QVERIFY(QRect(i % 2 * 500, i / 2 * 300, 501, 301).contains(windows[i]->geometry().center()));
    }

    void emptyDeskTellsWhatToDo()
    {
        DeskArea area(nullptr);
        area.resize(800, 400);
        const auto painted = [&] {
            PaintLog log(area.size());
            area.viewport()->render(&log);
            static const QRegularExpression place(" at \\d+,(\\d+)[^;]* #"); // across depends on words
            return log.lines().join("; ").replace(place, " \\1 #");
        };
        QFont heading = area.font(); // half as large again, a third below the top
        heading.setPointSizeF(heading.pointSizeF() * 1.5);
        const QFontMetrics large(heading), usual(area.font());
        const int below = 20 + 360 / 3 + large.height() - 1 + usual.height() + usual.ascent();
        const QString hint = QString("rect 0,0 800x400 %1; text '%4' %6 %2; text '%5' %7 %3; text 'Saved "
                                     "recordings: File > Open file, or drop them here.' %8 %3")
                                 .replace("%6", QString::number(20 + 360 / 3 + large.ascent()))
                                 .replace("%7", QString::number(below))
                                 .replace("%8", QString::number(below + usual.lineSpacing()));
        const QString black = hint.arg("#2b2e33", "#d6dae0", "#a8aeb8");
        const QString white = hint.arg("#e4e7eb", "#333840", "#555b66");
        const QString choose = "Choose the ports of your devices: File > Preferences.";
        const QString wait = "A window opens as soon as a device sends.";
        area.show();
        area.viewport()->installEventFilter(this);
        const auto isPainted = [&](const auto &change) { // by itself
            QCoreApplication::processEvents();
            paints = 0;
            change();
            QTRY_VERIFY(paints > 0);
        };
        isPainted([&] { area.tellPorts({"COM7"}); });
        isPainted([&] { area.setBlack(false); });
        area.setBlack(true);
        area.tellPorts({});
        QCOMPARE(painted(), black.arg("No port is listened on", choose));
        area.tellPorts({"COM1"});
        QCOMPARE(painted(), black.arg("Listening on COM1", wait));
        area.tellPorts({"COM1", "COM2"});
        area.setBlack(false);
        QCOMPARE(painted(), white.arg("Listening on COM1, COM2", wait));
        auto *window = area.addSubWindow(new QWidget);
        window->hide();
        QCOMPARE(painted(), QString("rect 0,0 800x400 #e4e7eb")); // nobody needs it any more
        area.dressTitle(window);
        QVERIFY(qobject_cast<const QProxyStyle *>(window->style()));
    }

    void titlesAreLegible()
    {
        for (const bool active : {true, false}) {
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
            const QColor text(
                titles.last().section(QLatin1Char(' '), -1)); // an active one lies on its shadow
            for (int y = 4; y < 24; ++y)
                QVERIFY2(contrast(text, ground.pixelColor(100, y)) >= 4.5,
                    qPrintable(ground.pixelColor(100, y).name()));
        }
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        paints += event->type() == QEvent::Paint;
        return false;
    }

private:
    int paints = 0;
};

QTEST_MAIN(TestDeskArea)
#include "tst_deskarea.moc"
