#include <climits>
#include <functional>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessara/platform/gdi/MetaFileDC.h"
#include "tests/gdi/Surfaces.h"
#include "tests/support/MetafileReader.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

std::vector<BYTE> Recorded(const std::function<void(CMetaFileDC&)>& draw) {
    CMetaFileDC picture;
    picture.Create();
    draw(picture);
    HMETAFILE hPicture = picture.Close();
    std::vector<BYTE> bytes(GetMetaFileBitsEx(hPicture, 0, nullptr));
    EXPECT_EQ(GetMetaFileBitsEx(hPicture, static_cast<UINT>(bytes.size()), bytes.data()), bytes.size());
    DeleteMetaFile(hPicture);
    return bytes;
}

/// The records of a drawing, without header and end; faults of the format fail the test.
std::vector<std::string> Records(const std::function<void(CMetaFileDC&)>& draw) {
    CMetafileReading reading = ReadMetafile(Recorded(draw));
    EXPECT_THAT(reading.faults, IsEmpty());
    return {reading.lines.begin() + 1, reading.lines.end() - 1};
}

/// Those records that draw.
std::vector<std::string> Marks(const std::function<void(CMetaFileDC&)>& draw) {
    std::vector<std::string> records = Records(draw);
    std::erase_if(records, [](const std::string& strLine) {
        return strLine.starts_with("Se") || strLine.starts_with("Create") || strLine.starts_with("Delete");
    });
    return records;
}

} // namespace

TEST(Metafile, OfNothingIsAHeaderAndAnEnd) {
    const std::vector<BYTE> bytes = Recorded([](CDC&) {});
    EXPECT_EQ(ReadMetafile(bytes).GetText(), "Metafile version 0300 objects 0\nEnd\n");
    EXPECT_EQ(bytes.size(), 24U);
}

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
        dc.Ellipse(5, 6, 7, 8);
        dc.SelectObject(&pen);
        dc.SetROP2(R2_NOTXORPEN);
        constexpr POINT corners[] = {{0, 0}, {9, 0}, {9, 9}};
        dc.Polygon(corners, 3);
    });
    EXPECT_THAT(records,
                ElementsAre("SetWindowOrg 10 20", "SetWindowExt 5120 3680", "SetROP2 13",
                            "CreatePen style 0 width 0 colour 000000 -> 0", "SelectPen 0", "MoveTo 1,2",
                            "LineTo 3,4", "LineTo 5,-6", "CreatePen style 0 width 32 colour 0000FF -> 1",
                            "SelectPen 1", "CreateBrush style 0 colour FF0000 -> 2", "SelectBrush 2",
                            "Rectangle 1,2 30,40", "CreatePen style 5 width 0 colour 000000 -> 3",
                            "SelectPen 3", "Ellipse 5,6 7,8", "SetROP2 10", "SelectPen 1",
                            "Polygon 3: 0,0 9,0 9,9", "DeletePen 0", "DeletePen 1", "DeleteBrush 2",
                            "DeletePen 3"));
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

TEST(Metafile, EqualNeighboursAreWrittenOnce) {
    constexpr POINT points[] = {{0, 0}, {0, 0}, {5, 5}, {5, 5}, {5, 5}, {9, 0}};
    EXPECT_THAT(Marks([&](CDC& dc) { dc.Polyline(points, 6); }), ElementsAre("Polyline 3: 0,0 5,5 9,0"));
    EXPECT_THAT(Marks([&](CDC& dc) { dc.Polyline(points, 2); }), ElementsAre("MoveTo 0,0", "LineTo 0,0"));
}

TEST(Metafile, LongPolylinesAreSplitWithSharedEndPoints) {
    std::vector<POINT> points;
    for (LONG i = 0; i < 40000; ++i) {
        points.push_back({i % 2, i / 4});
    }
    const auto first =
        AllOf(StartsWith("Polyline 32767: 0,0 1,0 ..."), HasSubstr("... 1,8191 0,8191 within"));
    EXPECT_THAT(Marks([&](CDC& dc) { dc.Polyline(points.data(), 32767); }), ElementsAre(first));
    EXPECT_THAT(Marks([&](CDC& dc) { dc.Polyline(points.data(), 32768); }),
                ElementsAre(first, "Polyline 2: 0,8191 1,8191"));
    EXPECT_THAT(Marks([&](CDC& dc) { dc.Polyline(points.data(), 40000); }),
                ElementsAre(first, AllOf(StartsWith("Polyline 7234: 0,8191 1,8191 ..."),
                                         HasSubstr("... 0,9999 1,9999 within"))));
}

