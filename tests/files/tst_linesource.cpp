#include "files/linesource.h"

#include "support/columns.h"

#include <QBuffer>

namespace {

QByteArrayList allLines(QIODevice &device, int chunk)
{
    LineSource source(device, chunk);
    QByteArrayList lines;
    QLatin1String line;
    for (;;) {
        const LineSource::Found found = source.next(&line);
        if (found == LineSource::Found::Line)
            lines += QByteArray(line.data(), line.size());
        else if (found == LineSource::Found::Error)
            return {"error"};
        else if (found == LineSource::Found::End)
            return lines;
    }
}

QByteArray utf16(const QString &text, bool little)
{
    QByteArray bytes;
    for (const QChar c : QChar(0xfeff) + text) {
        bytes += char(little ? c.cell() : c.row());
        bytes += char(little ? c.row() : c.cell());
    }
    return bytes;
}

} // namespace

/// Lines out of bytes: ends, byte-order marks, chunk borders, lines too long to keep.
class TestLineSource : public QObject {
    Q_OBJECT

private slots:
    void cuts_data()
    {
        columns<QByteArray, QByteArrayList>({"bytes", "lines"});
        const auto row = [](const char *name, const QByteArray &bytes, const QByteArrayList &lines) {
            QTest::newRow(name) << bytes << lines;
        };
        const QByteArrayList three = {"one", "", "three"};
        row("empty", "", {});
        row("unix", "one\n\nthree\n", three);
        row("windows", "one\r\n\r\nthree\r\n", three);
        row("mixed, no last end", "one\r\n\nthree", three);
        row("mark", "\xef\xbb\xbfone\n\nthree\n", three);
        row("only a mark", "\xef\xbb\xbf", {});
        row("utf-16 little", utf16(QStringLiteral("one\r\n\r\nthree"), true), three);
        row("utf-16 big", utf16(QStringLiteral("one\n\nthree\n"), false), three);
        row("utf-16 beyond", utf16(QStringLiteral("a\u0142\u00e9\n"), true), {QByteArray("a\0\xe9", 3)});
        row("zero bytes", QByteArray("a\0b\nc", 5), {QByteArray("a\0b", 3), "c"});
    }

    // Every chunk size, so that each border falls everywhere.
    void cuts()
    {
        QFETCH(QByteArray, bytes);
        for (int chunk = 16; chunk < 40; ++chunk) {
            QBuffer buffer(&bytes);
            buffer.open(QIODevice::ReadOnly);
            QTEST(allLines(buffer, chunk), "lines");
        }
    }

    void longLineIsCutAndSkipped()
    {
        QByteArray bytes = "first\n" + QByteArray(1000, 'x') + "\nlast\n";
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        LineSource source(buffer, 64);
        QLatin1String line;
        QCOMPARE(source.next(&line), LineSource::Found::Line);
        LineSource::Found found = source.next(&line);
        for (; found == LineSource::Found::Nothing; found = source.next(&line)) { }
        QCOMPARE(found, LineSource::Found::Line);
        QVERIFY(source.wasCut());
        QCOMPARE(line, QLatin1String(QByteArray(64, 'x')));
        for (found = source.next(&line); found == LineSource::Found::Nothing; found = source.next(&line)) { }
        QCOMPARE(line, QLatin1String("last"));
        QVERIFY(!source.wasCut());
        QCOMPARE(source.lineNumber(), 3);
        QCOMPARE(source.next(&line), LineSource::Found::End);
        QCOMPARE(source.bytesRead(), qint64(bytes.size()));
    }

    void deviceFailure()
    {
        QBuffer closed;
        QTest::ignoreMessage(QtWarningMsg, "QIODevice::read (QBuffer): device not open");
        QCOMPARE(allLines(closed, 64), QByteArrayList{"error"});
    }
};

QTEST_GUILESS_MAIN(TestLineSource)
#include "tst_linesource.moc"
