#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "tessara/platform/gdi/ImageDC.h"
#include "tests/phasediagram/Diagrams.h"
#include "tests/support/Golden.h"
#include "tests/support/MetafileReader.h"

namespace tessara {

namespace {

/// A diagram of every element with few points: a cloud-point curve of two branches that crosses itself, with
/// its shadow, a spinodal of two branches with a gap, and points of each kind.
class DiagramGolden : public testing::Test {
protected:
    static constexpr int POINTS = 9;

    DiagramGolden() : m_section(3), m_spinodal(2) {
        AddSectionPart(m_section, -1, -0.25, 0, POINTS);
        AddSectionPart(m_section, -0.25, 0.25, 1, POINTS);
        AddSectionPart(m_section, 0.25, 1, 0, POINTS);
        m_section.SetNumColors(2);
        for (const int nBranch : {0, 1}) {
            CTable line(2);
            line.Allocate(5);
            for (int i = 0; i < line.m_nPoints; ++i) {
                line.m_ppData[0][i] = 0.25 * i;
                line.m_ppData[1][i] = 0.25 + 0.125 * (nBranch ? i : -i / 2.);
            }
            line.m_ppData[1][3] = nBranch ? line.m_ppData[1][3] : std::numeric_limits<double>::quiet_NaN();
            m_spinodal.AddTable(&line, nBranch, -1);
        }
        m_spinodal.SetNumColors(2);
    }

    void FillDiagram() {
        m_diagram.SetNames("Polystyrene in cyclohexane", "T/~Gq~N, K", "F~G2~L");
        m_diagram.SetSlideName("Slide~H2~N");
        m_diagram.SetBinodalSection(0, 1, 2, &m_section, 0);
        m_diagram.SetSpinodalSection(0, 1, &m_spinodal);
        FillPoints();
    }
    void FillPoints() {
        m_diagram.SetCriticalPoints(1, m_x.data(), m_y.data());
        m_diagram.SetLifshitzPoints(1, m_x.data() + 1, m_y.data() + 1);
        m_diagram.SetMultiphasePoints(1, m_x.data() + 2, m_y.data() + 2);
    }

    std::array<double, 3> m_x{0.2, 0.7, 0.85};
    std::array<double, 3> m_y{0.2, 0.2, 0.125};
    CMultipartTable m_section;
    CMultipartTable m_spinodal;
    CTestDiagram m_diagram;
};

TEST_F(DiagramGolden, EachKindIsDrawnAsInItsReviewedDumpWithAPictureOrWithout) {
    struct CKind {
        const char* pszName;
        std::function<void()> fnSet;
    };
    const CKind kinds[] = {
        {"empty", [] {}},
        {"points", [&] { FillPoints(); }},
        {"whole",
         [&] {
             FillDiagram();
             m_diagram.DrawLeftBoundary(0);
             m_diagram.DrawRightBoundary(1.5);
         }},
        {"multiphase", [&] { m_diagram.ToggleMultiphasePoints(); }},
        {"monochrome", [&] { m_diagram.SetMonochrome(true); }},
        {"bare",
         [&] {
             m_diagram.SetMonochrome(false);
             m_diagram.SetShowLegend(false);
             m_diagram.SetShowCaption(false);
             m_diagram.UseCustomScale(1, -0.2, 1.15, 0.45, 0);
             m_diagram.UseCustomScale(2, -0.1, 1.2, 0.3, 3);
         }},
        {"zoomed",
         [&] {
             m_diagram.ZoomTo({0.75, 0.1, 0.9, 0.21});
         }},
        // The spinodal's trivial branch passes by the lower left corner; the first tick falls on 951.99...
        // units.
        {"zoomed_past_corner",
         [&] {
             m_diagram.ZoomTo({0.425, 0.201, 0.6, 0.21});
         }},
    };
    for (const CKind& kind : kinds) {
        kind.fnSet();
        const std::vector<std::string> lines = m_diagram.PaintLogged();
        ExpectGolden(std::string("diagram_") + kind.pszName + ".surface.txt", JoinLines(lines));

        CLoggedSurface together;
        CMetaFileDC picture;
        picture.Create();
        m_diagram.Paint(&together.dc, {0, 0, 5120, 3680}, &picture);
        DeleteMetaFile(picture.Close());
        EXPECT_EQ(lines, together.lines) << kind.pszName;
    }
}

TEST_F(DiagramGolden, RecordsAreThoseOfTheReviewedDump) {
    FillDiagram();
    m_diagram.DrawLeftBoundary(0);
    m_diagram.ToggleMultiphasePoints();
    CImageDC image(1024, 736);
    const std::string strPath = testing::TempDir() + "golden.wmf";
    ASSERT_EQ(m_diagram.Export(&image, image.GetClientRect(), strPath.c_str()), 1);
    const std::string strBytes = ReadWholeFile(strPath);
    const CMetafileReading reading =
        ReadMetafile({reinterpret_cast<const unsigned char*>(strBytes.data()), strBytes.size()});
    EXPECT_THAT(reading.faults, testing::IsEmpty());
    ExpectGolden("diagram.wmf.txt", reading.GetText());
}

} // namespace

} // namespace tessara
