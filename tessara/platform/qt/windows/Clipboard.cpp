#include "tessara/platform/ui/windows/Clipboard.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>

#include "tessara/platform/qt/application/Application.h"

namespace tessara {

namespace {

constexpr char PNG_TYPE[] = "image/png";
constexpr char TEXT_TYPE[] = "text/plain";

void Add(QMimeData& content, const CClipboardItem& item) {
    const auto bytes = QByteArray::fromStdString(item.strBytes);
    if (item.strType == TEXT_TYPE) {
        content.setText(QString::fromUtf8(bytes)); // under the names that other programs ask for, too
        return;
    }
    content.setData(QString::fromStdString(item.strType), bytes);
    const QImage image = item.strType == PNG_TYPE ? QImage::fromData(bytes, "PNG") : QImage();
    if (!image.isNull()) {
        content.setImageData(image);
    }
}

QByteArray ToPng(const QImage& image) {
    QBuffer buffer;
    image.save(&buffer, "PNG");
    return buffer.data();
}

} // namespace

void SetClipboard(std::span<const CClipboardItem> items) {
    EnsureApplication(ENeed::desktop);
    auto* const pContent = new QMimeData; // the clipboard's, from here on
    for (const CClipboardItem& item : items) {
        Add(*pContent, item);
    }
    QGuiApplication::clipboard()->setMimeData(pContent);
}

std::string GetClipboard(const char* pszType) {
    EnsureApplication(ENeed::desktop);
    const QMimeData* const pContent = QGuiApplication::clipboard()->mimeData();
    const QString strType = QString::fromLatin1(pszType);
    if (!pContent) {
        return {};
    }
    if (strType == QLatin1String(TEXT_TYPE)) {
        return pContent->text().toStdString();
    }
    QByteArray bytes = pContent->data(strType);
    if (bytes.isEmpty() && strType == QLatin1String(PNG_TYPE) && pContent->hasImage()) {
        bytes = ToPng(qvariant_cast<QImage>(pContent->imageData()));
    }
    return bytes.toStdString();
}

} // namespace tessara
