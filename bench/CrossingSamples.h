#pragma once

#include <array>
#include <cmath>
#include <memory>
#include <numbers>
#include <random>
#include <vector>

#include "tessara/numeric/MultipartTable.h"

/// The polylines whose crossings are timed: always the same for the same arguments.
namespace bench {

using CPoint = std::array<double, 2>;
using CPolyline = std::vector<CPoint>;
using CPicture = std::vector<CPolyline>;

/// A closed curve of eight random harmonics, around (0, 0) and about as large as 1.
inline CPolyline Loop(int nSegments, unsigned nSeed) {
    constexpr int HARMONICS = 8;
    std::mt19937_64 random(nSeed);
    std::normal_distribution<double> normal;
    double coefficients[HARMONICS][4];
    for (int k = 0; k < HARMONICS; ++k) {
        for (double& dCoefficient : coefficients[k]) {
            dCoefficient = normal(random) / (k + 1);
        }
    }
    CPolyline loop;
    for (int i = 0; i <= nSegments; ++i) {
        const double dAngle = 2 * std::numbers::pi * (i % nSegments) / nSegments;
        CPoint point{};
        for (int k = 0; k < HARMONICS; ++k) {
            const double dCos = std::cos((k + 1) * dAngle), dSin = std::sin((k + 1) * dAngle);
            point[0] += coefficients[k][0] * dCos + coefficients[k][1] * dSin;
            point[1] += coefficients[k][2] * dCos + coefficients[k][3] * dSin;
        }
        loop.push_back(point);
    }
    return loop;
}

/// A walk of normally distributed steps from (0, 0).
inline CPolyline Walk(int nSegments, unsigned nSeed) {
    std::mt19937_64 random(nSeed);
    std::normal_distribution<double> step;
    CPolyline walk = {{0, 0}};
    for (int i = 0; i < nSegments; ++i) {
        const double dX = step(random), dY = step(random);
        walk.push_back({walk.back()[0] + dX, walk.back()[1] + dY});
    }
    return walk;
}

/// A spiral around (dCentre, 0) out to the radius 1.
inline CPolyline Spiral(int nSegments, double dCentre, double dTurns) {
    CPolyline spiral;
    for (int i = 0; i <= nSegments; ++i) {
        const double dRadius = static_cast<double>(i) / nSegments;
        const double dAngle = 2 * std::numbers::pi * dTurns * dRadius;
        spiral.push_back({dCentre + dRadius * std::cos(dAngle), dRadius * std::sin(dAngle)});
    }
    return spiral;
}

inline std::unique_ptr<CMultipartTable> Table(const CPicture& picture) {
    auto pTable = std::make_unique<CMultipartTable>(2);
    int nRows = 0;
    for (const CPolyline& line : picture) {
        nRows += static_cast<int>(line.size());
    }
    pTable->Allocate(nRows);
    int nRow = 0;
    for (const CPolyline& line : picture) {
        pTable->BeginPart(nRow, 0);
        for (const CPoint& point : line) {
            pTable->m_ppData[0][nRow] = point[0];
            pTable->m_ppData[1][nRow] = point[1];
            ++nRow;
        }
        pTable->EndPart(nRow - 1);
    }
    return pTable;
}

} // namespace bench
