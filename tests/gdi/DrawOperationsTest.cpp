#include <array>
#include <climits>
#include <cstring>
#include <functional>
#include <map>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessara/platform/gdi/PdfDC.h"
#include "tessara/platform/gdi/SvgDC.h"
#include "tessara/platform/ui/resources/Resources.h"
#include "tests/cli/Folder.h"
#include "tests/gdi/Surfaces.h"
#include "tests/support/LoggedSurface.h"

namespace {

#define TESSARA_OPERATION_NAME(name, parameters, names) #name,
constexpr std::array OPERATIONS{TESSARA_DRAW_OPERATIONS(TESSARA_OPERATION_NAME)};
#undef TESSARA_OPERATION_NAME

constexpr std::array<POINT, 3> CORNERS{POINT{10, 10}, POINT{90, 20}, POINT{40, 80}};
constexpr RECT BOX{20, 30, 80, 90};

constexpr UINT BITMAP_NUMBER = 30000;
constexpr const char* DRAWING = R"(<svg xmlns="http://www.w3.org/2000/svg" width="40" height="30">)"
                                R"(<rect width="40" height="30" fill="#FF0000"/>)"
                                R"(<rect width="10" height="30" fill="#0000FF"/></svg>)";

/// Copies all but the left ten columns of a bitmap that is red there.
void CopyBitmap(CDC& dc) {
    static const tessara::CFileResource s_file{
        tessara::EFileResource::bitmap,
        BITMAP_NUMBER,
        {reinterpret_cast<const unsigned char*>(DRAWING), std::strlen(DRAWING)}};
    static const bool s_bAdded = (tessara::AddResources({{}, {&s_file, 1}}), true);
    CBitmap bitmap;
    EXPECT_TRUE(s_bAdded && bitmap.LoadBitmap(BITMAP_NUMBER));
    EXPECT_FALSE(CBitmap().LoadBitmap(BITMAP_NUMBER + 1));
    BITMAP description;
    EXPECT_NE(bitmap.GetBitmap(&description), 0);
    EXPECT_EQ((SIZE{description.bmWidth, description.bmHeight}), (SIZE{40, 30}));
    CDC memory;
    memory.CreateCompatibleDC(&dc);
    memory.SelectObject(&bitmap);
    dc.BitBlt(20, 30, 100, 100, &memory, 10, 0, SRCCOPY);
}

/// How a program issues each operation, and what the log says of it.
const std::map<std::string, std::pair<std::function<void(CDC&)>, const char*>> ISSUES{
    {"Polyline",
     {[](CDC& dc) { dc.Polyline(CORNERS.data(), 3); }, " 10,10 90,20 40,80 (pen 000000 width 0)"}},
    {"Polygon",
     {[](CDC& dc) { dc.Polygon(CORNERS.data(), 3); },
      " 10,10 90,20 40,80 (pen 000000 width 0, brush FFFFFF)"}},
    {"Rectangle", {[](CDC& dc) { dc.Rectangle(&BOX); }, " 20,30 80,90 (pen 000000 width 0, brush FFFFFF)"}},
    {"Ellipse", {[](CDC& dc) { dc.Ellipse(&BOX); }, " 20,30 80,90 (pen 000000 width 0, brush FFFFFF)"}},
    {"FillRect",
     {[](CDC& dc) { dc.FillRect(&BOX, static_cast<CBrush*>(tessara::GetStockObject(BLACK_BRUSH))); },
      " 20,30 80,90 (brush 000000)"}},
    {"FocusRect", {[](CDC& dc) { dc.DrawFocusRect(&BOX); }, " 20,30 80,90"}},
    {"Picture", {&CopyBitmap, " 20,30 50,60 (30 x 30, checksum F320DB617E30F9F5)"}},
    {"Text", {[](CDC& dc) { dc.TextOut(5, 6, "a\xD7\"", 3); }, " 5,6 \"a\\xD7\"\" (MS Sans Serif 16)"}},
};

/// The bytes of a file that holds one operation.
template <class SURFACE>
std::string FileWith(const std::function<void(CDC&)>& draw) {
    const CFolder folder;
    SURFACE dc(folder.Path("file").c_str(), 50, 50);
    draw(dc);
    dc.Close();
    return folder.Read("file");
}

/// Something of everything that the state decides, as lines of the log; the position is put back.
std::vector<std::string> Sample(tessara::CLoggedSurface& log) {
    log.lines.clear();
    const CPoint position = log.dc.MoveTo(0, 0);
    POINT origin{0, 0};
    log.dc.LPtoDP(&origin);
    log.dc.Ellipse(origin.x, origin.y, position.x, position.y);
    log.dc.TextOut(1, 2, "x", 1);
    log.dc.MoveTo(position);
    return log.lines;
}

} // namespace

TEST(DrawOperation, ReachesEverySinkOnceButFilesOnlyIfItIsNotAboutFocus) {
    for (const std::string strName : OPERATIONS) {
        SCOPED_TRACE(strName);
        const auto& [call, pszLogged] = ISSUES.at(strName);
        tessara::CLoggedSurface log;
        call(log.dc);
        EXPECT_THAT(log.lines, testing::ElementsAre(strName + pszLogged));
        for (const bool bSmooth : {false, true}) {
            CImageDC dc(100, 100);
            dc.SetSmooth(bSmooth);
            call(dc);
            EXPECT_GT(CountPainted(dc), 10);
        }
        const bool bFocus = strName == "FocusRect";
        const auto nothing = [](CDC&) {};
        EXPECT_EQ(FileWith<CSvgDC>(call) == FileWith<CSvgDC>(nothing), bFocus);
        // PDF files hold the time of their making, so they are told apart by size.
        EXPECT_TRUE(bFocus || FileWith<CPdfDC>(call).size() > FileWith<CPdfDC>(nothing).size());
        EXPECT_EQ(Recorded(call).lines.size() == 2, bFocus);
        CDC none;
        call(none);
    }
}

