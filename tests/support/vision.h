#pragma once

#include <QColor>
#include <QtMath>

#include <array>
#include <cmath>

/// How far apart colours look to people who see them differently.
namespace Vision {

enum Kind { Usual, Protanopia, Deuteranopia };
using Triple = std::array<double, 3>;

inline Triple product(const std::array<Triple, 3> &matrix, const Triple &value)
{
    Triple result;
    for (size_t i = 0; i < 3; ++i)
        result[i] = matrix[i][0] * value[0] + matrix[i][1] * value[1] + matrix[i][2] * value[2];
    return result;
}

/// `colour` as a dichromat sees it (Machado, Oliveira and Fernandes 2009), in CIELAB under D65.
inline Triple lab(const QColor &colour, Kind kind)
{
    static constexpr std::array<Triple, 3> kinds[] = {{Triple{1, 0, 0}, Triple{0, 1, 0}, Triple{0, 0, 1}},
        {Triple{0.152286, 1.052583, -0.204868}, Triple{0.114503, 0.786281, 0.099216},
            Triple{-0.003882, -0.048116, 1.051998}},
        {Triple{0.367322, 0.860646, -0.227968}, Triple{0.280085, 0.672501, 0.047413},
            Triple{-0.011820, 0.042940, 0.968881}}};
    static constexpr std::array<Triple, 3> xyz = {Triple{0.433953, 0.376219, 0.189828},
        Triple{0.212673, 0.715152, 0.072175}, Triple{0.017758, 0.109477, 0.872766}}; // each by its white
    const auto linear
        = [](double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    Triple seen
        = product(kinds[kind], {linear(colour.redF()), linear(colour.greenF()), linear(colour.blueF())});
    for (double &part : seen)
        part = qBound(0.0, part, 1.0);
    Triple f = product(xyz, seen);
    for (double &part : f)
        part = part > 216.0 / 24389 ? std::cbrt(part) : (24389.0 / 27 * part + 16) / 116;
    return {116 * f[1] - 16, 500 * (f[0] - f[1]), 200 * (f[1] - f[2])};
}

/// CIEDE2000. Below 10 two thin lines look alike.
inline double distance(const QColor &first, const QColor &second, Kind kind)
{
    const Triple a = lab(first, kind);
    const Triple b = lab(second, kind);
    const auto seventh
        = [](double c) { return std::sqrt(std::pow(c, 7) / (std::pow(c, 7) + std::pow(25, 7))); };
    const double g = 1.5 - 0.5 * seventh((std::hypot(a[1], a[2]) + std::hypot(b[1], b[2])) / 2);
    const double c1 = std::hypot(g * a[1], a[2]);
    const double c2 = std::hypot(g * b[1], b[2]);
    const double h1 = qRadiansToDegrees(std::atan2(a[2], g * a[1]));
    const double h2 = qRadiansToDegrees(std::atan2(b[2], g * b[1]));
    const double dh = c1 * c2 > 0 ? std::remainder(h2 - h1, 360) : 0;
    const double h = c1 * c2 > 0 ? h1 + dh / 2 : h1 + h2;
    const double c = (c1 + c2) / 2;
    const double l = std::pow((a[0] + b[0]) / 2 - 50, 2);
    const auto wave
        = [&](double times, double shift) { return std::cos(qDegreesToRadians(times * h + shift)); };
    const double t = 1 - 0.17 * wave(1, -30) + 0.24 * wave(2, 0) + 0.32 * wave(3, 6) - 0.2 * wave(4, -63);
    const double dl = (b[0] - a[0]) / (1 + 0.015 * l / std::sqrt(20 + l));
    const double dc = (c2 - c1) / (1 + 0.045 * c);
    const double dhue = 2 * std::sqrt(c1 * c2) * std::sin(qDegreesToRadians(dh / 2)) / (1 + 0.015 * c * t);
    const double turn = std::remainder(h - 275, 360) / 25;
    const double rotation = -2 * seventh(c) * std::sin(qDegreesToRadians(60 * std::exp(-turn * turn)));
    return std::sqrt(dl * dl + dc * dc + dhue * dhue + rotation * dc * dhue);
}

} // namespace Vision
