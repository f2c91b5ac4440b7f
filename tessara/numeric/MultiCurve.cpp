#include "tessara/numeric/MultiCurve.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <utility>

#include "tessara/numeric/Curve.h"
#include "tessara/numeric/Storage.h"
#include "tessara/platform/base/Archive.h"

IMPLEMENT_DYNAMIC(CMultiCurve, CObject)

namespace {

/// Columns without points take memory and no bytes of the record, so that the record cannot vouch for them.
constexpr int MAX_EMPTY_COLUMNS = 1 << 20;

constexpr int FIRST_VALUES = 1 << 13;  ///< of a column that may end at any byte: room made before any is read
constexpr int FIRST_COLUMNS = 1 << 10; ///< likewise

constexpr int CHUNK = 1 << 20; ///< values passed to an archive at once: a count of bytes is 32 bits wide

void StoreValues(CArchive& ar, const double* pValues, int nCount) {
    if constexpr (std::endian::native == std::endian::little) {
        for (; nCount > 0; pValues += CHUNK, nCount -= CHUNK) {
            ar.Write(pValues, static_cast<UINT>(std::min(nCount, CHUNK) * sizeof(double)));
        }
    } else {
        std::for_each_n(pValues, nCount, [&](double dValue) { ar << dValue; });
    }
}

void LoadValues(CArchive& ar, double* pValues, int nCount) {
    if constexpr (std::endian::native == std::endian::little) {
        for (; nCount > 0; pValues += CHUNK, nCount -= CHUNK) {
            const UINT nBytes = static_cast<UINT>(std::min(nCount, CHUNK) * sizeof(double));
            if (ar.Read(pValues, nBytes) != nBytes) {
                AfxThrowArchiveException(CArchiveException::endOfFile);
            }
        }
    } else {
        std::for_each_n(pValues, nCount, [&](double& dValue) { ar >> dValue; });
    }
}

/// How much room there is to be when nHave of nAll elements are there.
int GrownRoom(int nHave, int nFirst, int nAll) {
    return static_cast<int>(
        std::min<std::int64_t>(nAll, std::max<std::int64_t>(nFirst, std::int64_t{2} * nHave)));
}

/// Loads an array, which is null, that grows with what has been read.
void LoadGrowingArray(CArchive& ar, double*& pValues, int nCount) {
    for (int nDone = 0; nDone < nCount;) {
        const int nRoom = GrownRoom(nDone, FIRST_VALUES, nCount);
        tessara::ResizeArray(pValues, nRoom);
        LoadValues(ar, pValues + nDone, nRoom - nDone);
        nDone = nRoom;
    }
}

/// Throws unless the archive can hold a record of these counts, as far as it knows.
void CheckCounts(const CArchive& ar, int nDimensions, int nPoints) {
    if (nDimensions < 0 || nPoints < 0 || (nPoints == 0 && nDimensions > MAX_EMPTY_COLUMNS)) {
        AfxThrowArchiveException(CArchiveException::badIndex);
    }
    // At most (2^31 - 1) * 2^31 values: the product fits, their bytes may not.
    const std::uint64_t nValues =
        static_cast<std::uint64_t>(nPoints) * (static_cast<std::uint64_t>(nDimensions) + 1);
    if (ar.HasLength() && nValues > ar.GetRemaining() / sizeof(double)) {
        AfxThrowArchiveException(CArchiveException::endOfFile);
    }
}

} // namespace

CMultiCurve::CMultiCurve() : m_nDimensions(0), m_nPoints(0), m_pX(nullptr), m_ppY(nullptr) {}

CMultiCurve::CMultiCurve(int nDimensions) : CMultiCurve() {
    SetColumnCount(nDimensions);
}

CMultiCurve::~CMultiCurve() {
    Free();
    tessara::ReleaseArray(m_ppY);
}

void CMultiCurve::Allocate(int nPoints) {
    m_nPoints = 0;
    m_pX = nullptr;
    tessara::ForgetColumns(m_ppY, m_nDimensions);
    tessara::AllocateAll(*this, nPoints);
}

void CMultiCurve::Free() {
    tessara::FreeColumns(m_ppY, m_nDimensions);
    tessara::ReleaseArray(m_pX);
    m_nPoints = 0;
}

void CMultiCurve::ReAllocate(int nPoints) {
    tessara::ResizeArray(m_pX, nPoints);
    m_nPoints = std::min(m_nPoints, nPoints);
    tessara::ResizeColumns(m_ppY, m_nDimensions, m_nPoints, nPoints);
}

