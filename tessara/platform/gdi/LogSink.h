#pragma once

#include <string>
#include <vector>

#include "tessara/platform/gdi/DrawSink.h"

namespace tessara {

/// A surface that draws nothing and keeps one line of text for each operation: its name, its logical
/// coordinates and what it is drawn with; of a picture its size and a checksum of its pixels. What is as in a
/// new surface is left out, and so is how logical coordinates become pixels. So drawings of the same log are
/// the same where their mappings are, as far as a checksum can tell.
class TESSARA_API CLogSink : public CDrawSink {
public:
    /// The lines go to the end of the given list, which must outlive the sink.
    CLogSink(std::vector<std::string>& lines, const CDeviceCaps& caps) : m_lines(lines), m_caps(caps) {}

    CDeviceCaps GetCaps() const override { return m_caps; }
    COLORREF ReadPixel(POINT device) const override;
    TESSARA_DRAW_OPERATIONS(TESSARA_OVERRIDE_OPERATION)

private:
    std::vector<std::string>& m_lines;
    CDeviceCaps m_caps;
};

} // namespace tessara