TEST(Metafile, CoordinatesAreCutTo16Bits) {
    constexpr POINT far[] = {{INT_MIN, INT_MIN}, {INT_MAX, INT_MAX}};
    const auto records = Marks([&](CDC& dc) {
        SelectFont(dc, -10, "Times New Roman");
        dc.MoveTo(-100000, 7);
        dc.LineTo(100000, 7);
        dc.MoveTo(50000, 40000);
        dc.LineTo(60000, 50000);
        dc.Rectangle(INT_MIN, 1, 2, INT_MAX);
        dc.TextOut(40000, -40000, "x", 1);
        dc.Polygon(far, 2);
    });
    EXPECT_THAT(records,
                ElementsAre("MoveTo -32768,7", "LineTo 32767,7", "Rectangle -32768,1 2,32767",
                            "ExtTextOut 32767,-32768 \"x\" [5]", "Polygon 2: -32768,-32768 32767,32767"));
}

TEST(Metafile, AnyDrawingIsSound) {
    for (unsigned nSeed = 0; nSeed < 50; ++nSeed) {
        std::mt19937 random(nSeed);
        const auto any = [&] { return static_cast<int>(random()) >> random() % 31; };
        Records([&](CDC& dc) {
            for (int i = 0; i < 100; ++i) {
                CPen pen(any() & 3, any(), random() & 0xFFFFFF);
                CBrush brush(random() & 7);
                dc.SelectObject(&pen);
                dc.SelectObject(&brush);
                SelectFont(dc, any(), i % 3 == 0 ? "Symbol" : "A face whose name takes 31 bytes");
                const std::string strText(random() % 5, static_cast<char>(random()));
                dc.TextOut(any(), any(), strText);
                std::vector<POINT> points(2 + random() % 20);
                for (POINT& point : points) {
                    point = {any(), any()};
                }
                dc.Polyline(points.data(), static_cast<int>(points.size()));
                dc.Polygon(points.data(), static_cast<int>(points.size()));
                dc.Ellipse(any(), any(), any(), any());
                dc.SelectStockObject(BLACK_PEN);
                dc.SelectStockObject(BLACK_BRUSH);
            }
        });
    }
}

TEST(MetafileDC, RecordsBetweenCreateAndCloseOnly) {
    CMetaFileDC picture;
    EXPECT_EQ(picture.Close(), nullptr);
    EXPECT_FALSE(picture.Create("file.wmf"));
    EXPECT_TRUE(picture.Create());
    EXPECT_FALSE(picture.Create());
    picture.LineTo(1, 1);
    HMETAFILE hFirst = picture.Close();
    picture.LineTo(2, 2);
    EXPECT_EQ(picture.Close(), nullptr);
    EXPECT_TRUE(picture.Create());
    HMETAFILE hSecond = picture.Close();
    EXPECT_EQ(GetMetaFileBitsEx(hSecond, 0, nullptr), 24U);
    EXPECT_GT(GetMetaFileBitsEx(hFirst, 0, nullptr), 24U);
    EXPECT_TRUE(DeleteMetaFile(hFirst));
    EXPECT_TRUE(DeleteMetaFile(hSecond));
    EXPECT_FALSE(DeleteMetaFile(nullptr));
}

TEST(MetafileDC, CopiesNoMoreBytesThanAskedFor) {
    CMetaFileDC picture;
    picture.Create();
    HMETAFILE hPicture = picture.Close();
    std::vector<BYTE> bytes(100, 0xEE);
    EXPECT_EQ(GetMetaFileBitsEx(hPicture, 5, bytes.data()), 5U);
    EXPECT_EQ(bytes[5], 0xEE);
    EXPECT_EQ(GetMetaFileBitsEx(hPicture, 100, bytes.data()), 24U);
    EXPECT_EQ(bytes[24], 0xEE);
    EXPECT_EQ(GetMetaFileBitsEx(nullptr, 100, bytes.data()), 0U);
    DeleteMetaFile(hPicture);
}

TEST(MetafileReader, FindsDamage) {
    const std::vector<BYTE> sound = Recorded([](CDC& dc) {
        dc.TextOut(1, 2, "ab", 2);
        dc.Rectangle(1, 2, 3, 4);
    });
    ASSERT_THAT(ReadMetafile(sound).faults, IsEmpty());
    for (std::size_t nCut = 0; nCut < sound.size(); ++nCut) {
        EXPECT_FALSE(ReadMetafile(std::span(sound).first(nCut)).faults.empty()) << nCut;
    }
    for (std::size_t nByte = 0; nByte < 18; ++nByte) {
        std::vector<BYTE> damaged = sound;
        damaged[nByte] ^= 4;
        EXPECT_FALSE(ReadMetafile(damaged).faults.empty()) << nByte;
    }
}
