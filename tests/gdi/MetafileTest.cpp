#include <climits>
#include <functional>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/gdi/Surfaces.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

using Draw = std::function<void(CDC&)>;

/// The records of a drawing, without header and end.
std::vector<std::string> Records(const Draw& draw) {
    const CMetafileReading reading = Recorded(draw);
    return {reading.lines.begin() + 1, reading.lines.end() - 1};
}

/// Those records that draw.
std::vector<std::string> Marks(const Draw& draw) {
    std::vector<std::string> records = Records(draw);
    std::erase_if(records, [](const std::string& strLine) {
        return strLine.starts_with("Se") || strLine.starts_with("Create") || strLine.starts_with("Delete");
    });
    return records;
}

} // namespace

TEST(Metafile, RecordsAWholeDrawingInOrder) {
    const auto records = Records([](CDC& dc) {
        CPen pen(PS_SOLID, 32, RGB(255, 0, 0));
        CBrush brush(RGB(0, 0, 255));
        dc.SetMapMode(MM_ISOTROPIC);
        dc.SetWindowOrg(10, 20);
        dc.SetWindowExt(5120, 3680);
        dc.MoveTo(1, 2);
        dc.LineTo(3, 4);
        dc.LineTo(5, -6);
        dc.SelectObject(&pen);
        dc.SelectObject(&brush);
        dc.Rectangle(1, 2, 30, 40);
        dc.SelectStockObject(NULL_PEN);
        dc.SetROP2(R2_NOTXORPEN);
        dc.Ellipse(5, 6, 7, 8);
        dc.SetROP2(R2_COPYPEN);
        dc.SelectObject(&pen);
        constexpr POINT repeated[] = {{0, 0}, {0, 0}, {5, 5}, {5, 5}, {9, 0}};
        dc.Polyline(repeated, 5);
    });
    EXPECT_THAT(records,
                ElementsAre("SetWindowOrg 10 20", "SetWindowExt 5120 3680", "SetROP2 13",
                            "CreatePen style 0 width 0 colour 000000 -> 0", "SelectPen 0", "MoveTo 1,2",
                            "LineTo 3,4", "LineTo 5,-6", "CreatePen style 0 width 32 colour 0000FF -> 1",
                            "SelectPen 1", "CreateBrush style 0 colour FF0000 -> 2", "SelectBrush 2",
                            "Rectangle 1,2 30,40", "SetROP2 10",
                            "CreatePen style 5 width 0 colour 000000 -> 3", "SelectPen 3", "Ellipse 5,6 7,8",
                            "SetROP2 13", "SelectPen 1", "Polyline 3: 0,0 5,5 9,0", "DeletePen 0",
                            "DeletePen 1", "DeleteBrush 2", "DeletePen 3"));
}

TEST(Metafile, FontsAreMadeJustBeforeTheyAreSelectedAndTextIsWindows1252) {
    const auto records = Records([](CDC& dc) {
        dc.SetBkMode(TRANSPARENT);
        SelectFont(dc, -1000, "Times New Roman");
        dc.TextOut(284, 88, "2\xC3\x97\xCE\xB1", 5); // U+03B1 is not in Windows-1252
        dc.TextOut(284, 88, "\xD7", 1);
        dc.SetTextColor(RGB(255, 0, 0));
        SelectFont(dc, -1000, "Symbol");
        dc.TextOut(5, 6, "a\xB1", 2);
    });
    EXPECT_THAT(records,
                ElementsAre("SetBkMode 1", "SetTextColor 000000", "SetBkColor FFFFFF",
                            "CreateFont -1000 \"Times New Roman\" charset 0 weight 0 -> 0", "SelectFont 0",
                            "ExtTextOut 284,88 \"2\\xD7?\" [500 564 444]",
                            "ExtTextOut 284,88 \"\\xD7\" [564]", "SetTextColor 0000FF",
                            "CreateFont -1000 \"Symbol\" charset 2 weight 0 -> 1", "SelectFont 1",
                            "DeleteFont 0", StartsWith("ExtTextOut 5,6 \"a\\xB1\" ["), "DeleteFont 1"));
}

