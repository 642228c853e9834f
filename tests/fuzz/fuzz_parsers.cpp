#include "protocol/fixedlayout.h"
#include "protocol/lineparsers.h"
#include "fuzzcheck.h"
#include "support/records.h"

#include <QByteArrayList>

namespace {

bool parse(Varnel3Data &record, const QByteArray &line)
{
    return record.parseLine(QLatin1String(line.constData(), line.size()));
}

} // namespace

// Lines as the framing gives them, parsed one after the other into one record.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArray input(reinterpret_cast<const char *>(data), int(size));
    Varnel3Data record;
    const QByteArrayList lines = input.split('\n');
    for (const QByteArray &line : lines) {
        Varnel3Data usual = record;
        usual.device = Varnel3Data::Varnel3;
        const bool good = parse(record, line);
        if (Varnel3Data quick; parseFixedLayout(quick, textOf(line)))
            check(parseVarnel3(usual, LineFields(textOf(line))) && fieldsOf(usual) == fieldsOf(record),
                "the quick way comes to the same");
        const bool resistances = record.parseResistanceLine(QString::fromLatin1(line));
        check(!good || !resistances, "no line is both");
        if (!good)
            continue;
        check(written(record).size() + 2 <= maxRecordLineLength, "a record line fits its buffer");
        Varnel3Data again;
        const bool taken = parse(again, written(record));
        check(taken == isRecordLineReadable(record), "what can be read again is known beforehand");
        check(!taken || written(again) == written(record), "a line that was read is written as it was");
    }
    check(!record.toString().isEmpty(), "a log has words for it");
    return 0;
}
