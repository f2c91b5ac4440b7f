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
#include "tessara/numeric/MultipartCurve.h"
#include "tessara/numeric/MultipartTable.h"
#include "tessara/numeric/Table.h"
#include "tessara/numeric/TableReference.h"
#include "tessara/platform/base/Archive.h"
#include "tessara/platform/base/Exception.h"
#include "tessara/platform/files/MemFile.h"

namespace {

int g_nAllocationsLeft = -1; ///< the allocation after these fails; negative: none does

} // namespace

extern "C" {
void* __real_realloc(void* pBlock,
                     std::size_t nBytes); // NOLINT(bugprone-reserved-identifier): the linker's name

/// The linker passes the containers' calls of realloc here.
void* __wrap_realloc(void* pBlock, std::size_t nBytes) { // NOLINT(bugprone-reserved-identifier)
    return g_nAllocationsLeft >= 0 && g_nAllocationsLeft-- == 0 ? nullptr : __real_realloc(pBlock, nBytes);
}
}

namespace {

/// Runs an operation with its first, second, ... allocation failing, until it succeeds.
/// run(operate) makes fresh objects, calls operate with what is to be tried, and then uses the objects.
using COperation = std::function<void()>;
int FailEachAllocation(const std::function<void(const std::function<void(const COperation&)>&)>& run) {
    for (int nFailing = 0;; ++nFailing) {
        bool bFailed = false;
        run([&](const COperation& operation) {
            g_nAllocationsLeft = nFailing;
            try {
                operation();
            } catch (const CMemoryException&) {
                bFailed = true;
            }
            g_nAllocationsLeft = -1;
        });
        if (!bFailed) {
            return nFailing;
        }
    }
}

void Overwrite(double* pValues, int nCount) {
    std::fill(pValues, pValues + nCount, 1.0);
}

void Use(CMultiCurve& curve) {
    Overwrite(curve.m_pX, curve.m_nPoints);
    for (int j = 0; j < curve.m_nDimensions; ++j) {
        Overwrite(curve.m_ppY[j], curve.m_nPoints);
    }
}

TEST(MemoryFailure, LeavesAMultiCurveUsable) {
    CMultiCurve source(2);
    source.Allocate(9);
    Use(source);
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store);
        source.Serialize(ar);
    }
    const struct {
        const char* pszName;
        int nDimensions;
        int nPoints;
        std::function<void(CMultiCurve&)> operation;
    } cases[] = {
        {"Allocate", 3, 0, [](CMultiCurve& curve) { curve.Allocate(4); }},
        {"growing", 3, 4, [](CMultiCurve& curve) { curve.ReAllocate(8); }},
        {"shrinking", 3, 4, [](CMultiCurve& curve) { curve.ReAllocate(1); }},
        {"more columns", 3, 4, [](CMultiCurve& curve) { curve.SetDimensions(7); }},
        {"assignment to another shape", 3, 4, [&](CMultiCurve& curve) { curve = source; }},
        {"assignment of more points", 2, 4, [&](CMultiCurve& curve) { curve = source; }},
        {"loading", 3, 4,
         [&](CMultiCurve& curve) {
             file.SeekToBegin();
             CArchive ar(&file, CArchive::load);
             curve.Serialize(ar);
         }},
    };
    for (const auto& item : cases) {
        const int nAllocations = FailEachAllocation([&](const auto& operate) {
            CMultiCurve curve(item.nDimensions);
            curve.Allocate(item.nPoints);
            operate([&] { item.operation(curve); });
            Use(curve);
            curve.ReAllocate(20);
            Use(curve);
        });
        EXPECT_GT(nAllocations, 0) << item.pszName;
    }
}

TEST(MemoryFailure, LeavesMultipartContainersUsable) {
    CTable piece(2);
    piece.Allocate(3);
    CCurve curvePiece(3);
    for (double* pValues : {piece.m_ppData[0], piece.m_ppData[1], curvePiece.m_pX, curvePiece.m_pY}) {
        Overwrite(pValues, 3);
    }
    const int nInTable = FailEachAllocation([&](const auto& operate) {
        CMultipartTable table(2);
        table.m_nParts = 63; // the next part is the one that needs more records
        std::fill_n(table.m_pParts, 63, CCurvePartInfo{});
        operate([&] { table.AddTable(&piece, 0, -1); });
        EXPECT_LE(table.m_nParts, 64);
        table.AddTable(&piece, 0, -1);
        table.AddTable(&piece, 0, -1);
        Overwrite(table.m_ppData[1], table.m_nPoints);
    });
    EXPECT_EQ(nInTable, 3) << "two columns and the part records";
    const int nInCurve = FailEachAllocation([&](const auto& operate) {
        CMultipartCurve curve;
        operate([&] {
            for (int i = 0; i < 64; ++i) {
                curve.AddCurve(&curvePiece, 0);
            }
        });
        curve.AddCurve(&curvePiece, 0);
        Overwrite(curve.m_pY, curve.m_nPoints);
    });
    EXPECT_EQ(nInCurve, 129) << "two arrays for each part, and the records";
}

TEST(MemoryFailure, LeavesNothingOfAnObjectThatCannotBeMade) {
    CTable table(2);
    table.Allocate(2);
    CMultipartTable parts(2);
    Overwrite(table.m_ppData[0], 2);
    Overwrite(table.m_ppData[1], 2);
    parts.AddTable(&table, 0, -1);
    const COperation makers[] = {
        [] { CCurve curve(3); },
        [] { CMultiCurve curve(3); },
        [&] { CTable copy(&table); },
        [] { CMultipartCurve curve(3); },
        [&] { CMultipartTable copy(&parts); },
        [&] { delete parts.Value(0, 1.0); },
    };
    for (const COperation& make : makers) {
        EXPECT_GT(FailEachAllocation([&](const auto& operate) { operate(make); }), 0);
    }
}

TEST(MemoryFailure, CountsThatCannotBeChangeNothing) {
    constexpr int nMin = std::numeric_limits<int>::min();
    CCurve curve(2);
    CMultiCurve multi(2);
    multi.Allocate(2);
    CTable noColumns(0);
    CMultipartCurve parts(2);
    CCurve huge(std::numeric_limits<int>::max(), nullptr, nullptr);
    const COperation operations[] = {
        [] { CCurve made(-1); },
        [] { CMultiCurve made(nMin); },
        [] { CTable made(-1); },
        [] { CTableReference made(-1, 0, nullptr, 0); },
        [] { CMultipartTable made(-1); },
        [] { CMultipartCurve made(nMin); },
        [] { CMultipartCurve made(0, nullptr, nullptr, -1, nullptr, 1); },
        [&] { curve.ReAllocate(-1); },
        [&] { multi.ReAllocate(nMin); },
        [&] { noColumns.ReAllocate(-1); },
        [&] { parts.ReAllocate(-1); },
        [&] { parts.AddCurve(&huge, 0); },
    };
    for (const COperation& operation : operations) {
        EXPECT_THROW(operation(), CMemoryException) << &operation - operations;
    }
    EXPECT_EQ(curve.m_nPoints + multi.m_nPoints + noColumns.m_nPoints + parts.m_nPoints + parts.m_nParts, 6);
    Use(multi);
    EXPECT_THROW(multi.SetDimensions(-2), CMemoryException);
    EXPECT_EQ(multi.m_nDimensions, 2);
}

} // namespace
