#pragma once

#include "tessara/platform/base/Object.h"

/// A run of rows of another table, seen as a table: row i is row nFirst + i there. No values are copied.
///
/// It is valid while the other table exists and is not resized. Its fields are those of CTable; it owns the
/// array of column pointers alone. Running out of memory, and a negative column count, throw
/// CMemoryException.
class TESSARA_API CTableReference : public CObject {
    DECLARE_DYNAMIC(CTableReference)

public:
    CTableReference(int nDimensions, int nPoints, double** ppData, int nFirst);
    ~CTableReference() override;

    int m_nDimensions; ///< number of columns
    int m_nPoints;     ///< number of rows
    double** m_ppData; ///< the columns, which belong to the other table
};
