#include "tessara/platform/base/Text.h"

#include <random>
#include <utility>

#include <gtest/gtest.h>

namespace {

using tessara::CharacterLength;
using tessara::CutText;
using tessara::DecodeText;
using tessara::EncodeUtf8;
using tessara::EncodeWindows1252;

TEST(Text, ValidUtf8IsUtf8AndAnythingElseWindows1252) {
    const std::pair<const char*, const char32_t*> cases[] = {
        {"\xC3\x97x", U"×x"},
        {"\xD7x", U"×x"},
        {"\xE2\x82\xAC \xF0\x9D\x91\xA5", U"€ 𝑥"},
        {"\x80\x9F\x7F", U"€Ÿ\x7F"},
        {"\x81\x8D\x8F\x90\x9D", U"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xC3\x97\xD7", U"Ã—×"},      // one stray byte makes all of it Windows-1252
        {"\xC0\xAF", U"À¯"},           // overlong
        {"\xE0\x80\xAF", U"à€¯"},      // overlong
        {"\xED\xA0\x80", U"í\u00A0€"}, // surrogate
        {"\xF4\x90\x80\x80", U"ô\uFFFD€€"},
        {"\xE2\x82", U"â‚"}, // cut short
        {"\xF5\x80\x80\x80", U"õ€€€"},
    };
    for (const auto& [pszBytes, pszCharacters] : cases) {
        EXPECT_EQ(DecodeText(pszBytes), pszCharacters) << pszBytes;
    }
}

TEST(Text, EncodingReplacesWhatTheEncodingLacks) {
    EXPECT_EQ(EncodeWindows1252(U"×€Ÿ\u03C7\u0081A"), "\xD7\x80\x9F??A");
    EXPECT_EQ(EncodeUtf8(std::u32string{0x41, 0xD800, 0x110000, 0xFFFFFFFF}),
              "A\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Text, EveryCharacterSurvivesUtf8) {
    for (char32_t ch = 0; ch <= 0x10FFFF; ch += ch < 0x3000 ? 1 : 0x3F) {
        if (ch < 0xD800 || ch > 0xDFFF) {
            const std::string strBytes = EncodeUtf8(std::u32string(1, ch));
            ASSERT_TRUE(tessara::IsValidUtf8(strBytes)) << std::hex << static_cast<unsigned>(ch);
            ASSERT_EQ(CharacterLength(strBytes), strBytes.size());
            ASSERT_EQ(DecodeText(strBytes), std::u32string(1, ch));
        }
    }
}

TEST(Text, RandomBytesAreAlwaysText) {
    std::mt19937 random(7);
    // Half of the bytes from where sequences begin and continue, so that many nearly are UTF-8.
    const std::string_view strLikely = "\xC2\xE0\xED\xEF\xF0\xF4\x80\x8F\x90\x9F\xA0\xBF";
    for (int nRound = 0; nRound < 20000; ++nRound) {
        std::string strBytes(random() % 9, '\0');
        for (char& ch : strBytes) {
            ch = random() % 2 ? strLikely[random() % strLikely.size()] : static_cast<char>(random());
        }
        const std::u32string strText = DecodeText(strBytes);
        EXPECT_EQ(DecodeText(EncodeUtf8(strText)), strText);
        EXPECT_EQ(EncodeWindows1252(strText).size(), strText.size());
        // Forward, character by character, never disagrees with cutting.
        std::size_t nEnd = 0;
        while (nEnd < strBytes.size()) {
            EXPECT_EQ(CutText(strBytes, nEnd).size(), nEnd);
            const std::size_t nLength = CharacterLength(std::string_view(strBytes).substr(nEnd));
            ASSERT_GE(nLength, 1U);
            EXPECT_EQ(CutText(strBytes, nEnd + nLength - 1).size(), nEnd);
            nEnd += nLength;
        }
        EXPECT_EQ(nEnd, strBytes.size());
        EXPECT_EQ(CutText(strBytes, nEnd + 1), strBytes);
    }
}

} // namespace
