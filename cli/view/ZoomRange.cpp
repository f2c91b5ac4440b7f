#include "cli/view/ZoomRange.h"

#include <algorithm>
#include <cmath>

namespace tessara {

namespace {

/// The least length of an axis, as a part of its values and as such; scales of less are not divided any more.
constexpr double MIN_RELATIVE_LENGTH = 1e-9;
constexpr double MIN_LENGTH = 1e-280;
/// A part of the whole length by which steps in and out again may miss it through rounding.
constexpr double HAIR = 1e-9;

/// One axis of a window.
struct CSpan {
    double dFrom;
    double dTo;
    double GetLength() const { return dTo - dFrom; }
    bool operator==(const CSpan&) const = default;
};

CSpan AbscissaOf(const CZoomWindow& window) {
    return {window.dXMin, window.dXMax};
}

CSpan OrdinateOf(const CZoomWindow& window) {
    return {window.dYMin, window.dYMax};
}

CZoomWindow WindowOf(const CSpan& x, const CSpan& y) {
    return {x.dTo, x.dFrom, y.dTo, y.dFrom};
}

bool IsFinite(const CSpan& span) {
    return std::isfinite(span.dFrom) && std::isfinite(span.dTo) && std::isfinite(span.GetLength());
}

bool IsDivisible(const CSpan& span) {
    const double dMagnitude = std::fabs(span.dFrom) + std::fabs(span.dTo);
    return IsFinite(span) && span.GetLength() > std::max(MIN_LENGTH, MIN_RELATIVE_LENGTH * dMagnitude);
}

CSpan Scaled(const CSpan& span, double dAt, double dFactor) {
    return {dAt - (dAt - span.dFrom) * dFactor, dAt + (span.dTo - dAt) * dFactor};
}

/// Moves by a part of the length, as far as the whole goes; a span at its end stays the same to the last bit.
CSpan Moved(const CSpan& span, double dPart, const CSpan& whole) {
    const double dWanted = dPart * span.GetLength();
    const double dBy = dWanted < 0 ? std::max(dWanted, std::min(0.0, whole.dFrom - span.dFrom))
                                   : std::min(dWanted, std::max(0.0, whole.dTo - span.dTo));
    return {span.dFrom + dBy, span.dTo + dBy};
}

/// Keeps the length and moves into the whole; the whole where the span is no shorter.
CSpan Within(const CSpan& span, const CSpan& whole) {
    const double dLength = span.GetLength();
    if (!IsFinite(whole)) {
        return span;
    }
    if (!(dLength < whole.GetLength() * (1 - HAIR))) {
        return whole;
    }
    if (span.dFrom < whole.dFrom) {
        return {whole.dFrom, whole.dFrom + dLength};
    }
    return span.dTo > whole.dTo ? CSpan{whole.dTo - dLength, whole.dTo} : span;
}

bool Overlap(const CSpan& a, const CSpan& b) {
    return a.dFrom < b.dTo && b.dFrom < a.dTo;
}

} // namespace

CZoomState CZoomRange::Settled(const CZoomWindow& window) const {
    const CSpan x = Within(AbscissaOf(window), AbscissaOf(m_whole));
    const CSpan y = Within(OrdinateOf(window), OrdinateOf(m_whole));
    if (x == AbscissaOf(m_whole) && y == OrdinateOf(m_whole)) {
        return std::nullopt;
    }
    return WindowOf(x, y);
}

CZoomState CZoomRange::Scaled(double dX, double dY, double dFactor) const {
    const CSpan x = tessara::Scaled(AbscissaOf(m_shown), dX, dFactor);
    const CSpan y = tessara::Scaled(OrdinateOf(m_shown), dY, dFactor);
    const bool bPossible = IsFinite(x) && IsFinite(y) && (dFactor >= 1 || (IsDivisible(x) && IsDivisible(y)));
    return Settled(bPossible ? WindowOf(x, y) : m_shown);
}

CZoomState CZoomRange::Moved(double dRight, double dUp) const {
    return Settled(WindowOf(tessara::Moved(AbscissaOf(m_shown), dRight, AbscissaOf(m_whole)),
                            tessara::Moved(OrdinateOf(m_shown), dUp, OrdinateOf(m_whole))));
}

bool CZoomRange::Meets(const CZoomWindow& window) const {
    return Overlap(AbscissaOf(window), AbscissaOf(m_whole)) &&
           Overlap(OrdinateOf(window), OrdinateOf(m_whole));
}

} // namespace tessara
