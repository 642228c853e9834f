#include "app/batch/batch.h"

#include "app/batch/commandline.h"
#include "app/batch/logbookexport.h"
#include "app/process/console.h"
#include "documents/fileconversion.h"

namespace {

enum Status { Done = 0, Failed = 1, Refused = 2 };

int say(const QString &text, Channel channel, Status status)
{
    tellCaller(text, channel);
    return status;
}

QString words(const QString &text)
{
    return QStringLiteral("varnelgraph: %1\n").arg(text);
}

QString writeLogbook(const CommandLine &line)
{
    QString notice;
    const QString failure = exportLogbook(line.output, &notice);
    if (!notice.isEmpty())
        tellCaller(words(notice), Channel::Error);
    return failure;
}

QString convert(const CommandLine &line)
{
    if (line.task == CommandLine::LogbookCsv)
        return writeLogbook(line);
    const QString &input = line.files.first();
    return line.task == CommandLine::Render ? convertToPicture(input, line.output, line.size, line.switches)
                                            : convertToCsv(input, line.output);
}

} // namespace

int runBatch(const CommandLine &line)
{
    if (line.task == CommandLine::Print)
        return say(line.message, Channel::Output, Done);
    if (line.task == CommandLine::Refuse)
        return say(line.message, Channel::Error, Refused);
    const QString failure = convert(line);
    return failure.isEmpty() ? int(Done) : say(words(failure), Channel::Error, Failed);
}
