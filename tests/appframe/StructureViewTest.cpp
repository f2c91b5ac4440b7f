#include <gmock/gmock.h>

#include "tessara/appframe/BaseVariantViewBase.h"
#include "tessara/platform/gdi/ImageDC.h"
#include "tessara/platform/ui/windows/System.h"
#include "tests/appframe/Variants.h"
#include "tests/support/Golden.h"
#include "tests/support/LoggedSurface.h"

namespace tessara {

IMPLEMENT_DYNCREATE(CItemsDocument, CBaseVariant)

namespace {

using ::testing::ElementsAre;

class CStructureView : public CBaseVariantViewBase {
    DECLARE_DYNCREATE(CStructureView)
public:
    using CBaseVariantViewBase::OnDraw;
    std::vector<int> m_pages; ///< as they were drawn

protected:
    void OnDrawInformation(CDC*, CRect& rect, int nInformation) override {
        CRect client;
        GetClientRect(&client);
        EXPECT_EQ(rect, client);
        m_pages.push_back(nInformation);
    }
};
IMPLEMENT_DYNCREATE(CStructureView, CBaseVariantViewBase)

QWidget& WidgetOf(const CWnd& wnd) {
    return CPeer::Find(wnd.m_hWnd)->GetWidget();
}

std::vector<std::string> Lines(const CListBox& list) {
    std::vector<std::string> lines;
    for (int i = 0; i < list.GetCount(); ++i) {
        CString strText;
        list.GetText(i, strText);
        lines.push_back(std::string(strText) + "|" + std::to_string(static_cast<int>(list.GetItemData(i))));
    }
    return lines;
}

/// A plain picture of what lies between the controls, put down pixel by pixel from the table of the layout.
class CPlainPicture {
public:
    CPlainPicture(int cx, int cy, int h)
        : m_nWidth(cx), m_nHeight(cy), m_pixels(static_cast<std::size_t>(cx * cy), RGB(255, 255, 255)) {
        const int c = cx / 2;
        const COLORREF face = GetSysColor(COLOR_BTNFACE);
        Fill(0, h + 4, cx, h + 10, face);
        Fill(c - 3, h + 10, c + 3, cy, face);
        Fill(0, 2 * h + 14, cx, 2 * h + 20, face);
        const COLORREF dark = GetSysColor(COLOR_3DDKSHADOW);
        Fill(0, h + 9, c - 3, h + 10, dark);
        Fill(c + 3, h + 9, cx, h + 10, dark);
        Fill(0, 2 * h + 19, c - 3, 2 * h + 20, dark);
        Fill(c + 3, 2 * h + 19, cx, 2 * h + 20, dark);
        Fill(c + 2, h + 9, c + 3, 2 * h + 14, dark);
        Fill(c + 2, 2 * h + 19, c + 3, cy, dark);
        const COLORREF shadow = GetSysColor(COLOR_BTNSHADOW);
        Fill(0, h + 8, c - 2, h + 9, shadow);
        Fill(c + 1, h + 8, cx, h + 9, shadow);
        Fill(0, 2 * h + 18, c - 2, 2 * h + 19, shadow);
        Fill(c + 1, 2 * h + 18, cx, 2 * h + 19, shadow);
        Fill(c + 1, h + 8, c + 2, 2 * h + 15, shadow);
        Fill(c + 1, 2 * h + 18, c + 2, cy, shadow);
        const COLORREF light = GetSysColor(COLOR_BTNHIGHLIGHT);
        Fill(0, h + 5, cx, h + 6, light);
        Fill(0, 2 * h + 15, c - 2, 2 * h + 16, light);
        Fill(c + 1, 2 * h + 15, cx, 2 * h + 16, light);
        Fill(c - 2, h + 8, c - 1, 2 * h + 15, light);
        Fill(c - 2, 2 * h + 18, c - 1, cy, light);
    }
    COLORREF At(int x, int y) const { return m_pixels[static_cast<std::size_t>(y * m_nWidth + x)]; }

private:
    void Fill(int nLeft, int nTop, int nRight, int nBottom, COLORREF color) {
        for (int y = std::max(0, nTop); y < std::min(nBottom, m_nHeight); ++y) {
            for (int x = std::max(0, nLeft); x < std::min(nRight, m_nWidth); ++x) {
                m_pixels[static_cast<std::size_t>(y * m_nWidth + x)] = color;
            }
        }
    }

