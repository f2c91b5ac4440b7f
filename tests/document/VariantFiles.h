#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace tessara {

/// The bytes of a Base Variant file, put together field by field from the format's page and not by the
/// library.
struct CVariantFile {
    std::string strBase = "PS-CH";
    int nNumber = 0;
    std::string strName = "first";
    std::string strComment = {};
    std::string strTag = {};
    std::string strData = "data";

    std::string Bytes() const {
        const auto number = [](int n) {
            return std::string{static_cast<char>(n), static_cast<char>(n >> 8)};
        };
        const auto text = [](std::string str, std::size_t nSize) {
            str.resize(nSize);
            return str;
        };
        return "\xAF\x93\xB6\x57\x01\x01" + text(strBase, 129) + text(strTag, 3) + number(nNumber) +
               number(0) + text(strName, 18) + number(static_cast<int>(strComment.size())) +
               std::string(128, '\0') + strComment + strData;
    }
};

/// Keeps a copy of an archive at the end of a test, for others to read: TESSARA_KEPT_ARCHIVES names a folder.
inline void KeepArchive(const std::string& strArchive) {
    const char* const pszKept = std::getenv("TESSARA_KEPT_ARCHIVES");
    if (!pszKept || !std::filesystem::is_directory(strArchive)) {
        return;
    }
    const auto& test = *::testing::UnitTest::GetInstance()->current_test_info();
    const auto target =
        std::filesystem::path(pszKept) / (std::string(test.test_suite_name()) + "." + test.name());
    std::filesystem::create_directories(target);
    for (const auto& entry : std::filesystem::directory_iterator(strArchive)) {
        if (entry.symlink_status().type() == std::filesystem::file_type::regular) {
            std::filesystem::copy_file(entry.path(), target / entry.path().filename());
        }
    }
}

} // namespace tessara
