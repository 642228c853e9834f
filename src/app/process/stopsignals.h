#pragma once

#include <QObject>

/// The system's wish that the program end: a signal (interrupt, terminate, hang-up) here; on Windows the end
/// of the session alone says so, to the windows. Signals that whoever started the program has had ignored
/// stay so. One a process, from its creation on, until its end.
class StopSignals : public QObject {
    Q_OBJECT

public:
    explicit StopSignals(QObject *parent);

signals:
    /// From the event loop.
    void arrived();

private slots:
    void onReadable();
};
