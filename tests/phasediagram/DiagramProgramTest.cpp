#include <algorithm>
#include <cstdlib>
#include <functional>
#include <random>

#include "tessara/numeric/Intersections.h"
#include "tessara/platform/gdi/ImageDC.h"
#include "tests/phasediagram/DiagramWindow.h"

// Random programs: what an application may call in any order, with tables that it deletes as soon as nothing
// that the diagram shows is made from them. Meant for the address sanitizer, with a plain model beside it.

namespace tessara {

namespace {

using CTablePtr = std::shared_ptr<CMultipartTable>;

class DiagramPrograms : public DiagramInteraction {
protected:
    int Below(int nEnd) { return static_cast<int>(m_random() % static_cast<unsigned>(nEnd)); }
    bool Often(int nOfTen) { return Below(10) < nOfTen; }
    double AnyValue() { return Often(9) ? Below(1000) / 100. : std::nan(""); }
    DWORD AnyColor() { return ALL_COLORS[Below(std::size(ALL_COLORS))]; }
    std::vector<double> AnyValues(int nCount) {
        std::vector<double> values(static_cast<std::size_t>(nCount));
        std::generate(values.begin(), values.end(), [this] { return AnyValue(); });
        return values;
    }

    std::unique_ptr<CTable> AnyTable(int nColumns) {
        auto pTable = std::make_unique<CTable>(nColumns);
        pTable->Allocate(Below(8));
        for (int j = 0; j < nColumns; ++j) {
            std::generate_n(pTable->m_ppData[j], pTable->m_nPoints, [this] { return AnyValue(); });
        }
        return pTable;
    }
    CTablePtr AnySection(int nColumns) {
        auto pSection = std::make_shared<CMultipartTable>(nColumns);
        for (int nParts = Below(4); nParts > 0; --nParts) {
            pSection->AddTable(AnyTable(nColumns).get(), Below(3), -1);
        }
        pSection->SetNumColors(1 + Below(3));
        return pSection;
    }
    int AnyColumnCount() { return Often(3) ? 2 + Below(60) : 2 + Below(3); }

    // The steps

