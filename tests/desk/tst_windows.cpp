#include "app/actionset.h"
#include "documents/graphprinting.h"
#include "app/mainwindow.h"
#include "app/settingsnotice.h"
#include "app/stylesheet.h"
#include "dialogs/about.h"
#include "dialogs/dialogpreferences.h"
#include "graph/mdigraphchild.h"
#include "printing/printjob.h"
#include "resources/resources.h"
#include "settings/settingskeeper.h"
#include "settings/varnelsettings.h"
#include "settings/viewstate.h"
#include "support/lines.h"
#include "support/shellfixture.h"
#include "support/warningcollector.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QScopeGuard>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

/// Every window is built once under a message handler: a connection by name
/// that does not hold is only a warning.
class TestWindows : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void noWarnings();
    void layoutComesBack();
    void figuresStayInSight_data();
    void figuresStayInSight();
    void windowsTakeFreeRoom();
    void closingEndsTheProgram();
    void settingsThatCanNotBeKept();
    void ownStyleSheet();
    void graphOnPaper();

private:
    ShellFixture fixture;
};

void TestWindows::initTestCase()
{
    initResources();
}

void TestWindows::noWarnings()
{
    WarningCollector collector;
    {
        installStyleSheet(qApp, fixture.path(QString()));
        MainWindow window;
        window.show();
        window.createMdiChild();
        for (int id = int(ActionId::Data); id <= int(ActionId::Energy); ++id)
            window.actionSet()[ActionId(id)]->trigger();
        QTest::qWait(100);
        DialogPreferences(&window).show();
        About(&window).show();
        window.close();
    }
    QCOMPARE(collector.warnings(), QStringList());
}

void TestWindows::layoutComesBack()
{
    const QSize size(901, 603);
    {
        MainWindow window;
        window.show();
        window.resize(size);
        window.setWhiteBack();
        window.findChild<QToolBar *>(QStringLiteral("mainToolBar"))->hide();
        window.close();
    }
    MainWindow window;
    window.show();
    QCOMPARE(window.size(), size);
    QVERIFY(!window.viewState().switches().blackBackground);
    QVERIFY(!window.findChild<QToolBar *>(QStringLiteral("mainToolBar"))->isVisible());
    QVERIFY(window.findChild<QToolBar *>(QStringLiteral("dataToolBar"))->isVisible());
    const VarnelSettings settings;
    for (const char *key : {"mainwindow/size", "mainwindow/pos", "datadisplay/pos", "capacitydisplay/size",
             "capacitydisplay/pos", "powerdisplay/size", "powerdisplay/pos"})
        QVERIFY2(settings.contains(QLatin1String(key)), key);
}

namespace {

/// Columns of a button in which something is drawn on its ground.
int inkWidth(const QToolButton *button)
{
    const QImage image = const_cast<QToolButton *>(button)->grab().toImage();
    int columns = 0;
    for (int x = 0; x < image.width(); ++x) {
        bool ink = false;
        for (int y = 0; y < image.height(); ++y)
            ink |= image.pixel(x, y) != image.pixel(0, 0);
        columns += ink;
    }
    return columns;
}

} // namespace

void TestWindows::figuresStayInSight_data()
{
    QTest::addColumn<double>("enlarged");
    QTest::newRow("usual letters") << 1.0;
    QTest::newRow("twice as large") << 2.0;
}

/// At any width that the program is used at the last figure of the tool bar is seen, and each of its commands
/// is seen or behind the extension button. The figures are as large as the letters.
void TestWindows::figuresStayInSight()
{
    QFETCH(double, enlarged);
    const QFont usual = QApplication::font();
    QFont font = usual;
    font.setPointSizeF(usual.pointSizeF() * enlarged);
    QApplication::setFont(font);
    const auto back = qScopeGuard([usual] { QApplication::setFont(usual); });
    installStyleSheet(qApp, fixture.path(QString()));
    MainWindow window;
    window.show();
    window.findChild<QToolBar *>(QStringLiteral("mainToolBar"))->show();
    for (int width : {800, 1400, 1180, 1024, 640}) {
        window.resize(width, 600);
        const auto *last = window.findChild<QToolBar *>(QStringLiteral("dataToolBar"))
                               ->findChild<QLabel *>(QStringLiteral("timeLabel"));
        QTRY_VERIFY2(last->isVisible(), qPrintable(QString::number(width)));
        QVERIFY(last->mapTo(&window, last->rect().topRight()).x() < width);
        const double room = qMin(enlarged, width / 480.0);
        QVERIFY(last->width() >= int(room * 65));
        QVERIFY(last->fontMetrics().height() >= int(room * 11));
        const auto *commands = window.findChild<QToolBar *>(QStringLiteral("mainToolBar"));
        const auto *extension = commands->findChild<QToolButton *>(QStringLiteral("qt_toolbar_ext_button"));
        const auto isSeen = [&](const QWidget *button) {
            return button->isVisible() && commands->rect().contains(button->geometry())
                && button->mapTo(&window, button->rect().topRight()).x() < width;
        };
        const auto areInReach = [&] {
            const QList<QAction *> all = commands->actions();
            return std::all_of(all.begin(), all.end(), [&](QAction *action) {
                const QWidget *button = commands->widgetForAction(action);
                return isSeen(button) || (!button->isVisible() && isSeen(extension));
            });
        };
        QTRY_VERIFY2(areInReach(), qPrintable(QString::number(width)));
        QVERIFY(!extension->isVisible() || inkWidth(extension) >= 6); // an arrow, not a speck
    }
}

