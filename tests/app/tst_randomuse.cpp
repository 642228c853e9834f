#include "devices/listenedports.h"
#include "app/mainwindow.h"
#include "app/randomuser.h"
#include "graph/mdigraphchild.h"
#include "link/serialreader.h"
#include "resources/resources.h"
#include "settings/varnelsettings.h"
#include "simulator/rack.h"
#include "support/shellfixture.h"
#include "support/warningcollector.h"

#include <QApplication>
#include <QDateTime>
#include <QDesktopServices>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QtTest>

#include <cstdio>

namespace {

// Sanitized programs take several times as long for everything.
#ifdef __SANITIZE_ADDRESS__
constexpr int slowness = 8;
#else
constexpr int slowness = 1;
#endif
constexpr int longestWait = 4000 * slowness; // ms; a command may wait half a second for a full line

// What these say is a mistake of the program, whatever the user does.
const char *const mistakes[] = {"QObject::", "QMetaObject::", "QPainter", "QWidget::", "QLayout", "QTimer",
    "QSocketNotifier", "QAction::", "QMutex", "QCoreApplication::", "QPixmap", "QFont::", "QString::arg",
    "QIODevice", "QFile"};

int numberFrom(const char *variable, int usual)
{
    bool good = false;
    const int number = qEnvironmentVariableIntValue(variable, &good);
    return good ? number : usual;
}

} // namespace

/// The whole program, six devices, and somebody who does anything at any moment. VARNEL_SEED and
/// VARNEL_SECONDS choose the course and its length, VARNEL_STEPS prints each step.
class TestRandomUse : public QObject {
    Q_OBJECT

public slots:
    void look();
    /// Nobody is to open a browser.
    void ignore(const QUrl &) { }

private slots:
    void initTestCase();
    void anythingAtAnyMoment();

private:
    void liveOnce(int seconds);

    RandomUser *user = nullptr;
    MainWindow *shown = nullptr;
    QStringList broken; // what did not hold
    qint64 records = 0; // most seen at once
    int lives = 0;
};

void TestRandomUse::initTestCase()
{
    initResources();
    for (const char *scheme : {"http", "https", "mailto"})
        QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "ignore");
}

// What always holds, whatever has just been done.
void TestRandomUse::look()
{
    if (!shown)
        return;
    qint64 now = 0;
    QSet<int> numbers;
    const auto children = shown->mdiChildren();
    const auto windows = shown->findChild<QMdiArea *>()->subWindowList();
    for (const MdiGraphChild *child : children) {
        now += child->store().size();
        numbers.insert(child->windowNumber());
        bool placed = false;
        for (const QMdiSubWindow *window : windows)
            placed = placed || window->widget() == child;
        if (!placed)
            broken.append(QStringLiteral("a graph window that stands nowhere"));
    }
    records = qMax(records, now);
    if (shown->activeMdiChild() && !children.contains(shown->activeMdiChild()))
        broken.append(QStringLiteral("a current window that is closed"));
    QStringList ports = shown->listenedPorts().portNames();
    if (ports.removeDuplicates() > 0)
        broken.append(QStringLiteral("a port that is listened on twice"));
}

// From start to quit, as main() does it; the user may end it sooner.
void TestRandomUse::liveOnce(int seconds)
{
    ++lives;
    auto window = std::make_unique<MainWindow>();
    shown = window.get();
    window->show();
    user->use(window.get());
    QTimer end;
    connect(&end, SIGNAL(timeout()), qApp, SLOT(quit()));
    end.start(seconds * 1000);
    QApplication::exec();
    user->use(nullptr);
    shown = nullptr;
    window.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const QWidgetList left = QApplication::topLevelWidgets();
    for (const QWidget *one : left) {
        if (one->isVisible())
            broken.append(QStringLiteral("left over: ") + QLatin1String(one->metaObject()->className()));
    }
}

void TestRandomUse::anythingAtAnyMoment()
{
    const int seconds = numberFrom("VARNEL_SECONDS", 10);
    const auto seed = quint32(numberFrom("VARNEL_SEED", int(QDateTime::currentMSecsSinceEpoch() % 1000000)));
    std::fprintf(stderr, "VARNEL_SEED=%u VARNEL_SECONDS=%d\n", seed, seconds);

    const ShellFixture fixture;
    sim::RunSettings run;
    run.folder = fixture.portFolder();
    run.speed = 100;
    run.seed = seed;
    sim::Rack rack(run);
    QString error;
    for (const char *description : {"COM1:varnel3,cells=6,balance,processes=0,pause=2,noise=0.01",
             "COM2:varnel2plus,processes=0,pause=2,cut=0.01",
             "COM3:varnel3,cells=16,balance,duration=500,processes=0,endlines=3,join=0.01",
             "COM4:tandor,fields=0.01", "COM5:varnel2,processes=0,duration=300",
             "COM6:varnel3,start=remote,cells=4,detect=1"})
        QVERIFY2(rack.add(QLatin1String(description), &error), qPrintable(error));
    VarnelSettings().setPorts({"COM1", "COM2", "COM3", "COM4", "COM6"});
    VarnelSettings().setSendTime(true);

    RandomUser someone(seed, &rack, fixture.path(QString()));
    // cppcheck-suppress danglingLifetime ; look() alone uses it, whose timer goes before
    user = &someone;
    WarningCollector collector;
    QTimer looking;
    connect(&looking, SIGNAL(timeout()), this, SLOT(look()));
    looking.start(50);
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < seconds * 1000 && broken.isEmpty())
        liveOnce(seconds - int(clock.elapsed() / 1000));
    std::fprintf(stderr, "%d steps, %d times from start to quit, up to %lld records, longest wait %lld ms\n",
        someone.steps(), lives, static_cast<long long>(records),
        static_cast<long long>(someone.longestWait()));

    const QStringList warnings = collector.warnings();
    for (const QString &warning : warnings) {
        for (const char *mistake : mistakes) {
            if (warning.contains(QLatin1String(mistake)))
                broken.append(warning);
        }
    }
    broken.removeDuplicates();
    if (!broken.isEmpty() || someone.longestWait() > longestWait)
        std::fprintf(stderr, "the newest steps:\n  %s\n",
            qPrintable(someone.newestSteps().join(QLatin1String("\n  "))));
    QCOMPARE(broken, QStringList());
    QVERIFY2(someone.longestWait() <= longestWait, "the event loop answered nobody for too long");
    QVERIFY(someone.steps() > seconds * 10 / slowness);
    QVERIFY(records > 0);
}

QTEST_MAIN(TestRandomUse)
#include "tst_randomuse.moc"
