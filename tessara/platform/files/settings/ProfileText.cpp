#include "tessara/platform/files/settings/ProfileText.h"

namespace tessara {

namespace {

/// Such files as other programs write them too, without escapes.
class CProfileSyntax : public CIniSyntax {
public:
    std::optional<std::string> ReadHeader(std::string_view strLine) const override {
        const std::size_t nEnd = strLine.find(']');
        return nEnd == std::string_view::npos
                   ? std::nullopt
                   : std::optional(std::string(Trimmed(strLine.substr(1, nEnd - 1))));
    }
    std::optional<INIENTRY> ReadEntry(std::string_view strLine) const override {
        const std::size_t nEqual = strLine.find('=');
        if (nEqual == std::string_view::npos || strLine.starts_with(';') || strLine.starts_with('=')) {
            return std::nullopt;
        }
        return INIENTRY{std::string(Trimmed(strLine.substr(0, nEqual))), Trimmed(strLine.substr(nEqual + 1))};
    }
    std::string WriteHeader(std::string_view strSection) const override {
        return std::string(1, '[').append(strSection) + ']';
    }
    std::string WriteName(std::string_view strName) const override { return std::string(strName); }
};

const CProfileSyntax SYNTAX;

bool IsQuoted(std::string_view str) {
    return str.size() >= 2 && (str.front() == '"' || str.front() == '\'') && str.front() == str.back();
}

std::string WithoutQuotes(std::string_view str) {
    return std::string(IsQuoted(str) ? str.substr(1, str.size() - 2) : str);
}

} // namespace

CProfileText::CProfileText(std::string& strBytes) : CIniText(SYNTAX, strBytes) {}

std::optional<std::string> CProfileText::Find(std::string_view strSection, std::string_view strKey) const {
    const auto value = CIniText::Find(strSection, strKey);
    return value ? std::optional(WithoutQuotes(*value)) : std::nullopt;
}

CIniValues CProfileText::Values(std::string_view strSection) const {
    CIniValues values = CIniText::Values(strSection);
    for (auto& [strKey, strValue] : values) {
        strValue = WithoutQuotes(strValue);
    }
    return values;
}

void CProfileText::SetAll(std::string_view strSection, CIniValues values) {
    for (auto& [strKey, strValue] : values) {
        if (Trimmed(strValue) != strValue || IsQuoted(strValue)) {
            strValue.insert(0, 1, '"').push_back('"');
        }
    }
    CIniText::SetAll(strSection, values);
}

UINT ProfileNumber(std::string_view strValue) {
    const bool bNegative = strValue.starts_with('-');
    if (bNegative || strValue.starts_with('+')) {
        strValue.remove_prefix(1);
    }
    UINT nValue = 0;
    for (; !strValue.empty() && strValue[0] >= '0' && strValue[0] <= '9'; strValue.remove_prefix(1)) {
        nValue = nValue * 10 + static_cast<UINT>(strValue[0] - '0');
    }
    return bNegative ? 0 - nValue : nValue;
}

} // namespace tessara
