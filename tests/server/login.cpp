#include "server/login.h"

namespace opd::testserver {

namespace {

constexpr std::uint32_t oldestVersion = 0x74000000;

/// Passwords travel with the halves of their bytes changed over and some bits turned.
std::string readable(std::string_view bytes) {
    std::string result;
    for (const char byte : bytes) {
        const auto turned = static_cast<std::uint8_t>(static_cast<std::uint8_t>(byte) ^ 0xA5U);
        result += static_cast<char>(turned << 4U | turned >> 4U);
    }
    return result;
}

/// The bytes of a text to which an offset and a number of characters point.
std::string_view pointedTo(Reader& reader, std::string_view content) {
    const auto offset = reader.get<std::uint16_t>();
    const std::size_t length = std::size_t{reader.get<std::uint16_t>()} * 2;
    if (offset + length > content.size())
        throw Disconnected("a login that points behind its end");
    return content.substr(offset, length);
}

} // namespace

Login readLogin(std::string_view content) {
    Login login;
    Reader reader(content);
    reader.raw(4); // its length
    if (reader.get<std::uint32_t>() < oldestVersion)
        throw Disconnected("a version before 7.4");
    login.packetSize = reader.get<std::uint32_t>();
    reader.raw(24);
    pointedTo(reader, content); // the client's machine
    login.user = fromUtf16(pointedTo(reader, content));
    login.password = fromUtf16(readable(pointedTo(reader, content)));
    for (int other = 0; other < 5; ++other)
        reader.raw(4); // program, server, extension, library, language
    login.database = fromUtf16(pointedTo(reader, content));
    return login;
}

std::string preloginAnswer(bool encryptionRequired) {
    // Each option: its name, then where its value stands and how long it is, high byte first.
    constexpr std::string_view options{"\x00\x00\x15\x00\x06" // version
                                       "\x01\x00\x1B\x00\x01" // encryption
                                       "\x02\x00\x1C\x00\x01" // instance
                                       "\x04\x00\x1D\x00\x01" // several statements at once
                                       "\xFF",
                                       21};
    constexpr std::string_view version{"\x0D\x00\x07\xD0\x00\x00", 6};
    constexpr char notSupported = 2;
    constexpr char required = 3;
    std::string answer{options};
    answer += version;
    answer += encryptionRequired ? required : notSupported;
    return answer + std::string(2, '\0');
}

} // namespace opd::testserver
