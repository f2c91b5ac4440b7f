#pragma once

#include <string>

namespace tessara {

/// The size of a picture in pixels and, through its dots per inch, in millimetres.
class CPictureSize {
public:
    /// strSize is "800x575" (pixels) or "160x115mm" (decimals with a point allowed). Throws CException,
    /// naming the option, for anything else, for sides outside 16 to 16384 pixels, for more than 2^26 pixels
    /// and for dots per inch outside 10 to 2400.
    CPictureSize(const std::string& strSize, double dDotsPerInch);

    int GetWidth() const { return m_nWidth; }   ///< pixels
    int GetHeight() const { return m_nHeight; } ///< pixels
    double GetDotsPerInch() const { return m_dDotsPerInch; }
    double GetWidthMm() const { return m_dWidthMm; }
    double GetHeightMm() const { return m_dHeightMm; }

private:
    int m_nWidth = 0;
    int m_nHeight = 0;
    double m_dDotsPerInch;
    double m_dWidthMm = 0;
    double m_dHeightMm = 0;
};

} // namespace tessara
