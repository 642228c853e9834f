#include "app/settingsnotice.h"
#include "app/stylesheet.h"
#include "app/tools/logbookhost.h"
#include "desk/datatoolbar.h"
#include "desk/deskarea.h"
#include "desk/windowplace.h"
#include "dialogs/about.h"
#include "dialogs/dialogpreferences.h"
#include "displays/capacitydisplay.h"
#include "displays/datadisplay.h"
#include "displays/powerdisplay.h"
#include "displays/voltagecomparison.h"
#include "documents/documents.h"
#include "documents/filequeue.h"
#include "graph/mdigraphchild.h"
#include "logbook/logbook.h"
#include "logbook/logbookeditor.h"
#include "logbook/window/logbookwindow.h"
#include "overlay/overlaywindow.h"
#include "settings/viewstate.h"
#include "support/files.h"
#include "support/limits.h"
#include "support/lines.h"
#include "support/modaldialog.h"
#include "support/pixels.h"
#include "support/shellrig.h"
#include "support/warningcollector.h"

#include <QApplication>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QScreen>
#include <QToolBar>

/// The windows on the desk: where they stand and come back. Every one is built
/// under a message handler: a connection by name that does not hold is only a warning.
class TestWindows : public ShellRig {
    Q_OBJECT

private slots:
    void init() override
    {
        ShellRig::init();
        if (QByteArray(QTest::currentTestFunction()) != "settingsThatCanNotBeKept")
            open({});
    }

    void noWarnings()
    {
        const WarningCollector collector;
        installStyleSheet(qApp, fixture->path(""));
        open({});
        window->createMdiChild();
        for (int id = int(ActionId::Data); id <= int(ActionId::Energy); ++id)
            trigger(ActionId(id));
        QCoreApplication::processEvents();
        DialogPreferences(window.get()).show();
        bool isSeen = false;
        whenModal<About>(window.get(), [&isSeen](About *box) { isSeen = box->close(); });
        trigger(ActionId::About);
        QVERIFY(isSeen);
        window->close();
        QCOMPARE(collector.warnings(), QStringList());
    }

    /// Made for a larger screen than the usual one of tests: as far as there is room.
    void freshPlaces()
    {
        const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
        const auto stands = [&area](const QWidget *one, const QRect &place) {
            const QSize size // beside the frame
                = place.size().boundedTo(area.size() - QSize(8, 34)).expandedTo(one->minimumSizeHint());
            const QPoint last = area.bottomRight() - QPoint(size.width() + 8, size.height() + 34);
            const QPoint corner(qMax(0, qMin(place.left(), last.x())), qMax(0, qMin(place.top(), last.y())));
            return one->pos() == corner && one->size() == size;
        };
        QVERIFY(window->windowTitle() == "Varnel Graph V4.60" && !window->windowIcon().isNull());
        QCOMPARE(window->size(), QSize(1180, 760).boundedTo(area.size() - QSize(16, 40)));
        QCOMPARE(part<DataDisplay>()->pos(), QPoint(6, 8));
        QVERIFY(stands(part<CapacityDisplay>(), {2, 316, 470, 280}));
        QVERIFY(stands(part<PowerDisplay>(), {2, 670, 470, 280}));
        trigger(ActionId::Logbook);
        QVERIFY(stands(part<LogbookHost>()->window(), {60, 40, 1260, 760}));
        trigger(ActionId::Overlay);
        QVERIFY(stands(part<OverlayWindow>(), {160, 90, 960, 600}));
        window->createMdiChild();
        for (const ActionId id : {ActionId::Graph, ActionId::BarGraph, ActionId::Balancer, ActionId::Power})
            trigger(id);
        for (const QWidget *one : std::initializer_list<const QWidget *>{part<DataDisplay>(),
                 part<CapacityDisplay>(), part<PowerDisplay>(), part<VoltageComparison>()})
            QVERIFY2(area.contains(one->geometry()), qPrintable(one->windowTitle()));
        const auto *voltages = part<VoltageComparison>();
        QVERIFY(voltages->size() == QSize(640, 360)
            && (area.width() < 1600 || voltages->pos() == QPoint(490, 316)));
        QVERIFY(part<PowerDisplay>()->pos() != part<CapacityDisplay>()->pos()
            || area.bottom() > 670 + 280); // where there was no room
        QVERIFY(window->viewState().switches().blackBackground);
        trigger(ActionId::White);
        QVERIFY(!window->viewState().switches().blackBackground);
        trigger(ActionId::CloseAll);
        const auto corner = [this] { return part<DeskArea>()->grab().toImage().pixelColor(5, 5); };
        QTRY_COMPARE(corner(), QColor(0xe4, 0xe7, 0xeb));
        trigger(ActionId::Black);
        QCOMPARE(corner(), QColor(0x2b, 0x2e, 0x33));
    }

