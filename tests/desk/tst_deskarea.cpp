#include "desk/deskarea.h"
#include "support/columns.h"
#include "support/paintlog.h"

#include <QMdiSubWindow>
#include <QRegularExpression>

using Rects = QVector<QRect>;
Q_DECLARE_METATYPE(Rects)

/// The ground on which graph windows stand, and where they are put.
class TestDeskArea : public QObject {
    Q_OBJECT

private slots:
    void windowsTakeFreeRoom_data()
    {
        columns<Rects, QRect>({"others", "room"});
        const QRect own(100, 100, 300, 200); // what the new one would take by itself
        QTest::newRow("alone") << Rects{} << own;
        QTest::newRow("nothing covered") << Rects{{500, 0, 300, 600}} << own;
        QTest::newRow("beside") << Rects{{0, 0, 500, 600}} << QRect(500, 0, 500, 600);
        QTest::newRow("before") << Rects{{350, 0, 650, 600}} << QRect(0, 0, 350, 600);
        QTest::newRow("below") << Rects{{0, 0, 1000, 300}} << QRect(0, 300, 1000, 300);
        QTest::newRow("above") << Rects{{0, 250, 1000, 350}} << QRect(0, 0, 1000, 250);
        QTest::newRow("between") << Rects{{0, 0, 1000, 150}, {0, 450, 1000, 150}} << QRect(0, 150, 1000, 300);
        QTest::newRow("just wide enough") << Rects{{0, 0, 700, 600}} << QRect(700, 0, 300, 600);
        QTest::newRow("too narrow") << Rects{{0, 0, 701, 600}} << own;
        QTest::newRow("just high enough") << Rects{{0, 0, 1000, 420}} << QRect(0, 420, 1000, 180);
        QTest::newRow("too low") << Rects{{0, 0, 1000, 421}} << own;
        QTest::newRow("the largest") << Rects{{500, 200, 500, 400}, {0, 0, 500, 350}}
                                     << QRect(0, 350, 500, 250);
        QTest::newRow("beside two") << Rects{{0, 300, 600, 300}, {0, 0, 500, 290}} << QRect(600, 0, 400, 600);
    }

    void windowsTakeFreeRoom()
    {
        QFETCH(Rects, others);
        QFETCH(QRect, room);
        const QRect own(100, 100, 300, 200);
        for (const QByteArray &state :
            {QByteArray("normal"), QByteArray("hidden"), QByteArray("maximised")}) {
            DeskArea area(nullptr);
            area.resize(1000, 600);
            area.show();
            for (const QRect &rect : qAsConst(others)) {
                QMdiSubWindow *one = area.addSubWindow(new QWidget);
                one->setGeometry(rect);
                one->setVisible(state != "hidden");
                if (state == "maximised")
                    one->showMaximized();
            }
            QMdiSubWindow *fresh = area.addSubWindow(new QWidget);
            fresh->setGeometry(own);
            area.takeFreeRoom(fresh);
            QCOMPARE(fresh->geometry(), state == "normal" ? room : own);
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
            static const QRegularExpression place(" at [^;]* #"); // depends on fonts
            return log.lines().join("; ").replace(place, " #");
        };
        const QString hint = "rect 0,0 800x400 %1; text '%4' %2; text '%5' %3; "
                             "text 'Saved recordings: File > Open file, or drop them here.' %3";
        const QString black = hint.arg("#2b2e33", "#d6dae0", "#a8aeb8");
        const QString white = hint.arg("#e4e7eb", "#333840", "#555b66");
        const QString choose = "Choose the ports of your devices: File > Preferences.";
        const QString wait = "A window opens as soon as a device sends.";
        area.tellPorts({});
        QCOMPARE(painted(), black.arg("No port is listened on", choose));
        area.tellPorts({"COM1"});
        QCOMPARE(painted(), black.arg("Listening on COM1", wait));
        area.tellPorts({"COM1", "COM2"});
        area.setBlack(false);
        QCOMPARE(painted(), white.arg("Listening on COM1, COM2", wait));
        area.addSubWindow(new QWidget)->hide();
        QCOMPARE(painted(), QString("rect 0,0 800x400 #e4e7eb")); // nobody needs it any more
    }
};

QTEST_MAIN(TestDeskArea)
#include "tst_deskarea.moc"