TEST(Picture, KeepsItsColoursAndEndsWhereTheBitmapDoes) {
    CImageDC dc(100, 100);
    CopyBitmap(dc);
    EXPECT_EQ(dc.GetPixel(20, 30), RGB(255, 0, 0));
    EXPECT_EQ(dc.GetPixel(49, 59), RGB(255, 0, 0));
    EXPECT_EQ(dc.GetPixel(50, 59), RGB(255, 255, 255));
    EXPECT_EQ(dc.GetPixel(19, 30), RGB(255, 255, 255));
    EXPECT_THAT(Recorded(&CopyBitmap).lines,
                testing::Contains("StretchDib 20,30 30 x 30 bitmap 30 x 30 FF0000"));
}

TEST(Log, TellsApartWhateverIsDrawnWith) {
    const tessara::CDrawState usual;
    using CChange = std::function<void(tessara::CDrawState&)>;
    using COperation = std::function<void(tessara::CDrawSink&, const tessara::CDrawState&)>;
    const COperation shape = [](auto& sink, const auto& state) { sink.Rectangle(state, BOX); };
    const COperation text = [](auto& sink, const auto& state) { sink.Text(state, {1, 2}, "x"); };
    const std::pair<COperation, CChange> cases[] = {
        {shape, [](auto& state) { state.pen.lopnColor = 1; }},
        {shape, [](auto& state) { state.pen.lopnWidth.x = 1; }},
        {shape, [](auto& state) { state.pen.lopnStyle = PS_NULL; }},
        {shape, [](auto& state) { state.pen.lopnStyle = PS_DOT; }},
        {shape, [](auto& state) { state.nRasterOperation = R2_NOT; }},
        {shape, [](auto& state) { state.brush.lbStyle = BS_NULL; }},
        {shape, [](auto& state) { state.brush.lbColor = 1; }},
        {text, [](auto& state) { state.font.lfHeight = -5; }},
        {text, [](auto& state) { state.font.lfUnderline = 1; }},
        {text, [](auto& state) { state.font.lfEscapement = 900; }},
        {text, [](auto& state) { state.textColor = 1; }},
        {text, [](auto& state) { state.backColor = 1; }},
        {text, [](auto& state) { state.nBackMode = TRANSPARENT; }},
    };
    const auto logged = [](const COperation& operation, const tessara::CDrawState& state) {
        std::vector<std::string> lines;
        tessara::CLogSink sink(lines, {});
        operation(sink, state);
        return lines;
    };
    for (const auto& [operation, change] : cases) {
        tessara::CDrawState changed;
        change(changed);
        EXPECT_NE(logged(operation, changed), logged(operation, usual));
    }
    tessara::CDrawState noPen, inverting;
    noPen.pen.lopnStyle = inverting.pen.lopnStyle = PS_NULL;
    inverting.nRasterOperation = R2_NOT;
    EXPECT_NE(logged(shape, inverting), logged(shape, noPen)) << "the brush is mixed, too";
    const auto picture = [&](std::uint32_t nColor) {
        const tessara::CPixels pixels{{2, 1}, {1, nColor}};
        return logged([&](auto& sink, const auto& state) { sink.Picture(state, BOX, pixels); }, usual);
    };
    EXPECT_NE(picture(2), picture(3));
    EXPECT_EQ(picture(2), picture(2));
}

TEST(DrawState, RestoreBringsBackWhateverWasChanged) {
    CFont font;
    const LOGFONT symbol = tessara::MakeLogFont(-77, "Symbol");
    font.CreateFontIndirect(&symbol);
    const std::vector<std::function<void(CDC&)>> changes{
        [](CDC& dc) {
            CPen pen(PS_DASH, 7, 0x112233);
            dc.SelectObject(&pen);
            pen.DeleteObject(); // is still drawn with
        },
        [](CDC& dc) { dc.SelectStockObject(BLACK_BRUSH); },
        [&](CDC& dc) { dc.SelectObject(&font); },
        [](CDC& dc) { dc.SetTextColor(0xFF); },
        [](CDC& dc) { dc.SetBkMode(OPAQUE); },
        [](CDC& dc) { dc.SetROP2(R2_NOTXORPEN); },
        [](CDC& dc) { dc.MoveTo(-4, 4); },
        [](CDC& dc) { dc.SetViewportOrg(31, 41); },
        [](CDC& dc) { dc.SetMapMode(MM_LOENGLISH), dc.SetWindowOrg(5, 5); },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        tessara::CLoggedSurface log;
        const std::vector<std::string> before = Sample(log);
        EXPECT_EQ(log.dc.SaveDC(), 1);
        changes[i](log.dc);
        EXPECT_NE(Sample(log), before) << i;
        log.dc.SaveDC();
        log.dc.SetROP2(R2_NOT);
        EXPECT_FALSE(log.dc.RestoreDC(3) || log.dc.RestoreDC(0) || log.dc.RestoreDC(INT_MIN));
        EXPECT_TRUE(log.dc.RestoreDC(i % 2 == 0 ? 1 : -2));
        EXPECT_FALSE(log.dc.RestoreDC(-1)) << "later levels are forgotten";
        EXPECT_EQ(Sample(log), before) << i;
    }
}
