#include "tessara/numeric/TableReference.h"

#include <algorithm>
#include <new>

#include "tessara/platform/base/Exception.h"

IMPLEMENT_DYNAMIC(CTableReference, CObject)

CTableReference::CTableReference(int nDimensions, int nPoints, double** ppData, int nFirst)
    : m_nDimensions(nDimensions), m_nPoints(nPoints),
      m_ppData(nDimensions < 0 ? nullptr
                               : new (std::nothrow) double*[static_cast<std::size_t>(nDimensions)]) {
    if (!m_ppData) {
        AfxThrowMemoryException();
    }
    // A table without rows has null columns.
    std::transform(ppData, ppData + nDimensions, m_ppData,
                   [nFirst](double* pColumn) { return pColumn ? pColumn + nFirst : nullptr; });
}

CTableReference::~CTableReference() {
    delete[] m_ppData;
}
