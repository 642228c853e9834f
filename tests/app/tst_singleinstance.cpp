#include "app/singleinstance.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

/// A second start hands its files to the first.
class TestSingleInstance : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void filesAreHandedOver();
    void othersAreLeftAlone();
    void firstOneGone();

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
    QVERIFY(first.claim());
    QSignalSpy called(&first, SIGNAL(called(QStringList)));
    const QStringList files = {QStringLiteral("/a/b.acp"), QStringLiteral("/a/\u017c\u00f3\u0142w.acp")};
    bool handed = false;
    // The second start is another program; here a thread that blocks in its stead.
    QScopedPointer<QThread> second(QThread::create([&] {
        SingleInstance instance(QStringLiteral("settings"));
        handed = !instance.claim() && instance.handOver(files);
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
    QVERIFY(first.claim());
    QVERIFY(demo.claim());
}

void TestSingleInstance::firstOneGone()
{
    {
        SingleInstance first(QStringLiteral("settings"));
        QVERIFY(first.claim());
    }
    SingleInstance second(QStringLiteral("settings"));
    QVERIFY(second.claim());
}

QTEST_MAIN(TestSingleInstance)
#include "tst_singleinstance.moc"
