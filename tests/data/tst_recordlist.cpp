#include "data/recordlist.h"

#include <QTest>

/// Records keep their place and their values while a recording grows.
class TestRecordList : public QObject {
    Q_OBJECT

private slots:
    void growsAcrossBlocks();
    void takesBackAcrossABlock();
    void movesAndClears();
};

void TestRecordList::growsAcrossBlocks()
{
    RecordList list;
    const Varnel3Data *firstPlace = nullptr;
    for (int i = 0; i < 5000; ++i) {
        Varnel3Data record;
        record.time = i;
        const Varnel3Data &stored = list.append(record);
        firstPlace = i == 0 ? &stored : firstPlace;
        QCOMPARE(&stored, &list.last());
    }
    QCOMPARE(&list.first(), firstPlace);
    for (int i = 0; i < list.size(); ++i)
        QCOMPARE(list[i].time, i);
}

void TestRecordList::takesBackAcrossABlock()
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

void TestRecordList::movesAndClears()
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

QTEST_GUILESS_MAIN(TestRecordList)
#include "tst_recordlist.moc"
