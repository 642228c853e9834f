#pragma once

#include <QSettings>
#include <QStringList>

/// The user's settings: the INI file of the application's organisation and name. Made on the stack where it
/// is needed and let go at the end of the operation. What is written is in force at once, for every object of
/// this class, and goes to the file by SettingsKeeper's thread: to be used by this class, not by its base.
class VarnelSettings : public QSettings {
    Q_OBJECT

public:
    explicit VarnelSettings(QObject *parent = nullptr);
    ~VarnelSettings() override;

    QVariant value(const QString &key, const QVariant &defaultValue = QVariant()) const;
    bool contains(const QString &key) const { return value(key).isValid(); }
    void setValue(const QString &key, const QVariant &value);
    void remove(const QString &key) { setValue(key, QVariant()); }
    void clear();
    /// Has what was set written now; so does the end of the object.
    void sync();

    /// Names of the ports chosen by the user, as stored.
    QStringList ports() const;
    /// Stored at once.
    void setPorts(const QStringList &ports);
    /// Whether the device's clock is set when a device starts or ends a process.
    bool sendTime() const;
    /// Stored at once.
    void setSendTime(bool on);
    /// The code of the language that the user wants the texts in; empty for the system's.
    QString language() const;
    /// Stored at once; an empty code removes it.
    void setLanguage(const QString &code);
    /// Whether live recordings are written to the journal's folder as they
    /// arrive: journal/enabled, on until set.
    bool journalEnabled() const;
    /// Days after which a journal goes to the waste bin: journal/maxAgeDays; 0, which is never, until set.
    int journalMaxAgeDays() const;
    /// The chosen ports that are present now, each once, in the order of listPorts(). Takes milliseconds.
    QStringList listenPorts() const;

private:
    bool m_changed = false;
};
