#pragma once

#include <functional>

#include "tessara/platform/gdi/DrawSink.h"

namespace tessara {

/// Passes every operation on to another sink, on the thread where that is. From any thread.
class CForwardingSink : public CDrawSink {
public:
    CDeviceCaps GetCaps() const override {
        CDeviceCaps caps;
        Forward([&](CDrawSink& sink) { caps = sink.GetCaps(); }, false);
        return caps;
    }
    COLORREF ReadPixel(POINT device) const override {
        COLORREF color = CLR_INVALID;
        Forward([&](CDrawSink& sink) { color = sink.ReadPixel(device); }, false);
        return color;
    }

#define TESSARA_FORWARD_OPERATION(name, parameters, names)                                                   \
    void name(const CDrawState& state, TESSARA_UNWRAP parameters) override {                                 \
        Forward([&](CDrawSink& sink) { sink.name(state, TESSARA_UNWRAP names); }, true);                     \
    }
    TESSARA_DRAW_OPERATIONS(TESSARA_FORWARD_OPERATION)
#undef TESSARA_FORWARD_OPERATION

protected:
    using CCall = std::function<void(CDrawSink&)>;

    /// Calls the function with the sink behind this one; not at all when that has gone.
    virtual void Forward(const CCall& fnCall, bool bDraws) const = 0;
};

} // namespace tessara
