#pragma once

#include "ports/portinfo.h"

#include <QByteArray>
#include <QHash>
#include <QObject>

#include <optional>

class QTimer;

/// Tells which ports come and go, within two periods. Looks once in each at a fingerprint that costs next to
/// nothing and asks the system for its ports only when that has changed.
class PortWatcher : public QObject {
    Q_OBJECT

public:
    static constexpr int usualPeriod = 1000; // ms

    /// Ports that exist now count as known. Watching starts at once, with a look every `period` ms.
    explicit PortWatcher(QObject *parent = nullptr, int period = usualPeriod);

public slots:
    /// The device behind `name` was seen to go away: after a period the port is reported as removed, and as
    /// arrived when a port of that name is still or again there. Without it a quick replug might pass unseen.
    void noteLost(const QString &name);

signals:
    void arrived(const PortInfo &port);
    /// Its location and description are those of the last sight. A name that stands for another device now is
    /// removed and arrives.
    void removed(const PortInfo &port);

private slots:
    void look();

private:
    struct Known {
        PortInfo port;
        QByteArray identity;
    };
    using KnownPorts = QHash<QString, Known>;

    static KnownPorts presentPorts(QStringList *order);

    QTimer *m_timer; // child
    std::optional<QByteArray> m_fingerprint; // when the ports were listed last; none: to be listed anew
    KnownPorts m_known;
};
