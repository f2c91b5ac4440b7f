#pragma once

#include "tessara/numeric/CurvePartInfo.h"
#include "tessara/platform/base/Object.h"

class CCurve;
class CTable;

/// A sampled curve whose points are grouped into parts, each an open polyline with its own colour index: a
/// curve with gaps, or with pieces of different colours.
///
/// Parts are built as those of CMultipartTable are. Points may belong to no part. To be evaluated at an
/// abscissa, the abscissae of all points must be non-decreasing (see CCurve); sections need no order.
///
/// A curve owns its point arrays, which then come from malloc and can be resized, or borrows arrays that the
/// caller keeps alive and releases. Its first three fields are those of CCurve. The part records always are
/// its own.
///
/// Running out of memory, and a negative count, throw CMemoryException; the curve can then be used further
/// with the counts it shows.
///
///     CMultipartCurve curve;
///     curve.AddCurve(&branch, 0);
///     curve.AddCurve(&otherBranch, 1);
class TESSARA_API CMultipartCurve : public CObject {
    DECLARE_DYNAMIC(CMultipartCurve)

public:
    /// Owning, without points or parts.
    CMultipartCurve();
    /// Owning, with nPoints undefined points and no parts.
    explicit CMultipartCurve(int nPoints);
    /// Borrows the point arrays and copies the part records.
    CMultipartCurve(int nPoints, double* pX, double* pY, int nParts, CCurvePartInfo* pParts, int nColors);
    ~CMultipartCurve() override;

    /// Gives a curve without points nPoints of them, undefined, which it owns. Arrays that exist are not
    /// released.
    void Allocate(int nPoints);
    /// Resizes an owning curve, keeping its leading points and its parts. Does nothing to a borrowing one.
    void ReAllocate(int nPoints);

    void BeginPart(int nFirst, int nColor);
    void EndPart(int nLast);

    void SetNumColors(int nColors) { m_nColors = nColors; }
    int GetNumColors() const { return m_nColors; }

    /// Appends a curve as one new part.
    /// REQUIRES: this curve owns its arrays (CInvalidArgException); the same for AddMultipartCurve.
    void AddCurve(CCurve* pCurve, int nColor);
    /// Appends all parts of another curve, at the same distances; points between its parts are undefined.
    void AddMultipartCurve(CMultipartCurve* pSrc);

    /// The ordinate at x over all points, whatever their parts, as CCurve has it.
    double Value(double x) const;
    /// Every point where a part reaches the level dValue, of y when bByY is nonzero, else of x; by part and
    /// by point, with the rules of CMultipartTable::Value. Column 0 has the abscissae, column 1 the
    /// ordinates. The caller owns the table; null when there is no point.
    CTable* Value(int bByY, double dValue) const;

    int m_nPoints;   ///< number of points
    double* m_pX;    ///< abscissae
    double* m_pY;    ///< ordinates
    int m_nParts;    ///< number of completed parts
    int m_nMaxParts; ///< number of part records allocated
    int m_nColors;   ///< number of colours that the parts' colour indices refer to; for renderers
    CCurvePartInfo* m_pParts;
    BOOL m_bOwner; ///< nonzero when the point arrays are the curve's

protected:
    /// Makes room for more parts when every record is in use.
    void GrowParts();

private:
    int Extend(int nMore);
    void AddPart(const CCurve& points, const CCurvePartInfo& part, int nOffset);
};
