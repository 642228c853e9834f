#include "widgets/displayscale.h"
#include "widgets/fittedtext.h"
#include "widgets/inputgate.h"
#include "widgets/plaintooltip.h"
#include "widgets/refreshgate.h"
#include "widgets/straightstrokes.h"
#include "widgets/warningbox.h"
#include "support/paintlog.h"
#include "support/warningcollector.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QtTest>

/// What several windows are made of.
class TestWidgets : public QObject {
    Q_OBJECT

private slots:
    void scales()
    {
        const int dpi = qEnvironmentVariableIntValue("QT_FONT_DPI");
        const qreal density = dpi > 110 ? dpi / 96.0 : 1.0;
        const QFont usual = QApplication::font();
        QFont font = usual;
        for (const qreal factor : {1.0, 0.5, 1.5, 3.0}) {
            font.setPointSizeF(usual.pointSizeF() * factor);
            QApplication::setFont(font);
            QCOMPARE(fontScale(), qMax(1.0, factor));
            QCOMPARE(displayScale(), density * qMax(1.0, factor));
            QCOMPARE(scaled(33), qRound(33 * density * qMax(1.0, factor)));
        }
        font.setPixelSize(QFontInfo(usual).pixelSize() * 2); // a style sheet's
        QApplication::setFont(font);
        QVERIFY(fontScale() > 1.8 && fontScale() < 2.2);
        QApplication::setFont(usual);
        for (const auto &[scale, pixels] : {std::pair(1.0, 12), std::pair(1.5, 18), std::pair(0.01, 1)})
            QCOMPARE(drawingFont("Times", 9, scale).pixelSize(), pixels);
        QCOMPARE(drawingFont("Times", 9, 1.0).family(), QString("Times"));
        QVERIFY(drawingFont("Times", 9, 1.0, true).bold() && !drawingFont("Times", 9, 1.0).bold());
    }

    void fittedFonts()
    {
        const WarningCollector collector;
        const QString text = "1234567.8";
        const auto fits = [&text](const QFont &font, const QSize &box) {
            return QFontMetrics(font).size(0, text).boundedTo(box) == QFontMetrics(font).size(0, text);
        };
        for (const bool inPixels : {true, false}) {
            const auto sized = [inPixels](qreal size) {
                QFont font("Arial");
                inPixels ? font.setPixelSize(int(size)) : font.setPointSizeF(size);
                return font;
            };
            const QSize whole = QFontMetrics(sized(40)).size(0, text);
            QCOMPARE(fittedFont(sized(40), text, whole), sized(40));
            for (const QSize &less : {whole - QSize(1, 0), whole - QSize(0, 1), whole / 3, QSize(20, 999)}) {
                const QFont fitted = fittedFont(sized(40), text, less);
                QVERIFY(fits(fitted, less));
                QVERIFY(!fits(sized(inPixels ? fitted.pixelSize() + 1 : fitted.pointSizeF() + 0.5), less));
            }
            QCOMPARE(fittedFont(sized(40), text, {0, 0}), sized(1));
            QVERIFY(
                fittedFont(sized(40), text, {9, 9}).isCopyOf(fittedFont(sized(40), text, {9, 9}))); // known
        }
        QCOMPARE(collector.warnings(), QStringList());
        QLabel label;
        for (const auto &[shown, points, then] : {std::tuple("1", 20, 20), {"1", 10, 20}, {"2", 10, 10}}) {
            setFittedText(&label, shown, points, {999, 999}); // unchanged it costs nothing
            QCOMPARE(
                label.text() + QString::number(label.font().pointSizeF()), shown + QString::number(then));
        }
    }

    void gateOpensTenTimesASecond()
    {
        QWidget display;
        auto *gate = new RefreshGate(&display);
        auto *timer = gate->findChild<QTimer *>();
        QSignalSpy refreshes(gate, SIGNAL(refresh()));
        display.show();
        QVERIFY(timer->interval() == 100 && refreshes.isEmpty()); // nothing new
        display.hide();
        gate->request();
        QVERIFY(gate->isPending());
        display.show();
        QVERIFY(refreshes.count() == 1 && !gate->isPending() && timer->isActive());
        timer->start(1000000); // until the test lets it end
        gate->request();
        gate->request();
        display.repaint();
        QVERIFY(gate->isPending());
        timer->start(0);
        QTRY_VERIFY_WITH_TIMEOUT(refreshes.count() == 2 && !timer->isActive(), 30000);
        gate->request();
        gate->request(); // the first at once, after a pause
        display.hide();
        QTRY_VERIFY_WITH_TIMEOUT(!timer->isActive(), 30000);
        QVERIFY(gate->isPending() && refreshes.count() == 3);
        display.showMinimized();
        QVERIFY(gate->isPending());
        gate->request();
        QVERIFY(gate->isPending() && refreshes.count() == 3);
        display.setWindowState(Qt::WindowNoState);
        QTRY_VERIFY_WITH_TIMEOUT(!gate->isPending() && refreshes.count() == 4, 30000);
    }

