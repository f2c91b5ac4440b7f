#include "tessara/plot/PlaceableMetafile.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "tessara/platform/files/ReplacementFile.h"
#include "tessara/plot/Page.h"

namespace tessara {

namespace {

constexpr int MAX_UNITS_PER_INCH = 1440;

struct PictureDeleter {
    void operator()(HMETAFILE hPicture) const { DeleteMetaFile(hPicture); }
};
using CPicturePtr = std::unique_ptr<const CPicture, PictureDeleter>;

std::vector<BYTE> ReadBits(HMETAFILE hPicture) {
    std::vector<BYTE> bytes(GetMetaFileBitsEx(hPicture, 0, nullptr));
    bytes.resize(GetMetaFileBitsEx(hPicture, static_cast<UINT>(bytes.size()), bytes.data()));
    return bytes;
}

/// Tells players the frame: by the window, and, for those that go by what is drawn, by a rectangle that
/// leaves no mark.
void RecordFrame(CMetaFileDC& picture) {
    picture.SetMapMode(MM_ANISOTROPIC);
    picture.SetWindowExtEx(PAGE_WIDTH, PAGE_HEIGHT);
    CGdiObject* pOldPen = picture.SelectStockObject(NULL_PEN);
    CGdiObject* pOldBrush = picture.SelectStockObject(NULL_BRUSH);
    picture.Rectangle(0, 0, PAGE_WIDTH, PAGE_HEIGHT);
    picture.SelectObject(pOldBrush);
    picture.SelectObject(pOldPen);
}

} // namespace

std::array<BYTE, PLACEABLE_HEADER_SIZE> MakePlaceableHeader(int nUnitsPerInch) {
    constexpr WORD KEY_LOW = 0xCDD7;
    constexpr WORD KEY_HIGH = 0x9AC6;
    std::array<WORD, PLACEABLE_HEADER_SIZE / 2> words{
        KEY_LOW, KEY_HIGH, 0, 0, 0, PAGE_WIDTH, PAGE_HEIGHT, static_cast<WORD>(nUnitsPerInch), 0, 0, 0};
    WORD nChecksum = 0;
    for (const WORD nWord : words) {
        nChecksum = static_cast<WORD>(nChecksum ^ nWord);
    }
    words.back() = nChecksum;
    std::array<BYTE, PLACEABLE_HEADER_SIZE> bytes{};
    for (std::size_t i = 0; i < words.size(); ++i) {
        bytes[2 * i] = static_cast<BYTE>(words[i]);
        bytes[2 * i + 1] = static_cast<BYTE>(words[i] >> 8);
    }
    return bytes;
}

int GetPageUnitsPerInch(CDC& dc, RECT rcClient) {
    SIZE inch{100, 100};
    const int nBeforeInch = dc.SaveDC();
    dc.SetMapMode(MM_LOENGLISH);
    dc.LPtoDP(&inch);
    dc.RestoreDC(nBeforeInch);

    const int nBeforePage = dc.SaveDC();
    CenterDC(&dc, rcClient);
    dc.DPtoLP(&inch);
    dc.RestoreDC(nBeforePage);
    return std::clamp<int>(inch.cx, 1, MAX_UNITS_PER_INCH);
}

int ExportPlaceable(CDC& dc, const RECT& rcClient, const char* pszFileName,
                    const std::function<void(CMetaFileDC& picture)>& paint) {
    const auto header = MakePlaceableHeader(GetPageUnitsPerInch(dc, rcClient));
    CMetaFileDC picture;
    if (!picture.Create()) {
        return 0;
    }
    RecordFrame(picture);
    picture.SetBkMode(TRANSPARENT);
    paint(picture);
    const CPicturePtr pPicture(picture.Close());
    const std::vector<BYTE> bytes = ReadBits(pPicture.get());

    CReplacementFile file;
    if (!file.Open(pszFileName)) {
        return 0;
    }
    file.Write(header.data(), static_cast<UINT>(header.size()));
    file.Write(bytes.data(), static_cast<UINT>(bytes.size()));
    file.Close();
    return 1;
}

} // namespace tessara
