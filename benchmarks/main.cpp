#include "files/datafilepieces.h"
#include "files/wholefile.h"
#include "samplerecording.h"
#include "startprofile.h"

#include <QApplication>

#include <benchmark/benchmark.h>

/// Painting needs an application; no window is shown, so the offscreen platform will do.
/// --write-sample FILE writes the recording that file benchmarks use, and ends.
/// --start NS tells how the program's start, asked for at NS on the steady clock, goes on from there, and
/// ends.
int main(int argc, char **argv)
{
    if (argc == 3 && qstrcmp(argv[1], "--start") == 0)
        return profileStart(argc, argv, QByteArray(argv[2]).toLongLong());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "default.debug=false");
    const QApplication application(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], "--write-sample") == 0) {
        const RecordList records = sampleRecording(sampleCount);
        DataFilePieces lines(records);
        return writeWholeFile(QString::fromLocal8Bit(argv[2]), lines).written ? 0 : 1;
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