    void SetSection() {
        const int nColumns = AnyColumnCount();
        const CTablePtr pTable = m_pSectionNow && Often(1) ? m_pSectionNow : AnySection(nColumns);
        const int nX = Below(pTable->m_nDimensions);
        const int nShadow = Often(5) ? Below(pTable->m_nDimensions) : -1;
        const int nY = Below(pTable->m_nDimensions);
        Plot().SetBinodalSection(nX, nShadow, nY, pTable.get(), 0);
        m_pSectionNow = m_pCloudPoints = pTable;
        m_cloudPoints = {nX, nY};
        if (nShadow >= 0) {
            m_pShadow = pTable;
            m_shadow = {nShadow, nY};
        }
        m_pOwnCloudPoints.reset();
    }
    void SetSpinodal() {
        if (Often(5)) {
            const CTablePtr pTable = AnySection(AnyColumnCount());
            Plot().SetSpinodalSection(Below(pTable->m_nDimensions), Below(pTable->m_nDimensions),
                                      pTable.get());
            m_pSpinodalTable = pTable;
        } else {
            auto pCurve = std::make_shared<CMultipartCurve>();
            CCurve piece(1 + Below(6));
            std::generate_n(piece.m_pX, piece.m_nPoints, [this] { return AnyValue(); });
            std::generate_n(piece.m_pY, piece.m_nPoints, [this] { return AnyValue(); });
            pCurve->AddCurve(&piece, Below(7));
            Plot().SetSpinodalSection(pCurve.get());
            m_pSpinodalCurve = pCurve;
            m_pSpinodalTable.reset();
        }
    }
    /// As a derived class may: curves of its own arrays in the place of the section's.
    void SetOwnCurve() {
        auto pTable = AnySection(2);
        const auto fnSet = [&](auto pSetter) {
            (Plot().*pSetter)(pTable->m_nPoints, pTable->m_ppData[0], pTable->m_ppData[1], pTable->m_nParts,
                              pTable->m_pParts, pTable->GetNumColors());
        };
        switch (Below(3)) {
        case 0:
            fnSet(&CMousePlot::SetCloudPointCurve);
            m_pOwnCloudPoints = pTable;
            m_pCloudPoints.reset();
            break;
        case 1:
            fnSet(&CMousePlot::SetShadowCurve);
            m_pShadow = pTable;
            break;
        default:
            fnSet(&CMousePlot::SetSpinodal);
            m_pSpinodalTable = pTable;
            break;
        }
    }
    void SetPoints() {
        const int nKind = Below(3);
        auto& pKept = m_pPointTables[static_cast<std::size_t>(nKind)];
        if (Often(5)) {
            std::shared_ptr<CTable> pTable = AnyTable(AnyColumnCount());
            using CSetter = void (CPhaseDiagramOutput::*)(int, int, CTable*);
            constexpr CSetter SETTERS[] = {&CPhaseDiagramOutput::SetCriticalPoints,
                                           &CPhaseDiagramOutput::SetLifshitzPoints,
                                           &CPhaseDiagramOutput::SetMultiphasePoints};
            (Plot().*SETTERS[nKind])(Below(pTable->m_nDimensions), Below(pTable->m_nDimensions),
                                     pTable.get());
            pKept = pTable;
        } else {
            std::vector<double> x = AnyValues(4);
            std::vector<double> y = AnyValues(4);
            using CSetter = void (CPhaseDiagramOutput::*)(int, double*, double*);
            constexpr CSetter SETTERS[] = {&CPhaseDiagramOutput::SetCriticalPoints,
                                           &CPhaseDiagramOutput::SetLifshitzPoints,
                                           &CPhaseDiagramOutput::SetMultiphasePoints};
            (Plot().*SETTERS[nKind])(Below(5), x.data(), y.data());
            pKept.reset();
        }
    }
    void PaintSomewhere() {
        if (Often(2)) {
            m_window.RedrawWindow();
            return;
        }
        CImageDC image(120, 90);
        CMetaFileDC picture;
        picture.Create();
        const bool bPicture = Often(3);
        Plot().Paint(&image, image.GetClientRect(), bPicture ? &picture : nullptr);
        DeleteMetaFile(picture.Close());
    }
    void Pick() {
        if (Often(5)) {
            Plot().PickPoint(AnyValue(), AnyValue(), AnyColor());
        } else if (Often(5)) {
            m_window.Click({Below(m_window.WIDTH), Below(m_window.HEIGHT)});
        } else {
            Plot().DisplayElementValues(Below(12), CPoint(Below(m_window.WIDTH), Below(m_window.HEIGHT)));
        }
    }
    void ShowWindows() {
        using CShow = void (CPhaseDiagramOutput::*)(int);
        constexpr CShow SHOW[] = {&CPhaseDiagramOutput::ShowGetValue,
                                  &CPhaseDiagramOutput::ShowExtendedGetValue,
                                  &CPhaseDiagramOutput::ShowCrossSection};
        (Plot().*SHOW[Below(3)])(Often(7));
    }
    void SetSwitches() {
        Plot().SetElementReadOut(Often(3));
        Plot().SetMonochrome(Often(3));
        Plot().SetShowLegend(Often(7));
        Plot().EnableCriticalPointsClicking(Often(5));
        Plot().AddFormatString(Below(10), Below(70) - 1, "%.3lf");
        Often(5) ? Plot().ShowWhole() : Plot().ZoomTo({8, AnyValue(), 9, AnyValue()});
    }
    void ResetAll() {
        Plot().Reset();
        m_bVisible = false;
        m_pSectionNow.reset();
        m_pCloudPoints.reset();
        m_pShadow.reset();
        m_pOwnCloudPoints.reset();
        m_pSpinodalTable.reset();
        m_pSpinodalCurve.reset();
        m_pPointTables = {};
    }
    void Toggle() {
        Plot().ToggleMultiphasePoints();
        m_bVisible = !m_bVisible;
    }

    /// A table lives as long as a curve that is made from it.
    CMultipartTable* LivingSection() const {
        const bool bShown = m_pSectionNow && (m_pCloudPoints == m_pSectionNow || m_pShadow == m_pSectionNow);
        return bShown ? m_pSectionNow.get() : nullptr;
    }
    void DropWhatNothingShows() {
        if (!LivingSection()) {
            m_pSectionNow.reset();
        }
        if (m_pSpinodalTable) {
            m_pSpinodalCurve.reset();
        }
    }

