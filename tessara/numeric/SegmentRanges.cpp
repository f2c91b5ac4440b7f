#include "tessara/numeric/SegmentRanges.h"

#include <algorithm>
#include <utility>

namespace tessara {
namespace {

/// What every segment of some has in common, as bits.
enum Trait : unsigned { xRises = 1, xFalls = 2, yRises = 4, yFalls = 8, moves = 16, rests = 32 };
constexpr unsigned ALL_TRAITS = 63;

bool IsMonotone(unsigned nTraits) {
    return (nTraits & (xRises | xFalls)) && (nTraits & (yRises | yFalls)) && (nTraits & moves);
}

CSegmentRange::Kind KindOf(unsigned nTraits) {
    if (nTraits & rests) {
        return CSegmentRange::point;
    }
    return IsMonotone(nTraits) ? CSegmentRange::chain : CSegmentRange::mixed;
}

unsigned TraitsOf(const double* pX, const double* pY, int nCount) {
    unsigned nTraits = ALL_TRAITS;
    const auto bit = [](bool bHas, Trait trait) { return bHas ? unsigned{trait} : 0; };
    for (int i = 0; i < nCount; ++i) {
        const bool bXRises = pX[i] <= pX[i + 1];
        const bool bXFalls = pX[i] >= pX[i + 1];
        const bool bYRises = pY[i] <= pY[i + 1];
        const bool bYFalls = pY[i] >= pY[i + 1];
        const bool bRests = bXRises && bXFalls && bYRises && bYFalls;
        nTraits &= bit(bXRises, xRises) | bit(bXFalls, xFalls) | bit(bYRises, yRises) | bit(bYFalls, yFalls) |
                   (bRests ? rests : moves);
    }
    return nTraits;
}

/// Compares coordinates along strictly monotone segments, as smooth curves nearly always have; falling ones
/// the other way round.
class CStrictRun {
public:
    CStrictRun(const double* pX, const double* pY)
        : m_nXFalls(pX[0] > pX[1]), m_nYFalls(pY[0] > pY[1]), m_pLowX(pX + m_nXFalls),
          m_pHighX(pX + 1 - m_nXFalls), m_pLowY(pY + m_nYFalls), m_pHighY(pY + 1 - m_nYFalls) {}

    /// How many of the first nCount segments, in whole leaves, go on as the first one.
    int Length(int nCount) const {
        int i = 0;
        while (nCount - i >= LEAF_SEGMENTS && GoOn<LEAF_SEGMENTS>(i)) {
            i += LEAF_SEGMENTS;
            while (nCount - i >= MANY && GoOn<MANY>(i)) {
                i += MANY;
            }
        }
        return i;
    }

    unsigned Traits() const {
        return (m_nXFalls ? xFalls : xRises) | (m_nYFalls ? yFalls : yRises) | unsigned{moves};
    }

private:
    static constexpr int MANY = 4 * LEAF_SEGMENTS; ///< checked at once where a leaf went on

    template <int COUNT>
    bool GoOn(int nFirst) const {
        CLaneMask less = {-1, -1};
        for (int i = nFirst; i < nFirst + COUNT; i += 2) {
            less &= (LoadLanes(m_pLowX + i) < LoadLanes(m_pHighX + i)) &
                    (LoadLanes(m_pLowY + i) < LoadLanes(m_pHighY + i));
        }
        return LaneBits(less) == 3;
    }

