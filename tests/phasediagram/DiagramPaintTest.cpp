#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <limits>
#include <map>
#include <random>
#include <set>

#include "tessara/numeric/DoublePoint.h"
#include "tessara/platform/gdi/ImageDC.h"
#include "tessara/plot/Page.h"
#include "tests/phasediagram/Diagrams.h"
#include "tests/support/MetafileReader.h"

using tessara::AddSectionPart;
using tessara::CTestDiagram;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

/// A diagram with every element.
class DiagramPaint : public testing::Test {
protected:
    DiagramPaint() : m_section(3) {
        AddSectionPart(m_section, -1, -0.3, 0);
        AddSectionPart(m_section, -0.3, 0.3, 1);
        AddSectionPart(m_section, 0.3, 1, 0);
        m_section.SetNumColors(2);
        CCurve line(2);
        for (int i = 0; i < 2; ++i) {
            line.m_pX[i] = i;
            line.m_pY[i] = 0.3 + 0.1 * i;
        }
        m_spinodal.AddCurve(&line, 0);
        m_diagram.SetBinodalSection(0, 1, 2, &m_section, 0);
        m_diagram.SetSpinodalSection(&m_spinodal);
        m_diagram.SetCriticalPoints(1, m_x.data(), m_y.data());
        m_diagram.SetLifshitzPoints(1, m_x.data() + 1, m_y.data() + 1);
        m_diagram.SetMultiphasePoints(1, m_x.data() + 2, m_y.data() + 2);
    }

    /// The colours of the pixels inside the plot frame, with their numbers.
    std::map<COLORREF, int> CountColors(const CImageDC& image) const {
        std::map<COLORREF, int> counts;
        const CRect area = m_diagram.m_rcExactPlotDevice;
        for (int y = area.top + 1; y < area.bottom - 1; ++y) {
            for (int x = area.left + 1; x < area.right - 1; ++x) {
                ++counts[image.GetPixel(x, y)];
            }
        }
        return counts;
    }

    std::array<double, 3> m_x{0.2, 0.7, 0.85};
    std::array<double, 3> m_y{0.2, 0.2, 0.15};
    CMultipartTable m_section;
    CMultipartCurve m_spinodal;
    CTestDiagram m_diagram;
};

TEST_F(DiagramPaint, EachElementHasExactlyItsColourOnScreen) {
    for (const int nScale : {1, 2}) {
        CImageDC image(800 * nScale, 575 * nScale);
        image.SetBkMode(TRANSPARENT);
        m_diagram.Paint(&image, image.GetClientRect(), nullptr);
        std::set<COLORREF> colors;
        for (const auto& [color, nCount] : CountColors(image)) {
            colors.insert(color);
            EXPECT_GT(nCount, 20) << color;
        }
        EXPECT_THAT(colors, testing::UnorderedElementsAre(0x000000, 0xFFFFFF, 0x0000FF, 0x00FF00, 0xFF00FF,
                                                          0xFFFF00, 0x00FFFF, 0x000080, 0x800000));
    }
}

/// The places of an element's points on the image, close together along a curve.
struct CDrawnElement {
    COLORREF color;
    double dReach; ///< of its pixels from them
    std::vector<CDoublePoint> places;

    bool Reaches(int x, int y) const {
        return std::any_of(places.begin(), places.end(), [&](const CDoublePoint& place) {
            return std::hypot(place.x - x, place.y - y) <= dReach;
        });
    }
};

class DiagramPixels : public DiagramPaint {
protected:
    DiagramPixels() : m_image(800, 575) {
        m_image.SetBkMode(TRANSPARENT);
        m_diagram.Paint(&m_image, m_image.GetClientRect(), nullptr);
        AddPlaces();
    }

    CDoublePoint PlaceOf(double x, double y) const {
        const CRect area = m_diagram.m_rcExactPlotDevice;
        const CHOOSESCALE& across = m_diagram.m_AbscissaScale;
        const CHOOSESCALE& up = m_diagram.m_OrdinateScale;
        return {area.left + area.Width() * (x - across.dLower) / (across.dUpper - across.dLower),
                area.bottom - area.Height() * (y - up.dLower) / (up.dUpper - up.dLower)};
    }

