#pragma once

#include <string>
#include <vector>

#include "tessara/platform/gdi/DrawSink.h"

namespace tessara {

/// A surface that draws nothing and keeps one line of text for each operation: its name, its logical
/// coordinates and what it is drawn with. Two drawings are the same exactly when their logs are.
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
