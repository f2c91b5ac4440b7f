#pragma once

#include "tessara/numeric/CurvePartInfo.h"
#include "tessara/platform/base/Object.h"

class CTable;
class CTableReference;

/// A table (see CTable) whose rows are grouped into parts, each an open polyline with its own colour index.
///
/// Rows may belong to no part; only rows inside parts are drawn, copied into another table or cut by
/// sections. What a part has beyond the last row, after the table was cut, is passed over.
///
/// A part is built in three steps: write its rows, BeginPart with its first row, EndPart with its last.
///
///     table.Allocate(3);
///     ... // fill rows 0 to 2
///     table.BeginPart(0, nColor);
///     table.EndPart(2);
///
/// Running out of memory, and a negative count, throw CMemoryException; the table can then be used further
/// with the counts it shows. Column indices and positions are not checked.
class TESSARA_API CMultipartTable : public CObject {
    DECLARE_DYNAMIC(CMultipartTable)

public:
    explicit CMultipartTable(int nDimensions);
    /// A copy of the columns, the parts and the colour count; rows that lie in no part are undefined.
    explicit CMultipartTable(CMultipartTable* pSrc);
    ~CMultipartTable() override;

    /// Gives a table without rows nPoints of them, undefined. Columns that exist are not released.
    void Allocate(int nPoints);
    /// Drops the rows; the columns stay, empty, and so do the parts.
    void Free();
    /// Changes the number of rows, keeping the leading ones and the parts.
    void ReAllocate(int nPoints);

    /// The smallest value of a column over all rows; the first of equal ones, NaN without rows.
    double Min(int nColumn) const;
    /// The largest value of a column, likewise.
    double Max(int nColumn) const;

    void BeginPart(int nFirst, int nColor);
    void EndPart(int nLast);
    /// Makes room for more parts when every record is in use.
    void GrowParts();

    void SetNumColors(int nColors) { m_nColors = nColors; }
    int GetNumColors() const { return m_nColors; }

    /// Copies a table in as one new part that starts at row nPosition, or at the end for -1. The table then
    /// ends with the rows added; parts recorded earlier stay. REQUIRES: pTable has at least this table's
    /// columns.
    void AddTable(CTable* pTable, int nColor, int nPosition);
    /// Copies the parts of another multipart table in, moved by nPosition rows (the current count for -1).
    /// REQUIRES: pSrc has at least this table's columns.
    void AddMultipartTable(CMultipartTable* pSrc, int nPosition);

    /// Every point where a part reaches the level dValue of column nColumn, by part and by row. A segment
    /// counts when it starts on the level or passes through it; the last row of the table counts by itself
    /// when it is on the level. The caller owns the table; null when there is no point.
    CTable* Value(int nColumn, double dValue) const;

    /// A new view of one part's rows, owned by the caller. A bad index throws CInvalidArgException.
    CTableReference* GetPart(int nPart) const;

    int m_nDimensions; ///< number of columns
    int m_nPoints;     ///< number of rows
    double** m_ppData; ///< the columns
    int m_nParts;      ///< number of completed parts
    int m_nMaxParts;   ///< number of part records allocated, greater than m_nParts
    int m_nColors;     ///< number of colours that the parts' colour indices refer to; for renderers
    CCurvePartInfo* m_pParts;

private:
    CMultipartTable();
    int Extend(int nPosition, int nMore);
    void AddPart(double** ppData, int nSourceRows, const CCurvePartInfo& part, int nOffset);
};
