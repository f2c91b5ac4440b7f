#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace tessara {

inline std::string ReadWholeFile(const std::string& strPath) {
    std::ifstream file(strPath, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Compares with a file that is reviewed like code. TESSARA_WRITE_GOLDEN=1 writes it anew.
inline void ExpectGolden(const std::string& strName, const std::string& strText) {
    const std::string strPath = std::string(TESSARA_GOLDEN_DIR) + "/" + strName;
    if (std::getenv("TESSARA_WRITE_GOLDEN")) {
        std::ofstream(strPath, std::ios::binary) << strText;
    }
    EXPECT_EQ(strText, ReadWholeFile(strPath)) << "differs from tests/golden/" << strName;
}

inline std::string JoinLines(const std::vector<std::string>& lines) {
    std::string strText;
    for (const std::string& strLine : lines) {
        strText += strLine + "\n";
    }
    return strText;
}

} // namespace tessara
