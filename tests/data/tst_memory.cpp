#include "data/memorygroups.h"
#include "data/records/openrecords.h"
#include "data/records/recordblock.h"
#include "data/records/recordlist.h"
#include "data/records/recordreader.h"
#include "data/systemmemory.h"

#include "support/limits.h"
#include "support/records.h"
#include "support/seed.h"

#include <QtTest>

#include <cstdint>
#include <cstring>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>

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

bool isSame(const Varnel3Data &a, const Varnel3Data &b)
{
    const std::vector<double> left = fieldsOf(a);
    const std::vector<double> right = fieldsOf(b);
    return std::memcmp(left.data(), right.data(), sizeof(double) * left.size()) == 0;
}

/// Changes one in `rarely` of the fields, by little or to anything.
void change(Varnel3Data *record, int cells, int rarely, std::mt19937 *random)
{
    const auto isChanged = [&] { return int((*random)() % unsigned(rarely)) == 0; };
    const auto number = [&](int before) {
        const auto any = quint32((*random)());
        return int(any % 8 < 6 ? quint32(before) + any / 8 % 7 - 3 : quint32((*random)()) >> any / 8 % 32);
    };
    const auto changeNumber = [&](auto *field) {
        if (isChanged())
            *field = std::decay_t<decltype(*field)>(number(*field));
    };
    RecordColumns::eachOwn([&](auto field) { changeNumber(&(record->*field.member)); });
    if (!isChanged())
        record->setTime(record->time);
    for (int cell = 0; cell < Varnel3Data::maxCells; ++cell) {
        if (cell < cells)
            RecordColumns::eachOfCell(
                [&](auto field) { changeNumber(&(record->cells[cell].*field.member)); });
        else
            record->cells[cell] = CellData();
    }
    const double fractions[] = {0.0, -0.0, 3.4, 0.1 + 0.2, -214748364.8, 1e300, number(5) / 10.0, 1.0 / 3};
    for (int i = 0; i < RecordColumns::fractions; ++i) {
        if ((*random)() % 64 == 0)
            RecordColumns::fraction(*record, i) = isChanged() ? fractions[(*random)() % 8] : 0.0;
    }
}

bool hasExtremes(const RecordList &list, int column, int begin, int end)
{
    int low = std::numeric_limits<int>::max();
    int high = std::numeric_limits<int>::min();
    for (int i = begin; i < end; ++i) {
        low = std::min(low, list.figure(column, i));
        high = std::max(high, list.figure(column, i));
    }
    constexpr int length = RecordList::blockSize;
    const NarrowNumbers::Range found
        = list.numbers(column, begin / length).extremes(begin % length, begin % length + end - begin);
    return found.low == low && found.high == high;
}

size_t misalignment = 0; // of the next mapping, in a large page
size_t neighbours = 0; // bytes that lie behind it, and are another's

} // namespace

// In the place of the system's, which may know large pages itself.
extern "C" void *mmap(void *at, size_t size, int protection, int flags, int file, off_t offset) noexcept
{
    constexpr size_t page = LargeBlock::pageSize;
    const size_t room = misalignment > 0 ? 2 * page : 0;
    char *const begin = static_cast<char *>(::mmap64(at, size + room, protection, flags, file, offset));
    if (room == 0)
        return begin;
    const size_t before
        = page - reinterpret_cast<std::uintptr_t>(begin) % page + std::exchange(misalignment, 0);
    neighbours += room - before;
    ::munmap(begin, before);
    return begin + before;
}

