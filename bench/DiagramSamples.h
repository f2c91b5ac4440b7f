#pragma once

#include <cmath>
#include <numbers>
#include <random>
#include <vector>

/// Three curves of a phase diagram over a volume fraction, for the library and for its peer alike: a
/// spinodal, and a cloud-point curve and its shadow that share their temperatures. Abscissae grow from point
/// to point.
struct CDiagramSample {
    std::vector<double> x;
    std::vector<double> shadowX;
    std::vector<double> spinodalY;
    std::vector<double> cloudY;
};

/// n points a curve; with a scatter as wide as a measurement's when noise is asked for.
inline CDiagramSample MakeDiagramSample(int nPoints, bool bNoisy) {
    std::mt19937_64 random(1);
    std::normal_distribution<double> noise(0, 1.5);
    CDiagramSample sample;
    for (auto* pColumn : {&sample.x, &sample.shadowX, &sample.spinodalY, &sample.cloudY}) {
        pColumn->resize(static_cast<std::size_t>(nPoints));
    }
    for (std::size_t i = 0; i < sample.x.size(); ++i) {
        const double dX = (static_cast<double>(i) + 0.5) / nPoints;
        const double dArch = std::sin(std::numbers::pi * std::sqrt(dX));
        sample.x[i] = dX;
        sample.shadowX[i] = 0.9 * std::pow(dX, 0.7);
        sample.spinodalY[i] = 250 + 40 * dArch * dArch + (bNoisy ? noise(random) : 0);
        sample.cloudY[i] = 262 + 36 * dArch + (bNoisy ? noise(random) : 0);
    }
    return sample;
}
