#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>

#include "tessara/platform/base/Api.h"
#include "tessara/platform/base/Types.h"

namespace tessara {

/// What stands at the front of a Base Variant file. docs/archive-format.md has every byte of it.
///
/// Texts are bytes without a zero among them. Format cuts those that are too long for their field, never
/// inside a character.
struct TESSARA_API CVariantHeader {
    static constexpr std::size_t SIZE = 290; ///< bytes
    static constexpr std::size_t MAX_BASE_NAME = 128;
    static constexpr std::size_t MAX_BASE_TAG = 2;
    static constexpr std::size_t MAX_VARIANT_NAME = 16;
    static constexpr int MAX_COMMENT = 0x7FFF;
    using CBytes = std::array<BYTE, SIZE>;

    std::string strBaseName;
    std::string strBaseTag;
    std::string strVariantName;
    int nVariantNumber = 0; ///< from 0
    int nReserved = 0;
    int nCommentLength = 0; ///< bytes

    /// What keeps a file with this header out of listings, in a few words; empty for nothing: signature and
    /// version are those of the format, each text ends within its field, the comment has no negative length,
    /// the Base has a name.
    static std::string Fault(std::span<const BYTE, SIZE> bytes);
    /// Nothing when there is a fault.
    static std::optional<CVariantHeader> Parse(std::span<const BYTE, SIZE> bytes);
    CBytes Format() const;

    /// What a header of any signature says: whether each text ends within its field, and its numbers.
    static bool HasWholeTexts(std::span<const BYTE, SIZE> bytes);
    static int VariantNumber(std::span<const BYTE, SIZE> bytes);
    static int CommentLength(std::span<const BYTE, SIZE> bytes);
};

} // namespace tessara
