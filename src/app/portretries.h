#pragma once

#include <QElapsedTimer>
#include <QMap>
#include <QObject>

class QTimer;

/// A port that has just arrived often can't be opened yet. Asks for one attempt after the other, the first at
/// once, until the port is given up or no longer waited for.
class PortRetries : public QObject {
    Q_OBJECT

public:
    static constexpr int interval = 250; // ms
    static constexpr int patience = 3000; // ms

    explicit PortRetries(QObject *parent);

    void start(const QString &portName);
    void stop(const QString &portName);

signals:
    /// Try to open `portName`; with `last` set there will be no more attempt.
    void attempt(const QString &portName, bool last);

private slots:
    void onTimer();

private:
    QTimer *timer;
    QMap<QString, QElapsedTimer> waiting;
};
