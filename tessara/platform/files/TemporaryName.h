#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tessara {

/// The name of an unfinished file: ".tessara-" and 16 hexadecimal digits. It is made without memory or locks,
/// so a signal handler can do it.
class CTemporaryName {
public:
    static constexpr std::string_view PREFIX = ".tessara-";
    static constexpr std::size_t DIGITS = 16;

    explicit CTemporaryName(std::uint64_t nNumber) {
        PREFIX.copy(m_text.data(), PREFIX.size());
        for (std::size_t i = PREFIX.size() + DIGITS; i-- > PREFIX.size(); nNumber >>= 4) {
            m_text[i] = HEXADECIMAL[nNumber & 0xF];
        }
    }

    const char* Get() const { return m_text.data(); }

    static bool Is(std::string_view strName) {
        return strName.size() == PREFIX.size() + DIGITS && strName.starts_with(PREFIX) &&
               strName.find_first_not_of(HEXADECIMAL, PREFIX.size()) == std::string_view::npos;
    }

private:
    static constexpr std::string_view HEXADECIMAL = "0123456789abcdef";

    std::array<char, PREFIX.size() + DIGITS + 1> m_text{};
};

} // namespace tessara
