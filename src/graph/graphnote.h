#pragma once

#include <QDateTime>

class SeriesStore;

/// What a graph window notes beside its curves while something is wrong with its recording.
class GraphNote {
public:
    /// What there is to note about the recording in `store`; empty as a rule.
    QString text(const SeriesStore &store) const;

    /// Since when the device has been silent; invalid while it has not.
    QDateTime silentSince() const { return m_silentSince; }
    /// False when that was known.
    bool setSilentSince(const QDateTime &since);
    /// A record found no memory at `since`: the window grows no more.
    void setFullSince(const QDateTime &since) { m_fullSince = since; }
    bool isFull() const { return m_fullSince.isValid(); }

private:
    QDateTime m_silentSince;
    QDateTime m_fullSince;
};
