#include "com/guid.h"

#include <array>
#include <charconv>

namespace opd::com {

namespace {

// The bytes in the order in which they are written.
constexpr std::size_t byteCount = 16;

bool hyphenBefore(std::size_t byte) {
    return byte == 4 || byte == 6 || byte == 8 || byte == 10;
}

std::array<std::uint8_t, byteCount> bytesOf(const Guid& guid) {
    std::array<std::uint8_t, byteCount> bytes{};
    for (std::size_t i = 0; i < 4; ++i)
        bytes[i] = static_cast<std::uint8_t>(guid.data1 >> (24 - 8 * i));
    for (std::size_t i = 0; i < 2; ++i) {
        bytes[4 + i] = static_cast<std::uint8_t>(guid.data2 >> (8 - 8 * i));
        bytes[6 + i] = static_cast<std::uint8_t>(guid.data3 >> (8 - 8 * i));
    }
    for (std::size_t i = 0; i < 8; ++i)
        bytes[8 + i] = guid.data4[i];
    return bytes;
}

Guid guidOf(const std::array<std::uint8_t, byteCount>& bytes) {
    Guid guid{};
    for (std::size_t i = 0; i < 4; ++i)
        guid.data1 = guid.data1 << 8 | bytes[i];
    guid.data2 = static_cast<std::uint16_t>(bytes[4] << 8 | bytes[5]);
    guid.data3 = static_cast<std::uint16_t>(bytes[6] << 8 | bytes[7]);
    for (std::size_t i = 0; i < 8; ++i)
        guid.data4[i] = bytes[8 + i];
    return guid;
}

} // namespace

std::string toText(const Guid& guid) {
    constexpr const char* digits = "0123456789ABCDEF";
    std::string text = "{";
    const auto bytes = bytesOf(guid);
    for (std::size_t i = 0; i < byteCount; ++i) {
        if (hyphenBefore(i))
            text += '-';
        text += digits[bytes[i] >> 4];
        text += digits[bytes[i] & 15];
    }
    return text + "}";
}

std::optional<Guid> parseGuid(std::string_view text) {
    if (text.size() != 38 || text.front() != '{' || text.back() != '}')
        return std::nullopt;
    std::array<std::uint8_t, byteCount> bytes{};
    const char* at = text.data() + 1;
    for (std::size_t i = 0; i < byteCount; ++i, at += 2) {
        if (hyphenBefore(i) && *at++ != '-')
            return std::nullopt;
        if (std::from_chars(at, at + 2, bytes[i], 16).ptr != at + 2)
            return std::nullopt;
    }
    return guidOf(bytes);
}

} // namespace opd::com
