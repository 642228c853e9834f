#pragma once

#include <QByteArray>

#include <random>

/// VARNEL_SEED, or any where that is not set. Printed, so that what it has found can be had again.
inline unsigned randomSeed()
{
    bool given = false;
    const unsigned wanted = qgetenv("VARNEL_SEED").toUInt(&given);
    const unsigned seed = given ? wanted : std::random_device()();
    qInfo("VARNEL_SEED=%u", seed);
    return seed;
}