    void AddPlaces() {
        for (int i = 0; i <= 1000; ++i) {
            m_elements[0].places.push_back(PlaceOf(i / 1000., 0.3 + i / 10000.));
        }
        double* const* ppData = m_section.m_ppData;
        for (int nPart = 0; nPart < m_section.m_nParts; ++nPart) {
            const CCurvePartInfo& part = m_section.m_pParts[nPart];
            const std::size_t nShadow = part.nColor == 0 ? 1 : 2;
            for (int i = part.nFirst; i < part.nFirst + part.nPoints; ++i) {
                m_elements[nShadow].places.push_back(PlaceOf(ppData[1][i], ppData[2][i]));
                m_elements[nShadow + 2].places.push_back(PlaceOf(ppData[0][i], ppData[2][i]));
            }
        }
        m_elements[5].places = {PlaceOf(m_x[0], m_y[0]), PlaceOf(m_x[1], m_y[1])};
        m_elements[6].places = {PlaceOf(m_x[2], m_y[2])};
    }

    std::set<COLORREF> ColorsAround(const CDoublePoint& place) const {
        std::set<COLORREF> colors;
        for (int i = 0; i < 9; ++i) {
            colors.insert(m_image.GetPixel(static_cast<int>(place.x) + i % 3 - 1,
                                           static_cast<int>(place.y) + i / 3 - 1));
        }
        return colors;
    }

    static constexpr double LINE = 2.5;
    static constexpr double SYMBOL = 8.5;

    CImageDC m_image;
    /// In the order of painting: a later element may cover an earlier one.
    std::vector<CDrawnElement> m_elements{{0x0000FF, LINE, {}},  {0xFF00FF, LINE, {}}, {0xFFFF00, LINE, {}},
                                          {0x00FF00, LINE, {}},  {0x00FFFF, LINE, {}}, {0x000080, SYMBOL, {}},
                                          {0x800000, SYMBOL, {}}};
};

TEST_F(DiagramPixels, AColourLiesOnItsElementAndNowhereElse) {
    const CRect area = m_diagram.m_rcExactPlotDevice;
    for (int y = area.top + 1; y < area.bottom - 1; ++y) {
        for (int x = area.left + 1; x < area.right - 1; ++x) {
            const COLORREF color = m_image.GetPixel(x, y);
            const auto owner = std::find_if(m_elements.begin(), m_elements.end(),
                                            [&](const CDrawnElement& e) { return e.color == color; });
            if (owner != m_elements.end()) {
                EXPECT_TRUE(owner->Reaches(x, y)) << color << " at " << x << "," << y;
            }
        }
    }
}

TEST_F(DiagramPixels, EveryElementIsThereUnlessALaterOneCoversIt) {
    for (auto element = m_elements.begin(); element != m_elements.end(); ++element) {
        for (const CDoublePoint& place : element->places) {
            const std::set<COLORREF> around = ColorsAround(place);
            EXPECT_TRUE(std::any_of(element, m_elements.end(),
                                    [&](const CDrawnElement& e) { return around.contains(e.color); }))
                << element->color << " is missing at " << place.x << "," << place.y;
        }
    }
}

TEST_F(DiagramPaint, MonochromeUsesBlackAlone) {
    m_diagram.SetMonochrome(true);
    CImageDC image(800, 575);
    image.SetBkMode(TRANSPARENT);
    m_diagram.Paint(&image, image.GetClientRect(), nullptr);
    EXPECT_THAT(CountColors(image), testing::UnorderedElementsAre(testing::Key(0U), testing::Key(0xFFFFFFU)));
}

