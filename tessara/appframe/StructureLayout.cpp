#include "tessara/appframe/StructureLayout.h"

#include "tessara/platform/ui/windows/System.h"

namespace tessara {

namespace {

constexpr int HALF_GAP = 3; ///< between the columns

CRect Place(int nLeft, int nTop, int nWidth, int nHeight) {
    return {nLeft, nTop, nLeft + nWidth, nTop + nHeight};
}

CEtchedLine Across(int nLeft, int nRight, int nY) {
    return {{nLeft, nY}, {nRight, nY}};
}

CEtchedLine Down(int nX, int nTop, int nBottom) {
    return {{nX, nTop}, {nX, nBottom}};
}

} // namespace

CPoint CEtchedLine::GetLast() const {
    const auto fnStepBack = [](LONG nFrom, LONG nTo) { return nTo - (nTo > nFrom) + (nTo < nFrom); };
    return {fnStepBack(from.x, to.x), fnStepBack(from.y, to.y)};
}

CStructureLayout::CStructureLayout(int nTextHeight, CSize client)
    : m_nText(nTextHeight), m_nWidth(static_cast<int>(client.cx)), m_nHeight(static_cast<int>(client.cy)),
      m_nMiddle(m_nWidth / 2) {}

CRect CStructureLayout::GetTitle() const {
    return Place(0, 0, m_nWidth, m_nText + 4);
}

CRect CStructureLayout::GetInputHeading() const {
    return Place(0, m_nText + 10, m_nMiddle - HALF_GAP, m_nText + 4);
}

CRect CStructureLayout::GetOutputHeading() const {
    return Place(m_nMiddle + HALF_GAP, m_nText + 10, m_nMiddle - HALF_GAP, m_nText + 4);
}

CRect CStructureLayout::GetInputList() const {
    return Place(0, 2 * m_nText + 20, m_nMiddle - HALF_GAP, m_nHeight - 12 - (2 * m_nText + 8));
}

CRect CStructureLayout::GetOutputList() const {
    return Place(m_nMiddle + HALF_GAP, 2 * m_nText + 20, m_nMiddle - HALF_GAP,
                 m_nHeight - 12 - (2 * m_nText + 8));
}

CRect CStructureLayout::GetButton(CSize size) const {
    constexpr int TOP = 16;
    const int nWidth = static_cast<int>(size.cx);
    return Place((m_nWidth - nWidth) / 2, TOP, nWidth, static_cast<int>(size.cy));
}

std::array<CRect, 3> CStructureLayout::GetBands() const {
    return {CRect(0, m_nText + 4, m_nWidth, m_nText + 10),
            CRect(m_nMiddle - HALF_GAP, m_nText + 10, m_nMiddle + HALF_GAP, m_nHeight),
            CRect(0, 2 * m_nText + 14, m_nWidth, 2 * m_nText + 20)};
}

std::array<CEtching, 3> CStructureLayout::GetEtchings() const {
    const int h = m_nText;
    const int c = m_nMiddle;
    return {CEtching{COLOR_3DDKSHADOW,
                     {Across(0, c - 3, h + 9), Across(c + 3, m_nWidth, h + 9), Across(0, c - 3, 2 * h + 19),
                      Across(c + 3, m_nWidth, 2 * h + 19), Down(c + 2, h + 9, 2 * h + 14),
                      Down(c + 2, 2 * h + 19, m_nHeight)}},
            CEtching{COLOR_BTNSHADOW,
                     {Across(0, c - 2, h + 8), Across(c + 1, m_nWidth, h + 8), Across(0, c - 2, 2 * h + 18),
                      Across(c + 1, m_nWidth, 2 * h + 18), Down(c + 1, h + 8, 2 * h + 15),
                      Down(c + 1, 2 * h + 18, m_nHeight)}},
            CEtching{COLOR_BTNHIGHLIGHT,
                     {Across(0, m_nWidth, h + 5), Across(0, c - 2, 2 * h + 15),
                      Across(c + 1, m_nWidth, 2 * h + 15), Down(c - 2, h + 8, 2 * h + 15),
                      Down(c - 2, 2 * h + 18, m_nHeight)}}};
}

} // namespace tessara