TEST(Metafile, LongPolylinesAreSplitWithSharedEndPoints) {
    std::vector<POINT> points;
    for (LONG i = 0; i < 40000; ++i) {
        points.push_back({i % 2, i / 4});
    }
    const auto marks = [&](int nPoints) {
        return Marks([&](CDC& dc) { dc.Polyline(points.data(), nPoints); });
    };
    const auto first =
        AllOf(StartsWith("Polyline 32767: 0,0 1,0 ..."), HasSubstr("... 1,8191 0,8191 within"));
    EXPECT_THAT(marks(32768), ElementsAre(first, "Polyline 2: 0,8191 1,8191"));
    EXPECT_THAT(marks(40000), ElementsAre(first, AllOf(StartsWith("Polyline 7234: 0,8191 1,8191 ..."),
                                                       HasSubstr("... 0,9999 1,9999 within"))));
}

TEST(Metafile, CoordinatesAreCutTo16Bits) {
    const auto records = Marks([&](CDC& dc) {
        SelectFont(dc, -10, "Times New Roman");
        dc.MoveTo(-100000, 7);
        dc.LineTo(100000, 7);
        dc.Rectangle(INT_MIN, 1, 2, INT_MAX);
        dc.TextOut(40000, -40000, "x", 1);
    });
    EXPECT_THAT(records, ElementsAre("MoveTo -32768,7", "LineTo 32767,7", "Rectangle -32768,1 2,32767",
                                     "ExtTextOut 32767,-32768 \"x\" [5]"));
}

TEST(Metafile, AnyDrawingIsSound) {
    for (unsigned nSeed = 0; nSeed < 50; ++nSeed) {
        std::mt19937 random(nSeed);
        const auto any = [&] { return static_cast<int>(random()) >> random() % 31; };
        Recorded([&](CDC& dc) {
            for (int i = 0; i < 100; ++i) {
                CPen pen(any() & 3, any(), random() & 0xFFFFFF);
                dc.SelectObject(&pen);
                dc.SelectStockObject(i % 2 == 0 ? WHITE_BRUSH : NULL_BRUSH);
                SelectFont(dc, any(), i % 3 == 0 ? "Symbol" : "A face whose name takes 31 bytes");
                dc.TextOut(any(), any(), std::string(random() % 5, static_cast<char>(random())));
                const POINT points[] = {{any(), any()}, {any(), any()}, {any(), any()}};
                dc.Polyline(points, 3);
                dc.Polygon(points, 3);
                dc.Ellipse(any(), any(), any(), any());
                dc.SelectStockObject(BLACK_PEN);
            }
        });
    }
}

TEST(MetafileReader, NoticesEveryDamage) {
    CMetaFileDC picture;
    picture.Create();
    picture.SetBkMode(TRANSPARENT);
    SelectFont(picture, -100, "Times New Roman");
    picture.TextOut(3, 4, "ab", 2);
    picture.Ellipse(1, 2, 30, 40);
    constexpr POINT corners[] = {{1, 2}, {3, 4}, {5, 6}};
    picture.Polyline(corners, 3);
    HMETAFILE hPicture = picture.Close();
    const std::vector<unsigned char> bytes(hPicture->GetBytes().begin(), hPicture->GetBytes().end());
    DeleteMetaFile(hPicture);
    const CMetafileReading sound = ReadMetafile(bytes);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        for (const int nFlip : {0x01, 0x80, 0xFF}) {
            std::vector<unsigned char> damaged = bytes;
            damaged[i] ^= static_cast<unsigned char>(nFlip);
            const CMetafileReading reading = ReadMetafile(damaged);
            EXPECT_TRUE(!reading.faults.empty() || reading.lines != sound.lines) << i << " ^ " << nFlip;
        }
        EXPECT_FALSE(ReadMetafile({bytes.data(), i}).faults.empty()) << "cut to " << i;
    }
}

TEST(Metafile, IsClosedOnceAndEmptyWithoutDrawing) {
    EXPECT_EQ(Recorded([](CDC&) {}).GetText(), "Metafile version 0300 objects 0\nEnd\n");
    CMetaFileDC picture;
    picture.Create();
    EXPECT_TRUE(DeleteMetaFile(picture.Close()));
    EXPECT_EQ(picture.Close(), nullptr);
}