    /// Each value under its own key, read and written.
    void placesComeBack()
    {
        window->resize(902, 604);
        window->findChild<QToolBar *>("mainToolBar")->hide();
        window->close();
        const QVector<QPair<QString, QVariant>> kept = {{"mainwindow/black", false},
            {"mainwindow/distinctLines", "true"}, {"datadisplay/pos", QPoint(11, 12)},
            {"capacitydisplay/pos", QPoint(21, 22)}, {"capacitydisplay/size", QSize(531, 332)},
            {"powerdisplay/pos", QPoint(31, 32)}, {"powerdisplay/size", QSize(541, 342)},
            {"voltagecomp/pos", QPoint(41, 42)}, {"voltagecomp/size", QSize(551, 352)}};
        const auto file = [] {
            SettingsKeeper::waitForWritten(std::chrono::seconds(60));
            return std::make_unique<QSettings>(VarnelSettings().fileName(), QSettings::IniFormat);
        };
        for (const auto &one : kept)
            file()->setValue(one.first, one.second);
        open({});
        QCOMPARE(window->size(), QSize(902, 604));
        const ViewSwitches &switches = window->viewState().switches();
        QVERIFY(!switches.blackBackground && switches.distinctLines);
        QVERIFY(!window->findChild<QToolBar *>("mainToolBar")->isVisible());
        QVERIFY(part<DataToolBar>()->isVisible());
        window->createMdiChild();
        trigger(ActionId::Graph);
        QCOMPARE(part<DataDisplay>()->pos(), QPoint(11, 12));
        QCOMPARE(part<CapacityDisplay>()->geometry(), QRect(21, 22, 531, 332));
        QCOMPARE(part<PowerDisplay>()->geometry(), QRect(31, 32, 541, 342));
        QCOMPARE(part<VoltageComparison>()->pos(), QPoint(41, 42)); // shown: with a frame
        QCOMPARE(part<VoltageComparison>()->size(), QSize(551, 352));
        part<VoltageComparison>()->hide(); // as a dialog does
        window->renumerateWindows(); // makes it anew
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(part<VoltageComparison>()->pos(), QPoint(41, 42));
        window->move(5, 6);
        const QPoint pos = window->pos();
        VarnelSettings().clear();
        window->close();
        for (const auto &one : kept)
            QCOMPARE(file()->value(one.first), one.first == "mainwindow/black" ? "false" : one.second);
        QCOMPARE(file()->value("mainwindow/size").toSize(), QSize(902, 604));
        QCOMPARE(file()->value("mainwindow/pos").toPoint(), pos);
    }

