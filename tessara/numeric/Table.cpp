#include "tessara/numeric/Table.h"

#include <algorithm>

#include "tessara/numeric/Storage.h"

IMPLEMENT_DYNAMIC(CTable, CObject)

CTable::CTable(int nDimensions) : m_nDimensions(0), m_nPoints(0), m_ppData(nullptr) {
    tessara::ResizeColumnArray(m_ppData, 0, nDimensions);
    m_nDimensions = nDimensions;
}

CTable::CTable(CTable* pSrc) : CTable(pSrc->m_nDimensions) {
    Allocate(pSrc->m_nPoints);
    for (int j = 0; j < m_nDimensions; ++j) {
        std::copy_n(pSrc->m_ppData[j], m_nPoints, m_ppData[j]);
    }
}

CTable::~CTable() {
    Free();
    tessara::ReleaseArray(m_ppData);
}

void CTable::Allocate(int nPoints) {
    m_nPoints = 0;
    tessara::ForgetColumns(m_ppData, m_nDimensions);
    tessara::AllocateAll(*this, nPoints);
}

void CTable::Free() {
    tessara::FreeColumns(m_ppData, m_nDimensions);
    m_nPoints = 0;
}

void CTable::ReAllocate(int nPoints) {
    tessara::ResizeColumns(m_ppData, m_nDimensions, m_nPoints, nPoints);
}

double CTable::Min(int nColumn) const {
    return tessara::MinValue(m_ppData[nColumn], m_nPoints);
}

double CTable::Max(int nColumn) const {
    return tessara::MaxValue(m_ppData[nColumn], m_nPoints);
}
