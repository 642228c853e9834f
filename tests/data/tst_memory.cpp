#include "data/memorygroups.h"
#include "data/recordlist.h"
#include "data/systemmemory.h"

#include "support/limits.h"

#include <QtTest>

#include <cstdint>
#include <cstring>
#include <unistd.h>

namespace {

// Writes the files of a group; `figures` are "limit usage cache", nothing where there is no group.
bool writeGroup(const QString &folder, const QByteArray &figures, bool first)
{
    const QList<QByteArray> parts = figures.split(' ');
    const auto write = [&](const char *name, int part, const QByteArray &before = {}) {
        QFile file(folder + QLatin1Char('/') + QLatin1String(name));
        return file.open(QIODevice::WriteOnly) && file.write(before + parts[part] + '\n') > 0;
    };
    return figures.isEmpty()
        || (QDir().mkpath(folder) && write(first ? "memory.limit_in_bytes" : "memory.max", 0)
            && write(first ? "memory.usage_in_bytes" : "memory.current", 1)
            && write("memory.stat", 2, first ? "anon 7\ntotal_inactive_file " : "anon 7\ninactive_file "));
}

} // namespace

/// Records keep their place and their values while a recording grows, and how much room there is for them.
class TestMemory : public QObject {
    Q_OBJECT

private slots:
    // By either road past what is allocated one by one, and by the quick one past a large block.
    void listGrowsInPlace()
    {
        for (const bool quick : {false, true}) {
            RecordList list;
            std::vector<const Varnel3Data *> places;
            for (int i = 0; i < (quick ? 60 : 6) * RecordList::blockSize; ++i) {
                list.makeRoom();
                Varnel3Data &stored = quick ? list.appendNew() : list.append(Varnel3Data());
                stored.time = i;
                places.push_back(&stored);
            }
            QCOMPARE(list.size(), int(places.size()));
            for (int i = 0; i < list.size(); ++i)
                QVERIFY(&list[i] == places[size_t(i)] && list[i].time == i);
            QVERIFY(&list.last() == places.back() && list.append(list.first()).time == 0 && !list.isEmpty());
        }
    }

    void listTakesBackAndMoves()
    {
        RecordList list;
        for (int i = 0; i < 1025; ++i)
            list.appendNew().time = i;
        list.removeLast();
        list.removeLast();
        QCOMPARE(list.last().time, 1022);
        for (int i = 0; i < 3; ++i) { // across a block
            QCOMPARE(list.appendNew().time, 0); // what was there before must not shine through
            list.last().time = 2000 + i;
        }
        RecordList other(std::move(list));
        QVERIFY(other.size() == 1026 && other[1024].time == 2001);
        list = std::move(other);
        QVERIFY(other.isEmpty() && list.last().time == 2002); // NOLINT(bugprone-use-after-move): a promise
        list.clear();
        QVERIFY(list.isEmpty() && list.appendNew().time == 0);
    }

    void largeBlocksAreWholePages()
    {
        constexpr size_t page = LargeBlock::pageSize;
        LargeBlock last;
        const qint64 before = ownBytes(0);
        for (const size_t size : {size_t(1), page, page + 1, 5 * page}) {
            const size_t whole = size == page + 1 ? 2 * page : size > page ? size : page;
            LargeBlock block(size);
            QCOMPARE(reinterpret_cast<std::uintptr_t>(block.data()) % page, std::uintptr_t(0));
            QCOMPARE(ownBytes(0) - before, qint64(whole));
            std::memset(block.data(), 1, whole);
            last = std::move(block);
            QVERIFY(!block.data()); // NOLINT(bugprone-use-after-move): nor does it give anything back
            last = LargeBlock();
            QCOMPARE(ownBytes(0), before);
        }
        const AddressSpaceLimit limit(0);
        QVERIFY_EXCEPTION_THROWN(LargeBlock(size_t(4) << 30), std::bad_alloc);
    }

    // What groups (/a/b, that above, and the root) leave of a machine of 1000 bytes, of which 600 are
    // available.
    void groupsLeave()
    {
        const std::tuple<QByteArray, QByteArrayList, QByteArray> cases[] = {
            {"", {"500 100 0", "", ""}, "1000 600"}, // in none
            {"0::/a/b\n", {"max 100 0", "max 300 0", ""}, "1000 600"}, // no limit
            {"0::/a/b\n", {"500 100 0", "max 300 0", ""}, "500 400"}, // its own
            {"0::/a/b\n", {"900 100 0", "400 300 0", ""}, "400 100"}, // that above
            {"0::/\n", {"100 1 0", "100 1 0", "300 200 0"}, "300 100"}, // in a container
            {"0::/a/b\n", {"500 450 200", "", ""}, "500 250"}, // files are given up
            {"0::/a/b\n", {"1000 900 0", "", ""}, "1000 600"}, // as much as the machine
            {"0::/a/b\n", {"0 0 0", "", ""}, "0 0"}, {"0::/a/b\n", {"500 x 0", "", ""}, "1000 600"},
            {"0::/a/b\n", {"700 100 0", "600 450 0", "500 100 0"}, "500 150"},
            {"\n1:\n0::\n0:x:/a/b\n0::a/b\n", {"500 100 0", "500 100 0", "500 100 0"}, "1000 600"}, // junk
            {"5:cpu:/x\n4:pids,memory:/a/b\n0::/\n", {"500 100 50", "9223372036854771712 300 0", ""},
                "500 450"},
            {"4:memory:/c\n", {"500 100 0", "", ""}, "1000 600"}}; // another's
        for (const auto &[membership, groups, left] : cases) {
            const bool first = membership.contains("memory"); // the older files
            QTemporaryDir root;
            QString folder = root.path() + (first ? QStringLiteral("/memory/a/b") : QStringLiteral("/a/b"));
            for (const QByteArray &group : groups) {
                QVERIFY(writeGroup(folder, group, first));
                folder = folder.section(QLatin1Char('/'), 0, -2);
            }
            qint64 total = 1000;
            qint64 available = 600;
            narrowToGroups(&total, &available, membership, root.path());
            QCOMPARE(QByteArray::number(total) + ' ' + QByteArray::number(available), left);
        }
    }

    // The address space is the limit here; nothing else takes of it meanwhile.
    void someIsKeptBack()
    {
        const qint64 physical = qint64(::sysconf(_SC_PHYS_PAGES)) * ::sysconf(_SC_PAGESIZE);
        QVERIFY(systemMemory().total <= physical && systemMemory().total > 1 << 26);
        QVERIFY(systemMemory().available <= systemMemory().total && systemMemory().available > 1 << 24);
        const AddressSpaceLimit limit(qint64(1500) << 20);
        const SystemMemory memory = systemMemory();
        rlimit space{};
        QCOMPARE(::getrlimit(RLIMIT_AS, &space), 0);
        const auto most = qint64(space.rlim_cur);
        QVERIFY(memory.total <= most && memory.available <= most - ownBytes(0));
        constexpr qint64 little = 1 << 18;
        const qint64 kept = qMin(memory.total / 16, qint64(512) << 20);
        const qint64 keptLive = qMin(kept, qint64(64) << 20);
        demandMemory(memory.available - kept - little);
        QVERIFY_EXCEPTION_THROWN(demandMemory(memory.available - kept + little), std::bad_alloc);
        demandLiveMemory(memory.available - keptLive - little);
        QVERIFY_EXCEPTION_THROWN(demandLiveMemory(memory.available - keptLive + little), std::bad_alloc);
    }
};

QTEST_GUILESS_MAIN(TestMemory)
#include "tst_memory.moc"
