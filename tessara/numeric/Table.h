#pragma once

#include "tessara/platform/base/Object.h"

/// Points of several coordinates, stored by column: m_ppData[j][i] is coordinate j of point i.
///
/// A table owns its columns, which come from malloc. Fields are public: fill the columns through them after
/// Allocate. Without rows every column is null. The column count survives Free.
///
/// Running out of memory, and a negative count, throw CMemoryException; the table can then be used further
/// with the counts it shows. Column indices are not checked.
///
///     CTable table(2);
///     table.Allocate(1);
///     table.m_ppData[0][0] = 0.25, table.m_ppData[1][0] = 310;
class TESSARA_API CTable : public CObject {
    DECLARE_DYNAMIC(CTable)

public:
    explicit CTable(int nDimensions);
    /// A copy of all columns and rows.
    explicit CTable(CTable* pSrc);
    ~CTable() override;

    /// Gives a table without rows nPoints of them, undefined. Columns that exist are not released.
    void Allocate(int nPoints);
    /// Drops the rows; the columns stay, empty.
    void Free();
    /// Changes the number of rows, keeping the leading ones.
    void ReAllocate(int nPoints);

    /// The smallest value of a column; the first of equal ones, NaN without rows.
    double Min(int nColumn) const;
    /// The largest value of a column, likewise.
    double Max(int nColumn) const;

    int m_nDimensions; ///< number of columns
    int m_nPoints;     ///< number of rows
    double** m_ppData; ///< the columns
};
