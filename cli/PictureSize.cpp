#include "cli/PictureSize.h"

#include <cmath>
#include <optional>
#include <string_view>

#include "cli/InputError.h"
#include "tessara/platform/base/Number.h"

namespace tessara {

namespace {

constexpr double MM_PER_INCH = 25.4;
constexpr double MIN_PIXELS = 16;
constexpr double MAX_PIXELS = 16384;
constexpr double MAX_AREA = 1 << 26;

[[noreturn]] void ThrowNotASize(const std::string& strSize) {
    throw CException("--size: " + Quoted(strSize) + " is not a size such as 800x575 or 160x115mm");
}

/// Plain digits with at most one point: no sign, exponent or blanks. Pixels are whole.
double ParseSide(const std::string& strSide, bool bMillimetres, const std::string& strSize) {
    if (strSide.find_first_not_of(bMillimetres ? "0123456789." : "0123456789") != std::string::npos) {
        ThrowNotASize(strSize);
    }
    const std::optional<double> side = ParseNumber(strSide.c_str());
    if (!side) {
        ThrowNotASize(strSize);
    }
    return *side;
}

int CheckedPixels(double dPixels, const std::string& strSize) {
    const double dRounded = std::round(dPixels);
    if (!(dRounded >= MIN_PIXELS && dRounded <= MAX_PIXELS)) {
        throw CException("--size: the sides of " + Quoted(strSize) + " must be 16 to 16384 pixels");
    }
    return static_cast<int>(dRounded);
}

} // namespace

CPictureSize::CPictureSize(const std::string& strSize, double dDotsPerInch) : m_dDotsPerInch(dDotsPerInch) {
    if (!(dDotsPerInch >= 10 && dDotsPerInch <= 2400)) {
        throw CException("--dpi: must be 10 to 2400");
    }
    const bool bMillimetres = strSize.ends_with("mm");
    const std::string strSides = bMillimetres ? strSize.substr(0, strSize.size() - 2) : strSize;
    const std::size_t nCross = strSides.find('x');
    if (nCross == std::string::npos) {
        ThrowNotASize(strSize);
    }
    const double dPixel = MM_PER_INCH / dDotsPerInch;
    const double dUnit = bMillimetres ? 1 : dPixel;
    m_dWidthMm = dUnit * ParseSide(strSides.substr(0, nCross), bMillimetres, strSize);
    m_dHeightMm = dUnit * ParseSide(strSides.substr(nCross + 1), bMillimetres, strSize);
    m_nWidth = CheckedPixels(m_dWidthMm / dPixel, strSize);
    m_nHeight = CheckedPixels(m_dHeightMm / dPixel, strSize);
    if (static_cast<double>(m_nWidth) * m_nHeight > MAX_AREA) {
        throw CException("--size: " + Quoted(strSize) + " has more than 67108864 pixels");
    }
}

} // namespace tessara
