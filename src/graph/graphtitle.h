#pragma once

#include <QString>

/// What the title of a graph window says: which port the records come from, in which data file they stand,
/// and whether all of them do.
class GraphTitle {
public:
    GraphTitle();

    const QString &text() const { return m_text; }
    /// The port of a live recording, after its end too; empty for what comes from a file.
    const QString &portName() const { return m_portName; }
    /// Where the records come from: name of the data file, without its folder, and of the port; empty for
    /// neither.
    QString source() const;
    /// Records came in since the last save.
    bool isUnsaved() const { return m_isUnsaved; }

    void setPortName(const QString &port);
    /// A record came in, the recording's `first` one or another.
    void recordCame(bool first);
    /// All is as it was read from the file `path`.
    void loaded(const QString &path);
    /// What was there a moment ago now stands in the file `path`; `more` came meanwhile. The first file keeps
    /// its name in the title.
    void saved(const QString &path, bool more);

private:
    QString nameOf(const QString &file) const;

    QString m_text;
    QString m_portName;
    QString m_dataFile; // path; empty while the records stand in none
    bool m_isNeverSaved = true;
    bool m_isUnsaved = false;
};