    /// With their own pixels, where they are quick and where they are not.
    void straightStrokesAreThePainters()
    {
        for (int way = 0; way < 48; ++way) {
            QImage ours(40, 30, QImage::Format_RGB32);
            QImage painters = ours;
            for (QImage *image : {&ours, &painters}) {
                image->fill(Qt::darkBlue);
                QPainter painter(image);
                painter.setPen(QPen(way & 1 ? QColor(9, 200, 30, 99) : QColor(Qt::red), way % 3,
                    way & 4 ? Qt::DotLine : Qt::SolidLine));
                painter.setBrush(way & 2 ? QBrush(Qt::yellow) : QBrush());
                painter.setOpacity(way & 8 ? 0.4 : 1);
                painter.translate(way & 16 ? 0.5 : 3, 2);
                painter.scale(1, way & 32 ? 1.5 : 1);
                for (const QLine &line :
                    {QLine(-9, 3, 70, 3), {4, 1, 4, 20}, {9, 9, 9, 9}, {20, 5, 12, 5}, {1, 1, 8, 14}})
                    image == &ours ? drawStraight(painter, line) : painter.drawLine(line);
                for (const QRect &rect : {QRect(11, 7, 9, 8), {22, 2, 1, 1}, {25, 4, 6, 0}, {30, 9, 60, 60}})
                    image == &ours ? drawBox(painter, rect) : painter.drawRect(rect);
            }
            QVERIFY2(ours == painters, qPrintable(QString::number(way)));
        }
        PaintLog log({40, 30}, QPaintEngine::Raster);
        QPainter painter(&log);
        painter.translate(3, 2);
        painter.setPen(Qt::red);
        for (const QLine &line : {QLine(1, 2, 1, 9), {4, 4, 9, 4}, {5, 5, 5, 5}})
            drawStraight(painter, line);
        drawBox(painter, {2, 3, 4, 5});
        painter.setBrush(Qt::yellow);
        drawBox(painter, {2, 3, 4, 5});
        QVERIFY(
            log.lines().size() == 3 + 4 + 5 && log.lines().filter(QRegularExpression("line|pen")).isEmpty());
        painter.setRenderHint(QPainter::Antialiasing);
        drawStraight(painter, {4, 4, 9, 4});
        QCOMPARE(log.lines().constLast(), QString("line 7,6 12,6 #ff0000"));
    }

    void inputReachesOneWidget()
    {
        QWidget window;
        QObject *noWidget = new QTimer(&window);
        auto *outside = new QLineEdit(&window);
        auto *allowed = new QWidget(&window);
        auto *inside = new QLineEdit(allowed);
        window.show();
        {
            InputGate gate(allowed);
            QSignalSpy escaped(&gate, SIGNAL(escaped()));
            QTest::keyClick(outside, Qt::Key_A);
            QTest::keyClick(inside, Qt::Key_B);
            QCOMPARE(outside->text() + inside->text(), QString("b"));
            QCOMPARE(escaped.count(), 0);
            for (QWidget *widget : {outside, inside}) // which leaves it to its window
                QTest::keyClick(widget, Qt::Key_Escape);
            QCOMPARE(escaped.count(), 2);
            QMouseEvent press(QEvent::MouseButtonPress, {1, 1}, Qt::LeftButton, Qt::LeftButton, {});
            QEvent shortcut(QEvent::Shortcut);
            QEvent leave(QEvent::Leave);
            QMessageBox box(&window);
            const auto stops
                = [&gate](QObject *from, QEvent *event) { return gate.eventFilter(from, event); };
            QVERIFY(stops(outside, &press) && !stops(inside, &press) && !stops(allowed, &press));
            QVERIFY(!stops(noWidget, &press) && stops(noWidget, &shortcut));
            QVERIFY(stops(&box, &press) && !stops(&box, &leave)); // no input
            box.open();
            QVERIFY(!stops(&box, &press) && stops(outside, &press));
        }
        QTest::keyClick(outside, Qt::Key_C);
        QCOMPARE(outside->text(), QString("c"));
    }

    void warnings()
    {
        QWidget window;
        showWarningBox(&window, "why", "Title", "<b>text</b>", "details");
        showWarningBox(&window, "bare", "Title", "text");
        QPointer<QMessageBox> box = window.findChild<QMessageBox *>("why");
        QVERIFY(box->isVisible() && !box->isModal() && box->textFormat() == Qt::PlainText);
        QCOMPARE(box->icon(), QMessageBox::Warning);
        QCOMPARE(box->windowTitle() + box->text() + box->detailedText(), QString("Title<b>text</b>details"));
        QCOMPARE(window.findChild<QMessageBox *>("bare")->buttons().size(), 1); // nothing to unfold
        box->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!box);
        QCOMPARE(plainToolTip("a & b"), QString("a & b"));
        QVERIFY(plainToolTip("<b>x</b>").contains("&lt;b&gt;"));
    }
};

QTEST_MAIN(TestWidgets)
#include "tst_widgets.moc"
