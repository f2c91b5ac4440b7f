#pragma once

#include "tessara/platform/base/Object.h"

/// Several ordinate columns over one abscissa column: m_ppY[j][i] belongs to m_pX[i].
///
/// A multi-curve owns its arrays, which come from malloc. Fields are public: fill the arrays through them
/// after Allocate. Without points the abscissae and every column are null, without columns the column array
/// is null. The column count survives Free.
///
/// Running out of memory, and a negative count, throw CMemoryException; the multi-curve can then be used
/// further with the counts it shows. Column indices are not checked.
///
///     CMultiCurve curve(2);
///     curve.Allocate(100);
///     curve.m_ppY[1][99] = 0.5;
class TESSARA_API CMultiCurve : public CObject {
    DECLARE_DYNAMIC(CMultiCurve)

public:
    CMultiCurve();
    explicit CMultiCurve(int nDimensions);
    ~CMultiCurve() override;

    /// Gives a multi-curve without points nPoints of them, undefined. Arrays that exist are not released.
    void Allocate(int nPoints);
    /// Drops the points; the columns stay, empty.
    void Free();
    /// Changes the number of points, keeping the leading ones.
    void ReAllocate(int nPoints);
    /// Changes the number of columns, which drops the points; the current number changes nothing, nor does a
    /// negative one, which throws CMemoryException.
    void SetDimensions(int nDimensions);

    /// The smallest ordinate of a column; the first of equal ones, NaN without points.
    double Min(int nColumn) const;
    /// The largest ordinate of a column, likewise.
    double Max(int nColumn) const;

    /// A column at each of n abscissae, read as a curve: to the last bit what CCurve::Value gives over the
    /// abscissae and that column. NaN without points. y may be x.
    void Values(int nColumn, const double* x, double* y, int n) const;

    /// Copies the shape and all values. A source without columns gives its column count alone.
    CMultiCurve& operator=(CMultiCurve& src);

    /// Writes or reads the record: the two counts as 32-bit integers, columns first, then the abscissae and
    /// the columns in order as 8-byte reals; nothing follows the counts when there are no points.
    ///
    /// Loading accepts any bytes. A negative count, or more than 1,048,576 columns without points, throws
    /// CArchiveException badIndex, a record longer than what remains in the archive endOfFile; the
    /// multi-curve is then as it was. When the file itself fails while it is read, the values are undefined.
    ///
    /// From a file without a length (a pipe) it loads as well. The memory then grows with what has been read,
    /// to about twice as much, and whatever fails leaves the multi-curve as it was.
    void Serialize(CArchive& ar) override;

    int m_nDimensions; ///< number of ordinate columns
    int m_nPoints;     ///< number of points
    double* m_pX;      ///< abscissae
    double** m_ppY;    ///< the columns

private:
    void SetColumnCount(int nDimensions);
    void SetPointCount(int nPoints);
    void Load(CArchive& ar);
    void LoadGrowing(CArchive& ar, int nDimensions, int nPoints);
    void Take(CMultiCurve& src);
    void Store(CArchive& ar) const;
};
