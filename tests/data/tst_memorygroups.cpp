#include "data/memorygroups.h"

#include "data/systemmemory.h"
#include "support/columns.h"
#include "support/limits.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

// Writes the files of a group; `figures` are "limit usage cache", nothing where there is no group.
void writeGroup(const QString &folder, const QByteArray &figures, bool first)
{
    const QList<QByteArray> parts = figures.split(' ');
    const char *const names[] = {
        first ? "memory.limit_in_bytes" : "memory.max", first ? "memory.usage_in_bytes" : "memory.current"};
    if (parts.size() < 3 || !QDir().mkpath(folder))
        return;
    const auto write = [&folder](const char *name, const QByteArray &text) {
        QFile file(folder + QLatin1Char('/') + QLatin1String(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    };
    write(names[0], parts[0] + '\n');
    write(names[1], parts[1] + '\n');
    write("memory.stat", "anon 7\n" + QByteArray(first ? "total_" : "") + "inactive_file " + parts[2] + '\n');
}

} // namespace

/// What control groups leave of the memory, and what is kept back of it.
class TestMemoryGroups : public QObject {
    Q_OBJECT

private slots:
    void leave_data()
    {
        columns<QByteArray, QByteArray, QByteArray, QByteArray, int, int>(
            {"membership", "group", "above", "atRoot", "total", "available"});
        const auto row = [](const char *what, const QByteArray &membership, const QByteArray &group,
                             const QByteArray &above, const QByteArray &atRoot, int total, int available) {
            QTest::newRow(what) << membership << group << above << atRoot << total << available;
        };
        row("none", "", "500 100 0", "", "", 1000, 600);
        row("no limit", "0::/a/b\n", "max 100 0", "max 300 0", "", 1000, 600);
        row("its own", "0::/a/b\n", "500 100 0", "max 300 0", "", 500, 400);
        row("that above", "0::/a/b\n", "900 100 0", "400 300 0", "", 400, 100);
        row("in a container", "0::/\n", "100 1 0", "100 1 0", "300 200 0", 300, 100);
        row("files are given up", "0::/a/b\n", "500 450 200", "", "", 500, 250);
        row("as much as the machine", "0::/a/b\n", "1000 900 0", "", "", 1000, 600);
        row("two levels", "0::/a/b\n", "700 100 0", "600 450 0", "500 100 0", 500, 150);
        row("junk", "\n1:\n0::\n0:x:/a/b\n0::a/b\n", "500 100 0", "500 100 0", "500 100 0", 1000, 600);
        row("version 1", "5:cpu:/x\n4:pids,memory:/a/b\n0::/\n", "500 100 50", "9223372036854771712 300 0",
            "", 500, 450);
        row("another's limit", "4:memory:/c\n", "500 100 0", "", "", 1000, 600);
    }

    // The machine has 1000 bytes, of which 600 are available.
    void leave()
    {
        QFETCH(QByteArray, membership);
        QFETCH(QByteArray, group);
        QFETCH(QByteArray, above);
        QFETCH(QByteArray, atRoot);
        const bool first = membership.contains("memory");
        QTemporaryDir root;
        const QString folder = root.path() + (first ? QStringLiteral("/memory") : QString());
        writeGroup(folder + QStringLiteral("/a/b"), group, first);
        writeGroup(folder + QStringLiteral("/a"), above, first);
        writeGroup(folder, atRoot, first);
        qint64 total = 1000;
        qint64 available = 600;
        narrowToGroups(&total, &available, membership, root.path());
        QTEST(int(total), "total");
        QTEST(int(available), "available");
    }

    // The address space is the limit here; nothing else takes of it meanwhile.
    void someIsKeptBack()
    {
        const AddressSpaceLimit limit(qint64(1500) << 20);
        const SystemMemory memory = systemMemory();
        rlimit space{};
        QCOMPARE(::getrlimit(RLIMIT_AS, &space), 0);
        QVERIFY(memory.total <= qint64(space.rlim_cur));
        QVERIFY(memory.available <= qint64(space.rlim_cur) - ownBytes(0));
        constexpr qint64 little = 1 << 18;
        const qint64 kept = qMin(memory.total / 16, qint64(512) << 20);
        const qint64 keptLive = qMin(kept, qint64(64) << 20);
        demandMemory(memory.available - kept - little);
        QVERIFY_EXCEPTION_THROWN(demandMemory(memory.available - kept + little), std::bad_alloc);
        demandLiveMemory(memory.available - keptLive - little);
        QVERIFY_EXCEPTION_THROWN(demandLiveMemory(memory.available - keptLive + little), std::bad_alloc);
    }
};

QTEST_APPLESS_MAIN(TestMemoryGroups)
#include "tst_memorygroups.moc"
