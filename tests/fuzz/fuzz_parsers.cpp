#include "protocol/recordline.h"
#include "data/varnel3data.h"
#include "fuzzcheck.h"
#include "support/records.h"

#include <QByteArray>
#include <QList>

namespace {

QLatin1String latin1(const QByteArray &line)
{
    return QLatin1String(line.constData(), line.size());
}

QString text(const QByteArray &line)
{
    return QString(latin1(line));
}

QByteArray recordLine(const Varnel3Data &record)
{
    char line[maxRecordLineLength];
    const char *end = writeRecordLine(line, record);
    check(end - line <= maxRecordLineLength, "a record line fits its buffer");
    return QByteArray(line, int(end - line));
}

void checkRoundTrip(const Varnel3Data &record)
{
    const QByteArray line = recordLine(record);
    Varnel3Data again;
    Varnel3Data textAgain;
    const bool taken = again.parseLine(latin1(line));
    check(taken == isRecordLineReadable(record), "what can be read again is known beforehand");
    check(textAgain.parseLine(text(line)) == taken, "by either road");
    check(fieldsOf(textAgain) == fieldsOf(again), "with the same result by either road");
    if (taken)
        check(recordLine(again) == line, "a line that was read is written as it was");
}

} // namespace

// Lines as the framing gives them, parsed one after the other into one record.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArray input(reinterpret_cast<const char *>(data), int(size));
    Varnel3Data record;
    Varnel3Data fromText;
    const QList<QByteArray> lines = input.split('\n');
    for (const QByteArray &line : lines) {
        const bool good = record.parseLine(latin1(line));
        check(fromText.parseLine(text(line)) == good, "bytes and text are parsed alike");
        const bool resistances = record.parseResistanceLine(latin1(line));
        check(fromText.parseResistanceLine(text(line)) == resistances, "'!' lines too");
        check(fieldsOf(record) == fieldsOf(fromText), "with the same result");
        check(!good || !resistances, "no line is both");
        record.maxBalanceChargeMah();
        record.totalBalanceCharge();
        if (good)
            checkRoundTrip(record);
    }
    check(!record.toString().isEmpty(), "a log has words for it");
    return 0;
}
