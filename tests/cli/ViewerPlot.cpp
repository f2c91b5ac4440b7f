#include "tests/cli/ViewerPlot.h"

#include <fstream>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/ui/windows/ClientDC.h"

using namespace tessara;

int CViewerPlot::s_nPlots = 0;
int CViewerPlot::s_nAttached = 0;

CViewerPlot::~CViewerPlot() {
    --s_nPlots;
    Detach();
}

std::unique_ptr<CShownPlot> CViewerPlot::Open(const CViewSource& source) {
    std::ifstream file(source.strPath);
    double dWidth = 0;
    double dHeight = 0;
    if (!(file >> dWidth >> dHeight) || dWidth <= 0 || dHeight <= 0) {
        throw CException(source.strPath + ": cannot be read");
    }
    ++s_nPlots;
    return std::make_unique<CViewerPlot>(dWidth, dHeight);
}

/// The plot's frame leaves a margin of a tenth on every side.
void CViewerPlot::Paint(CDC& dc, const RECT& rc) {
    const CRect frame(rc.right / 10, rc.bottom / 10, rc.right * 9 / 10, rc.bottom * 9 / 10);
    dc.Rectangle(&frame);
    if (!dynamic_cast<CPaintDC*>(&dc)) {
        return;
    }
    const CZoomWindow shown = m_zoom.value_or(CZoomWindow{m_dWidth, 0, m_dHeight, 0});
    m_map.rect = frame;
    m_map.dXLower = shown.dXMin;
    m_map.dXUpper = shown.dXMax;
    m_map.dYLower = shown.dYMin;
    m_map.dYUpper = shown.dYMax;
}

DRAWING CViewerPlot::GetDrawing() {
    return {[this](CDC& dc, const RECT& rc) {
                Paint(dc, rc);
                return 1;
            },
            [](CDC&, const RECT&, const char* pszPath) {
                std::ofstream(pszPath) << "metafile";
                return 1;
            }};
}

void CViewerPlot::Toggle(EPlotSwitch eSwitch) {
    if (!m_switches.erase(eSwitch)) {
        m_switches.insert(eSwitch);
    }
}

void CViewerPlot::SetScales(const CAxisScales& scales) {
    if (scales.x && scales.x->dFrom > m_dWidth) {
        throw CException("nothing lies within the scales");
    }
    m_scales = scales;
    m_zoom.reset();
}

std::string CViewerPlot::DescribePoint(double dX, double dY) const {
    return "x = " + std::to_string(dX) + ", y = " + std::to_string(dY);
}

void CViewerPlot::OnLButtonUp(CPoint point) {
    if (m_bZoomInMode && !m_clicks.empty()) {
        m_zoom = m_map.GetWindow(m_clicks.back(), point);
        m_bZoomInMode = false;
    }
}

bool CViewerPlot::Offers(EReadOut eReadOut) const {
    return eReadOut != EReadOut::extendedGetValue;
}

void CViewerPlot::Attach(CWnd* pView) {
    m_pView = pView;
    ++s_nAttached;
}

void CViewerPlot::Detach() {
    s_nAttached -= m_pView != nullptr;
    m_pView = nullptr;
}

void CViewerPlot::ShowReadOut(EReadOut eReadOut, bool bShow) {
    if (bShow) {
        m_readOuts = {eReadOut};
    } else {
        m_readOuts.erase(eReadOut);
    }
}

bool CViewerPlot::Walk(EWalk eWalk) {
    m_walks.push_back(eWalk);
    return true;
}

std::unique_ptr<CShownPlot> CViewerPlot::OpenSection(int nColumn, std::unique_ptr<CTable> pTable) const {
    if (pTable->m_nPoints == 0) {
        return nullptr;
    }
    ++s_nPlots;
    auto pSection = std::make_unique<CViewerPlot>(pTable->m_nPoints, 1);
    pSection->m_strName = m_strName + ", section " + std::to_string(nColumn);
    return pSection;
}
