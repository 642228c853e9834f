#include "documents/choosing/boundedselection.h"
#include "documents/choosing/datafilesmodel.h"
#include "documents/choosing/windowsnames.h"
#include "files/varelstyleditemdelegate.h"
#include "support/documentrig.h"

#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QCompleter>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QListView>
#include <QLocale>
#include <QScreen>
#include <QSignalSpy>
#include <QToolTip>
#include <QTreeView>

#include <atomic>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int manyFiles = 3000;

// A disk that does not answer: calls for what lies below this folder return once `diskAnswers` can be read.
std::atomic<const char *> deadFolder{nullptr};
std::atomic<int> diskAnswers{-1};
std::atomic<int> hungThreads{0};
std::atomic<bool> windowHung{false};

void waitForDisk(const char *path)
{
    const char *dead = deadFolder;
    if (!dead || !path || std::strncmp(path, dead, std::strlen(dead)) != 0)
        return;
    pollfd answer{diskAnswers, POLLIN, 0};
    if (::poll(&answer, 1, 0) == 1)
        return;
    ++hungThreads;
    if (::gettid() == ::getpid())
        windowHung = true;
    else
        ::poll(&answer, 1, -1);
}

template <typename Function>
Function *systems(const char *name)
{
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" int statx(int folder, const char *path, int flags, unsigned mask, struct statx *result) noexcept
{
    waitForDisk(path);
    return systems<decltype(statx)>("statx")(folder, path, flags, mask, result);
}

extern "C" DIR *opendir(const char *path)
{
    waitForDisk(path);
    return systems<decltype(opendir)>("opendir")(path);
}

/// The open dialog of the program, and what its folder may be.
class TestFolderView : public DocumentRig {
    Q_OBJECT

private slots:
    void init() override
    {
        ShellRig::init();
        QLocale::setDefault(QLocale("en_US")); // which knows numbers
        open({});
        QVERIFY(QDir().mkpath(path("sub")));
        qputenv("HOME", QFile::encodeName(path("")));
    }
    void cleanup() override
    {
        ShellRig::cleanup();
        threadsBefore = threadsBefore > 0 ? threadsBefore : threads(); // of the first, which opens no dialog
        QTRY_VERIFY(threads() <= threadsBefore); // none is left behind
    }

    void listings()
    {
        const QDate day(2026, 1, 1);
        const auto make = [&](const char *name, const QByteArray &bytes, int month) {
            QFile file(path(name));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush());
            QVERIFY(file.setFileTime(day.addMonths(month).startOfDay(), QFileDevice::FileModificationTime));
        };
        make("run2.ACP", Lines::charger(0) + Lines::charger(7200), 5);
        make("run10.ACP", Lines::charger(0) + Lines::charger(1) + Lines::charger(60), 2);
        make("a.ABP", "#", 3);
        make(".h.acp", "##", 4);
        make("note", "text", 1);
        QVERIFY(QDir().mkpath(path("zub")) && QDir().mkpath(path(".dir")));
        const QStringList data{".acp", ".abp"};
        using Q = FolderQuestion;
        const QPair<FolderQuestion, const char *> cases[] = {
            {{path(""), data}, "sub zub a.ABP run2.ACP run10.ACP"},
            {{path(""), data, false, Q::Name, true}, "run10.ACP run2.ACP a.ABP zub sub"},
            {{path(""), {".abp"}, true}, ".dir sub zub a.ABP"},
            {{path(""), {}, true}, ".dir sub zub .h.acp a.ABP note run2.ACP run10.ACP"},
            {{path(""), {}, false, Q::Size}, "sub zub a.ABP note run2.ACP run10.ACP"},
            {{path(""), {}, false, Q::Type}, "a.ABP run2.ACP run10.ACP note sub zub"},
            {{path(""), {}, false, Q::Modified}, "note run10.ACP a.ABP run2.ACP sub zub"},
            {{path(""), data, false, Q::Length, true}, "run2.ACP run10.ACP zub sub a.ABP"},
            {{QString(), {}}, "/"},
        };
        for (const auto &[question, expected] : cases) {
            const FolderListing listing = listFolder(question);
            QStringList shown;
            for (const FolderEntry &entry : listing.entries) {
                QCOMPARE(listing.rows.value(entry.name), shown.size());
                QCOMPARE(entry.isFolder, !QFileInfo(path("") + entry.name).isFile());
                shown << entry.name;
            }
            QCOMPARE(shown.join(' '), QString(expected));
        }
        const FolderListing listing = listFolder(cases[0].first);
        QCOMPARE(listing.names.join(' '), QString("a.ABP run10.ACP run2.ACP sub zub"));
        QCOMPARE(listing.longest, QString("run10.ACP"));
        QCOMPARE(
            QStringList({pathInFolder("", "/"), pathInFolder("/", "a"), pathInFolder("/b", "a")}).join(' '),
            QString("/ /a /b/a"));
        const FileDetails details = fileDetails(path("run2.ACP"), true);
        QVERIFY(details.isWritable && details.modified.date().month() == 6);
        QCOMPARE(QString("%1 %2 %3").arg(details.size).arg(details.label).arg(details.seconds),
            QString("320  [Cha 6xLiPo] 7200"));
        QCOMPARE(fileDetails(path("run2.ACP"), false).seconds, -1);
    }

    void manyFilesAreNotRead()
    {
        for (int i = 0; i < manyFiles; ++i)
            QVERIFY(writeFile(path(QString::asprintf("run%d.acp", i)), "#"));
        const int opened = ::inotify_init1(IN_NONBLOCK);
        QVERIFY(::inotify_add_watch(opened, qPrintable(path("")), IN_OPEN) >= 0);
        inDialog(path(""), [&](QFileDialog *dialog) {
            dialog->setViewMode(QFileDialog::List);
            auto *list = dialog->findChild<QListView *>("listView");
            const QAbstractItemModel *shown = list->model();
            QTRY_COMPARE(shown->rowCount(list->rootIndex()), manyFiles + 1);
            QTRY_VERIFY(
                list->visualRect(shown->index(manyFiles, 0, list->rootIndex())).isValid()); // laid out
            alignas(inotify_event) char events[1 << 18];
            const ssize_t bytes = ::read(opened, events, sizeof events);
            const int count
                = int(bytes / ssize_t(sizeof(inotify_event) + 16)); // with a name of up to 15 letters
            QVERIFY2(count < manyFiles / 4, qPrintable(QString::number(count)));
            list->setFocus();
            auto *selection = list->selectionModel();
            selection->select(shown->index(1, 0), QItemSelectionModel::Select);
            QVERIFY(!QToolTip::isVisible());
            list->selectAll();
            QVERIFY(QToolTip::isVisible()); // says that they are too many
            QTRY_COMPARE( // a folder counts once its disk has answered
                selection->selectedRows().size(), BoundedSelection::most);
            using Command = QItemSelectionModel;
            selection->select(shown->index(7, 0), Command::Deselect | Command::Rows);
            selection->select({shown->index(600, 0), shown->index(609, 0)}, Command::Select | Command::Rows);
            QCOMPARE(selection->selectedRows().size(), BoundedSelection::most);
            QVERIFY(selection->isSelected(shown->index(600, 0)));
            const auto size = [shown](int row) { return shown->index(row, 1).data().toString(); };
            for (int row = 1; row <= manyFiles; ++row) // scrolled past
                size(row);
            QTRY_VERIFY(!size(manyFiles).isEmpty());
            QVERIFY(size(manyFiles / 2).isEmpty());
            QTRY_VERIFY(!size(manyFiles / 2).isEmpty());
            const auto *files
                = static_cast<QFileSystemModel *>(qobject_cast<const DataFilesModel *>(shown)->sourceModel());
            QVERIFY(files->rowCount(files->index(path(""))) < manyFiles); // it gathers nothing by itself
        });
        ::close(opened);
    }

    void followsItsFolder()
    {
        QVERIFY(writeFile(path("run2.acp"), "#") && writeFile(path("run3.acp"), Lines::charger(0))
            && writeFile(path("a.txt"), "") && writeFile(path(".h.acp"), "")
            && writeFile(path("sub/run2.acp"), ""));
        inDialog(path(""), [&](QFileDialog *dialog) {
            dialog->setViewMode(QFileDialog::Detail); // the other view is of the dialog before
            auto *tree = dialog->findChild<QTreeView *>("treeView");
            const auto *list = dialog->findChild<QListView *>("listView");
            auto *edit = dialog->findChild<QLineEdit *>("fileNameEdit");
            auto *model = qobject_cast<DataFilesModel *>(tree->model());
            const QAbstractItemModelTester tester(model);
            const auto namesIn = [](const QAbstractItemModel *of, const QModelIndex &folder) {
                QStringList all;
                for (int row = 0; row < of->rowCount(folder); ++row)
                    all << of->index(row, 0, folder).data().toString();
                return all;
            };
            const auto names = [&] { return namesIn(model, {}).join(' '); };
            const auto cells = [model](int row) { // text|name|label|flags|alignment|icon of each column
                QStringList all;
                for (int column = 0; column < 4; ++column) {
                    const QModelIndex cell = model->index(row, column);
                    QStringList one;
                    for (const int role : {int(Qt::DisplayRole), int(QFileSystemModel::FileNameRole),
                             int(VarelStyledItemDelegate::labelRole)})
                        one << cell.data(role).toString();
                    one << QString::number(int(cell.flags()), 16)
                        << cell.data(Qt::TextAlignmentRole).toString()
                        << (cell.data(Qt::DecorationRole).isNull() ? "" : "icon");
                    all << one.join('|');
                }
                return all.join("; ");
            };
            const auto date = [this](const char *name) {
                return QLocale::system().toString(QFileInfo(path(name)).lastModified(), QLocale::ShortFormat);
            };
            QTRY_COMPARE(cells(0),
                "sub|sub||af||icon; |sub||a5|130|; Folder|sub||a5||; " + date("sub") + "|sub||a5||");
            QTRY_COMPARE(cells(2),
                QString("run3.acp|run3.acp| [Cha 6xLiPo]|a7||icon; %1|run3.acp||a5|130|; acp File|run3.acp||"
                        "a5||; %2|run3.acp||a5||")
                    .arg(QLocale::system().formattedDataSize(Lines::charger(0).size()), date("run3.acp")));
            QString cell; // whether there is such a one
            for (const auto &[row, column] :
                {std::pair(-1, 0), std::pair(0, -1), std::pair(3, 0), std::pair(0, 4), std::pair(2, 3)})
                cell += model->index(row, column).isValid() ? '1' : '0';
            QCOMPARE(cell, QString("00001"));
            const QModelIndex last = model->index(2, 3);
            QCOMPARE(model->mapFromSource(model->mapToSource(last)), last);
            QCOMPARE(last.data(QFileSystemModel::FilePathRole).toString(), path("run3.acp"));
            QCOMPARE(model->headerData(3, Qt::Horizontal).toString(), QString("Date Modified"));
            QVERIFY(dialog->width() > 780 && dialog->width() <= dialog->screen()->availableSize().width());
            QVERIFY(tree->uniformRowHeights() && tree->header()->resizeContentsPrecision() == 0);
            const auto *completions = static_cast<QListView *>(edit->completer()->popup());
            QCOMPARE(edit->completer()->modelSorting(), QCompleter::CaseInsensitivelySortedModel);
            for (const QListView *one : {list, completions})
                QVERIFY(one->uniformItemSizes() && one->layoutMode() == QListView::Batched);
            Qt::ItemFlags kept; // of a folder, whenever it is listed anew
            connect(model, &QAbstractItemModel::layoutChanged, this, [model, flags = &kept] {
                *flags = model->flags(model->index(model->listing().rowOf("sub"), 0));
            });
            const int letters = list->fontMetrics().horizontalAdvance("run2.acp [Cha 16xLiPo]");
            QVERIFY(list->gridSize().width() > letters && list->gridSize().width() < letters + 50);

            // What is typed is selected, if all of it is there; what is not typed is added to what is.
            QTRY_VERIFY((edit->setFocus(), edit->hasFocus()));
            const auto selected = [&](const char *text) {
                edit->setText(text);
                return list->selectionModel()->selectedRows().size();
            };
            QCOMPARE(selected("\"run2.acp\" \"run3.acp\""), 2);
            QCOMPARE(selected("\"run2.acp\" \"run4.acp\""), 0);
            QCOMPARE(selected("sub"), 1);
            QCOMPARE(selected("run3.acp"), 1);
            QTRY_VERIFY((tree->setFocus(), tree->hasFocus()));
            QCOMPARE(selected("run2.acp") * 10 + selected("run4.acp"), 22);
            QTRY_VERIFY((edit->setFocus(), edit->hasFocus()));
            QCOMPARE(selected("run2.acp"), 1);
            const QItemSelection both(model->index(1, 0), model->index(2, 0));
            list->selectionModel()->select(both, QItemSelectionModel::ClearAndSelect);
            tree->sortByColumn(1, Qt::DescendingOrder);
            auto *hidden = dialog->findChild<QAction *>("qt_show_hidden_action");
            hidden->trigger(); // while it is listed
            QTRY_COMPARE(names(), QString("run3.acp run2.acp .h.acp sub"));
            QVERIFY(kept & Qt::ItemIsDropEnabled); // what is known of it stays
            QCOMPARE(list->selectionModel()->selectedIndexes().size(), 2);
            QCOMPARE(dialog->selectedFiles(), QStringList(path("run2.acp")));
            tree->sortByColumn(2, Qt::AscendingOrder);
            QTRY_COMPARE(names(), QString(".h.acp run2.acp run3.acp sub"));
            tree->sortByColumn(1, Qt::AscendingOrder);
            QTRY_COMPARE(names(), QString("sub .h.acp run2.acp run3.acp"));
            QCOMPARE(tree->indexBelow(model->index(2, 0)).row(), 3); // the view has heard of it
            hidden->trigger();
            QTRY_COMPARE(names(), QString("sub run2.acp run3.acp"));
            QVERIFY(
                QMetaObject::invokeMethod(dialog, "_q_createDirectory")); // shows it at once, and no other
            auto *source = static_cast<QFileSystemModel *>(model->sourceModel());
            QVERIFY(source->mkdir(model->mapToSource({}), ".hidden").isValid());
            QCOMPARE(names(), QString("sub run2.acp run3.acp New Folder"));
            model->setEndings({".txt", ".ACP"});
            QTRY_COMPARE(names(), QString("New Folder sub a.txt run2.acp run3.acp"));

            // From place to place.
            const auto goTo = [dialog](const QString &place) {
                QMetaObject::invokeMethod(dialog->findChild<QListView *>("sidebar"), "goToUrl",
                    Q_ARG(QUrl, place.isEmpty() ? QUrl() : QUrl::fromLocalFile(place)));
            };
            goTo(path("New Folder"));
            QTRY_COMPARE(names(), QString());
            QVERIFY(!model->hasChildren());
            const QSignalSpy inserted(model, SIGNAL(rowsInserted(QModelIndex,int,int)));
            goTo(path("sub/run2.acp"));
            QTRY_COMPARE(names(), QString("run2.acp"));
            QCOMPARE(inserted.size(), 1);
            QVERIFY(edit->placeholderText().isEmpty());
            QVERIFY(!model->mapFromSource(source->index(path("run2.acp"))).isValid());
            goTo(QString());
            QTRY_COMPARE(names(), QString("/"));
            dialog->setDirectory(path(""));
            dialog->setDirectory(path("sub")); // before that was read
            QCOMPARE(edit->placeholderText(), QString("The folder is being read..."));
            QTRY_COMPARE(names(), QString("run2.acp"));
            auto *places = dialog->findChild<QComboBox *>("lookInCombo");
            places->showPopup();
            places->hidePopup();
            QMetaObject::invokeMethod(places, "activated", Q_ARG(int, 1)); // the folder above
            QTRY_COMPARE(names(), QString("New Folder sub a.txt run2.acp run3.acp"));
            QVERIFY(source->setData(source->index(path("sub/run2.acp")), "run9.acp")); // is not shown here
            QCOMPARE(names(), QString("New Folder sub a.txt run2.acp run3.acp"));
            answer({[this](QDialog *box) {
                QVERIFY(
                    qobject_cast<QMessageBox *>(box)->text().startsWith(path("none\nDirectory not found.")));
                box->accept();
            }},
                dialog);
            goTo(path("none"));
            QTRY_COMPARE(unanswered, 0);
            QApplication::setActiveWindow(dialog); // again

            // What was selected and goes is selected no more; names are completed, from another folder too.
            edit->setFocus();
            QCOMPARE(selected("\"run2.acp\" \"run3.acp\""), 2);
            QVERIFY(writeFile(path("new.ACP"), "###") && QFile::remove(path("run2.acp")));
            QVERIFY(writeFile(path("run3.acp"), Lines::charger(0) + Lines::charger(1)));
            const QString larger = QLocale::system().formattedDataSize(2 * Lines::charger(0).size());
            QTRY_COMPARE(names(), QString("New Folder sub a.txt new.ACP run3.acp"));
            QCOMPARE(dialog->selectedFiles(), QStringList(path("run3.acp")));
            QStringList held = namesIn(source, source->index(path(""))); // of what was once asked for
            held.sort();
            QCOMPARE(held.join(' '), QString(".hidden New Folder run3.acp sub"));
            QTRY_VERIFY(cells(4).contains(larger));
            QVERIFY(model->setData(model->index(4, 0), "first.acp"));
            QVERIFY(
                names() == "New Folder sub a.txt new.ACP first.acp" && cells(4).contains(larger)); // at once
            QVERIFY(QFile::exists(path("first.acp")) && model->setData(model->index(0, 0), "Old Folder"));
            QCOMPARE(names(), QString("Old Folder sub a.txt new.ACP first.acp"));
            for (const auto &[keys, whole] : {std::pair("FI", "first.acp"), {"sub/R", "sub/run9.acp"},
                     {"FI", "first.acp"}, {"~/FI", "~/first.acp"}}) {
                edit->completer()->popup()->hide();
                edit->clear();
                QTest::keyClicks(edit, keys);
                QTRY_COMPARE(edit->completer()->currentCompletion(), QString(whole));
            }
        });
    }

    /// That would not come back as files on Windows.
    void namesForWindows()
    {
        for (const char *name : {"2026-11-21_06-40-50_COM3.acp", "com.acp", "COM10.acp", "COM3a.acp", "lpt0",
                 "Pack 1.5Ah, after 12.06.acp", "\u0142adowarka.acp", ".acp"})
            QVERIFY2(isNameForWindows(QString::fromUtf8(name)), name);
        for (const char *name : {"COM3.acp", "com3 .acp", "Aux", "nul.tar.gz", "LPT\u00b2.acp", "CONIN$.acp",
                 "con.", "Pack 12:30.acp", "a*.acp", "a?.acp", "a\tb.acp", "a|b.acp", "a.acp ", "a.", ""})
            QVERIFY2(!isNameForWindows(QString::fromUtf8(name)), name);
    }

    void diskDoesNotAnswer()
    {
        const QByteArray dead = QFile::encodeName(path("sub"));
        QVERIFY(QDir().mkpath(path("sub/inner")) && QDir().mkpath(path("well")));
        QVERIFY(writeFile(path("file.acp"), "#"));
        diskAnswers = ::eventfd(0, 0);
        deadFolder = dead.constData();
        QSettings toolkits(QSettings::UserScope, "QtProject");
        const QString bookmark = QUrl::fromLocalFile(path("sub/inner")).toString();
        toolkits.setValue("FileDialog/shortcuts", QStringList(bookmark));
        inDialog(path("sub"), [&](QFileDialog *dialog) {
            QCOMPARE(dialog->directory().path(), QDir::homePath());
            dialog->setDirectory(path(""));
            const auto *list = dialog->findChild<QListView *>("listView");
            const auto isEnabled
                = [list](int row) { return list->model()->index(row, 0).flags() & Qt::ItemIsEnabled; };
            QTRY_VERIFY(isEnabled(1));
            QTRY_VERIFY(hungThreads > 1); // the one that asked for the beginning, and for this row
            QVERIFY(!isEnabled(0));
            QTRY_VERIFY(!list->model()->index(2, 1).data().toString().isEmpty()); // nor does a file wait
            ::eventfd_write(diskAnswers, 1);
            QTRY_VERIFY(isEnabled(0));
            QTRY_COMPARE(dialog->directory().path(), path("sub"));
            eventfd_t count = 0;
            ::eventfd_read(diskAnswers, &count); // and again it does not
        });
        ::eventfd_write(diskAnswers, 1);
        QVERIFY(!windowHung);
        QVERIFY(toolkits.value("FileDialog/shortcuts").toStringList().contains(bookmark)); // for better days
        deadFolder = nullptr;
    }

private:
    static int threads() { return int(QDir("/proc/self/task").count()); }

    int threadsBefore = 0;

    QString path(const QString &name) const { return fixture->path("folder/" + name); }
    /// Opens the dialog on the folder `start`, and closes it after `act`.
    void inDialog(const QString &start, const std::function<void(QFileDialog *)> &act)
    {
        VarnelSettings().setValue("global/lastDir", start);
        perform(ActionId::Open, {[&act](QDialog *dialog) {
            act(qobject_cast<QFileDialog *>(dialog));
            dialog->reject();
        }});
        QCOMPARE(unanswered, 0);
    }
};

QTEST_MAIN(TestFolderView)
#include "tst_folderview.moc"
