#include "tessara/document/VariantHeader.h"

#include <algorithm>

#include "tessara/platform/base/Text.h"

namespace tessara {

namespace {

using CHeaderSpan = std::span<const BYTE, CVariantHeader::SIZE>;

constexpr std::uint32_t SIGNATURE = 0x57B693AF;
constexpr int VERSION = 0x0101;

struct CField {
    std::size_t nOffset;
    std::size_t nSize; ///< bytes, the zero at a text's end among them
};
constexpr CField BASE_NAME = {6, 129};
constexpr CField BASE_TAG = {135, 3};
constexpr CField VARIANT_NAME = {142, 18};
constexpr std::size_t SIGNATURE_OFFSET = 0;
constexpr std::size_t VERSION_OFFSET = 4;
constexpr std::size_t NUMBER_OFFSET = 138;
constexpr std::size_t RESERVED_OFFSET = 140;
constexpr std::size_t COMMENT_LENGTH_OFFSET = 160;

std::uint32_t Unsigned(CHeaderSpan bytes, std::size_t nOffset, std::size_t nSize) {
    std::uint32_t nValue = 0;
    for (std::size_t i = nSize; i-- > 0;) {
        nValue = nValue << 8 | bytes[nOffset + i];
    }
    return nValue;
}

int Short(CHeaderSpan bytes, std::size_t nOffset) {
    return static_cast<std::int16_t>(Unsigned(bytes, nOffset, 2));
}

std::optional<std::string> Text(CHeaderSpan bytes, const CField& field) {
    const auto text = bytes.subspan(field.nOffset, field.nSize);
    const auto end = std::find(text.begin(), text.end(), BYTE{0});
    return end == text.end() ? std::nullopt : std::optional(std::string(text.begin(), end));
}

void PutUnsigned(CVariantHeader::CBytes& bytes, std::size_t nOffset, std::size_t nSize,
                 std::uint32_t nValue) {
    for (std::size_t i = 0; i < nSize; ++i, nValue >>= 8) {
        bytes[nOffset + i] = static_cast<BYTE>(nValue);
    }
}

void PutText(CVariantHeader::CBytes& bytes, const CField& field, const std::string& strText,
             std::size_t nMax) {
    const std::string_view strFitting = CutText(strText, nMax);
    std::copy(strFitting.begin(), strFitting.end(),
              bytes.begin() + static_cast<std::ptrdiff_t>(field.nOffset));
}

} // namespace

std::string CVariantHeader::Fault(CHeaderSpan bytes) {
    if (Unsigned(bytes, SIGNATURE_OFFSET, 4) != SIGNATURE) {
        return "is no Base Variant file";
    }
    if (const std::uint32_t nVersion = Unsigned(bytes, VERSION_OFFSET, 2); nVersion != VERSION) {
        return "is of version " + std::to_string(nVersion >> 8) + "." + std::to_string(nVersion & 0xFF);
    }
    if (!HasWholeTexts(bytes)) {
        return "has a text without an end";
    }
    if (CommentLength(bytes) < 0) {
        return "has a comment of negative length";
    }
    return Text(bytes, BASE_NAME)->empty() ? "names no Base" : "";
}

std::optional<CVariantHeader> CVariantHeader::Parse(CHeaderSpan bytes) {
    if (!Fault(bytes).empty()) {
        return std::nullopt;
    }
    return CVariantHeader{*Text(bytes, BASE_NAME), *Text(bytes, BASE_TAG),        *Text(bytes, VARIANT_NAME),
                          VariantNumber(bytes),    Short(bytes, RESERVED_OFFSET), CommentLength(bytes)};
}

CVariantHeader::CBytes CVariantHeader::Format() const {
    CBytes bytes{};
    PutUnsigned(bytes, SIGNATURE_OFFSET, 4, SIGNATURE);
    PutUnsigned(bytes, VERSION_OFFSET, 2, VERSION);
    PutText(bytes, BASE_NAME, strBaseName, MAX_BASE_NAME);
    PutText(bytes, BASE_TAG, strBaseTag, MAX_BASE_TAG);
    PutText(bytes, VARIANT_NAME, strVariantName, MAX_VARIANT_NAME);
    PutUnsigned(bytes, NUMBER_OFFSET, 2, static_cast<std::uint32_t>(nVariantNumber));
    PutUnsigned(bytes, RESERVED_OFFSET, 2, static_cast<std::uint32_t>(nReserved));
    PutUnsigned(bytes, COMMENT_LENGTH_OFFSET, 2, static_cast<std::uint32_t>(nCommentLength));
    return bytes;
}

bool CVariantHeader::HasWholeTexts(CHeaderSpan bytes) {
    return Text(bytes, BASE_NAME) && Text(bytes, BASE_TAG) && Text(bytes, VARIANT_NAME);
}

int CVariantHeader::VariantNumber(CHeaderSpan bytes) {
    return Short(bytes, NUMBER_OFFSET);
}

int CVariantHeader::CommentLength(CHeaderSpan bytes) {
    return Short(bytes, COMMENT_LENGTH_OFFSET);
}

} // namespace tessara
