#pragma once

#include "devices/endedprocess.h"

#include <QObject>
#include <QVector>

class DeskReaderHost;
class EndNotice;
class LiveWindows;
class StatusFacts;

/// Ends of processes that no box tells any more, or ever told: the status bar names each until its window is
/// current or closed. One without a window stays until the next process of its port.
class UnseenEnds : public QObject {
    Q_OBJECT

public:
    /// Nothing is owned; `windows` and `facts` outlive this.
    UnseenEnds(DeskReaderHost *host, EndNotice *notice, const LiveWindows *windows, StatusFacts *facts,
        QObject *parent);

public slots:
    void add(const EndedProcess &process);
    void onRecordingBegins(const QString &portName);
    /// Takes out those whose window is current or gone, for the user has a look.
    void look();

private:
    void tell() const;

    const LiveWindows *m_windows;
    StatusFacts *m_facts;
    QVector<EndedProcess> m_ends;
};
