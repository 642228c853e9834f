#include "app/batch.h"

#include "app/commandline.h"
#include "documents/fileconversion.h"

#include <cstdio>

namespace {

enum Status { Done = 0, Failed = 1, Refused = 2 };

int say(const QString &text, std::FILE *where, Status status)
{
    std::fputs(qPrintable(text), where);
    return status;
}

QString convert(const CommandLine &line)
{
    const QString &input = line.files.first();
    return line.task == CommandLine::Render ? convertToPicture(input, line.output, line.size, line.switches)
                                            : convertToCsv(input, line.output);
}

} // namespace

int runBatch(const CommandLine &line)
{
    if (line.task == CommandLine::Print)
        return say(line.message, stdout, Done);
    if (line.task == CommandLine::Refuse)
        return say(line.message, stderr, Refused);
    const QString failure = convert(line);
    return failure.isEmpty() ? int(Done)
                             : say(QStringLiteral("varnelgraph: %1\n").arg(failure), stderr, Failed);
}
