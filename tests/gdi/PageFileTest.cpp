#include <cmath>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

#include <QPainter>
#include <QSvgRenderer>
#include <QXmlStreamReader>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/gdi/PdfDC.h"
#include "tessara/platform/gdi/PrinterDC.h"
#include "tessara/platform/gdi/SvgDC.h"
#include "tessara/platform/qt/drawing/PainterSink.h"
#include "tests/cli/Folder.h"
#include "tests/gdi/Surfaces.h"

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

void DrawSample(CDC& dc, const char* pszText) {
    SelectFont(dc, -400, "Times New Roman");
    dc.TextOut(300, 300, pszText);
}

template <class SURFACE>
std::string Written(const char* pszText) {
    const CFolder folder;
    SURFACE dc(folder.Path("file").c_str(), 160, 115);
    DrawSample(dc, pszText);
    dc.Close();
    return folder.Read("file");
}

template <class SURFACE>
class PageFile : public testing::Test {};
using PageSurfaces = testing::Types<CPdfDC, CSvgDC>;
TYPED_TEST_SUITE(PageFile, PageSurfaces);

} // namespace

TYPED_TEST(PageFile, IsAPictureOfItsSizeWrittenByCloseOnly) {
    const CFolder folder;
    {
        TypeParam dc(folder.Path("file").c_str(), 160, 115);
        EXPECT_FALSE(dc.IsPrinting());
        EXPECT_GT(dc.GetDeviceCaps(NUMCOLORS), 2);
        EXPECT_EQ(dc.GetClientRect(), (RECT{0, 0, 7559, 5433}));
        DrawSample(dc, "Sample");
    }
    EXPECT_TRUE(folder.List().empty());
}

TYPED_TEST(PageFile, ThrowsForImpossibleSizesAndWhenItCannotBeWritten) {
    for (const double dSize : {0.0, -1.0, 1e9, std::nan(""), HUGE_VAL}) {
        EXPECT_THROW(TypeParam("file", dSize, 100), CInvalidArgException) << dSize;
        EXPECT_THROW(TypeParam("file", 100, dSize), CInvalidArgException) << dSize;
    }
    const CFolder folder;
    ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
    for (const std::string& strPath : {folder.Path("missing/file"), folder.Path(""), folder.Path("pipe")}) {
        TypeParam dc(strPath.c_str(), 50, 50);
        DrawSample(dc, "Sample");
        EXPECT_THROW(dc.Close(), CFileException) << strPath;
        EXPECT_THROW(CImageDC(4, 4).SavePng(strPath.c_str()), CFileException) << strPath;
    }
}

TEST(PdfFile, HasOnePageOfTheAskedSizeInPoints) {
    const std::string strPdf = Written<CPdfDC>("Sample");
    EXPECT_THAT(strPdf, AllOf(StartsWith("%PDF-"), HasSubstr("/Count 1"), HasSubstr("/FontFile")));
    EXPECT_THAT(strPdf, HasSubstr("/MediaBox [0 0 45"));
}

TEST(SvgFile, IsWellFormedWithAnyText) {
    for (const char* pszText :
         {"]]><&>\"'", "\x7F\xF0\x9D\x9B\xBC", "a\x01\x1F\nb\tc", "\xEF\xBF\xBE", "\x81\xD7"}) {
        QXmlStreamReader reader(QByteArray::fromStdString(Written<CSvgDC>(pszText)));
        ASSERT_TRUE(reader.readNextStartElement());
        const QXmlStreamAttributes root = reader.attributes();
        EXPECT_EQ(root.value("viewBox"), u"0 0 7559 5433");
        EXPECT_NEAR(root.value("width").chopped(2).toDouble(), 160, 0.02);
        const QString strRead = reader.readElementText(QXmlStreamReader::IncludeChildElements);
        EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
        EXPECT_TRUE(*pszText != ']' || strRead.contains(pszText));
    }
}

TEST(SvgFile, HasAWhiteGroundEverywhereAsAnImageHas) {
    const CFolder folder;
    for (const auto& [dWidth, dHeight] : {std::pair(160.0, 115.0), {30.7, 90.3}}) {
        CSvgDC dc(folder.Path("a.svg").c_str(), dWidth, dHeight);
        dc.Close();
        QImage on(123, 77, QImage::Format_RGB32);
        on.fill(Qt::magenta);
        QPainter painter(&on);
        QSvgRenderer(QString::fromStdString(folder.Path("a.svg"))).render(&painter);
        painter.end();
        QImage white(on.size(), on.format());
        white.fill(Qt::white);
        EXPECT_TRUE(on == white) << dWidth;
    }
}

