#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tessara/platform/gdi/DC.h"
#include "tessara/platform/gdi/LogSink.h"

namespace tessara {

/// A surface whose drawing can be read as lines of text.
class CLoggedSurface {
public:
    explicit CLoggedSurface(const CDeviceCaps& caps = {}) : dc(std::make_unique<CLogSink>(lines, caps)) {
        dc.SetBkMode(TRANSPARENT);
    }

    static CDeviceCaps Printer(int nColors) {
        CDeviceCaps caps;
        caps.bPrinting = true;
        caps.nColors = nColors;
        return caps;
    }

    /// The line of a text at a place: its words and font follow.
    static std::string At(int nX, int nY, const std::string& strRest) {
        return "Text " + std::to_string(nX) + "," + std::to_string(nY) + " " + strRest;
    }

    /// The lines that contain a text.
    std::vector<std::string> LinesWith(const std::string& strText) const {
        std::vector<std::string> found;
        for (const std::string& strLine : lines) {
            if (strLine.find(strText) != std::string::npos) {
                found.push_back(strLine);
            }
        }
        return found;
    }

    std::vector<std::string> lines;
    CDC dc;
};

} // namespace tessara
