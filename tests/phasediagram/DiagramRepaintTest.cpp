#include <gtest/gtest.h>

#include "tests/phasediagram/Diagrams.h"
#include "tests/support/InPlaceChanges.h"

// What a diagram keeps from one paint for the next must never be seen.

namespace tessara {

namespace {

class DiagramRepaint : public testing::TestWithParam<int> {
protected:
    DiagramRepaint() : m_section(3) {
        const double ends[] = {-1, -0.3, 0.3, 1};
        for (int i = 0; i < 3; ++i) {
            AddSectionPart(m_section, ends[i], ends[i + 1], i % 2, GetParam());
        }
        m_section.SetNumColors(2);
        m_spinodal.Allocate(GetParam());
        for (int i = 0; i < GetParam(); ++i) {
            m_spinodal.m_pX[i] = i; // integers, which are alike but for a few bits
            m_spinodal.m_pY[i] = i % 5;
        }
        m_spinodal.BeginPart(0, 0);
        m_spinodal.EndPart(GetParam() - 1);
        Set(m_diagram);
    }

    void Set(CTestDiagram& diagram) {
        diagram.SetBinodalSection(0, 1, 2, &m_section, 0);
        diagram.SetSpinodalSection(&m_spinodal);
    }

    void ExpectPaintedAsNew(int nRound) {
        CTestDiagram fresh;
        Set(fresh);
        if (m_diagram.IsZoomed()) {
            fresh.ZoomTo(m_diagram.GetZoomWindow());
        }
        ASSERT_TRUE(PixelsOf(m_diagram) == PixelsOf(fresh)) << "round " << nRound;
    }

    void ChangeSomething(std::mt19937& random) {
        double* const arrays[] = {m_section.m_ppData[0], m_section.m_ppData[1], m_section.m_ppData[2],
                                  m_spinodal.m_pX, m_spinodal.m_pY};
        const std::size_t nArray = random() % std::size(arrays);
        const int nPoints = nArray < 3 ? m_section.m_nPoints : m_spinodal.m_nPoints;
        ChangeInPlace({arrays[nArray], static_cast<std::size_t>(nPoints)}, random);
    }

    CMultipartTable m_section;
    CMultipartCurve m_spinodal;
    CTestDiagram m_diagram;
};

TEST_P(DiagramRepaint, ShowsValuesThatWereChangedInPlaceInAnyWay) {
    std::mt19937 random(7);
    for (int nRound = 0; nRound < 40; ++nRound) {
        ExpectPaintedAsNew(nRound);
        ASSERT_FALSE(HasFatalFailure());
        ChangeSomething(random);
        if (random() % 4 == 0) {
            m_diagram.ZoomTo({0.8, -0.4, 0.9, 0.05});
        } else if (random() % 4 == 0) {
            m_diagram.ShowWhole();
        }
    }
}

TEST_P(DiagramRepaint, TakesAnnouncedChangesAtTheirWord) {
    m_diagram.AnnounceChanges(true);
    const auto before = PixelsOf(m_diagram);
    const auto turn = [&] {
        std::reverse(m_section.m_ppData[1], m_section.m_ppData[1] + m_section.m_nPoints - 1);
        std::for_each(m_spinodal.m_pY, m_spinodal.m_pY + m_spinodal.m_nPoints, [](double& d) { d = -1 - d; });
    };
    turn();
    EXPECT_TRUE(PixelsOf(m_diagram) == before) << "the values were looked at";
    m_diagram.DataChanged();
    ExpectPaintedAsNew(0);
    turn();
    Set(m_diagram);
    ExpectPaintedAsNew(1);
    turn();
    m_diagram.AnnounceChanges(false);
    ExpectPaintedAsNew(2);
}

INSTANTIATE_TEST_SUITE_P(Sizes, DiagramRepaint, testing::Values(2, 21, 300, 5000));

} // namespace

} // namespace tessara
