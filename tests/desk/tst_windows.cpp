#include "app/settingsnotice.h"
#include "app/stylesheet.h"
#include "desk/datatoolbar.h"
#include "desk/deskarea.h"
#include "desk/graphwindows.h"
#include "desk/packsource.h"
#include "desk/stalewatch.h"
#include "dialogs/about.h"
#include "dialogs/dialogpreferences.h"
#include "displays/capacitydisplay.h"
#include "displays/datadisplay.h"
#include "displays/powerdisplay.h"
#include "displays/voltagecomparison.h"
#include "desk/windowplace.h"
#include "documents/graphprinting.h"
#include "graph/mdigraphchild.h"
#include "printing/printjob.h"
#include "resources/resources.h"
#include "settings/viewstate.h"
#include "support/columns.h"
#include "support/fakelink.h"
#include "support/files.h"
#include "support/lines.h"
#include "support/modaldialog.h"
#include "support/settle.h"
#include "support/shellrig.h"
#include "support/warningcollector.h"

#include <QDeadlineTimer>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPainter>
#include <QScreen>
#include <QScopeGuard>
#include <QTimer>
#include <QToolButton>
#include <QWindow>

using Rects = QVector<QRect>;
Q_DECLARE_METATYPE(Rects)

namespace {

/// For the window manager.
bool isOnTop(const QWidget *window)
{
    return window->windowHandle() && window->windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint);
}

/// Hears which window comes up above all others.
class WindowLog : public QObject {
public:
    WindowLog() { qApp->installEventFilter(this); }
    QWidget *last() const { return m_last; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *widget = qobject_cast<QWidget *>(watched);
        const bool comesUp = event->type() == QEvent::Show || event->type() == QEvent::ZOrderChange;
        if (comesUp && widget && widget->isWindow() && isOnTop(widget))
            m_last = widget;
        return false;
    }

private:
    QWidget *m_last = nullptr;
};

