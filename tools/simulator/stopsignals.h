#pragma once

#include <QObject>

namespace sim {

/// Turns the signals that end a program (interrupt, terminate, hang-up) into a Qt signal. One a process.
class StopSignals : public QObject {
    Q_OBJECT

public:
    explicit StopSignals(QObject *parent = nullptr);

signals:
    void arrived();

private slots:
    void onReadable();
};

} // namespace sim
