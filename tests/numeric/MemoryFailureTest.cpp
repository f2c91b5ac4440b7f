// Every allocation of the containers fails once, in every operation that allocates: the operation throws, and
// what it worked on still has the values that its counts promise and can be destroyed (the address sanitizer
// sees leaks).

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <limits>

#include <gtest/gtest.h>

#include "tessara/numeric/Curve.h"
#include "tessara/numeric/MultiCurve.h"
#include "tessara/numeric/MultiSpline.h"
#include "tessara/numeric/MultipartCurve.h"
#include "tessara/numeric/MultipartTable.h"
#include "tessara/numeric/PolylineCut.h"
#include "tessara/numeric/Replot.h"
#include "tessara/numeric/Spline.h"
#include "tessara/numeric/Table.h"
#include "tessara/numeric/Zoom.h"
#include "tessara/platform/base/Archive.h"
#include "tessara/platform/base/Exception.h"
#include "tessara/platform/files/MemFile.h"

namespace {

int g_nAllocationsLeft = -1;     ///< the allocation after these fails; negative: none does
std::size_t g_nLargestBlock = 0; ///< of all asked for

} // namespace

extern "C" {
void* __real_realloc(void* pBlock,
                     std::size_t nBytes); // NOLINT(bugprone-reserved-identifier): the linker's name

/// The linker passes the containers' calls of realloc here.
void* __wrap_realloc(void* pBlock, std::size_t nBytes) { // NOLINT(bugprone-reserved-identifier)
    g_nLargestBlock = std::max(g_nLargestBlock, nBytes);
    return g_nAllocationsLeft >= 0 && g_nAllocationsLeft-- == 0 ? nullptr : __real_realloc(pBlock, nBytes);
}
}

namespace {

/// Containers that every operation gets afresh, and that can be used whatever became of it.
struct CContainers {
    CContainers() : multi(3), piece(2), parts(2), line(3) {
        multi.Allocate(4);
        piece.Allocate(3);
        parts.m_nParts = pieces.m_nParts = 63; // the next part is the one that needs more records
        std::fill_n(parts.m_pParts, 63, CCurvePartInfo{});
        std::fill_n(pieces.m_pParts, 63, CCurvePartInfo{});
        Use();
    }
    void Use() {
        std::fill_n(line.m_pX, line.m_nPoints, 1.0);
        std::fill_n(line.m_pY, line.m_nPoints, 1.0);
        std::fill_n(multi.m_pX, multi.m_nPoints, 1.0);
        for (int j = 0; j < multi.m_nDimensions; ++j) {
            std::fill_n(multi.m_ppY[j], multi.m_nPoints, 1.0);
        }
        for (int j = 0; j < 2; ++j) {
            std::fill_n(piece.m_ppData[j], piece.m_nPoints, 1.0);
            std::fill_n(parts.m_ppData[j], parts.m_nPoints, 1.0);
        }
        std::fill_n(pieces.m_pY, pieces.m_nPoints, 1.0);
    }