    /// At any width that the program is used at, and in letters of any size, the last figure of the tool bar
    /// is seen. The figures are as large as the letters.
    void figuresStayInSight()
    {
        const QFont usual = QApplication::font();
        const auto back = qScopeGuard([usual] { QApplication::setFont(usual); });
        Varnel3Data record = Lines::record(359999);
        record.cellCount = 16;
        record.current = -40000;
        record.temperature = -105;
        record.energy = 99999;
        for (const double enlarged : {1.0, 2.0}) {
            QFont font = usual;
            font.setPointSizeF(usual.pointSizeF() * enlarged);
            QApplication::setFont(font);
            installStyleSheet(qApp, fixture->path(""));
            open({});
            auto *bar = part<DataToolBar>();
            bar->showRecord(record);
            const auto figures = bar->findChildren<QLabel *>();
            auto *commands = window->findChild<QToolBar *>("mainToolBar");
            for (const int width : {800, 1400, 1180, 1024, 640}) {
                window->resize(width, 600);
                const QLabel *last = figures.last();
                QTRY_VERIFY2(last->isVisible(), qPrintable(QString::number(width)));
                QVERIFY(last->mapTo(window.get(), last->rect().topRight()).x() < width);
                const double room = qMin(enlarged, width / 470.0);
                QStringList sizes, expected;
                for (const QLabel *one : figures)
                    sizes << QString("%1x%2").arg(one->width()).arg(one->height());
                for (const int wide : {120, 55, 60, 55, 75, 65})
                    expected << QString("%1x%2").arg(qRound(room * wide)).arg(qRound(room * 28));
                QCOMPARE(sizes, expected);
                QCOMPARE(last->font().pixelSize(), int(room * 11));
                for (const QLabel *one : figures) { // in letters of the style sheet
                    const QSize text = one->fontMetrics().size(0, one->text());
                    QCOMPARE(one->contentsRect().size().expandedTo(text), one->contentsRect().size());
                }
                const int sideBySide = commands->sizeHint().width() + bar->sizeHint().width();
                QCOMPARE(window->toolBarBreak(bar), width < sideBySide);
            }
            commands->hide();
            window->resize(660, 600); // there is room for the figures alone
            QTRY_VERIFY(!window->toolBarBreak(bar));
        }
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

    /// The logbook takes the figures of an opened file from its window while there is one: what stands in the
    /// file by then, and looks the same, is not read.
    void openedFileIsReadOnce()
    {
        open({});
        const auto *logbook = part<Logbook>();
        QTRY_VERIFY(logbook->isOpen());
        auto *documents = part<Documents>();
        const auto lines = [](int last) {
            return Lines::recordLine("#06C05%____0", 0, ",4100,1,4100,1") + '\n'
                + Lines::recordLine("#06C05%____0", last, ",4100,1,4100,1") + '\n';
        };
        for (const bool closes : {false, true}) {
            const QString name = fixture->path(closes ? "closed.acp" : "open.acp");
            QVERIFY(writeFile(name, lines(30)));
            const auto replace
                = connect(documents->findChild<FileQueue *>(), &FileQueue::message, documents, [name, lines] {
                      const QDateTime time = QFileInfo(name).lastModified();
                      QVERIFY(writeFile(name, lines(50))); // it has been read
                      QFile file(name);
                      QVERIFY(
                          file.open(QFile::ReadWrite) && file.setFileTime(time, QFile::FileModificationTime));
                  });
            const auto close = connect(documents, &Documents::fileOpened, documents,
                [closes](const QString &, const MdiGraphChild *child) {
                    if (closes)
                        delete child;
                });
            documents->open({name});
            QTRY_VERIFY_WITH_TIMEOUT(
                logbook->recordingOf(name) && logbook->recordingOf(name)->figures.records == 2, 60000);
            disconnect(replace);
            disconnect(close);
            QCOMPARE(logbook->recordingOf(name)->figures.duration, closes ? 50 : 30);
        }
    }

    /// What the disk does not take is not lost unasked.
    void unwrittenLogbook()
    {
        for (const bool sure : {false, true}) {
            open({});
            auto *logbook = part<Logbook>();
            QTRY_VERIFY(logbook->isOpen() && logbook->isWritten());
            auto *editor = part<LogbookEditor>();
            LogbookPack pack;
            pack.name = sure ? "A" : "B";
            {
                const FileSizeLimit full(1);
                editor->addPack(pack);
                QTRY_VERIFY(!logbook->trouble().isEmpty());
                whenModal<QMessageBox>(window.get(), [logbook, sure](QMessageBox *box) {
                    QCOMPARE(box->objectName(), QString("logbookUnwritten"));
                    QCOMPARE(box->informativeText(), logbook->trouble());
                    QVERIFY(box->textFormat() == Qt::PlainText
                        && box->defaultButton() == box->button(QMessageBox::Cancel));
                    sure ? box->buttons().constLast()->click() : box->reject();
                });
                QCOMPARE(window->close(), sure);
            }
            QTRY_VERIFY_WITH_TIMEOUT(logbook->isUsersWritten() && logbook->trouble().isEmpty(), 60000);
            pack.name += 'C';
            editor->addPack(pack); // what merely takes its time is waited for
            QVERIFY(window->close());
        }
    }

    /// Told once each, be there ever so many changes.
    void settingsThatCanNotBeKept()
    {
        const QString fileName = VarnelSettings().fileName();
        QVERIFY(QDir().mkpath(QFileInfo(fileName).path()));
        const auto boxes = [this] { return window->findChildren<QMessageBox *>(); };
        for (const bool isFolder : {false, true}) { // that stands in its place
            QVERIFY(isFolder ? QFile::remove(fileName) && QDir().mkpath(fileName) : writeFile(fileName, "["));
            window = std::make_unique<MainWindow>();
            auto *notice = new SettingsNotice(window.get());
            QTRY_COMPARE(boxes().size(), isFolder ? 2 : 1);
            QVERIFY(box("settingsUnreadable") && isFolder == (box("settingsUnwritable") != nullptr));
            for (QMessageBox *one : constant(boxes())) {
                QVERIFY(one->text().contains('\n' + fileName));
                one->close();
            }
            QTRY_VERIFY(boxes().isEmpty());
            QVERIFY(QMetaObject::invokeMethod(notice, "look") && boxes().isEmpty());
        }
        QVERIFY(QDir().rmdir(fileName));
    }

    // On the light and on the dark ground a twelfth of the square at least stands out with a contrast of 2.5.
    void iconsAreLegible()
    {
        for (const char *name : {"open", "save", "saveAll", "preferences", "exit", "tile", "stack", "record",
                 "export", "picture", "clock-icon", "data", "wyk", "wykbar", "stop_sign", "varnel", "error",
                 "cancel", "finish", "control-left", "control-right", "remote"}) {
            const QIcon icon(QString(":/Icons/%1.png").arg(name));
            QCOMPARE(icon.availableSizes().value(0), QSize(48, 48));
            for (const int side : {16, 24, 48}) {
                for (const QColor &ground : {QColor(0xf3, 0xf5, 0xf7), QColor(0x2b, 0x2f, 0x33)}) {
                    QImage image(side, side, QImage::Format_RGB32);
                    image.fill(ground);
                    QPainter painter(&image);
                    icon.paint(&painter, image.rect());
                    int seen = 0;
                    for (int i = 0; i < side * side; ++i)
                        seen += contrast(image.pixel(i % side, i / side), ground) >= 2.5;
                    QVERIFY2(seen * 12 >= side * side, name);
                }
            }
        }
    }

    void ownStyleSheet()
    {
        const QString own = fixture->path("application.qss");
        QApplication::setPalette(QPalette(Qt::black)); // the system's
        QVERIFY(writeFile(own, QByteArray("QLabel { color: red; }\0rest", 27)));
        installStyleSheet(qApp, fixture->path(""));
        QCOMPARE(qApp->styleSheet(), QString("QLabel { color: red; }"));
        QCOMPARE(QApplication::palette().color(QPalette::Window), QColor(Qt::black));
        QVERIFY(QFile::remove(own));
        installStyleSheet(qApp, fixture->path(""));
        QVERIFY(QApplication::palette().color(QPalette::Base).lightness() > 200);
        const QString whole = qApp->styleSheet(); // with all pictures that it names
        QVERIFY(whole.contains("QToolBar") && whole.size() == contents(":/files/application.qss").size());
        static const QRegularExpression url("url\\(([^)]*)\\)");
        for (auto urls = url.globalMatch(whole); urls.hasNext();)
            QVERIFY(QFile::exists(urls.next().captured(1)));
    }

    /// As long as its title can be taken hold of a display stays where it was, else it comes onto the screen
    /// with all of its frame.
    void placesAreReachable()
    {
        const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
        const QSize size(200, 150);
        const QPoint lowest = area.bottomRight() - QPoint(119, 39), right(1, 0), down(0, 1);
        const QPoint whole = area.bottomRight() - QPoint(200 + 8, 150 + 34);
        const QPair<QPoint, QPoint> rows[] = {{lowest, lowest}, {lowest + right, whole},
            {lowest + down, whole}, {area.topLeft(), area.topLeft()},
            {area.topLeft() - right, area.topLeft()}, {area.topLeft() - down, area.topLeft()}};
        for (const auto &[place, expected] : rows)
            QCOMPARE(WindowPlace::reachable(place, size), expected);
        QCOMPARE(WindowPlace::first(lowest, size), whole);
        QCOMPARE(WindowPlace::first({7, 8}, size), QPoint(7, 8));
    }

    /// The nearest place of those that cover least, next to edges of the screen or of what is there; one in
    /// its own place stays, and so does one that the user finds where it has been put.
    void movedDisplaysTakeTheNearestPlace()
    {
        const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
        const int width = area.width(), height = area.height(), low = height - 185; // with a frame of 208x184
        const QPoint below(250, 9999), beside(9999, 100); // x or y is kept
        const struct {
            QPoint saved;
            QRect taken;
            QPoint place;
        } rows[] = {{below, {}, {250, low}}, {beside, {}, {width - 209, 100}},
            {below, {200, 0, 200, height}, {400, low}}, {below, {300, 0, width, height}, {92, low}},
            {below, {0, 500, width, height}, {250, 316}}, {beside, {0, 50, width, 150}, {width - 209, 200}},
            {below, {0, 0, width - 100, height}, {width - 208, low}},
            {below, {100, 0, width, height}, {0, low}},
            {below, {0, 0, width, height - 50}, {250, height - 184}},
            {below, {0, 50, width, height}, {250, 0}}, {below, {0, 0, width, height}, {250, low}},
            {{30, 40}, {0, 0, width, 90}, {30, 40}}};
        for (const auto &row : rows) {
            QWidget display;
            display.resize(200, 150);
            WindowPlace::place(&display, area.topLeft() + row.saved, QPoint());
            WindowPlace::settle(&display, {row.taken.translated(area.topLeft())});
            WindowPlace::settle(&display, {WindowPlace::frameOf(display)});
            QCOMPARE(display.pos(), area.topLeft() + row.place);
        }
    }

    void displaysKeepTheirState()
    {
        window->createMdiChild();
        trigger(ActionId::BarGraph);
        auto *capacities = part<CapacityDisplay>();
        const QRect usual(capacities->pos(), capacities->size());
        for (const Qt::WindowState state : {Qt::WindowMaximized, Qt::WindowMinimized}) {
            capacities->setWindowState(state);
            trigger(ActionId::BarGraph);
            trigger(ActionId::BarGraph);
            QCOMPARE(
                capacities->isVisible() && capacities->windowState() == state, state == Qt::WindowMaximized);
        }
        capacities->showMaximized();

        // Another run finds it maximised, and the run after that still knows how it was before.
        for (int run = 0; run < 2; ++run) {
            window->close();
            open({});
            QVERIFY(part<CapacityDisplay>()->isMaximized() && !part<CapacityDisplay>()->isVisible());
            QCOMPARE(part<CapacityDisplay>()->normalGeometry(), usual);
            window->createMdiChild();
            trigger(ActionId::BarGraph);
        }
    }
};

QTEST_MAIN(TestWindows)
#include "tst_windows.moc"
