#include "app/singleinstance.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <memory>

/// A second start hands its files to the first.
class TestSingleInstance : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void filesAreHandedOver();
    void othersAreLeftAlone();
    void firstOneLeaves();

private:
    QTemporaryDir folder;
};

void TestSingleInstance::initTestCase()
{
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", folder.path().toLocal8Bit());
}

void TestSingleInstance::filesAreHandedOver()
{
    SingleInstance first(QStringLiteral("settings"));
    QCOMPARE(first.settle({}), SingleInstance::Role::First);
    QSignalSpy called(&first, SIGNAL(called(QStringList)));
    const QStringList files = {QStringLiteral("/a/b.acp"), QStringLiteral("/a/\u017c\u00f3\u0142w.acp")};
    bool handed = false;
    // The second start is another program; here a thread that blocks in its stead.
    QScopedPointer<QThread> second(QThread::create([&] {
        SingleInstance instance(QStringLiteral("settings"));
        handed = instance.settle(files) == SingleInstance::Role::HandedOver;
    }));
    second->start();
    QTRY_VERIFY(second->isFinished());
    QVERIFY(handed);
    QCOMPARE(called.size(), 1);
    QCOMPARE(called.first().first().toStringList(), files);
}

void TestSingleInstance::othersAreLeftAlone()
{
    SingleInstance first(QStringLiteral("settings"));
    SingleInstance demo(QStringLiteral("settings of a demonstration"));
    QCOMPARE(first.settle({}), SingleInstance::Role::First);
    QCOMPARE(demo.settle({}), SingleInstance::Role::First);
}

void TestSingleInstance::firstOneLeaves()
{
    auto first = std::make_unique<SingleInstance>(QStringLiteral("settings"));
    QCOMPARE(first->settle({}), SingleInstance::Role::First);
    QSignalSpy called(first.get(), SIGNAL(called(QStringList)));
    first->retire();
    SingleInstance::Role role = SingleInstance::Role::Unanswered;
    QScopedPointer<QThread> second(QThread::create(
        [&] { role = SingleInstance(QStringLiteral("settings")).settle({QStringLiteral("/a/b.acp")}); }));
    second->start();
    QTest::qWait(300); // a program takes its time to leave; a start must not hand its files to it
    QVERIFY(second->isRunning());
    first.reset();
    QTRY_VERIFY(second->isFinished());
    QCOMPARE(role, SingleInstance::Role::First);
    QVERIFY(called.isEmpty());
}

QTEST_MAIN(TestSingleInstance)
#include "tst_singleinstance.moc"