TEST_F(DiagramPaint, LegendHasARowForEachStringAndASampleForEachKind) {
    const std::vector<std::string> lines = m_diagram.PaintLogged();
    // 9 curve strings and 3 points of 146 units each, and half a row between them.
    EXPECT_THAT(lines, Contains(HasSubstr("Rectangle 3556,344 5056,2267 (pen 000000 width 32")));
    EXPECT_THAT(lines, Contains("Text 3996,392 \"Spinodal curve\" (Times New Roman 133 italic)"));
    EXPECT_THAT(lines, Contains("Text 3996,538 \"Cloud-point curve\" (Times New Roman 133 italic)"));
    EXPECT_THAT(lines, Contains("Text 3996,1779 \"Critical point(s)\" (Times New Roman 133 italic)"));
    EXPECT_THAT(lines, Contains("Rectangle 3636,457 3916,473 (no pen, brush 0000FF)"));
    EXPECT_THAT(lines, Contains("Ellipse 3744,1820 3808,1884 (pen 000000 width 0, brush 000000)"));
}

TEST_F(DiagramPaint, WithoutTheLegendThePlotIsWideAndTheSlideNameLeftOut) {
    m_diagram.SetSlideName("slide");
    m_diagram.SetShowLegend(false);
    m_diagram.SetShowCaption(false);
    const std::vector<std::string> lines = m_diagram.PaintLogged();
    EXPECT_THAT(lines, Contains(HasSubstr("Rectangle 360,344 4760,3336")));
    EXPECT_THAT(lines, Contains(HasSubstr("Text 4796,3205 \"x\"")));
    EXPECT_THAT(lines, Not(Contains(HasSubstr("slide"))));
    EXPECT_THAT(lines, Not(Contains(HasSubstr("Spinodal"))));
    EXPECT_THAT(lines, Not(Contains(HasSubstr("Phase diagram"))));
}

TEST_F(DiagramPaint, AZoomCutsCurvesAtTheFrameAndSkipsPointsOutside) {
    m_diagram.ZoomTo({0.75, 0.25, 0.8, 0.1}); // the critical point lies left of it
    CImageDC image(800, 575);
    m_diagram.Paint(&image, image.GetClientRect(), nullptr);
    const std::vector<std::string> lines = m_diagram.PaintLogged();
    int nPoints = 0; // no part of a curve ends within, so all end on the frame
    for (const std::string& strLine : lines) {
        if (strLine.starts_with("Polyline") && strLine.find("width 12") != std::string::npos) {
            int nX = 0;
            int nY = 0;
            int nUsed = 0;
            const char* psz = strLine.c_str() + 8;
            while (std::sscanf(psz, " %d,%d%n", &nX, &nY, &nUsed) == 2) {
                EXPECT_TRUE(nX >= 384 && nX <= 3456 && nY >= 368 && nY <= 3312) << strLine;
                const bool bEnd = psz == strLine.c_str() + 8 || psz[nUsed + 1] == '(';
                const bool bOnFrame = nX == 384 || nX == 3456 || nY == 368 || nY == 3312;
                EXPECT_TRUE(!bEnd || bOnFrame) << nX << "," << nY << " of " << strLine;
                ++nPoints;
                psz += nUsed;
            }
        }
    }
    EXPECT_GT(nPoints, 20);
    EXPECT_THAT(lines, Not(Contains(testing::AllOf(HasSubstr("Ellipse"), HasSubstr("000080")))));
    m_diagram.ZoomTo({0.1, 0.0, 0.1, 0.05}); // nothing there
    const std::vector<std::string> empty = m_diagram.PaintLogged();
    EXPECT_THAT(empty, Not(Contains(HasSubstr("No phase separation"))));
    EXPECT_THAT(empty, Not(Contains(HasSubstr("curve\""))));
}

TEST_F(DiagramPaint, LifshitzPointsShareTheCriticalPointsBrush) {
    EXPECT_THAT(m_diagram.PaintLogged(),
                Contains(testing::AllOf(HasSubstr("Rectangle"), HasSubstr("000080"))));
    m_diagram.SetCriticalPoints(0, nullptr, nullptr);
    EXPECT_THAT(m_diagram.PaintLogged(), Not(Contains(HasSubstr("000080"))));
}

