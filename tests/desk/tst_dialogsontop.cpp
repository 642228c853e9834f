#include "displays/datadisplay.h"
#include "displays/voltagecomparison.h"
#include "graph/mdigraphchild.h"
#include "resources/resources.h"
#include "support/shellrig.h"

#include <QApplication>
#include <QMessageBox>
#include <QWindow>

namespace {

/// For the window manager.
bool isOnTop(const QWidget *window)
{
    return window->windowHandle() && window->windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint);
}

} // namespace

/// What is shown above the displays, which stand above all else.
class TestDialogsOnTop : public QObject, private ShellRig {
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }
    void init()
    {
        setUp();
        open({});
    }
    void cleanup() { tearDown(); }

    /// Whatever opens, modal or not, comes up last and stays on top while a display is in sight; without one
    /// it is left as it is.
    void questionsStandAboveDisplays()
    {
        window->createMdiChild();
        auto *figures = display<DataDisplay>();
        const auto standsAbove = [&](bool modal) {
            QMessageBox question(window.get());
            question.setModal(modal);
            question.move(figures->pos());
            question.show();
            return lastRaised() == &question && isOnTop(&question) && isOnTop(figures) != modal;
        };
        for (const bool modal : {true, false}) {
            QMessageBox alone(window.get());
            alone.setModal(modal);
            alone.show();
            QCoreApplication::sendPostedEvents();
            QVERIFY(!isOnTop(&alone));
            alone.hide();
            QVERIFY(!standsAbove(modal));
            trigger(ActionId::Data);
            figures->activateWindow();
            QVERIFY(standsAbove(modal));
            QCoreApplication::sendPostedEvents();
            QVERIFY(isOnTop(figures)); // again
            trigger(ActionId::Data);
        }
    }

    /// A recording that starts makes the voltage comparison anew: below what is open, the keyboard left where
    /// it is.
    void displaysComeUpBelowQuestions()
    {
        window->createMdiChild();
        trigger(ActionId::Graph);
        display<VoltageComparison>()->hide(); // as for the open dialog
        QMessageBox question(window.get());
        QMessageBox notice(window.get());
        question.move(display<VoltageComparison>()->pos());
        question.open();
        notice.setModal(false);
        notice.show();
        window->createMdiChild();
        QCOMPARE(lastRaised(), static_cast<QWidget *>(&question)); // the one that takes input
        QVERIFY(isOnTop(&question));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const auto *comparison = display<VoltageComparison>();
        QVERIFY(!isOnTop(comparison) && comparison->testAttribute(Qt::WA_ShowWithoutActivating));
    }

protected:
    /// Hears which window comes up above all others.
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *widget = qobject_cast<QWidget *>(watched);
        const bool comesUp = event->type() == QEvent::Show || event->type() == QEvent::ZOrderChange;
        if (comesUp && widget && widget->isWindow() && isOnTop(widget))
            m_last = widget;
        return false;
    }

private:
    /// By what has been asked for and is not done yet.
    QWidget *lastRaised()
    {
        m_last = nullptr;
        qApp->installEventFilter(this);
        QCoreApplication::sendPostedEvents();
        qApp->removeEventFilter(this);
        return m_last;
    }
    template <typename Display>
    Display *display() const
    {
        return window->findChild<Display *>();
    }

    QWidget *m_last = nullptr;
};

QTEST_MAIN(TestDialogsOnTop)
#include "tst_dialogsontop.moc"
