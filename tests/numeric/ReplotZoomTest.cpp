#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <span>

#include <gtest/gtest.h>

#include "tessara/numeric/Curve.h"
#include "tessara/numeric/MultipartCurve.h"
#include "tessara/numeric/MultipartTable.h"
#include "tessara/numeric/Replot.h"
#include "tessara/numeric/Spline.h"
#include "tessara/numeric/Zoom.h"
#include "tests/numeric/Bits.h"
#include "tests/numeric/PlainSpline.h"
#include "tests/numeric/RandomTables.h"
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

TEST(Replot, ComposesFunctions) {
    CSampleCurve a({0, 1, 2, 3}, {0, 1, 8, 27});
    CSampleCurve b({0, 1, 2, 3}, {0, 2, 3, 5});
    const std::unique_ptr<CCurve> pComposed(RePlotCurve(&a.curve, &b.curve, ReplotComposition));
    EXPECT_EQ(samples::Values(pComposed->m_pY, 4), std::vector<double>({0, 8, 27, 27}));
}

struct CRect {
    double xMin, yMin, xMax, yMax;
};

/// What becomes of a run of a part: its rows, each a vector of columns, and its colour.
struct CPiece {
    int nColor;
    std::vector<std::vector<double>> columns;
};

/// The runs of every part that reach into a rectangle, row by row.
std::vector<CPiece> PlainRuns(const CMultipartTable& table, const CRect& rect) {
    const double* pX = table.m_ppData[0];
    const double* pY = table.m_ppData[1];
    std::vector<CPiece> runs;
    for (const CCurvePartInfo& part : std::span(table.m_pParts, static_cast<std::size_t>(table.m_nParts))) {
        bool bOpen = false;
        const auto add = [&](int i) {
            for (int k = 0; k < table.m_nDimensions; ++k) {
                runs.back().columns[static_cast<std::size_t>(k)].push_back(table.m_ppData[k][i]);
            }
        };
        const int nEnd = std::min(part.nFirst + part.nPoints, table.m_nPoints);
        for (int i = std::max(part.nFirst, 0); i + 1 < nEnd; ++i) {
            const bool bBeyond = (pX[i] < rect.xMin && pX[i + 1] < rect.xMin) ||
                                 (pX[i] > rect.xMax && pX[i + 1] > rect.xMax) ||
                                 (pY[i] < rect.yMin && pY[i + 1] < rect.yMin) ||
                                 (pY[i] > rect.yMax && pY[i + 1] > rect.yMax);
            if (!bBeyond && !bOpen) {
                runs.push_back({part.nColor, std::vector<std::vector<double>>(
                                                 static_cast<std::size_t>(table.m_nDimensions))});
                add(i);
            }
            if (!bBeyond) {
                add(i + 1);
            }
            bOpen = !bBeyond;
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

/// Compares what was zoomed, its columns given, with the runs expected.
template <class CONTAINER>
void ExpectPieces(const std::unique_ptr<CONTAINER>& pZoomed, std::vector<double*> columns, int nColors,
                  const std::vector<CPiece>& runs) {
    ASSERT_EQ(pZoomed != nullptr, !runs.empty());
    int nFirst = 0;
    for (std::size_t p = 0; p < runs.size(); ++p) {
        ASSERT_EQ(pZoomed->m_nParts, static_cast<int>(runs.size()));
        const CCurvePartInfo& part = pZoomed->m_pParts[p];
        ASSERT_TRUE(part.nFirst == nFirst && part.nColor == runs[p].nColor);
        ASSERT_EQ(part.nPoints, static_cast<int>(runs[p].columns[0].size()));
        for (std::size_t k = 0; k < columns.size(); ++k) {
            ASSERT_TRUE(bits::Same(columns[k] + nFirst, runs[p].columns[k].data(), part.nPoints)) << k;
        }
        nFirst += part.nPoints;
    }
    EXPECT_TRUE(!pZoomed || (pZoomed->m_nPoints == nFirst && pZoomed->m_nColors == nColors));
}

TEST(Zoom, RandomPartsAreCutAndClippedAsTheStepsSay) {
    const CRect rect = {-1, -0.75, 1, 1.5};
    for (unsigned nSeed = 0; nSeed < 5000; ++nSeed) {
        SCOPED_TRACE(nSeed);
        const auto pTable = samples::CTableMaker(nSeed).Make();
        double** ppData = pTable->m_ppData;
        std::vector<CPiece> runs = PlainRuns(*pTable, rect);
        const std::unique_ptr<CMultipartTable> pRows(
            Zoom2dMultipartTable(pTable.get(), 0, 1, rect.xMin, rect.yMin, rect.xMax, rect.yMax));
        const int nColumns = pRows ? pRows->m_nDimensions : 0;
        ExpectPieces(pRows, {pRows ? pRows->m_ppData : nullptr, pRows ? pRows->m_ppData + nColumns : nullptr},
                     pTable->m_nColors, runs);
        EXPECT_TRUE(!pRows || nColumns == pTable->m_nDimensions);
        CMultipartCurve curve(pTable->m_nPoints, ppData[0], ppData[1], pTable->m_nParts, pTable->m_pParts, 5);
        const std::unique_ptr<CMultipartCurve> pCurve(
            ZoomMultipartCurve(&curve, rect.xMin, rect.yMin, rect.xMax, rect.yMax));
        for (CPiece& run : runs) {
            PlainClip(run.columns[0], run.columns[1], rect.yMin, -1);
            PlainClip(run.columns[0], run.columns[1], rect.yMax, 1);
            PlainClip(run.columns[1], run.columns[0], rect.xMin, -1);
            PlainClip(run.columns[1], run.columns[0], rect.xMax, 1);
        }
        ExpectPieces(pCurve, pCurve ? std::vector{pCurve->m_pX, pCurve->m_pY} : std::vector<double*>(), 5,
                     runs);
        EXPECT_TRUE(!pCurve || pCurve->m_bOwner);
    }
}

} // namespace
