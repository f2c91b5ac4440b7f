#include <algorithm>
#include <cmath>
#include <memory>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessara/numeric/Curve.h"
#include "tessara/numeric/MultipartCurve.h"
#include "tessara/numeric/MultipartTable.h"
#include "tessara/numeric/Replot.h"
#include "tessara/numeric/Spline.h"
#include "tessara/numeric/Zoom.h"
#include "tessara/platform/base/Exception.h"
#include "tests/numeric/Bits.h"
#include "tests/numeric/PlainSpline.h"
#include "tests/numeric/Samples.h"

namespace {

using samples::CSampleCurve;
using CPoint = std::pair<double, double>;

TEST(Replot, EveryModeSamplesTheLongerCurveThroughTheSplineOfTheOther) {
    std::mt19937 random(1);
    for (int nRound = 0; nRound < 600; ++nRound) {
        const std::size_t nA = 2 + random() % 9;
        const std::size_t nB = 2 + random() % 9;
        CSampleCurve a(plain::Abscissae(random, nA), plain::Ordinates(random, nA));
        CSampleCurve b(plain::Abscissae(random, nB), plain::Ordinates(random, nB));
        for (CSampleCurve* pSample : {&a, &b}) {
            std::sort(pSample->x.begin(), pSample->x.end());
            std::sort(pSample->y.begin(), pSample->y.end());
        }
        const int nMode = static_cast<int>(random() % 9);
        const std::unique_ptr<CCurve> pResult(
            RePlotCurve(&a.curve, &b.curve, static_cast<ReplotMode>(nMode)));
        const bool bAtB = nB >= nA;
        ASSERT_EQ(pResult->m_nPoints, static_cast<int>(std::max(nA, nB)));
        const CSpline spline(bAtB ? &a.curve : &b.curve, nMode == 1 || (nMode != 2 && !bAtB));
        const CCurve& at = bAtB ? b.curve : a.curve;
        for (int i = 0; i < at.m_nPoints; ++i) {
            const double x = at.m_pX[i];
            const double y = at.m_pY[i];
            const CPoint expected = nMode == 1 && bAtB   ? CPoint(spline.Value(y), x)
                                    : nMode == 1         ? CPoint(x, spline.Value(y))
                                    : nMode == 2 && bAtB ? CPoint(y, spline.Value(x))
                                    : bAtB               ? CPoint(x, spline.Value(y))
                                                         : CPoint(spline.Value(x), y);
            ASSERT_TRUE(bits::Same(pResult->m_pX[i], expected.first) &&
                        bits::Same(pResult->m_pY[i], expected.second))
                << "round " << nRound << ", mode " << nMode << ", point " << i;
        }
    }
}

TEST(Replot, CombinesFunctions) {
    CSampleCurve a({0, 1, 2, 3}, {0, 1, 8, 27});
    CSampleCurve b({0, 1, 2, 3}, {0, 2, 3, 5});
    const std::unique_ptr<CCurve> pOrdinates(RePlotCurve(&a.curve, &b.curve, ReplotEqualAbscissae));
    EXPECT_EQ(samples::Values(pOrdinates->m_pX, 4), b.y);
    EXPECT_EQ(samples::Values(pOrdinates->m_pY, 4), a.y);
    const std::unique_ptr<CCurve> pDiagonal(RePlotCurve(&a.curve, &a.curve, ReplotEqualOrdinates));
    EXPECT_EQ(samples::Values(pDiagonal->m_pX, 4), samples::Values(pDiagonal->m_pY, 4));
    const std::unique_ptr<CCurve> pComposed(RePlotCurve(&a.curve, &b.curve, ReplotComposition));
    EXPECT_THAT(samples::Values(pComposed->m_pY, 4), testing::ElementsAre(0, 8, 27, 27));
    CSampleCurve single({1}, {1});
    EXPECT_THROW(RePlotCurve(&single.curve, &b.curve, ReplotComposition), CInvalidArgException);
}

struct CRect {
    double xMin, yMin, xMax, yMax;
};

struct CPlainPart {
    std::vector<int> rows;
    int nColor;
};

/// The runs of every part, row by row.
std::vector<CPlainPart> PlainRuns(const double* pX, const double* pY, const CCurvePartInfo* pParts,
                                  int nParts, const CRect& rect) {
    std::vector<CPlainPart> runs;
    for (int p = 0; p < nParts; ++p) {
        std::vector<int> rows;
        const auto close = [&](int nRow) {
            rows.push_back(nRow);
            runs.push_back({rows, pParts[p].nColor});
            rows.clear();
        };
        const int nEnd = pParts[p].nFirst + pParts[p].nPoints;
        for (int i = pParts[p].nFirst; i + 1 < nEnd; ++i) {
            const bool bBeyond = (pX[i] < rect.xMin && pX[i + 1] < rect.xMin) ||
                                 (pX[i] > rect.xMax && pX[i + 1] > rect.xMax) ||
                                 (pY[i] < rect.yMin && pY[i + 1] < rect.yMin) ||
                                 (pY[i] > rect.yMax && pY[i + 1] > rect.yMax);
            if (!bBeyond) {
                rows.push_back(i);
                if (i + 2 == nEnd) {
                    close(i + 1);
                }
            } else if (!rows.empty()) {
                close(i);
            }
        }
    }
    return runs;
}

/// Clips points whose second coordinate is beyond an edge, on the side that nSign tells.
void PlainClip(std::vector<double>& along, std::vector<double>& across, double dEdge, int nSign) {
    for (std::size_t j = 0; j + 1 < along.size(); ++j) {
        for (const std::size_t nEnd : {j, j + 1}) {
            if (nSign * across[nEnd] > nSign * dEdge) {
                along[nEnd] = LinearInterpolation(dEdge, along[j], along[j + 1], across[j], across[j + 1]);
                across[nEnd] = dEdge;
            }
        }
    }
}

/// A table of three columns and random parts, apart, overlapping or single rows, with some NaN.
std::unique_ptr<CMultipartTable> RandomTable(std::mt19937& random) {
    auto pTable = std::make_unique<CMultipartTable>(3);
    const int nRows = 1 + static_cast<int>(random() % 40);
    pTable->Allocate(nRows);
    for (int i = 0; i < nRows; ++i) {
        for (int k = 0; k < 3; ++k) {
            pTable->m_ppData[k][i] = static_cast<int>(random() % 17) / 4.0 - 1;
        }
        if (random() % 60 == 0) {
            pTable->m_ppData[random() % 2][i] = std::nan("");
        }
    }
    for (unsigned n = random() % 6; n > 0; --n) {
        const int nFirst = static_cast<int>(random() % static_cast<unsigned>(nRows));
        pTable->BeginPart(nFirst, static_cast<int>(random() % 6));
        pTable->EndPart(nFirst + static_cast<int>(random() % static_cast<unsigned>(nRows - nFirst)));
    }
    pTable->SetNumColors(static_cast<int>(random() % 7));
    return pTable;
}

/// Compares the parts of a zoomed container with the runs expected, and calls check(run, its first row).
template <class CONTAINER, class CHECK>
void CheckParts(const CONTAINER* pZoomed, const std::vector<CPlainPart>& runs, int nColors, CHECK check) {
    ASSERT_EQ(pZoomed != nullptr, !runs.empty());
    if (!pZoomed) {
        return;
    }
    ASSERT_EQ(pZoomed->m_nParts, static_cast<int>(runs.size()));
    EXPECT_EQ(pZoomed->m_nColors, nColors);
    int nFirst = 0;
    for (std::size_t p = 0; p < runs.size(); ++p) {
        const CCurvePartInfo& part = pZoomed->m_pParts[p];
        ASSERT_EQ(part.nFirst, nFirst);
        ASSERT_EQ(part.nPoints, static_cast<int>(runs[p].rows.size()));
        ASSERT_EQ(part.nColor, runs[p].nColor);
        check(runs[p].rows, nFirst);
        nFirst += part.nPoints;
    }
    EXPECT_EQ(pZoomed->m_nPoints, nFirst);
}

TEST(Zoom, RandomPartsAreCutAndClippedAsTheStepsSay) {
    std::mt19937 random(3);
    const CRect rect = {0, 0.25, 2, 1.75};
    for (int nRound = 0; nRound < 5000; ++nRound) {
        const auto pTable = RandomTable(random);
        const double* pX = pTable->m_ppData[0];
        const double* pY = pTable->m_ppData[1];
        const std::vector<CPlainPart> runs = PlainRuns(pX, pY, pTable->m_pParts, pTable->m_nParts, rect);
        const std::unique_ptr<CMultipartTable> pRows(
            Zoom2dMultipartTable(pTable.get(), 0, 1, rect.xMin, rect.yMin, rect.xMax, rect.yMax));
        CheckParts(pRows.get(), runs, pTable->m_nColors, [&](const std::vector<int>& rows, int nFirst) {
            for (int k = 0; k < 3; ++k) {
                ASSERT_TRUE(bits::Same(pRows->m_ppData[k] + nFirst, pTable->m_ppData[k] + rows[0],
                                       static_cast<int>(rows.size())));
            }
        });
        CMultipartCurve curve(pTable->m_nPoints, pTable->m_ppData[0], pTable->m_ppData[1], pTable->m_nParts,
                              pTable->m_pParts, 5);
        const std::unique_ptr<CMultipartCurve> pCurve(
            ZoomMultipartCurve(&curve, rect.xMin, rect.yMin, rect.xMax, rect.yMax));
        CheckParts(pCurve.get(), runs, 5, [&](const std::vector<int>& rows, int nFirst) {
            const int nCount = static_cast<int>(rows.size());
            std::vector<double> x = samples::Values(pX + rows[0], nCount);
            std::vector<double> y = samples::Values(pY + rows[0], nCount);
            PlainClip(x, y, rect.yMin, -1);
            PlainClip(x, y, rect.yMax, 1);
            PlainClip(y, x, rect.xMin, -1);
            PlainClip(y, x, rect.xMax, 1);
            ASSERT_TRUE(bits::Same(pCurve->m_pX + nFirst, x.data(), nCount)) << nRound;
            ASSERT_TRUE(bits::Same(pCurve->m_pY + nFirst, y.data(), nCount)) << nRound;
        });
    }
}

TEST(Zoom, ClipsAtTheEdgeKeepsWhatIsInsideAndDropsTheRest) {
    double x[] = {-1, 0.5, 0.6, 5, 5, 0.5};
    double y[] = {0.5, 0.5, 0.6, 5, 6, 7};
    CCurvePartInfo parts[] = {{0, 2, 3}, {1, 2, 4}, {3, 3, 5}, {2, 1, 1}, {5, 90, 1}};
    CMultipartCurve curve(6, x, y, 5, parts, 6);
    const std::unique_ptr<CMultipartCurve> pZoomed(ZoomMultipartCurve(&curve, 0, 0, 1, 1));
    ASSERT_TRUE(pZoomed);
    EXPECT_EQ(pZoomed->m_nParts, 2);
    EXPECT_EQ(pZoomed->m_pParts[1].nColor, 4);
    EXPECT_TRUE(pZoomed->m_bOwner);
    EXPECT_THAT(samples::Values(pZoomed->m_pX, 4), testing::ElementsAre(0, 0.5, 0.5, 0.6));
    EXPECT_THAT(samples::Values(pZoomed->m_pY, 4), testing::ElementsAre(0.5, 0.5, 0.5, 0.6));
    EXPECT_EQ(ZoomMultipartCurve(&curve, 20, 20, 21, 21), nullptr);
    CMultipartTable empty(2);
    EXPECT_EQ(Zoom2dMultipartTable(&empty, 0, 1, 0, 0, 1, 1), nullptr);
}

} // namespace
