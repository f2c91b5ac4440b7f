#pragma once

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

} // namespace tessara
