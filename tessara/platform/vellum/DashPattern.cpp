#include "tessara/platform/vellum/DashPattern.h"

#include <array>
#include <cmath>
#include <numeric>
#include <vector>

namespace tessara {

namespace {

constexpr std::array<double, 2> DASHES{72, 44};
constexpr std::array<double, 2> DOTS{4, 36};
constexpr std::array<double, 4> DASH_DOT{72, 36, 4, 36};
constexpr std::array<double, 2> LONG_DASHES{150, 44};
constexpr std::array<double, 6> DASH_DOT_DOT{72, 32, 4, 32, 4, 32};
const std::array<DashPattern, 6> PATTERNS{DashPattern(), DASHES, DOTS, DASH_DOT, LONG_DASHES, DASH_DOT_DOT};

double Distance(POINT from, POINT to) {
    return std::hypot(static_cast<double>(to.x) - from.x, static_cast<double>(to.y) - from.y);
}

double GetLength(std::span<const POINT> points) {
    double dLength = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        dLength += Distance(points[i - 1], points[i]);
    }
    return dLength;
}

/// Walks along a pattern and collects the dash that is being drawn.
class CDashWalk {
public:
    CDashWalk(DashPattern pattern, const std::function<void(std::span<const POINT>)>& emit)
        : m_pattern(pattern), m_emit(emit), m_dLeft(pattern.front()) {}

    void Start(POINT point) { m_dash.assign(1, point); }

    void Segment(POINT from, POINT to) {
        const double dLength = Distance(from, to);
        double dDone = 0;
        while (dLength - dDone > m_dLeft) {
            dDone += m_dLeft;
            const double dPart = dDone / dLength;
            Turn({ToCoordinate(std::round(from.x + (static_cast<double>(to.x) - from.x) * dPart)),
                  ToCoordinate(std::round(from.y + (static_cast<double>(to.y) - from.y) * dPart))});
        }
        m_dLeft -= dLength - dDone;
        if (IsDash()) {
            m_dash.push_back(to);
        }
    }

    void Finish() {
        if (IsDash() && !m_dash.empty()) {
            m_emit(m_dash);
        }
    }

private:
    bool IsDash() const { return m_nIndex % 2 == 0; }

    /// The end of a dash or of a gap.
    void Turn(POINT point) {
        if (IsDash()) {
            m_dash.push_back(point);
            m_emit(m_dash);
            m_dash.clear();
        } else {
            m_dash.assign(1, point);
        }
        m_nIndex = (m_nIndex + 1) % m_pattern.size();
        m_dLeft = m_pattern[m_nIndex];
    }

    DashPattern m_pattern;
    const std::function<void(std::span<const POINT>)>& m_emit;
    std::size_t m_nIndex = 0;
    double m_dLeft;
    std::vector<POINT> m_dash;
};

} // namespace

DashPattern GetDashPattern(int nStyle) {
    return PATTERNS[static_cast<std::size_t>(nStyle < 0 ? 0 : nStyle) % PATTERNS.size()];
}

double CountDashes(std::span<const POINT> points, DashPattern pattern) {
    const double dPeriod = std::accumulate(pattern.begin(), pattern.end(), 0.0);
    return pattern.empty() ? 0 : GetLength(points) / dPeriod * static_cast<double>(pattern.size()) / 2;
}

void CutIntoDashes(std::span<const POINT> points, DashPattern pattern,
                   const std::function<void(std::span<const POINT>)>& emit) {
    if (points.empty()) {
        return;
    }
    if (pattern.empty() || CountDashes(points, pattern) > MAX_DASHES) {
        emit(points);
        return;
    }
    CDashWalk walk(pattern, emit);
    walk.Start(points.front());
    for (std::size_t i = 1; i < points.size(); ++i) {
        walk.Segment(points[i - 1], points[i]);
    }
    walk.Finish();
}

} // namespace tessara