    int m_nXFalls, m_nYFalls;
    const double *m_pLowX, *m_pHighX, *m_pLowY, *m_pHighY;
};

/// The traits of LEAF_SEGMENTS segments, two at a time.
unsigned TraitsOfLeaf(const double* pX, const double* pY) {
    CLaneMask all = {-1, -1};
    CLaneMask xRise = all, xFall = all, yRise = all, yFall = all, rest = all, move = all;
    for (int i = 0; i < LEAF_SEGMENTS; i += 2) {
        const CLanes x1 = LoadLanes(pX + i), x2 = LoadLanes(pX + i + 1);
        const CLanes y1 = LoadLanes(pY + i), y2 = LoadLanes(pY + i + 1);
        const CLaneMask resting = (x1 == x2) & (y1 == y2);
        xRise &= x1 <= x2;
        xFall &= x1 >= x2;
        yRise &= y1 <= y2;
        yFall &= y1 >= y2;
        rest &= resting;
        move &= ~resting;
    }
    const auto bits = [](CLaneMask mask, Trait trait) { return LaneBits(mask) == 3 ? unsigned{trait} : 0; };
    return bits(xRise, xRises) | bits(xFall, xFalls) | bits(yRise, yRises) | bits(yFall, yFalls) |
           bits(rest, rests) | bits(move, moves);
}

/// Grows ranges along the parts.
class CCutter {
public:
    explicit CCutter(const CPolylines& lines) : m_lines(lines) {}

    void CutRun(const CPolylines::CRun& run) {
        m_bOpen = false;
        int i = run.nFirst;
        while (run.nLast - i >= LEAF_SEGMENTS) {
            const CStrictRun strict(m_lines.X() + i, m_lines.Y() + i);
            const int nStrict = strict.Length(run.nLast - i);
            for (const int nEnd = i + nStrict; i < nEnd;) {
                const int nCount = std::min(nEnd - i, MAX_CHAIN_SEGMENTS);
                Take(i, nCount, strict.Traits());
                i += nCount;
            }
            if (nStrict == 0) {
                Take(i, LEAF_SEGMENTS, TraitsOfLeaf(m_lines.X() + i, m_lines.Y() + i));
                i += LEAF_SEGMENTS;
            }
        }
        if (i < run.nLast) {
            Take(i, run.nLast - i, TraitsOf(m_lines.X() + i, m_lines.Y() + i, run.nLast - i));
        }
        Close();
    }

    std::vector<CSegmentRange> m_ranges;

private:
    /// Adds segments to the open range where they continue it, or else opens another with them.
    void Take(int nFirst, int nCount, unsigned nTraits) {
        const unsigned nCommon = m_nTraits & nTraits;
        const bool bContinues = m_bOpen && (IsMonotone(nCommon) || (nCommon & rests));
        if (bContinues && m_nOpenCount + nCount <= MAX_CHAIN_SEGMENTS) {
            m_nTraits = nCommon;
            m_nOpenCount += nCount;
            return;
        }
        Close();
        m_bOpen = true;
        m_nOpenFirst = nFirst;
        m_nOpenCount = nCount;
        m_nTraits = bContinues ? nCommon : nTraits;
        m_bContinues = bContinues;
    }

    void Close() {
        if (!m_bOpen) {
            return;
        }
        m_bOpen = false;
        const CSegmentRange::Kind kind = KindOf(m_nTraits);
        const CBox box =
            kind == CSegmentRange::mixed ? MixedBox() : ChainBox(m_lines, m_nOpenFirst, m_nOpenCount);
        m_ranges.push_back({box, m_nOpenFirst, m_nOpenCount, kind, m_bContinues});
    }

    CBox MixedBox() const {
        CBox box = EmptyBox();
        for (int i = m_nOpenFirst; i <= m_nOpenFirst + m_nOpenCount; ++i) {
            Extend(box, m_lines.X()[i], m_lines.Y()[i]);
        }
        return box;
    }

    const CPolylines& m_lines;
    bool m_bOpen = false;
    int m_nOpenFirst = 0;
    int m_nOpenCount = 0;
    unsigned m_nTraits = 0;
    bool m_bContinues = false;
};

} // namespace

std::vector<CSegmentRange> CutIntoRanges(const CPolylines& lines) {
    CCutter cutter(lines);
    for (const CPolylines::CRun& run : lines.Runs()) {
        cutter.CutRun(run);
    }
    return std::move(cutter.m_ranges);
}

} // namespace tessara
