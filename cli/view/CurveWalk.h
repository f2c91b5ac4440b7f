#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "tessara/plot/PixelMap.h"

namespace tessara {

/// The points of a curve in the order in which a walk takes them: part after part. What is not a number is
/// left out and joins nothing.
class CWalkPath {
public:
    struct STOP {
        double dX;
        double dY;
        bool bJoined; ///< by a line to the stop before
    };

    /// Adds points that lines join.
    void AddPart(std::span<const double> x, std::span<const double> y);
    /// Adds points without lines.
    void AddPoints(std::span<const double> x, std::span<const double> y);

    const std::vector<STOP>& GetStops() const { return m_stops; }

private:
    std::vector<STOP> m_stops;
};

/// A mark's way along a curve, in the part of it that a window shows. A step leads to the next shown point of
/// the curve that lies at another pixel, over the ends of parts.
///
/// Points are told by their index in the path. The path must outlive the walk.
class CCurveWalk {
public:
    enum class EDirection { back, forward };

    CCurveWalk(const CWalkPath& path, const CPixelMap& map) : m_stops(path.GetStops()), m_map(map) {}

    /// The first shown point in a direction, from the end where that begins.
    std::optional<std::size_t> GetFirst(EDirection eDirection) const;
    /// The shown point that lies nearest to another, by pixels.
    std::optional<std::size_t> GetNearest(double dX, double dY) const;
    /// A step from a mark that lies on the curve: at the point nAt, or, when there is none, where the curve
    /// comes nearest. A mark outside the window comes back into it.
    std::optional<std::size_t> Step(double dX, double dY, std::optional<std::size_t> at,
                                    EDirection eDirection) const;

private:
    /// The points before and behind a place on the curve.
    struct PLACE {
        std::ptrdiff_t nBefore;
        std::ptrdiff_t nBehind;
    };

    bool IsShown(double dX, double dY) const;
    PLACE Locate(double dX, double dY) const;
    std::optional<std::size_t> Search(PLACE place, EDirection eDirection, const POINT* pExcept) const;

    const std::vector<CWalkPath::STOP>& m_stops;
    const CPixelMap m_map;
};

} // namespace tessara
