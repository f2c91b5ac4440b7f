#include "tessara/appframe/BaseVariantViewBase.h"
#include "tessara/platform/ui/windows/System.h"
#include "tests/appframe/BaseVariantViewModel.h"
#include "tests/support/PlotWindow.h"

namespace tessara {

namespace {

using models::CViewModel;
using EColour = CViewModel::EColour;

class CModelledView : public CBaseVariantViewBase {
public:
    CModelledView() = default;
};

COLORREF ColorOf(EColour eColour) {
    switch (eColour) {
    case EColour::Face:
        return GetSysColor(COLOR_BTNFACE);
    case EColour::DarkShadow:
        return GetSysColor(COLOR_3DDKSHADOW);
    case EColour::Shadow:
        return GetSysColor(COLOR_BTNSHADOW);
    case EColour::Highlight:
        return GetSysColor(COLOR_BTNHIGHLIGHT);
    default:
        return GetSysColor(COLOR_WINDOW);
    }
}

/// A view alone in a window, as it is seen on the screen with all its controls.
class StructureModel : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_parent.Create(nullptr, "Parent", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                    CRect(0, 0, 1400, 1000), nullptr, 0));
        ASSERT_TRUE(m_view.Create(nullptr, "", WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 100), &m_parent, 1));
    }
    void TearDown() override { m_parent.DestroyWindow(); }

    CViewModel::CArea PlaceOf(const CWnd& wnd) const {
        CRect rect;
        wnd.GetWindowRect(&rect);
        m_view.ScreenToClient(&rect);
        return {rect.left, rect.top, rect.right, rect.bottom};
    }

    QWidget& Widget() const { return CPeer::Find(m_view.m_hWnd)->GetWidget(); }

    /// Controls stand on whole units of the toolkit, of which each may be several pixels.
    void ExpectNear(const CViewModel::CArea& place, const CViewModel::CArea& expected) {
        const double dUnit = Widget().devicePixelRatio();
        const auto near = [dUnit](int a, int b) { return std::abs(a - b) < dUnit; };
        EXPECT_TRUE(near(place.nLeft, expected.nLeft) && near(place.nTop, expected.nTop) &&
                    near(place.nRight, expected.nRight) && near(place.nBottom, expected.nBottom))
            << place.nLeft << ' ' << place.nTop << ' ' << place.nRight << ' ' << place.nBottom << ", not "
            << expected.nLeft << ' ' << expected.nTop << ' ' << expected.nRight << ' ' << expected.nBottom;
        m_areas.push_back(place);
    }

    void CompareControls(const CViewModel& model) {
        const CViewModel::CControls controls = model.Controls();
        ExpectNear(PlaceOf(m_view.m_btnBack), controls.button);
        m_areas.clear(); // the button is hidden
        ExpectNear(PlaceOf(m_view.m_staticTitle), controls.title);
        ExpectNear(PlaceOf(m_view.m_staticInput), controls.inputTitle);
        ExpectNear(PlaceOf(m_view.m_staticOutput), controls.outputTitle);
        ExpectNear(PlaceOf(m_view.m_listInput), controls.inputList);
        ExpectNear(PlaceOf(m_view.m_listOutput), controls.outputList);
    }

    bool IsCovered(int x, int y) const {
        return std::ranges::any_of(
            m_areas, [=](const CViewModel::CArea& area) { return CViewModel::Contains(area, x, y); });
    }

    /// All pixels that no control covers.
    void ComparePixels(const CViewModel& model) {
        QApplication::processEvents();
        const QImage seen = Widget().grab().toImage();
        ASSERT_EQ(seen.size(), QSize(model.cx, model.cy));
        const std::vector<EColour> pixels = model.Pixels();
        int nWrong = 0;
        for (int y = 0; y < model.cy; ++y) {
            for (int x = 0; x < model.cx; ++x) {
                const QColor color = seen.pixelColor(x, y);
                const auto nPixel = static_cast<std::size_t>(y) * static_cast<std::size_t>(model.cx) +
                                    static_cast<std::size_t>(x);
                if (!IsCovered(x, y) &&
                    RGB(color.red(), color.green(), color.blue()) != ColorOf(pixels[nPixel]) &&
                    ++nWrong < 5) {
                    ADD_FAILURE() << "pixel " << x << ", " << y << " is " << color.name().toStdString()
                                  << ", not " << std::hex << ColorOf(pixels[nPixel]);
                }
            }
        }
        EXPECT_EQ(nWrong, 0);
    }

    CWnd m_parent;
    CModelledView& m_view = *new CModelledView; // deletes itself
    std::vector<CViewModel::CArea> m_areas;     ///< of the controls that are seen
};

TEST_F(StructureModel, IsSeenPixelByPixelAtFiveSizes) {
    for (const auto& [cx, cy] : {std::pair(640, 480), {1023, 767}, {333, 601}, {1200, 160}, {127, 97}}) {
        SCOPED_TRACE(testing::Message() << cx << " x " << cy);
        m_view.MoveWindow(0, 0, cx, cy);
        CRect client;
        m_view.GetClientRect(&client);
        const CViewModel model{client.Width(), client.Height(), m_view.m_nTextHeight, m_view.m_sizeBack.cx,
                               m_view.m_sizeBack.cy};
        CompareControls(model);
        ComparePixels(model);
    }
}

} // namespace

} // namespace tessara