void CMultiCurve::SetDimensions(int nDimensions) {
    if (nDimensions < 0) {
        AfxThrowMemoryException(); // as every impossible count, and before anything is dropped
    }
    if (nDimensions != m_nDimensions) {
        Free();
        SetColumnCount(nDimensions);
    }
}

double CMultiCurve::Min(int nColumn) const {
    return tessara::MinValue(m_ppY[nColumn], m_nPoints);
}

double CMultiCurve::Max(int nColumn) const {
    return tessara::MaxValue(m_ppY[nColumn], m_nPoints);
}

void CMultiCurve::Values(int nColumn, const double* x, double* y, int n) const {
    CCurve(m_nPoints, m_pX, m_ppY[nColumn]).Values(x, y, n);
}

CMultiCurve& CMultiCurve::operator=(CMultiCurve& src) {
    if (this == &src) {
        return *this;
    }
    if (m_nDimensions != src.m_nDimensions || src.m_nPoints < 1) {
        Free();
    }
    SetColumnCount(src.m_nDimensions);
    if (m_nDimensions < 1 || src.m_nPoints < 1) {
        return *this;
    }
    SetPointCount(src.m_nPoints);
    std::copy_n(src.m_pX, m_nPoints, m_pX);
    for (int j = 0; j < m_nDimensions; ++j) {
        std::copy_n(src.m_ppY[j], m_nPoints, m_ppY[j]);
    }
    return *this;
}

void CMultiCurve::Serialize(CArchive& ar) {
    if (ar.IsStoring()) {
        Store(ar);
    } else {
        Load(ar);
    }
}

void CMultiCurve::Store(CArchive& ar) const {
    ar << m_nDimensions << m_nPoints;
    if (m_nPoints > 0) {
        StoreValues(ar, m_pX, m_nPoints);
        for (int j = 0; j < m_nDimensions; ++j) {
            StoreValues(ar, m_ppY[j], m_nPoints);
        }
    }
}

void CMultiCurve::Load(CArchive& ar) {
    int nDimensions = 0;
    int nPoints = 0;
    ar >> nDimensions >> nPoints;
    CheckCounts(ar, nDimensions, nPoints);
    if (nPoints > 0 && !ar.HasLength()) {
        CMultiCurve loaded;
        loaded.LoadGrowing(ar, nDimensions, nPoints);
        Take(loaded);
        return;
    }
    if (nDimensions != m_nDimensions || nPoints == 0) {
        Free();
    }
    SetColumnCount(nDimensions);
    if (nPoints > 0) {
        SetPointCount(nPoints);
        LoadValues(ar, m_pX, m_nPoints);
        for (int j = 0; j < m_nDimensions; ++j) {
            LoadValues(ar, m_ppY[j], m_nPoints);
        }
    }
}

/// Loads what follows the counts into a multi-curve without columns or points.
void CMultiCurve::LoadGrowing(CArchive& ar, int nDimensions, int nPoints) {
    LoadGrowingArray(ar, m_pX, nPoints);
    for (int j = 0; j < nDimensions; ++j) {
        if (j == m_nDimensions) {
            SetColumnCount(GrownRoom(j, FIRST_COLUMNS, nDimensions));
        }
        LoadGrowingArray(ar, m_ppY[j], nPoints);
    }
    m_nPoints = nPoints;
}

/// Takes the values of another multi-curve: into the arrays there are when these have the same counts.
void CMultiCurve::Take(CMultiCurve& src) {
    if (m_nDimensions != src.m_nDimensions || m_nPoints != src.m_nPoints) {
        std::swap(m_nDimensions, src.m_nDimensions);
        std::swap(m_nPoints, src.m_nPoints);
        std::swap(m_pX, src.m_pX);
        std::swap(m_ppY, src.m_ppY);
        return;
    }
    std::copy_n(src.m_pX, m_nPoints, m_pX);
    for (int j = 0; j < m_nDimensions; ++j) {
        std::copy_n(src.m_ppY[j], m_nPoints, m_ppY[j]);
    }
}

/// REQUIRES: columns that fall away have been freed.
void CMultiCurve::SetColumnCount(int nDimensions) {
    tessara::ResizeColumnArray(m_ppY, m_nDimensions, nDimensions);
    m_nDimensions = nDimensions;
}

void CMultiCurve::SetPointCount(int nPoints) {
    if (nPoints != m_nPoints) {
        ReAllocate(nPoints);
    }
}
