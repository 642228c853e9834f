#include "data/recordlist.h"

#include "support/limits.h"

#include <QTest>

#include <cstdint>
#include <cstring>

/// Records keep their place and their values while a recording grows, and give their memory back.
class TestRecordList : public QObject {
    Q_OBJECT

private slots:
    // By either road past what is allocated one by one, and by the quick one past a large block.
    void growsInPlace()
    {
        for (const bool quick : {false, true}) {
            RecordList list;
            std::vector<const Varnel3Data *> places;
            for (int i = 0; i < (quick ? 60 : 6) * RecordList::blockSize; ++i) {
                Varnel3Data record;
                record.time = i;
                list.makeRoom();
                Varnel3Data &stored = quick ? list.appendNew() : list.append(record);
                stored.time = i;
                places.push_back(&stored);
            }
            QCOMPARE(list.size(), int(places.size()));
            for (int i = 0; i < list.size(); ++i) {
                QCOMPARE(&list[i], places[size_t(i)]);
                QCOMPARE(list[i].time, i);
            }
            QCOMPARE(&list.last(), places.back());
            QVERIFY(list.append(list.first()).time == 0 && !list.isEmpty());
        }
    }

    void takesBackAcrossABlock()
    {
        RecordList list;
        for (int i = 0; i < 1025; ++i)
            list.appendNew().time = i;
        list.removeLast();
        list.removeLast();
        QCOMPARE(list.last().time, 1022);
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(list.appendNew().time, 0); // what was there before must not shine through
            list.last().time = 2000 + i;
        }
        QCOMPARE(list.size(), 1026);
        QCOMPARE(list[1024].time, 2001);
    }

    void movesAndClears()
    {
        RecordList list;
        list.appendNew().time = 9;
        list.append(list.first());
        RecordList other(std::move(list));
        QCOMPARE(other.size(), 2);
        list = std::move(other);
        QCOMPARE(list.last().time, 9);
        QVERIFY(other.isEmpty()); // NOLINT(bugprone-use-after-move): a promise of the class
        list.clear();
        QVERIFY(list.isEmpty());
        QCOMPARE(list.appendNew().time, 0);
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
};

QTEST_GUILESS_MAIN(TestRecordList)
#include "tst_recordlist.moc"
