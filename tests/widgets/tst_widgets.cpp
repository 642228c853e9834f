#include "widgets/displayscale.h"
#include "widgets/fittedtext.h"
#include "widgets/inputgate.h"
#include "widgets/plaintooltip.h"
#include "widgets/refreshgate.h"
#include "widgets/warningbox.h"

#include <QApplication>
#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>

/// What several windows are made of.
class TestWidgets : public QObject {
    Q_OBJECT

private slots:
    void scales()
    {
        const int dpi = qEnvironmentVariableIntValue("QT_FONT_DPI");
        const qreal density = dpi > 110 ? dpi / 96.0 : 1.0;
        const QFont usual = QApplication::font();
        QCOMPARE(fontScale(), 1.0);
        QCOMPARE(displayScale(), density);
        QFont font = usual;
        for (const qreal factor : {0.5, 1.5, 3.0}) {
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
    }

    void drawingFonts()
    {
        QCOMPARE(drawingFont("Times", 9, 1.0).pixelSize(), 12);
        QCOMPARE(drawingFont("Times", 9, 1.5).pixelSize(), 18);
        QCOMPARE(drawingFont("Times", 9, 0.01).pixelSize(), 1);
        QCOMPARE(drawingFont("Times", 9, 1.0).family(), QString("Times"));
        QVERIFY(drawingFont("Times", 9, 1.0, true).bold() && !drawingFont("Times", 9, 1.0).bold());
    }

    /// A text in a box is as large as it may be; all of it is there.
    void fittedFonts()
    {
        const QString text = "1234567.8";
        QFont pixels("Arial");
        pixels.setPixelSize(40);
        QFont points("Arial");
        points.setPointSizeF(30);
        const auto size = [](const QFont &font) { return qMax(font.pointSizeF(), qreal(font.pixelSize())); };
        for (const QFont &font : {pixels, points}) {
            const QSize whole = QFontMetrics(font).size(0, text);
            QCOMPARE(fittedFont(font, text, whole), font);
            for (const QSize &less : {whole - QSize(1, 0), whole - QSize(0, 1), whole / 3, QSize(20, 999)}) {
                QFont fitted = fittedFont(font, text, less);
                const QSize needed = QFontMetrics(fitted).size(0, text);
                QVERIFY(needed.width() <= less.width() && needed.height() <= less.height());
                const bool isPixels = font.pixelSize() > 0;
                if (isPixels)
                    fitted.setPixelSize(fitted.pixelSize() + 1);
                else
                    fitted.setPointSizeF(fitted.pointSizeF() + 0.5);
                const QSize more = QFontMetrics(fitted).size(0, text);
                QVERIFY(more.width() > less.width() || more.height() > less.height());
            }
            QCOMPARE(size(fittedFont(font, text, {0, 0})), 1.0);
        }
        QLabel label;
        setFittedText(&label, text, 20, {999, 999});
        QCOMPARE(label.text(), text);
        QCOMPARE(label.font().pointSizeF(), 20.0);
        setFittedText(&label, text, 10, {999, 999}); // unchanged: costs nothing
        QCOMPARE(label.font().pointSizeF(), 20.0);
        setFittedText(&label, "1", 10, {999, 999});
        QCOMPARE(label.font().pointSizeF(), 10.0);
    }

    void gateOpensTenTimesASecond()
    {
        QWidget display;
        auto *gate = new RefreshGate(&display);
        auto *timer = gate->findChild<QTimer *>();
        QSignalSpy refreshes(gate, SIGNAL(refresh()));
        QCOMPARE(timer->interval(), 100);
        display.show();
        QCOMPARE(refreshes.count(), 0); // nothing new
        display.hide();
        gate->request();
        QVERIFY(gate->isPending());
        display.show();
        QCOMPARE(refreshes.count(), 1);
        QVERIFY(!gate->isPending() && timer->isActive());
        timer->start(1000000); // until the test lets it end
        gate->request();
        gate->request();
        QCOMPARE(refreshes.count(), 1);
        timer->start(0);
        QTRY_COMPARE_WITH_TIMEOUT(refreshes.count(), 2, 30000);
        timer->setInterval(0);
        QTRY_VERIFY_WITH_TIMEOUT(!timer->isActive(), 30000);
        QCOMPARE(refreshes.count(), 2); // nothing was left
        gate->request();
        QCOMPARE(refreshes.count(), 3); // at once after a pause
        gate->request();
        display.hide();
        QTRY_VERIFY_WITH_TIMEOUT(!timer->isActive(), 30000);
        QVERIFY(gate->isPending() && refreshes.count() == 3);
    }

    void inputReachesOneWidget()
    {
        QWidget window;
        auto *layout = new QVBoxLayout(&window);
        auto *outside = new QLineEdit;
        auto *allowed = new QWidget;
        auto *inside = new QLineEdit(allowed);
        layout->addWidget(outside);
        layout->addWidget(allowed);
        window.show();
        const auto type = [](QWidget *widget, int key) { QTest::keyClick(widget, Qt::Key(key)); };
        {
            InputGate gate(allowed);
            QSignalSpy escaped(&gate, SIGNAL(escaped()));
            type(outside, Qt::Key_A);
            type(inside, Qt::Key_B);
            QCOMPARE(outside->text() + inside->text(), QString("b"));
            QCOMPARE(escaped.count(), 0);
            type(outside, Qt::Key_Escape);
            QCOMPARE(escaped.count(), 1);
            type(inside, Qt::Key_Escape); // which it leaves to its window
            QCOMPARE(escaped.count(), 2);
            QEvent leave(QEvent::Leave); // no input: passes
            QVERIFY(!gate.eventFilter(outside, &leave));
            QMouseEvent press(QEvent::MouseButtonPress, {1, 1}, Qt::LeftButton, Qt::LeftButton, {});
            QVERIFY(gate.eventFilter(outside, &press));
            QVERIFY(!gate.eventFilter(inside, &press) && !gate.eventFilter(allowed, &press));
            QVERIFY(!gate.eventFilter(layout, &press)); // no widget
            QEvent shortcut(QEvent::Shortcut);
            QVERIFY(gate.eventFilter(layout, &shortcut));
            QMessageBox box(&window);
            QVERIFY(gate.eventFilter(&box, &press));
            box.open();
            QVERIFY(!gate.eventFilter(&box, &press));
            QVERIFY(gate.eventFilter(outside, &press));
        }
        type(outside, Qt::Key_C);
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