    int m_nWidth;
    int m_nHeight;
    std::vector<COLORREF> m_pixels;
};

/// A view alone in a window, without a document: whatever size it is given it has.
class StructureLayout : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_parent.Create(nullptr, "Parent", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                    CRect(0, 0, 1200, 900), nullptr, 0));
        ASSERT_TRUE(m_view.Create(nullptr, "", WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 100), &m_parent, 1));
    }
    void TearDown() override { m_parent.DestroyWindow(); }
    CRect PlaceOf(const CWnd& wnd) const {
        CRect rect;
        wnd.GetWindowRect(&rect);
        m_view.ScreenToClient(&rect);
        return rect;
    }
    /// Tells the size that the view has then: where one of Qt's units is several pixels, not every one.
    CSize Resize(int cx, int cy) {
        m_view.MoveWindow(0, 0, cx, cy);
        CRect client;
        m_view.GetClientRect(&client);
        return client.Size();
    }
    /// Nor can every place be had there.
    void ExpectAt(const CWnd& wnd, const CRect& place) const {
        const int nNear = WindowScale(&m_view) > 1 ? 2 : 0;
        const CRect is = PlaceOf(wnd);
        CString strText;
        wnd.GetWindowText(strText);
        for (const auto pSide : {&RECT::left, &RECT::top, &RECT::right, &RECT::bottom}) {
            EXPECT_NEAR(is.*pSide, place.*pSide, nNear) << wnd.GetDlgCtrlID() << strText;
        }
    }

    CWnd m_parent;
    CStructureView& m_view = *new CStructureView; // deletes itself
};

TEST_F(StructureLayout, PlacesAndEtchesItsPartsByTheTable) {
    const int h = m_view.m_nTextHeight;
    EXPECT_EQ(h, CClientDC(&m_view).GetTextExtent("Wg").cy);
    const CSize back = CClientDC(&m_view).GetTextExtent("<< Back");
    EXPECT_EQ(m_view.m_sizeBack, CSize(back.cx + 32, back.cy + 10));
    for (const CSize& wanted : {CSize(800, 575), {640, 480}, {641, 333}, {1111, 801}, {150, 90}}) {
        const CSize size = Resize(static_cast<int>(wanted.cx), static_cast<int>(wanted.cy));
        const int cx = static_cast<int>(size.cx);
        const int cy = static_cast<int>(size.cy);
        const int c = cx / 2;
        ExpectAt(m_view.m_staticTitle, CRect(0, 0, cx, h + 4));
        ExpectAt(m_view.m_staticInput, CRect(0, h + 10, c - 3, 2 * h + 14));
        ExpectAt(m_view.m_staticOutput, CRect(c + 3, h + 10, 2 * c, 2 * h + 14));
        ExpectAt(m_view.m_listInput, CRect(0, 2 * h + 20, c - 3, cy));
        ExpectAt(m_view.m_listOutput, CRect(c + 3, 2 * h + 20, 2 * c, cy));
        const int nLeft = (cx - static_cast<int>(back.cx + 32)) / 2;
        ExpectAt(m_view.m_btnBack, CRect(nLeft, 16, nLeft + back.cx + 32, 16 + back.cy + 10));
        CImageDC image(cx, cy);
        m_view.OnDraw(&image);
        const CPlainPicture plain(cx, cy, h);
        int nWrong = 0;
        for (int y = 0; y < cy; ++y) {
            for (int x = 0; x < cx; ++x) {
                if (image.GetPixel(x, y) != plain.At(x, y) && ++nWrong < 9) {
                    ADD_FAILURE() << cx << " x " << cy << ": pixel " << x << "," << y << std::hex << " is "
                                  << image.GetPixel(x, y) << ", not " << plain.At(x, y);
                }
            }
        }
    }
    // As small as a user can make a window, and smaller.
    for (const int n : {0, 1, 5}) {
        Resize(n, n);
        CImageDC image(10, 10);
        m_view.OnDraw(&image);
    }
}

TEST_F(StructureLayout, DrawsInThisOrder) {
    m_view.m_nTextHeight = 16;
    Resize(642, 480); // a size that there is at every scale
    CLoggedSurface surface;
    m_view.OnDraw(&surface.dc);
    ExpectGolden("structure_view.surface.txt", JoinLines(surface.lines));
}

TEST_F(StructureLayout, HasItsColors) {
    Resize(640, 480);
    QApplication::processEvents();
    const auto ground = [](const CWnd& wnd) {
        const QColor color = WidgetOf(wnd).palette().color(WidgetOf(wnd).backgroundRole());
        return RGB(color.red(), color.green(), color.blue());
    };
    EXPECT_EQ(ground(m_view.m_staticTitle), RGB(255, 128, 128));
    EXPECT_EQ(ground(m_view.m_staticInput), RGB(255, 255, 128));
    EXPECT_EQ(ground(m_view.m_listInput), RGB(255, 255, 128));
    EXPECT_EQ(ground(m_view.m_staticOutput), RGB(128, 255, 255));
    EXPECT_EQ(ground(m_view.m_listOutput), RGB(128, 255, 255));
}

