#pragma once

class FilePieces;
class QSize;
class QString;
struct ViewSwitches;

// A data file as one for other programs, read and written at once: for who has no window that is to stay
// alive. `output` "-" is standard output. Empty when it was written, else what kept it from that, with the
// file's name.

QString convertToCsv(const QString &fileName, const QString &output);
/// The graph, of `size` pixels and as `switches` say, in the format that `output` ends in.
QString convertToPicture(
    const QString &fileName, const QString &output, const QSize &size, const ViewSwitches &switches);
/// Writes `pieces` in the same way.
QString writeOutput(const QString &output, FilePieces &pieces);
