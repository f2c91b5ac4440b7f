#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/base/LargePages.h"

// Memory of the containers: arrays from malloc, realloc and free, which can be resized in place. A failure
// and a count that cannot be (negative, or more bytes than an object can have) throw CMemoryException. An
// array of no elements is null: it needs no release, and no call depends on what realloc makes of a size of
// 0.

namespace tessara {

/// Resizes an array, keeping the leading values; the others are undefined. A null array is allocated. When it
/// fails, the array is as it was.
template <class TYPE>
void ResizeArray(TYPE*& pArray, std::int64_t nCount) {
    static_assert(std::is_trivially_copyable_v<TYPE>);
    if (nCount < 0 ||
        static_cast<std::size_t>(nCount) > std::numeric_limits<std::ptrdiff_t>::max() / sizeof(TYPE)) {
        AfxThrowMemoryException();
    }
    if (nCount == 0) {
        std::free(std::exchange(pArray, nullptr));
        return;
    }
    void* pResized = std::realloc(pArray, static_cast<std::size_t>(nCount) * sizeof(TYPE));
    if (!pResized) {
        AfxThrowMemoryException();
    }
    pArray = static_cast<TYPE*>(pResized);
}

/// Frees an array and forgets it.
template <class TYPE>
void ReleaseArray(TYPE*& pArray) {
    std::free(std::exchange(pArray, nullptr));
}

struct CFreeArray {
    void operator()(void* pArray) const { std::free(pArray); }
};

/// An array that a function works with and releases when it is done.
template <class TYPE>
using CScratchArray = std::unique_ptr<TYPE[], CFreeArray>;

/// Resizes such an array, keeping the leading values. When it fails, the array is as it was.
template <class TYPE>
void ResizeScratchArray(CScratchArray<TYPE>& array, std::int64_t nCount) {
    TYPE* pArray = array.get();
    ResizeArray(pArray, nCount);
    (void)array.release(); // it is pArray now
    array.reset(pArray);
    PreferLargePages(pArray, static_cast<std::size_t>(nCount) * sizeof(TYPE));
}

/// A new array, undefined.
template <class TYPE>
CScratchArray<TYPE> NewScratchArray(std::int64_t nCount) {
    CScratchArray<TYPE> array;
    ResizeScratchArray(array, nCount);
    return array;
}

/// nCount + nMore as the size of an array.
int AddCounts(int nCount, int nMore);

/// A new object of a class that is handed to the caller.
template <class TYPE, class... ARGS>
std::unique_ptr<TYPE> NewObject(ARGS&&... args) {
    std::unique_ptr<TYPE> pObject(new (std::nothrow) TYPE(std::forward<ARGS>(args)...));
    if (!pObject) {
        AfxThrowMemoryException();
    }
    return pObject;
}

/// Resizes the two arrays of a curve, keeping the leading points. When it fails, nPoints is the smaller of
/// the two counts.
void ResizePoints(int& nPoints, double*& pX, double*& pY, int nNewPoints);

/// Gives a container whose arrays are null its points, or leaves them null.
template <class CONTAINER>
void AllocateAll(CONTAINER& container, int nPoints) {
    try {
        container.ReAllocate(nPoints);
    } catch (const CMemoryException&) {
        container.ReAllocate(0);
        throw;
    }
}

// The columns of a table: an array of nColumns pointers, each null or an array of doubles.

/// Changes the number of columns; new ones are null. Columns that fall away must have been freed.
void ResizeColumnArray(double**& ppColumns, int nColumns, int nNewColumns);

/// Makes every column null without releasing it.
void ForgetColumns(double** ppColumns, int nColumns);

/// Resizes every column, keeping the leading values. When it fails, nPoints is the smaller of the two counts.
void ResizeColumns(double** ppColumns, int nColumns, int& nPoints, int nNewPoints);

/// Frees every column, leaving the array of columns.
void FreeColumns(double** ppColumns, int nColumns);

/// The smallest value: the first of the equal ones, and the first value where it is NaN. NaN when there is
/// none.
double MinValue(const double* pValues, int nCount);
/// The largest value, likewise.
double MaxValue(const double* pValues, int nCount);

} // namespace tessara
