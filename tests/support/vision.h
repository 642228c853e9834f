#pragma once

#include <QColor>
#include <QGenericMatrix>
#include <QVector3D>

#include <cmath>

/// How far apart two colours look at the least to people who see all colours, no red or no green (Machado,
/// Oliveira and Fernandes 2009): steps of CIELAB under D65. Up to 10 two thin lines look alike.
inline double leastDistance(const QColor &first, const QColor &second)
{
    using Triple = QGenericMatrix<1, 3, double>;
    using Matrix = QGenericMatrix<3, 3, double>;
    static constexpr double eyes[][9] = {{1, 0, 0, 0, 1, 0, 0, 0, 1},
        {0.152286, 1.052583, -0.204868, 0.114503, 0.786281, 0.099216, -0.003882, -0.048116, 1.051998},
        {0.367322, 0.860646, -0.227968, 0.280085, 0.672501, 0.047413, -0.011820, 0.042940, 0.968881}};
    static constexpr double xyz[] = {0.433953, 0.376219, 0.189828, 0.212673, 0.715152, 0.072175, 0.017758,
        0.109477, 0.872766}; // each by its white
    const auto linear
        = [](double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    const auto lab = [&](const QColor &colour, const double *eye) {
        const double parts[] = {linear(colour.redF()), linear(colour.greenF()), linear(colour.blueF())};
        Triple seen = Matrix(eye) * Triple(parts);
        for (int i = 0; i < 3; ++i)
            seen(i, 0) = qBound(0.0, seen(i, 0), 1.0);
        const Triple f = Matrix(xyz) * seen;
        const auto root = [&](int i) {
            return f(i, 0) > 216.0 / 24389 ? std::cbrt(f(i, 0)) : (24389.0 / 27 * f(i, 0) + 16) / 116;
        };
        return QVector3D(
            float(116 * root(1)), float(500 * (root(0) - root(1))), float(200 * (root(1) - root(2))));
    };
    double least = 1000;
    for (const auto &eye : eyes)
        least = qMin(least, double((lab(first, eye) - lab(second, eye)).length()));
    return least;
}