TEST_F(DiagramPaint, BoundariesAreDashedLinesFromTopToBottom) {
    m_diagram.DrawLeftBoundary(m_diagram.m_AbscissaScale.dLower);
    m_diagram.DrawRightBoundary(0.5);
    m_diagram.PaintLogged();
    m_diagram.DrawLeftBoundary(m_diagram.m_AbscissaScale.dLower);
    EXPECT_THAT(m_diagram.PaintLogged(), Contains("Polyline 384,368 384,3312 (pen 000000 width 1 style 1)"));
}

TEST_F(DiagramPaint, TheMarkDrawnTwiceRestoresThePicture) {
    CImageDC image(400, 288);
    m_diagram.Paint(&image, image.GetClientRect(), nullptr);
    const auto before = CountColors(image);
    m_diagram.m_dMarkX = 0.4;
    m_diagram.m_dMarkY = 0.5;
    image.SaveDC();
    RECT rc = image.GetClientRect();
    CenterDC(&image, rc);
    m_diagram.DrawMarkOnDC(&image);
    image.RestoreDC(-1);
    const auto marked = CountColors(image);
    EXPECT_NE(before, marked);
    image.SaveDC();
    CenterDC(&image, rc);
    m_diagram.DrawMarkOnDC(&image);
    image.RestoreDC(-1);
    EXPECT_EQ(CountColors(image), before);
}

TEST_F(DiagramPaint, ThePictureHasBlackPointsAndSquaresForFoundOnes) {
    m_diagram.ToggleMultiphasePoints();
    CImageDC image(1024, 736);
    const std::string strPath = testing::TempDir() + "diagram.wmf";
    ASSERT_EQ(m_diagram.Export(&image, image.GetClientRect(), strPath.c_str()), 1);
    std::ifstream file(strPath, std::ios::binary);
    const std::string strBytes{std::istreambuf_iterator<char>(file), {}};
    const CMetafileReading reading =
        ReadMetafile({reinterpret_cast<const unsigned char*>(strBytes.data()), strBytes.size()});
    EXPECT_THAT(reading.faults, IsEmpty());
    EXPECT_THAT(reading.lines, Not(Contains(HasSubstr("000080"))));
    EXPECT_THAT(reading.lines, Contains(HasSubstr("008000")));
    EXPECT_EQ(m_diagram.Export(&image, image.GetClientRect(), "/no such folder/diagram.wmf"), 0);
}

TEST_F(DiagramPaint, AnyDataIsPaintedAndEnds) {
    constexpr double INFINITE = std::numeric_limits<double>::infinity();
    const double values[] = {
        0, 1, std::numeric_limits<double>::quiet_NaN(), INFINITE, -INFINITE, 1e308, -1e308, 5e-324, 3};
    std::mt19937 random(6);
    const auto any = [&] { return values[random() % std::size(values)]; };
    CImageDC image(400, 288);
    for (int nRound = 0; nRound < 200; ++nRound) {
        CMultipartTable section(3);
        CTable part(3);
        part.Allocate(static_cast<int>(random() % 5));
        for (int i = 0; i < part.m_nPoints; ++i) {
            part.m_ppData[0][i] = any();
            part.m_ppData[1][i] = any();
            part.m_ppData[2][i] = any();
        }
        section.AddTable(&part, 0, -1);
        std::array<double, 2> x{any(), any()};
        std::array<double, 2> y{any(), any()};
        CTestDiagram diagram;
        if (nRound % 4 != 0) { // else points alone
            diagram.SetBinodalSection(0, 1, 2, &section, 0);
        }
        diagram.SetCriticalPoints(2, x.data(), y.data());
        diagram.SetMonochrome(nRound % 2 == 1);
        if (nRound % 3 == 0) {
            diagram.ZoomTo({any(), any(), any(), any()});
        }
        if (nRound % 2 == 0) {
            diagram.ToggleMultiphasePoints();
        }
        diagram.DrawLeftBoundary(any());
        EXPECT_EQ(diagram.Paint(&image, image.GetClientRect(), nullptr), 1);
    }
    CTestDiagram empty;
    EXPECT_EQ(empty.Paint(&image, {0, 0, 0, 0}, nullptr), 1);
}

} // namespace
