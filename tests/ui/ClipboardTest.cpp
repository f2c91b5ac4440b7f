#include "tessara/platform/ui/windows/Clipboard.h"

#include <QBuffer>
#include <QClipboard>
#include <QMimeData>

#include "tests/ui/Frames.h"

namespace {

std::string PngOf(const QImage& image) {
    QBuffer buffer;
    image.save(&buffer, "PNG");
    return buffer.data().toStdString();
}

QImage Picture() {
    QImage image(5, 3, QImage::Format_ARGB32);
    image.fill(Qt::red);
    return image;
}

TEST(Clipboard, HoldsAllFormsOfOneThingAtOnce) {
    const std::string strWmf("\xD7\xCD\xC6\x9A\0\0", 6);
    const tessara::CClipboardItem items[] = {{"text/plain", "ϑ / °C\t1"},
                                             {"image/png", PngOf(Picture())},
                                             {"image/svg+xml", "<svg/>"},
                                             {"image/x-wmf", strWmf}};
    tessara::SetClipboard(items);
    for (const tessara::CClipboardItem& item : items) {
        EXPECT_EQ(tessara::GetClipboard(item.strType.c_str()), item.strBytes) << item.strType;
    }
    EXPECT_EQ(QApplication::clipboard()->text(), "ϑ / °C\t1");
    EXPECT_EQ(QApplication::clipboard()->image().pixelColor(4, 2), QColor(Qt::red));
    tessara::SetClipboard({&items[0], 1});
    EXPECT_EQ(tessara::GetClipboard("image/png"), "");
    tessara::SetClipboard({});
    EXPECT_EQ(tessara::GetClipboard("text/plain"), "");
}

TEST(Clipboard, GivesAPictureOfAnotherProgramAsPng) {
    QApplication::clipboard()->setImage(Picture());
    const std::string strPng = tessara::GetClipboard("image/png");
    EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(strPng), "PNG").size(), QSize(5, 3));
}

TEST(Clipboard, HoldsBytesThatAreNoPictureAsTheyAre) {
    const tessara::CClipboardItem damaged{"image/png", "no picture"};
    tessara::SetClipboard({&damaged, 1});
    EXPECT_EQ(tessara::GetClipboard("image/png"), "no picture");
    EXPECT_TRUE(QApplication::clipboard()->image().isNull());
}

} // namespace
