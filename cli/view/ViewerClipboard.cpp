#include "cli/view/ViewerClipboard.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "cli/PictureOptions.h"
#include "tessara/platform/base/Exception.h"
#include "tessara/platform/ui/windows/Clipboard.h"

namespace tessara {

namespace {

/// A folder that goes with the object and what is in it.
class CTemporaryFolder {
public:
    CTemporaryFolder() : m_strPath(std::filesystem::temp_directory_path() / "tessara-XXXXXX") {
        if (!mkdtemp(m_strPath.data())) {
            throw CFileException::FromErrno(errno, m_strPath.c_str());
        }
    }
    ~CTemporaryFolder() {
        std::error_code error;
        std::filesystem::remove_all(m_strPath, error);
    }
    CTemporaryFolder(const CTemporaryFolder&) = delete;
    CTemporaryFolder& operator=(const CTemporaryFolder&) = delete;

    std::string PathOf(const char* pszName) const { return m_strPath + "/" + pszName; }

private:
    std::string m_strPath;
};

std::string BytesOf(const std::string& strPath) {
    std::ifstream file(strPath, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

struct CCopiedFormat {
    const char* pszType;
    const char* pszFile;
};
constexpr CCopiedFormat FORMATS[] = {
    {"image/png", "plot.png"}, {"image/svg+xml", "plot.svg"}, {"image/x-wmf", "plot.wmf"}};

} // namespace

CPictureSize ViewerPictureSize() {
    const PICTUREOPTIONS usual;
    return {usual.strSize, usual.dDotsPerInch};
}

void CopyPlot(CShownPlot& plot) {
    const CTemporaryFolder folder;
    std::vector<CClipboardItem> items = {{"text/plain", plot.GetValuesText()}};
    for (const CCopiedFormat& format : FORMATS) {
        const std::string strPath = folder.PathOf(format.pszFile);
        DrawPicture(plot.GetDrawing(), ViewerPictureSize(), strPath);
        items.push_back({format.pszType, BytesOf(strPath)});
    }
    SetClipboard(items);
}

void CopyValues(const CShownPlot& plot) {
    const std::array<CClipboardItem, 1> items = {{{"text/plain", plot.GetValuesText()}}};
    SetClipboard(items);
}

} // namespace tessara