TEST(Surface, StartsWithTextOnWhatIsThereWhereItIsMadeForPlots) {
    const CFolder folder;
    CImageDC image(60, 40);
    CPdfDC pdf(folder.Path("a").c_str(), 50, 50);
    CSvgDC svg(folder.Path("b").c_str(), 50, 50);
    CPrinterDC printer("Title", folder.Path("c").c_str());
    CDC plain;
    CMetaFileDC picture;
    for (CDC* const pDC : {static_cast<CDC*>(&image), static_cast<CDC*>(&pdf), static_cast<CDC*>(&svg),
                           static_cast<CDC*>(&printer), &plain, static_cast<CDC*>(&picture)}) {
        const bool bFramework = pDC == &plain || pDC == &picture;
        EXPECT_EQ(pDC->SetBkMode(OPAQUE), bFramework ? OPAQUE : TRANSPARENT)
            << pDC->GetRuntimeClass()->m_lpszClassName;
    }
}

TEST(Printer, PrintsToAFileInColourOrBlackAndWhite) {
    for (const auto eColors : {CPrinterDC::color, CPrinterDC::blackAndWhite}) {
        const CFolder folder;
        CPrinterDC dc("T\xD7", folder.Path("file").c_str(), eColors);
        EXPECT_TRUE(dc.IsPrinting());
        EXPECT_EQ(dc.GetDeviceCaps(NUMCOLORS) == 2, eColors == CPrinterDC::blackAndWhite);
        const RECT rc = dc.GetClientRect();
        EXPECT_GT(rc.right, rc.bottom) << "landscape";
        EXPECT_TRUE(dc.NewPage());
        DrawSample(dc, "Sample");
        EXPECT_TRUE(folder.List().empty()) << "written by Close only";
        dc.Close();
        dc.LineTo(9, 9);
        EXPECT_FALSE(dc.NewPage());
        const std::string strTitle("\0T\0\xD7", 4); // in the file it is UTF-16
        EXPECT_THAT(folder.Read("file"),
                    AllOf(StartsWith("%PDF-"), HasSubstr("/Count 2"), HasSubstr(strTitle)));
    }
    CPrinterDC nowhere("Title", CFolder().Path("missing/file").c_str());
    EXPECT_THROW(nowhere.Close(), CFileException);
}

/// As if the disk were full: no file can become larger than a few bytes while this lives.
class CFullDisk {
public:
    CFullDisk() : m_pOld(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &m_limit);
        const rlimit small{64, m_limit.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~CFullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_limit);
        std::signal(SIGXFSZ, m_pOld);
    }
    CFullDisk(const CFullDisk&) = delete;
    CFullDisk& operator=(const CFullDisk&) = delete;

private:
    void (*m_pOld)(int);
    rlimit m_limit{};
};

TEST(Printer, ThrowsOnAFullDiskAndLeavesTheFileAsItWas) {
    const CFolder folder;
    folder.Write("file", "what was there");
    bool bThrown = false;
    {
        CPrinterDC dc("Title", folder.Path("file").c_str());
        DrawSample(dc, "Sample");
        const CFullDisk disk;
        try {
            dc.Close();
        } catch (const CFileException&) {
            bThrown = true;
        }
    }
    EXPECT_TRUE(bThrown);
    EXPECT_EQ(folder.Read("file"), "what was there");
    EXPECT_EQ(folder.List().size(), 1U);
}

TEST(Printer, HasGreyInkWhereItHasNoColours) {
    QImage paper(40, 40, QImage::Format_ARGB32);
    paper.fill(Qt::white);
    tessara::CDeviceCaps caps;
    caps.size = {40, 40};
    caps.nColors = 2;
    {
        CDC dc(std::make_unique<tessara::CPainterSink>(paper, caps, tessara::CPainterSink::Style::vector));
        CPen pen(PS_SOLID, 3, RGB(255, 0, 0));
        CBrush brush(RGB(0, 0, 255));
        dc.SelectObject(&pen);
        dc.SelectObject(&brush);
        dc.Rectangle(2, 2, 20, 20);
        dc.SetTextColor(RGB(0, 160, 0));
        dc.TextOut(20, 20, "W", 1);
    }
    EXPECT_TRUE(paper.allGray());
    EXPECT_NE(paper.pixelColor(10, 10), QColor(Qt::white));
}

TEST(Png, ReadsBackEqualWithAPaletteForUpTo256ColoursAndItsResolution) {
    for (const int nColors : {0, 1, 255, 256, 900}) {
        const CFolder folder;
        CImageDC dc(40, 40, 300);
        for (int i = 0; i < nColors; ++i) {
            CBrush brush(RGB(i % 256, i / 256, 77));
            const RECT rc{i % 40, i / 40, i % 40 + 1, i / 40 + 1};
            dc.FillRect(&rc, &brush);
        }
        dc.SavePng(folder.Path("a.png").c_str());
        const QImage read(QString::fromStdString(folder.Path("a.png")), "PNG");
        EXPECT_EQ(read.colorCount() > 0, nColors < 256) << nColors << " besides white";
        EXPECT_EQ(read.convertToFormat(QImage::Format_RGB32), ImageOf(dc)) << nColors;
        EXPECT_NEAR(read.dotsPerMeterX() * 0.0254, 300, 0.02);
    }
}
