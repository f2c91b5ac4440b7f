#include "cli/DiagramOutput.h"

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/gdi/DC.h"
#include "tessara/plot/CustomScale.h"

namespace tessara {

namespace {

enum DiagramAxis : int { ABSCISSA_AXIS = 1, ORDINATE_AXIS = 2 };

void CheckScale(const std::optional<AXISSCALE>& scale) {
    if (scale && !CCustomScale{scale->dFrom, scale->dTo, scale->dStep, scale->nExponent}.IsUsable()) {
        throw CException("not a scale that can be drawn");
    }
}

void SetScale(CPhaseDiagramOutput& output, DiagramAxis axis, const std::optional<AXISSCALE>& scale) {
    if (scale) {
        output.UseCustomScale(axis, scale->dFrom, scale->dTo, scale->dStep, scale->nExponent);
    } else {
        output.UseAutomaticScale(axis);
    }
}

} // namespace

CDiagramOutput::CDiagramOutput(const DIAGRAM& diagram) {
    TakeDiagram(diagram);
}

void CDiagramOutput::TakeDiagram(const DIAGRAM& diagram) {
    CheckScale(diagram.x.scale);
    CheckScale(diagram.y.scale);
    auto pData = std::make_unique<CDiagramData>(diagram);
    Reset();
    pData->ApplyTo(*this);
    m_pData = std::move(pData); // the renderer has let go of those before
    SetTexts(diagram);
    SetRegion(diagram);
    SetBoundaries(diagram);
    SetLook(diagram);
}

void CDiagramOutput::SetTexts(const DIAGRAM& diagram) {
    SetPhaseDiagramName(diagram.name.value_or("").c_str());
    SetAbscissaSymbol(diagram.x.symbol.value_or("x~N").c_str());
    SetOrdinateSymbol(diagram.y.symbol.value_or("f(x)~N").c_str());
    if (diagram.slide) {
        SetSlideName(diagram.slide->c_str());
    }
    SetAbscissaFormat(diagram.x.format ? diagram.x.format->c_str() : nullptr);
    SetOrdinateFormat(diagram.y.format ? diagram.y.format->c_str() : nullptr);
}

void CDiagramOutput::SetRegion(const DIAGRAM& diagram) {
    SetScale(*this, ABSCISSA_AXIS, diagram.x.scale);
    SetScale(*this, ORDINATE_AXIS, diagram.y.scale);
    if (diagram.zoom) {
        ZoomTo({diagram.zoom->dXMax, diagram.zoom->dXMin, diagram.zoom->dYMax, diagram.zoom->dYMin});
    }
}

/// The renderer draws boundary lines wherever they lie, and knows its axes when it has painted.
void CDiagramOutput::SetBoundaries(const DIAGRAM& diagram) {
    if (!diagram.leftBoundary && !diagram.rightBoundary) {
        return;
    }
    CDC nowhere;
    Paint(&nowhere, {0, 0, 1, 1}, nullptr);
    if (diagram.leftBoundary && IsValidValue(*diagram.leftBoundary, 1)) {
        DrawLeftBoundary(*diagram.leftBoundary);
    }
    if (diagram.rightBoundary && IsValidValue(*diagram.rightBoundary, 1)) {
        DrawRightBoundary(*diagram.rightBoundary);
    }
}

void CDiagramOutput::SetLook(const DIAGRAM& diagram) {
    SetShowLegend(diagram.bLegend);
    SetShowCaption(diagram.bCaption);
    SetMonochrome(diagram.bMonochrome);
    if (diagram.bMultiphasePoints) {
        ToggleMultiphasePoints();
    }
}

} // namespace tessara
