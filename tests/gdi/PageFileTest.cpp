#include <cmath>

#include <QXmlStreamReader>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/gdi/PdfDC.h"
#include "tessara/platform/gdi/PrinterDC.h"
#include "tessara/platform/gdi/SvgDC.h"
#include "tests/cli/Folder.h"
#include "tests/gdi/Surfaces.h"

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

void DrawSample(CDC& dc, const char* pszText) {
    SelectFont(dc, -400, "Times New Roman");
    dc.SelectStockObject(NULL_BRUSH);
    dc.Rectangle(100, 100, 2000, 2000);
    dc.TextOut(300, 300, pszText, static_cast<int>(std::strlen(pszText)));
}

template <class SURFACE>
std::string Written(double dWidthMm, double dHeightMm, const char* pszText = "Sample") {
    const CFolder folder;
    SURFACE dc(folder.Path("file").c_str(), dWidthMm, dHeightMm);
    EXPECT_TRUE(folder.List().empty()) << "nothing is written before Close";
    DrawSample(dc, pszText);
    dc.Close();
    dc.Close();
    return folder.Read("file");
}

/// All character data of an XML text, or its error.
QString XmlText(const std::string& strXml, QXmlStreamAttributes* pRoot = nullptr) {
    QXmlStreamReader reader(QByteArray::fromStdString(strXml));
    QString strText;
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == u"svg" && pRoot) {
            *pRoot = reader.attributes();
        }
        strText += reader.isCharacters() ? reader.text().toString() : QString();
    }
    return reader.hasError() ? "error: " + reader.errorString() : strText;
}

template <class SURFACE>
class PageFile : public testing::Test {};
using PageSurfaces = testing::Types<CPdfDC, CSvgDC>;
TYPED_TEST_SUITE(PageFile, PageSurfaces);

} // namespace

TYPED_TEST(PageFile, IsAPictureAndNotAPrinter) {
    const CFolder folder;
    TypeParam dc(folder.Path("file").c_str(), 160, 115);
    EXPECT_FALSE(dc.IsPrinting());
    EXPECT_GT(dc.GetDeviceCaps(NUMCOLORS), 2);
    EXPECT_EQ(dc.GetDeviceCaps(LOGPIXELSY), 1200);
    EXPECT_EQ(dc.GetDeviceCaps(HORZSIZE), 160);
    EXPECT_EQ(dc.GetDeviceCaps(VERTSIZE), 115);
    EXPECT_EQ(dc.GetClientRect(), (RECT{0, 0, 7559, 5433}));
    EXPECT_EQ(dc.GetPixel(1, 1), CLR_INVALID);
}

TYPED_TEST(PageFile, RefusesImpossibleSizes) {
    for (const double dSize : {0.0, -1.0, 1e9, std::nan(""), HUGE_VAL}) {
        EXPECT_THROW(TypeParam("file", dSize, 100), CInvalidArgException) << dSize;
        EXPECT_THROW(TypeParam("file", 100, dSize), CInvalidArgException) << dSize;
    }
}

TYPED_TEST(PageFile, ThrowsWhenItCannotBeWritten) {
    const CFolder folder;
    for (const std::string& strPath :
         {folder.Path("missing/file"), folder.Path(""), std::string("/dev/full")}) {
        TypeParam dc(strPath.c_str(), 50, 50);
        DrawSample(dc, "Sample");
        EXPECT_THROW(dc.Close(), CFileException) << strPath;
    }
}

TYPED_TEST(PageFile, LeavesNothingBehindWithoutClose) {
    const CFolder folder;
    {
        TypeParam dc(folder.Path("file").c_str(), 50, 50);
        DrawSample(dc, "Sample");
    }
    EXPECT_TRUE(folder.List().empty());
}

TEST(PdfFile, HasOnePageOfTheAskedSizeInPoints) {
    for (const auto& [dWidth, dHeight] : {std::pair{160.0, 115.0}, {100.0, 200.0}, {297.0, 210.0}}) {
        const std::string strPdf = Written<CPdfDC>(dWidth, dHeight);
        EXPECT_THAT(strPdf, StartsWith("%PDF-"));
        EXPECT_THAT(strPdf, AllOf(HasSubstr("/Count 1"), HasSubstr("/FontFile")));
        double dRight = 0, dTop = 0;
        const std::size_t nBox = strPdf.find("/MediaBox [");
        ASSERT_NE(nBox, strPdf.npos);
        ASSERT_EQ(std::sscanf(strPdf.c_str() + nBox, "/MediaBox [0 0 %lf %lf]", &dRight, &dTop), 2);
        EXPECT_NEAR(dRight, dWidth / 25.4 * 72, 0.6);
        EXPECT_NEAR(dTop, dHeight / 25.4 * 72, 0.6);
    }
}

TEST(SvgFile, IsWellFormedWithItsSizeInMillimetres) {
    QXmlStreamAttributes root;
    const std::string strSvg = Written<CSvgDC>(160, 115);
    EXPECT_THAT(strSvg, HasSubstr("'Liberation Serif', 'Times New Roman'"));
    EXPECT_THAT(XmlText(strSvg, &root).toStdString(), HasSubstr("Sample"));
    EXPECT_EQ(root.value("viewBox"), u"0 0 7559 5433");
    EXPECT_TRUE(root.value("width").endsWith(u"mm"));
    EXPECT_NEAR(root.value("width").chopped(2).toDouble(), 160, 0.02);
    EXPECT_NEAR(root.value("height").chopped(2).toDouble(), 115, 0.02);
}

TEST(SvgFile, StaysWellFormedWithAnyText) {
    for (const char* pszText : {"<&>\"'", "a\x01\x1F\x7F", "line\nfeed\ttab", "\xEF\xBF\xBE\xEF\xBF\xBF",
                                "\x81\xD7", "\xF0\x9D\x9B\xBC", "]]>"}) {
        EXPECT_THAT(XmlText(Written<CSvgDC>(50, 50, pszText)).toStdString(), testing::Not(HasSubstr("error")))
            << testing::PrintToString(pszText);
    }
    EXPECT_THAT(XmlText(Written<CSvgDC>(50, 50, "2\xD7<3>")).toStdString(), HasSubstr("2\xC3\x97<3>"));
}

TEST(Printer, PrintsToAFileInColourOrBlackAndWhite) {
    for (const auto eColors : {CPrinterDC::color, CPrinterDC::blackAndWhite}) {
        const CFolder folder;
        CPrinterDC dc("Title", folder.Path("file").c_str(), eColors);
        EXPECT_TRUE(dc.IsPrinting());
        EXPECT_EQ(dc.GetDeviceCaps(NUMCOLORS) == 2, eColors == CPrinterDC::blackAndWhite);
        EXPECT_GE(dc.GetDeviceCaps(NUMCOLORS), 2);
        EXPECT_GT(dc.GetDeviceCaps(LOGPIXELSY), 0);
        const RECT rc = dc.GetClientRect();
        EXPECT_GT(rc.right, rc.bottom) << "landscape";
        DrawSample(dc, "Sample");
        EXPECT_TRUE(dc.NewPage());
        DrawSample(dc, "Sample");
        dc.Close();
        EXPECT_FALSE(dc.NewPage());
        EXPECT_EQ(dc.GetClientRect(), rc);
        EXPECT_THAT(folder.Read("file"), AllOf(StartsWith("%PDF-"), HasSubstr("/Count 2")));
    }
}

TEST(Printer, ThrowsWhenTheFileCannotBeOpened) {
    EXPECT_THROW(CPrinterDC("Title", CFolder().Path("missing/file").c_str()), CFileException);
}
