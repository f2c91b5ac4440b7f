#include "cli/archive/ArchiveText.h"

#include <algorithm>
#include <array>

#include <nlohmann/json.hpp>

#include "tessara/platform/base/Text.h"

namespace tessara {

namespace {

constexpr std::size_t COLUMNS = 5;
using CRow = std::array<std::string, COLUMNS>;

CRow RowOf(const ARCHIVEENTRY& entry) {
    return {ToLine(entry.szBaseName), std::to_string(entry.nVariantNumber + 1), ToLine(entry.szVariantName),
            ToLine(entry.szBaseTag), ToLine(entry.szFileTitle)};
}

std::size_t Width(const std::string& strText) {
    return DecodeText(strText).size();
}

std::string ToUtf8(const std::string& strBytes) {
    return EncodeUtf8(DecodeText(strBytes));
}

} // namespace

std::string ToLine(const std::string& strBytes) {
    std::u32string strText = DecodeText(strBytes);
    for (char32_t& ch : strText) {
        const bool bControl = ch < U' ' || (ch >= U'\x7F' && ch < U'\xA0');
        ch = bControl ? U' ' : ch;
    }
    return EncodeUtf8(strText);
}

std::string VariantTable(const std::vector<ARCHIVEENTRY>& entries) {
    std::vector<CRow> rows = {{"Base", "Number", "Name", "Tag", "File"}};
    std::transform(entries.begin(), entries.end(), std::back_inserter(rows), RowOf);
    std::array<std::size_t, COLUMNS> widths{};
    for (const CRow& row : rows) {
        for (std::size_t i = 0; i < COLUMNS; ++i) {
            widths[i] = std::max(widths[i], Width(row[i]));
        }
    }
    std::string strTable;
    for (const CRow& row : rows) {
        std::string strLine;
        for (std::size_t i = 0; i < COLUMNS; ++i) {
            strLine += row[i] + std::string(widths[i] - Width(row[i]) + 2, ' ');
        }
        strTable += strLine.substr(0, strLine.find_last_not_of(' ') + 1) + "\n";
    }
    return strTable;
}

std::string VariantJson(const std::vector<ARCHIVEENTRY>& entries) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const ARCHIVEENTRY& entry : entries) {
        list.push_back({{"base", ToUtf8(entry.szBaseName)},
                        {"number", entry.nVariantNumber + 1},
                        {"name", ToUtf8(entry.szVariantName)},
                        {"tag", ToUtf8(entry.szBaseTag)},
                        {"title", ToUtf8(entry.szFileTitle)}});
    }
    return list.dump(2) + "\n";
}

std::string HeaderText(const CVariantHeader& header) {
    return "Base:    " + ToLine(header.strBaseName) + "\nTag:     " + ToLine(header.strBaseTag) +
           "\nNumber:  " + std::to_string(header.nVariantNumber + 1) +
           "\nName:    " + ToLine(header.strVariantName) +
           "\nComment: " + std::to_string(header.nCommentLength) + " bytes\n";
}

} // namespace tessara
