#pragma once

#include <QSettings>
#include <QStringList>

/// The user's settings: the INI file of the application's organisation and name. Made on the stack where it
/// is needed and let go at the end of the operation.
class VarnelSettings : public QSettings {
    Q_OBJECT

public:
    explicit VarnelSettings(QObject *parent = nullptr);

    /// Names of the ports chosen by the user, as stored.
    QStringList ports() const;
    /// Stored at once.
    void setPorts(const QStringList &ports);
    /// Whether the device's clock is set when a device starts or ends a process.
    bool sendTime() const;
    /// Stored at once.
    void setSendTime(bool on);
    /// Whether live recordings are written to the journal's folder as they
    /// arrive: journal/enabled, on until set.
    bool journalEnabled() const;
    /// Days after which a journal goes to the waste bin: journal/maxAgeDays; 0, which is never, until set.
    int journalMaxAgeDays() const;
    /// The chosen ports that are present now, each once, in the order of listPorts(). Takes milliseconds.
    QStringList listenPorts() const;
};