/// The third window lies beside the first two as long as that leaves it a readable size; tiles go by number.
void TestWindows::windowsTakeFreeRoom()
{
    MainWindow window;
    window.resize(1180, 760);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVector<QRect> places;
    const auto readPlaces = [&] {
        places.clear();
        const QList<MdiGraphChild *> children = window.mdiChildren();
        for (const MdiGraphChild *child : children)
            places.append(child->parentWidget()->geometry());
    };
    for (int i = 0; i < 3; ++i)
        window.createMdiChild();
    readPlaces();
    for (int i = 0; i < 3; ++i)
        QVERIFY(!places[i].intersects(places[(i + 1) % 3]));

    window.createMdiChild(); // there is no room for it: it is active all the same
    window.actionSet()[ActionId::Tile]->trigger();
    readPlaces();
    for (int i = 0; i < 3; ++i)
        QVERIFY(places[i].top() < places[i + 1].top() || places[i].left() < places[i + 1].left());
}

void TestWindows::closingEndsTheProgram()
{
    MainWindow window;
    window.show();
    window.createMdiChild();
    window.actionSet()[ActionId::Data]->trigger();
    window.actionSet()[ActionId::Graph]->trigger();
    QTimer::singleShot(50, &window, SLOT(close()));
    QTimer::singleShot(5000, qApp, [] { QCoreApplication::exit(1); });
    QCOMPARE(QApplication::exec(), 0); // the last window has closed
}

// Told once each, be there ever so many changes.
void TestWindows::settingsThatCanNotBeKept()
{
    const QString fileName = VarnelSettings().fileName();
    QVERIFY(SettingsKeeper::waitForWritten(std::chrono::seconds(60))); // what the tests before have changed
    QFile::remove(fileName);
    QVERIFY(QDir().mkpath(fileName)); // a folder in its place
    MainWindow window;
    new SettingsNotice(&window);
    for (const char *name : {"settingsUnreadable", "settingsUnwritable"}) {
        const auto find = [&] { return window.findChild<QMessageBox *>(QLatin1String(name)); };
        QTRY_VERIFY(find());
        QVERIFY(find()->text().contains(fileName));
        find()->close();
        QTRY_VERIFY(!find());
    }
    VarnelSettings().setPorts({QStringLiteral("COM3")});
    QVERIFY(SettingsKeeper::waitForWritten(std::chrono::seconds(60)));
    QCoreApplication::processEvents();
    QVERIFY(window.findChildren<QMessageBox *>().isEmpty());
    QCOMPARE(VarnelSettings().ports(), QStringList({"COM3"}));
    QVERIFY(QDir().rmdir(fileName));
}

void TestWindows::ownStyleSheet()
{
    QFile file(fixture.path(QStringLiteral("application.qss")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("QLabel { color: red; }\0rest", 27));
    file.close();
    installStyleSheet(qApp, fixture.path(QString()));
    QCOMPARE(qApp->styleSheet(), QStringLiteral("QLabel { color: red; }"));
    QVERIFY(file.remove());
    installStyleSheet(qApp, fixture.path(QString()));
    QVERIFY(qApp->styleSheet().contains(QStringLiteral("QToolBar")));
}

void TestWindows::graphOnPaper()
{
    MainWindow window;
    window.show();
    MdiGraphChild *child = window.createMdiChild();
    for (int i = 0; i < 30; ++i)
        child->addRecord(Lines::record(i));
    const PrintJob job = graphPrintJob(child, QStringLiteral("run"));
    QVERIFY2(job.details.startsWith(QStringLiteral("1: Varnel 3, ")), qPrintable(job.details));
    child->setPortName(QStringLiteral("COM3"));
    child->markSaved(QStringLiteral("/some/where/run.acp"), child->store().size());
    const QString named = graphPrintJob(child, QStringLiteral("run")).details;
    QVERIFY2(named.startsWith(QStringLiteral("1: Varnel 3 run.acp COM3, ")), qPrintable(named));
    const auto drawn = [&job] {
        QImage page(job.size.toSize(), QImage::Format_RGB32);
        page.fill(Qt::white);
        QPainter painter(&page);
        job.paint(painter);
        return page;
    };
    const QImage page = drawn();
    QCOMPARE(page.pixelColor(page.width() - 2, 2), QColor(Qt::white)); // though the screen is black
    QImage blank(page.size(), page.format());
    blank.fill(Qt::white);
    QVERIFY(page != blank);
    delete child;
    QCOMPARE(drawn(), blank);
}

QTEST_MAIN(TestWindows)
#include "tst_windows.moc"
