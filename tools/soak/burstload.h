#pragma once

#include "simulator/ptyendpoint.h"
#include "soak/load.h"

#include <QObject>

namespace soak {

/// One device that sends a given number of lines as fast as they are taken.
class BurstLoad : public QObject, public Load {
    Q_OBJECT

public:
    BurstLoad(const QString &folder, qint64 lines);

    bool begin(QString *error) override;
    void quieten() override { m_toSend = 0; }
    LineCounts handedOver() const override;
    qint64 lost() const override { return m_lost; }

private slots:
    void onListenedChanged(bool listened);
    void onHandedOver(const QByteArray &bytes, int lines);
    void onLost(const QByteArray &bytes, int lines);
    void sendMore();

private:
    sim::PtyEndpoint m_endpoint;
    qint64 m_toSend;
    qint64 m_written = 0;
    qint64 m_handedOver = 0;
    qint64 m_lost = 0;
};

} // namespace soak