/// Records keep their values while a recording grows, and how much room there is for them.
class TestMemory : public QObject {
    Q_OBJECT

private slots:
    // Any records, in stretches of one kind, come back as they are, by each way of asking: past small steps
    // and large ones, with figures that fit no narrow column.
    void keepsRecords()
    {
        std::mt19937 random(randomSeed());
        const auto below = [&random](int most) { return int(random() % unsigned(most)); };
        for (const BlockArena::Growth growth : {BlockArena::Slow, BlockArena::Fast}) {
            const int count = (growth == BlockArena::Fast ? 400 : 12) * RecordList::blockSize - below(3);
            RecordList list;
            std::vector<Varnel3Data> kept;
            RecordReader growing(list);
            int rarely = 1;
            int cells = 0;
            for (int i = 0; i < count; ++i) {
                if (below(200) == 0) {
                    rarely = 1 << below(16);
                    cells = below(Varnel3Data::maxCells + 1);
                }
                Varnel3Data record = i == 0 ? Varnel3Data() : kept.back();
                change(&record, cells, rarely, &random);
                list.append(record, growth);
                if (below(50) == 0) {
                    change(&record, cells, 1 + below(20), &random);
                    list.replaceLast(record);
                }
                kept.push_back(record);
                QVERIFY(list.size() == i + 1 && isSame(list.last(), record)
                    && (below(9) > 0 || isSame(growing.at(i), record)));
            }
            RecordReader reader(list);
            RecordList moved;
            for (int i = 0; i < count; ++i)
                QVERIFY2(isSame(reader.at(i), kept[size_t(i)]), qPrintable(QString::number(i)));
            moved = std::move(list);
            QVERIFY(list.isEmpty()); // NOLINT(bugprone-use-after-move): a promise
            for (int i = 0; i < count; i += 1 + below(5))
                QVERIFY2(isSame(moved[i], kept[size_t(i)]), qPrintable(QString::number(i)));
            for (int i = 0; i < 2000; ++i) {
                const int column = below(RecordColumns::columns);
                const int begin = below(count);
                const int end = begin + 1 + below(RecordList::blockSize - begin % RecordList::blockSize);
                const int last = qMin(end, count);
                QVERIFY(hasExtremes(moved, column, begin, last));
            }
            moved.clear();
            moved.append(kept[0]);
            QVERIFY(moved.size() == 1 && isSame(moved.first(), kept[0]));
        }
    }

    // Clocks beside their time, figures that change each time, and what fits no narrow column.
    void keepsOddRecords()
    {
        std::mt19937 random(randomSeed());
        const int clocks[][4] = {{0, 60, 0, 3600}, {0, 0, 60, 60}, {-1, 59, 61, -1}, {1, -60, 0, 0}};
        OpenRecords records;
        RecordList list;
        int letters = 0;
        while (!records.isFull()) {
            Varnel3Data record;
            letters = 0;
            RecordColumns::eachOwn([&](auto field) {
                record.*field.member = std::decay_t<decltype(record.*field.member)>(random() % 2 * random());
                letters += sizeof(record.*field.member) == 1;
            });
            for (CellData &cell : record.cells)
                RecordColumns::eachOfCell([&](auto field) { cell.*field.member = int(random()); });
            for (int i = 0; i < RecordColumns::fractions; ++i)
                RecordColumns::fraction(record, i) = 1.0 / 3;
            records.makeRoom();
            records.add(record);
            const int *const clock = clocks[list.size() % 4];
            std::tie(record.hour, record.minute, record.second, record.time)
                = std::tie(clock[0], clock[1], clock[2], clock[3]);
            record.voltage = list.size() % 2;
            list.append(record);
            QVERIFY(isSame(list.last(), record));
        }
        list.append(Varnel3Data()); // packs those before
        for (int i = 0; i < RecordList::blockSize; ++i)
            QVERIFY(list[i].voltage == i % 2 && list[i].minute == clocks[i % 4][1]);
        std::vector<char> room(2 * RecordBlock::most());
        size_t bytes = 0;
        RecordBlock::pack(records, room.data(), &bytes);
        QCOMPARE(
            bytes, RecordBlock::most() - size_t(letters * (PackedColumn::mostBytes - PackedColumn::length)));
        records.restart();
        records.add(Varnel3Data());
        QVERIFY(records.numbers(RecordColumns::ownColumns).width == 0 && !records.hasFractions());
        Varnel3Data same; // what never changes takes nothing, nor do tenths that don't
        same.resistanceSum = 3.4;
        records.replaceLast(same);
        while (!records.isFull())
            records.add(same);
        RecordBlock::pack(records, room.data(), &bytes);
        QCOMPARE(bytes,
            sizeof(RecordBlock)
                + size_t(RecordColumns::ownColumns + RecordColumns::fractions) * sizeof(PackedColumn));
    }