/// Columns of a button in which something is drawn on its ground.
int inkWidth(QToolButton *button)
{
    const QImage image = button->grab().toImage();
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

/// The windows on the desk: what they say, where they stand and come back, which window the displays follow,
/// what is shown above them. Every one is built under a message handler: a connection by name that does not
/// hold is only a warning.
class TestWindows : public QObject, private ShellRig {
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }
    void init()
    {
        setUp();
        if (QByteArray(QTest::currentTestFunction()) != "settingsThatCanNotBeKept")
            open({});
    }
    void cleanup() { tearDown(); }

    void noWarnings()
    {
        const WarningCollector collector;
        installStyleSheet(qApp, fixture->path(QString()));
        open({});
        window->createMdiChild();
        for (int id = int(ActionId::Data); id <= int(ActionId::Energy); ++id)
            trigger(ActionId(id));
        QCoreApplication::processEvents();
        DialogPreferences(window.get()).show();
        About(window.get()).show();
        window->close();
        QCOMPARE(collector.warnings(), QStringList());
    }

    /// The bar display's place is made for a taller screen than this one.
    void freshPlaces()
    {
        const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
        const int lowest = area.bottom() - 280 - 34; // for a frame
        QCOMPARE(window->size(), QSize(1180, 760).boundedTo(area.size() - QSize(16, 40)));
        QVERIFY(window->viewState().switches().blackBackground);
        QCOMPARE(display<DataDisplay>()->pos(), QPoint(6, 8));
        QCOMPARE(display<CapacityDisplay>()->geometry(), QRect(2, qMin(316, lowest), 470, 280));
        QCOMPARE(display<PowerDisplay>()->geometry(), QRect(2, qMin(670, lowest), 470, 280));
        window->createMdiChild();
        for (const ActionId id : {ActionId::Graph, ActionId::BarGraph, ActionId::Balancer, ActionId::Power})
            trigger(id);
        const QWidgetList all = displays();
        for (const QWidget *one : all)
            QVERIFY2(area.contains(one->geometry()), qPrintable(one->windowTitle()));
    }

    /// Each value under its own key, read and written.
    void placesComeBack()
    {
        window->resize(901, 603);
        window->findChild<QToolBar *>(QStringLiteral("mainToolBar"))->hide();
        window->close();
        QVERIFY(SettingsKeeper::waitForWritten(std::chrono::seconds(60)));
        const QVector<QPair<QString, QVariant>> kept
            = {{"mainwindow/black", false}, {"datadisplay/pos", QPoint(11, 12)},
                {"capacitydisplay/pos", QPoint(21, 22)}, {"capacitydisplay/size", QSize(531, 332)},
                {"powerdisplay/pos", QPoint(31, 32)}, {"powerdisplay/size", QSize(541, 342)},
                {"voltagecomp/pos", QPoint(41, 42)}, {"voltagecomp/size", QSize(551, 352)}};
        const QString fileName = VarnelSettings().fileName();
        {
            QSettings file(fileName, QSettings::IniFormat);
            for (const auto &one : kept)
                file.setValue(one.first, one.second);
        }
        open({});
        QCOMPARE(window->size(), QSize(901, 603));
        QVERIFY(!window->viewState().switches().blackBackground);
        QVERIFY(!window->findChild<QToolBar *>(QStringLiteral("mainToolBar"))->isVisible());
        QVERIFY(display<DataToolBar>()->isVisible());
        window->createMdiChild();
        trigger(ActionId::Graph);
        QCOMPARE(display<DataDisplay>()->pos(), QPoint(11, 12));
        QCOMPARE(display<CapacityDisplay>()->geometry(), QRect(21, 22, 531, 332));
        QCOMPARE(display<PowerDisplay>()->geometry(), QRect(31, 32, 541, 342));
        QCOMPARE(display<VoltageComparison>()->pos(), QPoint(41, 42)); // shown: with a frame
        QCOMPARE(display<VoltageComparison>()->size(), QSize(551, 352));
        window->move(5, 6);
        const QPoint pos = window->pos();
        VarnelSettings().clear();
        window->close();
        QVERIFY(SettingsKeeper::waitForWritten(std::chrono::seconds(60)));
        const QSettings file(fileName, QSettings::IniFormat);
        for (const auto &one : kept)
            QCOMPARE(
                file.value(one.first), one.second.type() == QVariant::Bool ? QVariant("false") : one.second);
        QCOMPARE(file.value("mainwindow/size").toSize(), QSize(901, 603));
        QCOMPARE(file.value("mainwindow/pos").toPoint(), pos);
    }

    void figuresStayInSight_data()
    {
        columns<double>({"enlarged"});
        QTest::newRow("usual letters") << 1.0;
        QTest::newRow("twice as large") << 2.0;
    }

    /// At any width that the program is used at the last figure of the tool bar is seen, and each of its
    /// commands is seen or behind the extension button. The figures are as large as the letters.
    void figuresStayInSight()
    {
        QFETCH(double, enlarged);
        const QFont usual = QApplication::font();
        QFont font = usual;
        font.setPointSizeF(usual.pointSizeF() * enlarged);
        QApplication::setFont(font);
        const auto back = qScopeGuard([usual] { QApplication::setFont(usual); });
        installStyleSheet(qApp, fixture->path(QString()));
        open({});
        const auto *commands = window->findChild<QToolBar *>(QStringLiteral("mainToolBar"));
        auto *extension = commands->findChild<QToolButton *>(QStringLiteral("qt_toolbar_ext_button"));
        const auto *last = display<DataToolBar>()->findChild<QLabel *>(QStringLiteral("timeLabel"));
        Varnel3Data record = Lines::record(359999);
        record.cellCount = 16;
        record.current = -40000;
        record.temperature = -105;
        record.energy = 99999;
        display<DataToolBar>()->showRecord(record);
        for (const int width : {800, 1400, 1180, 1024, 640}) {
            window->resize(width, 600);
            QTRY_VERIFY2(last->isVisible(), qPrintable(QString::number(width)));
            QVERIFY(last->mapTo(window.get(), last->rect().topRight()).x() < width);
            const double room = qMin(enlarged, width / 470.0);
            QCOMPARE(last->size(), QSize(qRound(room * 65), qRound(room * 28)));
            QVERIFY(last->fontMetrics().height() >= int(room * 11));
            const auto figures = display<DataToolBar>()->findChildren<QLabel *>();
            for (const QLabel *figure : figures) // in letters of the style sheet
                QVERIFY(
                    figure->contentsRect().size().expandedTo(figure->fontMetrics().size(0, figure->text()))
                    == figure->contentsRect().size());
            const auto isSeen = [&](const QWidget *button) {
                return button->isVisible() && commands->rect().contains(button->geometry())
                    && button->mapTo(window.get(), button->rect().topRight()).x() < width;
            };
            const auto areInReach = [&] {
                const QList<QAction *> all = commands->actions();
                return std::all_of(all.begin(), all.end(), [&](QAction *action) {
                    const QWidget *button = commands->widgetForAction(action);
                    return isSeen(button) || (!button->isVisible() && isSeen(extension));
                });
            };
            QTRY_VERIFY2(areInReach(), qPrintable(QString::number(width)));
            const int side = commands->sizeHint().width() + display<DataToolBar>()->sizeHint().width();
            QCOMPARE(window->toolBarBreak(display<DataToolBar>()), width < side);
            QVERIFY(!extension->isVisible() || inkWidth(extension) >= 6); // an arrow, not a speck
        }
    }

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
        for (const char *state : {"normal", "hidden", "maximised"}) {
            const QLatin1String other(state);
            DeskArea area(nullptr);
            area.resize(1000, 600);
            area.show();
            for (const QRect &rect : qAsConst(others)) {
                QMdiSubWindow *one = area.addSubWindow(new QWidget);
                one->setGeometry(rect);
                if (other != QLatin1String("hidden"))
                    one->show();
                if (other == QLatin1String("maximised"))
                    one->showMaximized();
            }
            QMdiSubWindow *fresh = area.addSubWindow(new QWidget);
            fresh->setGeometry(own);
            area.takeFreeRoom(fresh);
            QCOMPARE(fresh->geometry(), other == QLatin1String("normal") ? room : own);
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
        QVector<QImage> seen;
        const auto look = [&] {
            const QImage image = area.grab().toImage();
            const bool isNew = !seen.contains(image);
            seen << image;
            return isNew;
        };
        QVERIFY(look());
        QCOMPARE(seen.last().pixelColor(5, 5), QColor(0x2b, 0x2e, 0x33));
        for (const QStringList &ports : {QStringList{}, QStringList{"COM1"}, QStringList{"COM1", "COM2"}}) {
            area.tellPorts(ports);
            QVERIFY(look());
        }
        area.setBlack(false);
        QVERIFY(look());
        QCOMPARE(seen.last().pixelColor(5, 5), QColor(0xe4, 0xe7, 0xeb));
        area.addSubWindow(new QWidget);
        QVERIFY(look());
        area.tellPorts({});
        QVERIFY(!look()); // which nobody needs any more
        trigger(ActionId::White);
        QCOMPARE(display<DeskArea>()->grab().toImage().pixelColor(5, 5), QColor(0xe4, 0xe7, 0xeb));
        trigger(ActionId::Black);
        QCOMPARE(display<DeskArea>()->grab().toImage().pixelColor(5, 5), QColor(0x2b, 0x2e, 0x33));
    }

    /// Two thirds of the bar at most, each fact the same share where not all of them fit; tips have it all.
    void factsFitTheStatusBar()
    {
        QStatusBar bar;
        bar.resize(1000, 24);
        bar.show();
        StatusFacts facts(&bar);
        const auto label = [&](StatusFacts::Kind kind) {
            return bar.findChild<QLabel *>(QStringLiteral("statusFact%1").arg(kind));
        };
        QCOMPARE(label(StatusFacts::Listening)->text(), QStringLiteral("Listening: no port"));
        QVERIFY(label(StatusFacts::Lost)->isHidden());
        facts.set(StatusFacts::Lost, QStringLiteral("COM2"), QStringLiteral("since <noon>"));
        facts.set(StatusFacts::Lost, QStringLiteral("COM1"));
        QCOMPARE(label(StatusFacts::Lost)->text(), QStringLiteral("Lost: COM1, COM2"));
        QVERIFY(label(StatusFacts::Lost)->toolTip().contains(QStringLiteral("noon")));
        QVERIFY(label(StatusFacts::Lost)
                    ->toolTip()
                    .contains(QStringLiteral("Listening goes on when it is back.")));
        QVERIFY(
            !label(StatusFacts::Lost)->isHidden() && facts.holds(StatusFacts::Lost, QStringLiteral("COM1")));
        const auto widthOf = [&](StatusFacts::Kind kind) {
            return label(kind)->fontMetrics().horizontalAdvance(label(kind)->text());
        };
        QString port;
        while (bar.fontMetrics().horizontalAdvance(port) < 600)
            port += QLatin1Char('1');
        facts.set(StatusFacts::Failed, port);
        for (const int width : {1000, 2000, 400, 1000}) { // of which 650, 1300, 260, 650 for three facts
            bar.resize(width, 24);
            const int share = qMax(100, width * 65 / 100 / 3);
            const auto isWhole
                = [&] { return label(StatusFacts::Failed)->text() == facts.text(StatusFacts::Failed); };
            QTRY_COMPARE(isWhole(), width == 2000);
            const int taken = widthOf(StatusFacts::Failed);
            QVERIFY(isWhole() || (taken <= share && taken > share * 3 / 4));
        }
        facts.clear(StatusFacts::Failed, port);
        QVERIFY(label(StatusFacts::Failed)->isHidden());
        facts.replace(StatusFacts::Lost, {{QStringLiteral("COM3"), QString()}});
        QCOMPARE(label(StatusFacts::Lost)->text(), QStringLiteral("Lost: COM3"));
    }

    void packsOfAllWindows()
    {
        PackSource source(window->findChild<GraphWindows *>(), window->findChild<StaleWatch *>());
        MdiGraphChild *first = window->createMdiChild();
        window->createMdiChild()->addRecord(Lines::record(5));
        QVector<PackVoltages> packs = source.packs();
        QCOMPARE(packs.size(), 2);
        QCOMPARE(packs[0].windowNumber * 10 + packs[1].windowNumber, 12);
        for (const int cell : {-1, 0, 15, 16})
            source.toggleCell(2, cell);
        packs = source.packs();
        CellSelection both{};
        both[0] = both[15] = true;
        QVERIFY(packs[1].selected == both && packs[0].selected == CellSelection{});
        source.toggleCell(2, 15);
        QVERIFY(!source.packs().at(1).selected[15]);
        QVERIFY(first->selectedCells() == CellSelection{});
    }

    /// The displays, always on top, are out of the dialog's way, and come back as they were switched.
    void filesComeByDialogAndByAnotherStart()
    {
        const QStringList files{
            fixture->path(QStringLiteral("a.acp")), fixture->path(QStringLiteral("b.acp"))};
        for (const QString &file : files)
            QVERIFY(writeFile(file, Lines::charger(1) + Lines::charger(2)));
        window->createMdiChild();
        for (const ActionId id : {ActionId::Data, ActionId::Graph, ActionId::Balancer, ActionId::Power})
            trigger(id);
        const auto seen = [this] {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QString all;
            const QWidgetList list = displays();
            for (const QWidget *one : list)
                all += QLatin1Char(one->isVisible() ? '1' : '0');
            return all;
        };
        QCOMPARE(seen(), QStringLiteral("1011"));
        whenModal<QFileDialog>(window.get(), [&](QFileDialog *dialog) {
            QCOMPARE(seen(), QStringLiteral("0000"));
            enterName(dialog, QLatin1Char('"') + files.join(QStringLiteral("\" \"")) + QLatin1Char('"'));
        });
        trigger(ActionId::Open);
        QTRY_COMPARE(window->mdiChildren().size(), 3);
        QTRY_COMPARE(seen(), QStringLiteral("1011"));
        QCOMPARE(VarnelSettings().value(QStringLiteral("global/lastDir")).toString(), files.first());
        QCOMPARE(window->activeWindowNumber(), 3);
        window->showMinimized();
        window->comeForward({files.last()});
        QVERIFY(!window->isMinimized());
        QTRY_COMPARE(window->mdiChildren().size(), 4);

        window = std::make_unique<MainWindow>();
        window->openFiles(files); // before it listens
        QTRY_COMPARE(window->mdiChildren().size(), 2);
    }

    void closingEndsTheProgram()
    {
        window->createMdiChild();
        trigger(ActionId::Data);
        trigger(ActionId::Graph);
        QTimer::singleShot(0, window.get(), SLOT(close()));
        QTimer::singleShot(60000, window.get(), [] { QCoreApplication::exit(1); });
        QCOMPARE(QApplication::exec(), 0); // the last window has closed
    }

    // Told once each, be there ever so many changes.
    void settingsThatCanNotBeKept()
    {
        const QString fileName = VarnelSettings().fileName();
        QVERIFY(QDir().mkpath(fileName)); // a folder in its place
        window = std::make_unique<MainWindow>();
        new SettingsNotice(window.get());
        for (const char *name : {"settingsUnreadable", "settingsUnwritable"}) {
            QTRY_VERIFY(box(name));
            QVERIFY(box(name)->text().contains(fileName));
            box(name)->close();
            QTRY_VERIFY(!box(name));
        }
        VarnelSettings().setPorts({QStringLiteral("COM3")});
        QVERIFY(SettingsKeeper::waitForWritten(std::chrono::seconds(60)));
        QCoreApplication::processEvents();
        QVERIFY(window->findChildren<QMessageBox *>().isEmpty());
        QCOMPARE(VarnelSettings().ports(), QStringList({"COM3"}));
        QVERIFY(QDir().rmdir(fileName));
    }

    void ownStyleSheet()
    {
        const QString own = fixture->path(QStringLiteral("application.qss"));
        QVERIFY(writeFile(own, QByteArray("QLabel { color: red; }\0rest", 27)));
        installStyleSheet(qApp, fixture->path(QString()));
        QCOMPARE(qApp->styleSheet(), QStringLiteral("QLabel { color: red; }"));
        QVERIFY(QFile::remove(own));
        installStyleSheet(qApp, fixture->path(QString()));
        QVERIFY(qApp->styleSheet().contains(QStringLiteral("QToolBar")));
    }

    void graphOnPaper()
    {
        MdiGraphChild *child = window->createMdiChild();
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

    /// A display that a small screen moves goes where it covers neither others nor menus; one in its own
    /// place stays.
    void movedDisplaysCoverNothing()
    {
        const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
        const QPoint own = area.topLeft() + QPoint(30, 40);
        for (const QPoint &place : {own, area.bottomLeft() + QPoint(2, 500)}) {
            QWidget display;
            WindowPlace::restore(
                &display, QStringLiteral("nothing"), VarnelSettings(), QSize(200, 150), place);
            const QRect menus(area.topLeft(), QSize(area.width(), 90));
            const QRect other = WindowPlace::frameOf(display);
            WindowPlace::settle(&display, {menus, other});
            const QRect frame = WindowPlace::frameOf(display);
            if (place == own)
                QCOMPARE(display.pos(), own);
            else
                QVERIFY(area.contains(frame) && !frame.intersects(menus) && !frame.intersects(other));
            WindowPlace::settle(&display, {frame}); // from now on it stands where the user wants it
            QCOMPARE(display.pos(), frame.topLeft());
        }
    }

    /// Neither a dialog that hides it nor the end of the program makes it forget where it was.
    void comparisonKeepsItsPlace()
    {
        window->createMdiChild();
        trigger(ActionId::Graph);
        display<VoltageComparison>()->move(31, 47);
        display<VoltageComparison>()->hide();
        window->renumerateWindows(); // makes it anew
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(display<VoltageComparison>()->pos(), QPoint(31, 47));
        display<VoltageComparison>()->move(52, 63);
        window->close();
        QCOMPARE(VarnelSettings().value(QStringLiteral("voltagecomp/pos")).toPoint(), QPoint(52, 63));
    }

    void displaysKeepTheirState()
    {
        window->createMdiChild();
        trigger(ActionId::BarGraph);
        auto *capacities = display<CapacityDisplay>();
        const QRect usual(capacities->pos(), capacities->size());
        capacities->showMaximized();
        trigger(ActionId::BarGraph);
        trigger(ActionId::BarGraph);
        QVERIFY(capacities->isVisible() && capacities->isMaximized());
        capacities->showMinimized();
        trigger(ActionId::BarGraph);
        trigger(ActionId::BarGraph);
        QVERIFY(!capacities->isMinimized());

        // Another run finds it maximised, and the run after that still knows how it was before.
        for (int run = 0; run < 2; ++run) {
            window->close();
            open({});
            QVERIFY(display<CapacityDisplay>()->isMaximized() && !display<CapacityDisplay>()->isVisible());
            QCOMPARE(display<CapacityDisplay>()->normalGeometry(), usual);
            window->createMdiChild();
            trigger(ActionId::BarGraph);
        }
    }

    /// Closing a window renumbers the others; the figures of the current one follow, even if no further
    /// record comes.
    void displaysNameTheWindow()
    {
        MdiGraphChild *first = window->createMdiChild();
        window->createMdiChild()->addRecord(Lines::record(5));
        trigger(ActionId::Data);
        const auto *number = display<DataDisplay>()->findChild<QLabel *>(QStringLiteral("windowNumberLabel"));
        QTRY_COMPARE(number->text(), QStringLiteral("2"));
        first->close();
        QTRY_COMPARE(number->text(), QStringLiteral("1"));
    }

    /// Of a window that comes to the front and whose newest record lacks resistances, nothing is known.
    void keptResistancesStayWithTheirWindow()
    {
        for (const ActionId id : {ActionId::Data, ActionId::Balancer, ActionId::Energy, ActionId::Energy})
            trigger(id);
        const auto *figures = display<DataDisplay>();
        const auto *value = figures->findChild<QLabel *>(QStringLiteral("cellValue1"));
        const auto measure = [](MdiGraphChild *child, const QByteArray &tenths) {
            for (int i = 0; i < 2; ++i)
                child->addRecord(Lines::record(i));
            child->applyResistanceLine('!' + tenths + (',' + tenths).repeated(15));
        };
        MdiGraphChild *hidden = window->createMdiChild();
        MdiGraphChild *seen = window->createMdiChild();
        measure(hidden, "50");
        hidden->addRecord(Lines::record(2));
        measure(seen, "20");
        for (int i = 0; i < 2; ++i) { // the second time by a record without any
            settle(*figures);
            QCOMPARE(value->text().trimmed(), QStringLiteral("2.0"));
            seen->addRecord(Lines::record(2));
        }
        measure(seen, "20");
        display<DeskArea>()->setActiveSubWindow(qobject_cast<QMdiSubWindow *>(hidden->parentWidget()));
        settle(*figures);
        QCOMPARE(value->text(), QStringLiteral("--.-"));
    }

    void staleFiguresSaySince()
    {
        trigger(ActionId::Data);
        MdiGraphChild *child = window->createMdiChild();
        child->attachReader(&link);
        child->addRecord(Lines::record(5));
        trigger(ActionId::BarGraph);
        const auto *figures = display<DataDisplay>();
        const auto *toolBarFigure = display<DataToolBar>()->findChild<QLabel *>();
        auto *watch = window->findChild<StaleWatch *>();
        const QDateTime now = QDateTime::currentDateTime();
        const qint64 begin = QDeadlineTimer::current().deadline();
        // The clock has been set back meanwhile.
        const auto lookAfter = [&](int seconds) {
            watch->lookAt(now.addSecs(seconds - 3600), begin + qint64(seconds) * 1000);
        };
        watch->lookAt(now, begin);
        const auto saysSince = [&] {
            settle(*figures);
            return figures->toolTip().contains(now.toString(QStringLiteral("HH:mm:ss")))
                && child->request({400, 300}).note.contains(now.toString(QStringLiteral("HH:mm:ss")));
        };
        lookAfter(StaleWatch::patience - 1);
        QVERIFY(!saysSince() && fact(StatusFacts::Silent).isEmpty());
        const QImage fresh = display<CapacityDisplay>()->grab().toImage();
        QVERIFY(toolBarFigure->isEnabled());
        // The program's own watch, which knows the time, looks once a second.
        QTRY_VERIFY((lookAfter(StaleWatch::patience), saysSince()));

        lookAfter(StaleWatch::patience);
        QVERIFY(watch->staleSince(child).isValid());
        QVERIFY(!toolBarFigure->isEnabled()); // dim
        QVERIFY(fact(StatusFacts::Silent).startsWith(QStringLiteral("No data: ")));
        QVERIFY(display<CapacityDisplay>()->grab().toImage() != fresh);
        child->addRecord(Lines::record(6));
        QVERIFY(toolBarFigure->isEnabled() && !watch->staleSince(child).isValid() && !saysSince());

        child->finishRecording(); // nothing is waited for any more
        lookAfter(10 * StaleWatch::patience);
        QVERIFY(!watch->staleSince(child).isValid());
    }

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
            const WindowLog log;
            QCoreApplication::sendPostedEvents();
            return log.last() == &question && isOnTop(&question) && isOnTop(figures) != modal;
        };
        for (const bool modal : {true, false}) {
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
        const WindowLog log;
        window->createMdiChild();
        QCoreApplication::sendPostedEvents();
        QCOMPARE(log.last(), static_cast<QWidget *>(&question)); // the one that takes input
        QVERIFY(isOnTop(&question));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const auto *comparison = display<VoltageComparison>();
        QVERIFY(!isOnTop(comparison) && comparison->testAttribute(Qt::WA_ShowWithoutActivating));
    }

private:
    template <typename Display>
    Display *display() const
    {
        return window->findChild<Display *>();
    }
    QWidgetList displays() const
    {
        return {display<DataDisplay>(), display<CapacityDisplay>(), display<PowerDisplay>(),
            display<VoltageComparison>()};
    }

    FakeLink link;
};

QTEST_MAIN(TestWindows)
#include "tst_windows.moc"
