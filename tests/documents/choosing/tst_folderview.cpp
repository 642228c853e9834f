#include "documents/choosing/boundedselection.h"
#include "documents/choosing/folderlisting.h"
#include "support/documentrig.h"

#include <QCompleter>
#include <QListView>
#include <QLocale>
#include <QScreen>
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
class TestFolderView : public QObject, private DocumentRig {
    Q_OBJECT

private slots:
    void init()
    {
        setUp();
        open({});
        QVERIFY(QDir().mkpath(path("sub")));
    }
    void cleanup() { tearDown(); }

    void listings()
    {
        const QDate day(2026, 1, 1);
        const auto make = [&](const char *name, const QByteArray &bytes, int month) {
            QFile file(path(name));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush());
            QVERIFY(file.setFileTime(day.addMonths(month).startOfDay(), QFileDevice::FileModificationTime));
        };
        make("run1.ACP", Lines::charger(0) + Lines::charger(7200), 5);
        make("run2.ACP", Lines::charger(0) + Lines::charger(1) + Lines::charger(60), 2);
        make("a.ABP", "#", 3);
        make(".h.acp", "##", 4);
        make("note", "text", 1);
        QVERIFY(QDir().mkpath(path("zub")) && QDir().mkpath(path(".dir")));
        const QStringList data{".acp", ".abp"};
        using Q = FolderQuestion;
        const QPair<FolderQuestion, const char *> cases[] = {
            {{path(""), data}, "sub zub a.ABP run1.ACP run2.ACP"},
            {{path(""), data, false, Q::Name, true}, "run2.ACP run1.ACP a.ABP zub sub"},
            {{path(""), {".abp"}, true}, ".dir sub zub a.ABP"},
            {{path(""), {}, true}, ".dir sub zub .h.acp a.ABP note run1.ACP run2.ACP"},
            {{path(""), {}, false, Q::Size}, "sub zub a.ABP note run1.ACP run2.ACP"},
            {{path(""), {}, false, Q::Type}, "a.ABP run1.ACP run2.ACP note sub zub"},
            {{path(""), {}, false, Q::Modified}, "note run2.ACP a.ABP run1.ACP sub zub"},
            {{path(""), data, false, Q::Length, true}, "run1.ACP run2.ACP zub sub a.ABP"},
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
        QCOMPARE(listing.names.join(' '), QString("a.ABP run1.ACP run2.ACP sub zub"));
        QCOMPARE(listing.longest, QString("run1.ACP"));
        QCOMPARE(
            QStringList({pathInFolder("", "/"), pathInFolder("/", "a"), pathInFolder("/b", "a")}).join(' '),
            QString("/ /a /b/a"));
        const FileDetails details = fileDetails(path("run1.ACP"), true);
        QVERIFY(!details.isFolder && details.isWritable && details.modified.date().month() == 6);
        QCOMPARE(QString("%1 %2 %3").arg(details.size).arg(details.label).arg(details.seconds),
            QString("320  [Cha 6xLiPo] 7200"));
        QCOMPARE(fileDetails(path("run1.ACP"), false).seconds, -1);
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
            list->selectAll();
            QTRY_COMPARE( // a folder counts once its disk has answered
                list->selectionModel()->selectedRows().size(), BoundedSelection::most);
        });
        ::close(opened);
    }

    void followsItsFolder()
    {
        QVERIFY(writeFile(path("run2.acp"), "#") && writeFile(path("run3.acp"), "##")
            && writeFile(path("a.txt"), "") && writeFile(path(".h.acp"), "")
            && writeFile(path("sub/in.acp"), ""));
        inDialog(path(""), [&](QFileDialog *dialog) {
            auto *tree = dialog->findChild<QTreeView *>("treeView");
            auto *edit = dialog->findChild<QLineEdit *>("fileNameEdit");
            const auto rows = [tree](const QVector<int> &columns) {
                QStringList all;
                for (int row = 0; row < tree->model()->rowCount(tree->rootIndex()); ++row)
                    for (const int column : columns)
                        all << tree->model()->index(row, column, tree->rootIndex()).data().toString();
                return all.join(' ');
            };
            const auto names = [&] { return rows({0}); };
            QTRY_COMPARE(rows({0, 1, 2}),
                QString("sub  Folder run2.acp %1 acp File run3.acp %2 acp File")
                    .arg(QLocale::system().formattedDataSize(1), QLocale::system().formattedDataSize(2)));
            QVERIFY(dialog->width() > 780 && dialog->width() <= dialog->screen()->availableSize().width());
            const auto canEdit = [&](int column) {
                return tree->model()
                    ->index(1, column, tree->rootIndex())
                    .flags()
                    .testFlag(Qt::ItemIsEditable);
            };
            QVERIFY(canEdit(0) && !canEdit(1));
            tree->sortByColumn(1, Qt::DescendingOrder);
            QTRY_COMPARE(names(), QString("run3.acp run2.acp sub"));
            auto *hidden = dialog->findChild<QAction *>("qt_show_hidden_action");
            hidden->trigger();
            QTRY_COMPARE(names(), QString("run3.acp run2.acp .h.acp sub"));
            hidden->trigger();
            QTRY_COMPARE(names(), QString("run3.acp run2.acp sub"));
            dialog->setDirectory(path("sub"));
            QTRY_COMPARE(names(), QString("in.acp"));
            dialog->setDirectory(path(""));
            QTRY_COMPARE(names(), QString("run3.acp run2.acp sub"));
            edit->setFocus();
            QTest::keyClicks(edit, "sub/I"); // completed from another folder
            QTRY_COMPARE(edit->completer()->currentCompletion(), QString("sub/in.acp"));
            edit->setText("\"run2.acp\" \"run3.acp\"");
            QCOMPARE(dialog->selectedFiles().size(), 2);
            QVERIFY(writeFile(path("new.ABP"), "###") && QFile::remove(path("run2.acp")));
            QTRY_COMPARE(names(), QString("new.ABP run3.acp sub"));
            QCOMPARE(dialog->selectedFiles(), QStringList(path("run3.acp"))); // stays selected
            QVERIFY(tree->model()->setData(tree->model()->index(1, 0), "first.acp"));
            QTRY_COMPARE(names(), QString("new.ABP first.acp sub"));
            QVERIFY(QFile::exists(path("first.acp")));
        });
    }

    void diskDoesNotAnswer()
    {
        const QByteArray dead = QFile::encodeName(path("sub"));
        QVERIFY(QDir().mkpath(path("sub/inner")) && QDir().mkpath(path("well")));
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
