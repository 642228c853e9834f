#include "simulator/chemistry.h"

#include <algorithm>
#include <cmath>

namespace sim {

const QVector<Chemistry> &chemistries()
{
    static const QVector<Chemistry> all = {
        {"NiCd", 1, 0, 1650, 900, 8, 9, {1000, 1180, 1215, 1235, 1250, 1260, 1270, 1280, 1295, 1320, 1370}},
        {"NiMh", 2, 0, 1650, 1000, 4, 14, {1020, 1190, 1225, 1245, 1258, 1268, 1278, 1290, 1305, 1330, 1385}},
        {"Pb", 3, 0, 2400, 1850, 0, 20, {1930, 1965, 1990, 2010, 2030, 2048, 2065, 2082, 2100, 2118, 2140}},
        {"RAM", 4, 0, 1650, 1050, 0, 60, {1050, 1180, 1240, 1285, 1320, 1350, 1380, 1410, 1445, 1490, 1560}},
        {"LiIo", 5, 5, 4100, 2900, 0, 60, {3000, 3450, 3540, 3590, 3625, 3665, 3720, 3790, 3880, 3980, 4090}},
        {"LiPo", 6, 6, 4200, 3200, 0, 15, {3270, 3690, 3740, 3775, 3800, 3840, 3880, 3935, 4010, 4090, 4190}},
        {"LiTa", 7, 0, 3450, 2500, 0, 60, {2500, 2700, 2780, 2840, 2890, 2940, 3000, 3070, 3160, 3280, 3440}},
        {"LiFe", 8, 7, 3600, 2500, 0, 18, {2600, 3140, 3210, 3250, 3275, 3288, 3295, 3305, 3325, 3345, 3460}},
        {"LiS", 9, 0, 2450, 1600, 0, 80, {1500, 2050, 2090, 2105, 2115, 2125, 2140, 2170, 2220, 2300, 2430}},
        {"NiZn", 10, 0, 1880, 1250, 0, 15,
            {1200, 1560, 1600, 1625, 1645, 1660, 1672, 1685, 1702, 1725, 1790}},
        {"LiXX", 11, 0, 4400, 2900, 0, 30,
            {2900, 3500, 3600, 3680, 3750, 3830, 3920, 4020, 4130, 4260, 4390}},
        {"LiHV", 12, 8, 4350, 3200, 0, 15,
            {3300, 3700, 3755, 3790, 3820, 3865, 3920, 3995, 4090, 4200, 4340}},
        {"LTO", 0, 0, 2750, 1700, 0, 12, {1600, 2130, 2190, 2220, 2245, 2265, 2290, 2320, 2365, 2440, 2680}},
    };
    return all;
}

int findChemistry(const QString &name)
{
    const auto &all = chemistries();
    const auto found = std::find_if(all.begin(), all.end(), [&name](const Chemistry &one) {
        return name.compare(QLatin1String(one.name), Qt::CaseInsensitive) == 0;
    });
    return found == all.end() ? -1 : int(found - all.begin());
}

double restVoltage(const Chemistry &chemistry, double share)
{
    constexpr double emptySlope = 5000; // mV per whole charge, below empty
    constexpr double fullSlope = 3000; // above full
    const auto &rest = chemistry.rest;
    if (share <= 0)
        return std::max(0.0, rest.front() + share * emptySlope);
    if (share >= 1)
        return rest.back() + (share - 1) * fullSlope;
    // cubic pieces whose slope at each knot is the harmonic mean of its neighbours' never overshoot
    const int i = std::min(9, int(share * 10));
    const auto rise = [&rest](int k) { return rest[size_t(k) + 1] - rest[size_t(k)]; };
    const auto slope = [&rise](int knot) {
        if (knot == 0 || knot == 10)
            return rise(knot == 0 ? 0 : 9);
        return 2 * rise(knot - 1) * rise(knot) / (rise(knot - 1) + rise(knot));
    };
    const double t = share * 10 - i, t2 = t * t, t3 = t2 * t;
    return (2 * t3 - 3 * t2 + 1) * rest[size_t(i)] + (t3 - 2 * t2 + t) * slope(i)
        + (3 * t2 - 2 * t3) * rest[size_t(i) + 1] + (t3 - t2) * slope(i + 1);
}

} // namespace sim
