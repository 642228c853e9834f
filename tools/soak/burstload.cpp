#include "soak/burstload.h"

#include <QTimer>

namespace soak {

namespace {

const auto port = QStringLiteral("COM1");
constexpr int linesInParcel = 64;
constexpr int linesInSecond = 10; // of the device's clock, whose five digits end a day too early otherwise
constexpr int settleTime = 500; // ms: a program throws away what arrives while it opens

/// A "Varnel 3" that charges six cells with cell data: 39 fields.
QByteArray lineNumber(qint64 number)
{
    const int seconds = int(number / linesInSecond) + 1;
    QByteArray line = "#06C05____B1," + QByteArray::number(seconds).rightJustified(5, '0');
    line += ',' + QByteArray::number(22200 + int(number % 3000));
    line += ",02000,251,00150,00045";
    for (int cell = 0; cell < 16; ++cell)
        line += cell < 6 ? ',' + QByteArray::number(3700 + int(number % 500) + cell) + ",3" : ",0000,0";
    return line + "\r\n";
}

} // namespace

BurstLoad::BurstLoad(const QString &folder, qint64 lines)
    : m_endpoint(folder, port)
    , m_toSend(lines)
{
    connect(&m_endpoint, SIGNAL(listenedChanged(bool)), this, SLOT(onListenedChanged(bool)));
    connect(&m_endpoint, SIGNAL(handedOver(QByteArray,int)), this, SLOT(onHandedOver(QByteArray,int)));
    connect(&m_endpoint, SIGNAL(lost(QByteArray,int)), this, SLOT(onLost(QByteArray,int)));
}

bool BurstLoad::begin(QString *error)
{
    return m_endpoint.plug(error);
}

LineCounts BurstLoad::handedOver() const
{
    return {{port, m_handedOver}};
}

void BurstLoad::onListenedChanged(bool listened)
{
    if (listened)
        QTimer::singleShot(settleTime, this, SLOT(sendMore()));
}

void BurstLoad::onHandedOver(const QByteArray &, int lines)
{
    m_handedOver += lines;
    QMetaObject::invokeMethod(this, "sendMore", Qt::QueuedConnection); // sending from here would nest
}

void BurstLoad::onLost(const QByteArray &, int lines)
{
    m_lost += lines;
}

void BurstLoad::sendMore()
{
    const int count = int(qMin(m_toSend, qint64(linesInParcel)));
    if (count == 0)
        return;
    QByteArray parcel;
    for (int i = 0; i < count; ++i)
        parcel += lineNumber(m_written++);
    m_toSend -= count;
    m_endpoint.send(parcel, count);
}

} // namespace soak
