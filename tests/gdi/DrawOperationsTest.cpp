#include <array>
#include <functional>
#include <map>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessara/platform/gdi/MetaFileDC.h"
#include "tessara/platform/gdi/MetafileRecorder.h"
#include "tessara/platform/gdi/PdfDC.h"
#include "tessara/platform/gdi/PrinterDC.h"
#include "tessara/platform/gdi/SvgDC.h"
#include "tests/cli/Folder.h"
#include "tests/gdi/Surfaces.h"
#include "tests/support/LoggedSurface.h"
#include "tests/support/MetafileReader.h"

using testing::ElementsAre;

namespace {

#define TESSARA_OPERATION_NAME(name, parameters) #name,
constexpr std::array OPERATIONS{TESSARA_DRAW_OPERATIONS(TESSARA_OPERATION_NAME)};
#undef TESSARA_OPERATION_NAME

constexpr std::array<POINT, 3> CORNERS{POINT{10, 10}, POINT{90, 20}, POINT{40, 80}};
constexpr RECT BOX{20, 30, 80, 90};

/// How a program issues each operation.
void Issue(CDC& surface, const std::string& strOperation) {
    static const std::map<std::string, std::function<void(CDC&)>> s_calls{
        {"Polyline", [](CDC& dc) { dc.Polyline(CORNERS.data(), 3); }},
        {"Polygon", [](CDC& dc) { dc.Polygon(CORNERS.data(), 3); }},
        {"Rectangle", [](CDC& dc) { dc.Rectangle(&BOX); }},
        {"Ellipse", [](CDC& dc) { dc.Ellipse(&BOX); }},
        {"FillRect",
         [](CDC& dc) {
             CBrush brush(RGB(1, 2, 3));
             dc.FillRect(&BOX, &brush);
         }},
        {"FocusRect", [](CDC& dc) { dc.DrawFocusRect(&BOX); }},
        {"Text", [](CDC& dc) { dc.TextOut(5, 6, "a\xD7\"", 3); }},
    };
    s_calls.at(strOperation)(surface);
}

/// The bytes of a file of ours that holds one operation, or none when it is empty.
template <class SURFACE, class... ARGUMENTS>
std::string FileWith(const std::string& strOperation, ARGUMENTS... arguments) {
    const CFolder folder;
    SURFACE dc(folder.Path("file").c_str(), arguments...);
    if (!strOperation.empty()) {
        Issue(dc, strOperation);
    }
    dc.Close();
    return folder.Read("file");
}

class DrawOperation : public testing::TestWithParam<const char*> {};

} // namespace

TEST_P(DrawOperation, ReachesTheLogOnce) {
    tessara::CLoggedSurface log;
    Issue(log.dc, GetParam());
    EXPECT_THAT(log.lines, ElementsAre(testing::StartsWith(std::string(GetParam()) + " ")));
}

TEST_P(DrawOperation, PaintsPixels) {
    for (const bool bSmooth : {false, true}) {
        CImageDC dc(100, 100);
        dc.SetSmooth(bSmooth);
        Issue(dc, GetParam());
        EXPECT_GT(CountPainted(dc), 10);
    }
}

TEST_P(DrawOperation, ReachesPagesAndPicturesUnlessItIsAboutFocus) {
    const bool bFocus = std::string(GetParam()) == "FocusRect";
    EXPECT_EQ(FileWith<CSvgDC>(GetParam(), 50, 50) == FileWith<CSvgDC>("", 50, 50), bFocus);
    // PDF files hold the time of their making, so they are told apart by size.
    EXPECT_TRUE(bFocus || FileWith<CPdfDC>(GetParam(), 50, 50).size() > FileWith<CPdfDC>("", 50, 50).size());
    CMetaFileDC picture;
    picture.Create();
    Issue(picture, GetParam());
    HMETAFILE hPicture = picture.Close();
    const CMetafileReading reading = ReadMetafile(hPicture->GetBytes());
    EXPECT_THAT(reading.faults, testing::IsEmpty());
    EXPECT_EQ(reading.lines.size() == 2, bFocus);
    DeleteMetaFile(hPicture);
}

TEST_P(DrawOperation, DoesNothingWithoutADeviceOrAfterItsEnd) {
    CDC none;
    Issue(none, GetParam());
    const CFolder folder;
    CPrinterDC closed("Title", folder.Path("file").c_str());
    closed.Close();
    Issue(closed, GetParam());
    EXPECT_EQ(none.GetPixel(20, 30), CLR_INVALID);
    EXPECT_EQ(closed.GetPixel(20, 30), CLR_INVALID);
}

INSTANTIATE_TEST_SUITE_P(Table, DrawOperation, testing::ValuesIn(OPERATIONS),
                         [](const auto& test) { return std::string(test.param); });

TEST(DrawLog, TellsCoordinatesAndObjectsInStableText) {
    tessara::CLoggedSurface log;
    CDC& dc = log.dc;
    CPen pen(PS_DOT, 12, RGB(255, 128, 0));
    CFont font;
    LOGFONT bold = tessara::MakeLogFont(-88, "Times New Roman");
    bold.lfWeight = FW_BOLD;
    bold.lfItalic = 1;
    font.CreateFontIndirect(&bold);
    dc.SetBkMode(OPAQUE);
    Issue(dc, "Text");
    dc.SelectObject(&pen);
    dc.SelectObject(&font);
    dc.SetTextColor(0xFF);
    dc.SetBkMode(TRANSPARENT);
    Issue(dc, "Polyline");
    Issue(dc, "Polygon");
    Issue(dc, "FillRect");
    Issue(dc, "FocusRect");
    Issue(dc, "Text");
    dc.SelectStockObject(NULL_PEN);
    Issue(dc, "Rectangle");
    dc.SelectStockObject(WHITE_PEN);
    dc.SelectStockObject(NULL_BRUSH);
    dc.SetROP2(R2_NOTXORPEN);
    Issue(dc, "Ellipse");
    EXPECT_THAT(log.lines,
                ElementsAre("Text 5,6 \"a\\xD7\"\" (MS Sans Serif 16, opaque)",
                            "Polyline 10,10 90,20 40,80 (pen 0080FF width 12 style 2)",
                            "Polygon 10,10 90,20 40,80 (pen 0080FF width 12 style 2, brush FFFFFF)",
                            "FillRect 20,30 80,90 (brush 030201)", "FocusRect 20,30 80,90",
                            "Text 5,6 \"a\\xD7\"\" (Times New Roman -88 weight 700 italic, colour 0000FF)",
                            "Rectangle 20,30 80,90 (no pen, brush FFFFFF)",
                            "Ellipse 20,30 80,90 (pen FFFFFF width 0 rop 10, no brush)"));
}

TEST(DrawCalls, WithNothingToDrawDrawNothing) {
    tessara::CLoggedSurface log;
    CDC& dc = log.dc;
    EXPECT_FALSE(dc.Polyline(CORNERS.data(), 0));
    EXPECT_FALSE(dc.Polyline(CORNERS.data(), -1));
    EXPECT_FALSE(dc.Polygon(CORNERS.data(), 1));
    EXPECT_FALSE(dc.TextOut(0, 0, "a", -1));
    EXPECT_TRUE(dc.TextOut(0, 0, "a", 0));
    dc.FillRect(&BOX, static_cast<CBrush*>(tessara::GetStockObject(NULL_BRUSH)));
    EXPECT_THAT(log.lines, testing::IsEmpty());
}
