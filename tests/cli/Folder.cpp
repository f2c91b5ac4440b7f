#include "tests/cli/Folder.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

CFolder::CFolder() : m_strPath(std::filesystem::temp_directory_path() / "tessara-test-XXXXXX") {
    if (!mkdtemp(m_strPath.data())) {
        throw std::runtime_error("no temporary folder");
    }
}

CFolder::~CFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_strPath, ignored);
}

std::string CFolder::Write(const std::string& strName, const std::string& strBytes) const {
    std::ofstream(Path(strName), std::ios::binary) << strBytes;
    return Path(strName);
}

std::string CFolder::Read(const std::string& strName) const {
    std::ifstream file(Path(strName), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> CFolder::List() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(m_strPath)) {
        names.push_back(entry.path().filename());
    }
    std::sort(names.begin(), names.end());
    return names;
}