    // Figures of each width, their bytes and nothing beside them.
    void packsColumns()
    {
        for (const auto &[span, width] : {std::pair(0, 0), {255, 1}, {256, 2}, {60000, 2}, {65536, 4}}) {
            std::vector<int> figures(PackedColumn::length + 4, INT_MAX); // with what is another's
            for (int i = 0; i < PackedColumn::length; ++i)
                figures[size_t(i)] = i % 3 == 2 ? span - 7 : -7;
            std::vector<char> room(PackedColumn::mostBytes + 32, 'x');
            quint32 end = 1;
            const PackedColumn column = PackedColumn::pack(figures.data(), room.data(), &end);
            QVERIFY(column.low == -7 && column.high == span - 7);
            QCOMPARE(int(end), 1 + width * PackedColumn::length);
            QCOMPARE(int(std::count(room.begin() + end, room.end(), 'x')), int(room.size() - end));
            for (int i = 0; i < PackedColumn::length; ++i)
                QCOMPARE(column.numbers(room.data())[i], figures[size_t(i)]);
        }
        Varnel3Data last; // the only one of its fractions
        last.cells[Varnel3Data::maxCells - 1].resistance = 3.4;
        RecordList list;
        list.append(last);
        QVERIFY(isSame(list[0], last));
    }

    // Many recordings are short: only a longer one takes a block.
    void shortRecordingsAreSmall()
    {
        const auto bytes = [] { return ::mallinfo2().uordblks + ::mallinfo2().hblkhd; };
        RecordList list;
        const size_t before = bytes();
        list.append(Varnel3Data());
        QVERIFY(bytes() - before < 16384);
    }

    // Small steps one by one; beyond four of them, where that is wanted, out of large ones.
    void stepsOfAnArena()
    {
        for (const BlockArena::Growth growth : {BlockArena::Slow, BlockArena::Fast}) {
            BlockArena arena;
            QString steps;
            const char *end = nullptr;
            for (int i = 0; i < 8; ++i) {
                arena.makeRoom(BlockArena::smallStep, growth);
                steps += arena.next() == end ? '+' : '|';
                arena.take(BlockArena::smallStep);
                end = arena.next();
            }
            QCOMPARE(steps, QString(growth == BlockArena::Fast ? "|||||+++" : "||||||||"));
        }
        BlockArena arena;
        arena.makeRoom(100, BlockArena::Slow);
        const char *const begin = arena.next();
        for (const auto &[bytes, next] : {std::pair(1, 16), std::pair(16, 32), std::pair(17, 64)}) {
            arena.take(size_t(bytes));
            arena.makeRoom(BlockArena::smallStep - size_t(next), BlockArena::Slow); // there is so much
            QCOMPARE(int(arena.next() - begin), next);
        }
    }

    void largeBlocksAreWholePages()
    {
        constexpr size_t page = LargeBlock::pageSize;
        LargeBlock last;
        const qint64 before = ownBytes(0);
        for (const size_t size : {size_t(1), page, page + 1, 5 * page}) {
            const size_t whole = size == page + 1 ? 2 * page : size > page ? size : page;
            misalignment = size % page * 4096;
            LargeBlock block(size);
            QCOMPARE(reinterpret_cast<std::uintptr_t>(block.data()) % page, std::uintptr_t(0));
            QCOMPARE(ownBytes(0) - before, qint64(whole + neighbours));
            std::memset(block.data(), 1, whole);
            last = std::move(block);
            QVERIFY(!block.data()); // NOLINT(bugprone-use-after-move): nor does it give anything back
            last = LargeBlock();
            QCOMPARE(ownBytes(0) - before, qint64(neighbours));
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
