#include "documents/choosing/boundedselection.h"
#include "support/files.h"
#include "support/modaldialog.h"
#include "support/shellrig.h"

#include <QListView>
#include <QTreeView>

#include <atomic>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int manyFiles = 3000;

// A disk that does not answer: calls for what lies below this folder return once it has been emptied.
std::atomic<const char *> deadFolder{nullptr};
std::atomic<int> hungThreads{0};
std::atomic<bool> windowHung{false};

void waitForDisk(const char *path)
{
    const char *dead = deadFolder;
    if (!dead || !path || std::strncmp(path, dead, std::strlen(dead)) != 0)
        return;
    ++hungThreads;
    if (::gettid() == ::getpid())
        windowHung = true;
    while (deadFolder && !windowHung)
        ::usleep(1000);
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
class TestFolderView : public QObject, private ShellRig {
    Q_OBJECT

private slots:
    void init()
    {
        setUp();
        open({});
        QVERIFY(QDir().mkpath(fixture->path(QStringLiteral("folder/sub"))));
    }
    void cleanup() { tearDown(); }
    void manyFilesAreNotRead();
    void followsItsFolder();
    void diskDoesNotAnswer();

private:
    QString path(const char *name) const
    {
        return fixture->path(QStringLiteral("folder/")) + QLatin1String(name);
    }
    /// Opens the dialog on the folder `start`, and closes it after `act`.
    void inDialog(const QString &start, const std::function<void(QFileDialog *)> &act)
    {
        VarnelSettings().setValue(QStringLiteral("global/lastDir"), start);
        whenModal<QFileDialog>(window.get(), [&act](QFileDialog *dialog) {
            act(dialog);
            dialog->reject();
        });
        trigger(ActionId::Open);
    }
};

void TestFolderView::manyFilesAreNotRead()
{
    for (int i = 0; i < manyFiles; ++i)
        QVERIFY(writeFile(path(qPrintable(QString::asprintf("run%d.acp", i))), "#"));
    const int opened = ::inotify_init1(IN_NONBLOCK);
    QVERIFY(::inotify_add_watch(opened, qPrintable(path("")), IN_OPEN) >= 0);
    inDialog(path(""), [&](QFileDialog *dialog) {
        dialog->setViewMode(QFileDialog::List);
        auto *list = dialog->findChild<QListView *>(QStringLiteral("listView"));
        const QAbstractItemModel *shown = list->model();
        QTRY_COMPARE(shown->rowCount(list->rootIndex()), manyFiles + 1);
        QTRY_VERIFY(list->visualRect(shown->index(manyFiles, 0, list->rootIndex())).isValid()); // laid out
        alignas(inotify_event) char events[1 << 18];
        const ssize_t bytes = ::read(opened, events, sizeof events);
        const int count = int(bytes / ssize_t(sizeof(inotify_event) + 16)); // with a name of up to 15 letters
        QVERIFY2(count < manyFiles / 4, qPrintable(QString::number(count)));
        list->setFocus();
        list->selectAll();
        QTRY_COMPARE( // a folder counts once its disk has answered
            list->selectionModel()->selectedRows().size(), BoundedSelection::most);
    });
    ::close(opened);
}

void TestFolderView::followsItsFolder()
{
    QVERIFY(writeFile(path("run2.acp"), "#") && writeFile(path("run10.acp"), "##")
        && writeFile(path("a.txt"), ""));
    inDialog(path(""), [&](QFileDialog *dialog) {
        auto *tree = dialog->findChild<QTreeView *>(QStringLiteral("treeView"));
        auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        const auto names = [tree] {
            QStringList all;
            for (int row = 0; row < tree->model()->rowCount(tree->rootIndex()); ++row)
                all.append(tree->model()->index(row, 0, tree->rootIndex()).data().toString());
            return all.join(QLatin1Char(' '));
        };
        QTRY_COMPARE(names(), QStringLiteral("sub run10.acp run2.acp"));
        tree->sortByColumn(1, Qt::DescendingOrder);
        QTRY_COMPARE(names(), QStringLiteral("run10.acp run2.acp sub"));
        edit->setFocus();
        edit->setText(QStringLiteral("\"run2.acp\" \"run10.acp\""));
        QCOMPARE(dialog->selectedFiles().size(), 2);
        QVERIFY(writeFile(path("new.ABP"), "###") && QFile::remove(path("run2.acp")));
        QTRY_COMPARE(names(), QStringLiteral("new.ABP run10.acp sub"));
        QCOMPARE(dialog->selectedFiles(), QStringList(path("run10.acp"))); // stays selected
        QVERIFY(tree->model()->setData(tree->model()->index(1, 0), QStringLiteral("first.acp")));
        QTRY_COMPARE(names(), QStringLiteral("new.ABP first.acp sub"));
        QVERIFY(QFile::exists(path("first.acp")));
    });
}

void TestFolderView::diskDoesNotAnswer()
{
    const QByteArray dead = QFile::encodeName(path("sub"));
    QVERIFY(QDir(path("sub")).mkdir(QStringLiteral("inner")) && QDir(path("")).mkdir(QStringLiteral("well")));
    deadFolder = dead.constData();
    inDialog(path("sub"), [&](QFileDialog *dialog) {
        QCOMPARE(dialog->directory().path(), QDir::homePath());
        dialog->setDirectory(path(""));
        const auto *list = dialog->findChild<QListView *>(QStringLiteral("listView"));
        const auto isEnabled
            = [list](int row) { return list->model()->index(row, 0).flags() & Qt::ItemIsEnabled; };
        QTRY_VERIFY(isEnabled(1));
        QTRY_VERIFY(hungThreads > 1); // the one that asked for the beginning, and for this row
        QVERIFY(!isEnabled(0));
        deadFolder = nullptr;
        QTRY_VERIFY(isEnabled(0));
        QTRY_COMPARE(dialog->directory().path(), path("sub"));
        deadFolder = dead.constData();
    });
    deadFolder = nullptr;
    QVERIFY(!windowHung);
}

QTEST_MAIN(TestFolderView)
#include "tst_folderview.moc"
