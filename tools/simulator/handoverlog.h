#pragma once

#include <QElapsedTimer>
#include <QFile>

namespace sim {

/// What a line on the wire is, for whoever counts.
enum class LineKind { Measurement, End, Resistance, Reply, Spoiled, Raw };
constexpr int lineKinds = int(LineKind::Raw) + 1;

const char *lineKindName(LineKind kind);

/// A text file of every line handed over: milliseconds, port, kind and text, separated by tabs. Lines that
/// nobody took have "lost-" before their kind.
class HandOverLog {
public:
    /// False with the reason in `error` when `fileName` can't be written.
    bool open(const QString &fileName, QString *error);
    void write(const QString &port, LineKind kind, bool lost, const QByteArray &bytes);
    void flush() { m_file.flush(); }

private:
    QFile m_file;
    QElapsedTimer m_clock;
};

} // namespace sim