    CMultiCurve multi;
    CTable piece;
    CMultipartTable parts;
    CCurve line;
    CMultipartCurve pieces;
};

using COperation = std::function<void(CContainers&)>;

/// Runs an operation with its first, second, ... allocation failing, until it succeeds: how often it failed.
int FailEachAllocation(const COperation& operation) {
    for (int nFailing = 0;; ++nFailing) {
        CContainers containers;
        bool bFailed = false;
        g_nAllocationsLeft = nFailing;
        try {
            operation(containers);
        } catch (const CMemoryException&) {
            bFailed = true;
        }
        g_nAllocationsLeft = -1;
        containers.Use();
        containers.multi.ReAllocate(20);
        containers.parts.AddTable(&containers.piece, 0, -1);
        containers.pieces.AddCurve(&containers.line, 0);
        containers.Use();
        if (!bFailed) {
            return nFailing;
        }
    }
}

TEST(MemoryFailure, LeavesContainersUsableAndNothingOfAnObjectThatCannotBeMade) {
    CContainers other;
    other.parts.AddTable(&other.piece, 0, -1);
    other.pieces.AddCurve(&other.line, 0);
    CMultiCurve fiveColumns(5);
    fiveColumns.Allocate(9);
    CMemFile file; // of the same
    CArchive storing(&file, CArchive::store);
    fiveColumns.Serialize(storing);
    storing.Close();
    const CSpline spline(&other.line, FALSE);
    CSpline assigned(&other.line, FALSE);
    const COperation operations[] = {
        [](CContainers& it) { it.line.ReAllocate(8); },
        [](CContainers& it) { it.line.ReAllocate(1); },
        [](CContainers& it) { it.pieces.ReAllocate(8); },
        [](CContainers& it) { it.multi.ReAllocate(8); },
        [](CContainers& it) { it.multi.ReAllocate(1); },
        [](CContainers& it) { it.multi.SetDimensions(7); },
        [&](CContainers& it) { it.multi = fiveColumns; },
        [&](CContainers& it) {
            file.SeekToBegin();
            CArchive ar(&file, CArchive::load);
            it.multi.Serialize(ar);
        },
        [](CContainers& it) { it.parts.AddTable(&it.piece, 0, -1); },
        [](CContainers& it) { it.pieces.AddCurve(&it.line, 0); },
        [&](CContainers&) { CSpline made(&other.line, FALSE); },
        [&](CContainers&) { assigned = spline; },
        [&](CContainers&) { CMultiSpline made(&other.multi); },
        [&](CContainers&) { delete RePlotCurve(&other.line, &other.line, ReplotComposition); },
        [&](CContainers&) { delete ZoomMultipartCurve(&other.pieces, 0, 0, 2, 2); },
        [&](CContainers&) { delete tessara::CutMultipartCurve(&other.pieces, 0, 0, 2, 2); },
        [&](CContainers&) { delete Zoom2dMultipartTable(&other.parts, 0, 1, 0, 0, 2, 2); },
        [](CContainers&) { CCurve curve(3); },
        [](CContainers&) { CMultiCurve curve(3); },
        [&](CContainers&) { CTable copy(&other.piece); },
        [](CContainers&) { CMultipartCurve curve(3); },
        [&](CContainers&) { CMultipartTable copy(&other.parts); },
        [&](CContainers&) { delete other.parts.Value(0, 1.0); },
    };
    for (const COperation& operation : operations) {
        EXPECT_GT(FailEachAllocation(operation), 0) << &operation - operations;
    }
}

TEST(MemoryFailure, IsNotWhatCountsAskForOfBytesThatDoNotCome) {
    class CUnending : public CMemFile {
    public:
        bool HasLength() const override { return false; }
    };
    constexpr int MANY = std::numeric_limits<int>::max();
    for (const auto& [nDimensions, nPoints] : {std::pair(MANY, MANY), {1, MANY}, {MANY, 1}, {MANY, 1000}}) {
        CUnending file;
        CArchive storing(&file, CArchive::store);
        storing << nDimensions << nPoints;
        for (int i = 0; i < 100'000; ++i) {
            storing << 1.5;
        }
        storing.Close();
        file.SeekToBegin();
        CArchive ar(&file, CArchive::load);
        CContainers containers;
        g_nLargestBlock = 0;
        EXPECT_THROW(containers.multi.Serialize(ar), CArchiveException);
        EXPECT_LE(g_nLargestBlock, 2 * file.GetLength());
        EXPECT_EQ(containers.multi.m_nPoints, 4) << "as it was";
        containers.Use();
    }
}

TEST(MemoryFailure, OfTheSecondArrayLeavesTheSmallerCount) {
    for (const auto& [nAsked, nLeft] : {std::pair(8, 3), std::pair(1, 1)}) {
        CContainers containers;
        containers.pieces.AddCurve(&containers.line, 0);
        const COperation operations[] = {
            [&](CContainers& it) { it.line.ReAllocate(nAsked); },
            [&](CContainers& it) { it.pieces.ReAllocate(nAsked); },
            [&](CContainers& it) { it.piece.ReAllocate(nAsked); },
        };
        for (const COperation& operation : operations) {
            g_nAllocationsLeft = 1;
            EXPECT_THROW(operation(containers), CMemoryException);
            g_nAllocationsLeft = -1;
        }
        EXPECT_EQ(containers.line.m_nPoints, nLeft);
        EXPECT_EQ(containers.pieces.m_nPoints, nLeft);
        EXPECT_EQ(containers.piece.m_nPoints, nLeft);
    }
}

TEST(MemoryFailure, CountsThatCannotBeChangeNothing) {
    CCurve huge(std::numeric_limits<int>::max(), nullptr, nullptr);
    CContainers containers;
    containers.pieces.AddCurve(&containers.line, 0);
    const COperation operations[] = {
        [](CContainers&) { CCurve made(-1); },
        [](CContainers&) { CMultipartCurve made(0, nullptr, nullptr, -1, nullptr, 1); },
        [](CContainers& it) { it.multi.ReAllocate(std::numeric_limits<int>::min()); },
        [](CContainers& it) { it.multi.SetDimensions(-2); },
        [&](CContainers& it) { it.pieces.AddCurve(&huge, 0); },
    };
    for (const COperation& operation : operations) {
        EXPECT_THROW(operation(containers), CMemoryException) << &operation - operations;
    }
    EXPECT_EQ(containers.multi.m_nPoints, 4);
    EXPECT_EQ(containers.multi.m_nDimensions, 3);
    containers.Use();
}

} // namespace
