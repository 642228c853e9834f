#pragma once

#include <QObject>
#include <QStringList>

namespace sim {

class Rack;
class SimDevice;

/// Commands that people and scripts type while the devices run, one a line.
class Console : public QObject {
    Q_OBJECT

public:
    /// `rack` is not owned and outlives this.
    explicit Console(Rack *rack, QObject *parent = nullptr);

    /// Reads commands from the standard input until it ends; its end does not end the devices.
    void listen();
    /// Carries out one line; the answer for the person who typed it, empty when there is nothing to say.
    QString execute(const QString &line);
    static QString help();

signals:
    void quitRequested();

private slots:
    void onReadable();

private:
    QString executeFor(SimDevice *device, const QStringList &words);

    Rack *m_rack; // not owned
    QByteArray m_input;
};

} // namespace sim
