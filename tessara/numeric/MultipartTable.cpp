#include "tessara/numeric/MultipartTable.h"

#include <algorithm>

#include "tessara/numeric/LevelSection.h"
#include "tessara/numeric/PartRecords.h"
#include "tessara/numeric/Storage.h"
#include "tessara/numeric/Table.h"
#include "tessara/numeric/TableReference.h"

IMPLEMENT_DYNAMIC(CMultipartTable, CObject)

namespace {

tessara::CPartRecords Parts(CMultipartTable& table) {
    return {table.m_nParts, table.m_nMaxParts, table.m_pParts};
}

} // namespace

CMultipartTable::CMultipartTable()
    : m_nDimensions(0), m_nPoints(0), m_ppData(nullptr), m_nParts(0), m_nMaxParts(0), m_nColors(1),
      m_pParts(nullptr) {}

// Delegating lets the destructor release what there is when a later allocation fails.
CMultipartTable::CMultipartTable(int nDimensions) : CMultipartTable() {
    tessara::ResizeColumnArray(m_ppData, 0, nDimensions);
    m_nDimensions = nDimensions;
    Parts(*this).Allocate(tessara::INITIAL_PARTS);
}

CMultipartTable::CMultipartTable(CMultipartTable* pSrc) : CMultipartTable(pSrc->m_nDimensions) {
    m_nColors = pSrc->GetNumColors();
    AddMultipartTable(pSrc, -1);
}

CMultipartTable::~CMultipartTable() {
    Free();
    tessara::ReleaseArray(m_ppData);
    tessara::ReleaseArray(m_pParts);
}

void CMultipartTable::Allocate(int nPoints) {
    m_nPoints = 0;
    tessara::ForgetColumns(m_ppData, m_nDimensions);
    tessara::AllocateAll(*this, nPoints);
}

void CMultipartTable::Free() {
    tessara::FreeColumns(m_ppData, m_nDimensions);
    m_nPoints = 0;
}

void CMultipartTable::ReAllocate(int nPoints) {
    tessara::ResizeColumns(m_ppData, m_nDimensions, m_nPoints, nPoints);
}

double CMultipartTable::Min(int nColumn) const {
    return tessara::MinValue(m_ppData[nColumn], m_nPoints);
}

double CMultipartTable::Max(int nColumn) const {
    return tessara::MaxValue(m_ppData[nColumn], m_nPoints);
}

void CMultipartTable::BeginPart(int nFirst, int nColor) {
    Parts(*this).Begin(nFirst, nColor);
}

void CMultipartTable::EndPart(int nLast) {
    Parts(*this).End(nLast);
}

void CMultipartTable::GrowParts() {
    Parts(*this).Grow();
}

void CMultipartTable::AddTable(CTable* pTable, int nColor, int nPosition) {
    const int nRows = pTable->m_nPoints;
    AddPart(pTable->m_ppData, nRows, {0, nRows, nColor}, Extend(nPosition, nRows));
}

void CMultipartTable::AddMultipartTable(CMultipartTable* pSrc, int nPosition) {
    // The source may be this table, whose counts change below.
    const int nRows = pSrc->m_nPoints;
    const int nParts = pSrc->m_nParts;
    const int nOffset = Extend(nPosition, nRows);
    for (int i = 0; i < nParts; ++i) {
        const CCurvePartInfo part = pSrc->m_pParts[i];
        AddPart(pSrc->m_ppData, nRows, part, nOffset);
    }
}

CTable* CMultipartTable::Value(int nColumn, double dValue) const {
    const auto nColumns = static_cast<std::size_t>(m_nDimensions);
    const auto nParts = static_cast<std::size_t>(m_nParts);
    return tessara::LevelSection({{m_ppData, nColumns}, m_nPoints, {m_pParts, nParts}}, m_ppData[nColumn],
                                 dValue)
        .release();
}

CTableReference* CMultipartTable::GetPart(int nPart) const {
    if (nPart < 0 || nPart >= m_nParts) {
        AfxThrowInvalidArgException();
    }
    const CCurvePartInfo& part = m_pParts[nPart];
    return tessara::NewObject<CTableReference>(m_nDimensions, part.nPoints, m_ppData, part.nFirst).release();
}

/// Sizes the table to nMore rows from nPosition on, or from its end for -1, and returns the first of them.
int CMultipartTable::Extend(int nPosition, int nMore) {
    const int nFirst = nPosition == -1 ? m_nPoints : nPosition;
    ReAllocate(tessara::AddCounts(nFirst, nMore));
    return nFirst;
}

/// Copies one part of nSourceRows rows into rows that exist, moved by nOffset.
void CMultipartTable::AddPart(double** ppData, int nSourceRows, const CCurvePartInfo& part, int nOffset) {
    const CCurvePartInfo rows = tessara::ClipPart(part, nSourceRows);
    BeginPart(nOffset + part.nFirst, part.nColor);
    for (int j = 0; j < m_nDimensions && rows.nPoints > 0; ++j) {
        std::copy_n(ppData[j] + rows.nFirst, rows.nPoints, m_ppData[j] + nOffset + rows.nFirst);
    }
    EndPart(nOffset + part.nFirst + part.nPoints - 1);
}