/// The view in its program.
class StructureView : public ::testing::Test {
protected:
    void SetUp() override {
        m_program.m_app.OnFileNew();
        QApplication::setActiveWindow(&WidgetOf(m_program.Frame()));
        QApplication::processEvents();
    }
    CStructureView& View() { return m_program.View(); }
    void DoubleClick(const CListBox& list, int nLine) {
        auto& lines = dynamic_cast<QAbstractItemView&>(WidgetOf(list));
        const QPoint point = lines.visualRect(lines.model()->index(nLine, 0)).center();
        QTest::mouseClick(lines.viewport(), Qt::LeftButton, {}, point);
        QTest::mouseDClick(lines.viewport(), Qt::LeftButton, {}, point);
    }
    bool ShowsLists() {
        const bool bLists = View().m_listInput.IsWindowVisible();
        for (const CWnd* const pWnd :
             std::initializer_list<const CWnd*>{&View().m_listOutput, &View().m_staticInput,
                                                &View().m_staticOutput, &View().m_staticTitle}) {
            EXPECT_EQ(pWnd->IsWindowVisible() != 0, bLists);
        }
        EXPECT_EQ(View().m_btnBack.IsWindowVisible() != 0, !bLists);
        return bLists;
    }

    CVariantProgram<CStructureView> m_program{RUNTIME_CLASS(CStructureView)};
};

TEST_F(StructureView, ListsWhatIsSwitchedOnWhenItIsShown) {
    EXPECT_THAT(Lines(View().m_listInput),
                ElementsAre("Polymer >>|2", "Date|-1", "Chain length >>|0", "Author|-1", "Temperatures >>|7",
                            "Interactions >>|8"));
    EXPECT_THAT(Lines(View().m_listOutput),
                ElementsAre("Cloud points >>|11", "Remarks|-1", "Critical point >>|14"));
    EXPECT_EQ(CWnd::GetFocus(), &View().m_listInput);
    EXPECT_EQ(View().m_listInput.GetCurSel(), 0);
    m_program.Document().m_inputItems.SelectItem(703, TRUE);
    m_program.Document().m_outputItems.SelectItem(713, FALSE);
    View().ShowWindow(SW_HIDE);
    View().ShowWindow(SW_SHOW);
    EXPECT_EQ(Lines(View().m_listInput)[2], "Solvent >>|4");
    EXPECT_THAT(Lines(View().m_listOutput), ElementsAre("Cloud points >>|11", "Critical point >>|14"));
}

TEST_F(StructureView, OpensAPageAndComesBackToTheSameList) {
    DoubleClick(View().m_listOutput, 1); // "Remarks" has none
    EXPECT_TRUE(ShowsLists());
    EXPECT_EQ(View().m_nInformation, -1);
    DoubleClick(View().m_listOutput, 2);
    EXPECT_FALSE(ShowsLists());
    EXPECT_EQ(View().m_nInformation, 14);
    EXPECT_EQ(View().m_pages.back(), 14);
    QTest::mouseClick(&WidgetOf(View().m_btnBack), Qt::LeftButton);
    EXPECT_TRUE(ShowsLists());
    EXPECT_EQ(View().m_nInformation, -1);
    EXPECT_EQ(CWnd::GetFocus(), &View().m_listOutput);
    EXPECT_EQ(View().m_listOutput.GetCurSel(), 2);
    EXPECT_EQ(View().m_listInput.GetCurSel(), LB_ERR);
    View().OnEnter();
    EXPECT_EQ(View().m_nInformation, 14);
    EXPECT_EQ(CWnd::GetFocus(), &View().m_btnBack);
    View().OnTab(); // leads nowhere from a page
    EXPECT_EQ(CWnd::GetFocus(), &View().m_btnBack);
    View().OnEnter();
    EXPECT_TRUE(ShowsLists());
    DoubleClick(View().m_listInput, 0);
    m_program.Document().m_inputItems.SelectItem(701, FALSE);
    View().OnInitialUpdate(); // as with another document
    EXPECT_TRUE(ShowsLists());
    EXPECT_EQ(Lines(View().m_listInput)[0], "Date|-1");
}

TEST_F(StructureView, TabGoesToTheLineBeside) {
    struct CCase {
        int nInput;
        int nOutput;
    };
    for (const CCase& entry : {CCase{5, 2}, {1, 1}, {0, 0}, {-1, -1}}) {
        View().m_listInput.SetFocus();
        View().m_listInput.SetCurSel(entry.nInput);
        View().OnTab();
        EXPECT_EQ(CWnd::GetFocus(), &View().m_listOutput);
        EXPECT_EQ(View().m_listOutput.GetCurSel(), entry.nOutput);
        EXPECT_EQ(View().m_listInput.GetCurSel(), LB_ERR);
        View().OnTab();
        EXPECT_EQ(CWnd::GetFocus(), &View().m_listInput);
        EXPECT_EQ(View().m_listInput.GetCurSel(), entry.nOutput);
        EXPECT_EQ(View().m_listOutput.GetCurSel(), LB_ERR);
    }
    View().m_listInput.SetCurSel(-1);
    View().OnEnter(); // nothing is selected
    EXPECT_TRUE(ShowsLists());
}

} // namespace

} // namespace tessara