    // The model

    void RequestSection() {
        const bool bAtAbscissa = Often(5);
        CMultipartTable* const pSection = LivingSection();
        const CColumnPair columns = Plot().IsCloudPointCurveSelected() ? m_cloudPoints : m_shadow;
        const int nHeld = bAtAbscissa ? columns.nX : columns.nY;
        const bool bSelected = Plot().IsCloudPointCurveSelected() || Plot().IsShadowCurveSelected();
        const bool bExpected = bSelected && pSection && nHeld < pSection->m_nDimensions;
        m_window.m_pSection.reset();
        ASSERT_EQ(Plot().RequestCrossSection(bAtAbscissa), bExpected ? 1 : 0);
        if (bExpected) {
            QApplication::processEvents();
            ASSERT_NE(m_window.m_pSection, nullptr);
            const double dAt = bAtAbscissa ? Plot().m_dMarkX : Plot().m_dMarkY;
            const std::unique_ptr<CTable> pRows(pSection->Value(nHeld, dAt));
            EXPECT_EQ(m_window.m_pSection->m_nPoints, pRows ? pRows->m_nPoints : 0);
            EXPECT_EQ(m_window.m_pSection->m_nDimensions, pSection->m_nDimensions);
        }
    }
    void CheckFoundPoints() {
        CMultipartTable* const pSection = LivingSection();
        const CMultipartTable* const pFound = Plot().m_pFoundMultiphasePoints.get();
        if (!m_bVisible || !pSection || m_pOwnCloudPoints) {
            return;
        }
        const std::unique_ptr<CMultipartTable> pExpected(
            Find2DSelfIntersections(pSection, m_cloudPoints.nX, m_cloudPoints.nY));
        ASSERT_EQ(pFound ? pFound->m_nPoints : 0, pExpected ? pExpected->m_nPoints : 0);
        for (int j = 0; pExpected && j < pExpected->m_nDimensions; ++j) {
            for (int i = 0; i < pExpected->m_nPoints; ++i) {
                const double dFound = pFound->m_ppData[j][i];
                const double dExpected = pExpected->m_ppData[j][i];
                ASSERT_TRUE(dFound == dExpected || (std::isnan(dFound) && std::isnan(dExpected)));
            }
        }
    }

    std::mt19937 m_random;
    bool m_bVisible = false;
    CTablePtr m_pSectionNow; ///< the table last given, while a curve is made from it
    CTablePtr m_pCloudPoints;
    CTablePtr m_pShadow;
    CTablePtr m_pOwnCloudPoints;
    CTablePtr m_pSpinodalTable;
    std::shared_ptr<CMultipartCurve> m_pSpinodalCurve;
    std::array<std::shared_ptr<CTable>, 3> m_pPointTables;
    CColumnPair m_cloudPoints;
    CColumnPair m_shadow;
};

TEST_F(DiagramPrograms, NothingOutlivesItsTableInAnyOrder) {
    constexpr int STEPS = 24;
    const char* const pszPrograms = std::getenv("TESSARA_DIAGRAM_PROGRAMS");
    const int nPrograms = pszPrograms ? std::atoi(pszPrograms) : 300;
    const std::vector<std::function<void()>> steps{
        [&] { SetSection(); },     [&] { SetSection(); },
        [&] { SetSpinodal(); },    [&] { SetOwnCurve(); },
        [&] { SetPoints(); },      [&] { Toggle(); },
        [&] { Toggle(); },         [&] { PaintSomewhere(); },
        [&] { Pick(); },           [&] { Pick(); },
        [&] { RequestSection(); }, [&] { ShowWindows(); },
        [&] { SetSwitches(); },    [&] { Plot().FillLabelsArray(); },
    };
    for (int i = 0; i < nPrograms && !HasFatalFailure(); ++i) {
        m_random.seed(static_cast<unsigned>(i));
        ResetAll();
        for (int nStep = 0; nStep < STEPS && !HasFatalFailure(); ++nStep) {
            steps[static_cast<std::size_t>(Below(static_cast<int>(steps.size())))]();
            DropWhatNothingShows();
            CheckFoundPoints();
        }
        ASSERT_FALSE(HasFatalFailure()) << "in program " << i;
    }
    ResetAll();
}

} // namespace

} // namespace tessara
