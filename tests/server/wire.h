#pragma once

#include <concepts>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>

/// A server of the wire protocol that SQL Server speaks (TDS 7.4), for tests.
namespace opd::testserver {

/// The client sent what the protocol does not have, or the connection is gone: the session ends.
class Disconnected : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// UTF-16, low byte first, from and to UTF-8.
std::string toUtf16(std::string_view utf8);
std::string fromUtf16(std::string_view utf16);

/// The code page 1252 of the server's own collation, from and to UTF-8; what it does not have is "?".
std::string toCodePage(std::string_view utf8);
std::string fromCodePage(std::string_view bytes);

/// Puts the bytes of a message together: whole numbers with the low byte first.
class Writer {
  public:
    template <std::integral Number> Writer& put(Number number) {
        for (std::size_t byte = 0; byte < sizeof(Number); ++byte)
            bytes += static_cast<char>(static_cast<std::uint64_t>(number) >> (8 * byte));
        return *this;
    }
    Writer& raw(std::string_view more) {
        bytes += more;
        return *this;
    }
    /// A text behind the number of its characters, which is one of `Length`.
    template <std::integral Length> Writer& text(std::string_view utf8) {
        const std::string utf16 = toUtf16(utf8);
        return put(static_cast<Length>(utf16.size() / 2)).raw(utf16);
    }

    std::string bytes;
};

/// Takes the bytes of a message apart. Throws Disconnected where it ends too early.
class Reader {
  public:
    explicit Reader(std::string_view bytes) : m_rest(bytes) {}

    bool atEnd() const { return m_rest.empty(); }
    std::string_view rest() const { return m_rest; }

    std::string_view raw(std::size_t count) {
        if (count > m_rest.size())
            throw Disconnected("a message ended too early");
        const std::string_view taken = m_rest.substr(0, count);
        m_rest.remove_prefix(count);
        return taken;
    }
    template <std::integral Number> Number get() {
        std::uint64_t number = 0;
        const std::string_view taken = raw(sizeof(Number));
        for (std::size_t byte = 0; byte < sizeof(Number); ++byte)
            number |= std::uint64_t{static_cast<unsigned char>(taken[byte])} << (8 * byte);
        return static_cast<Number>(number);
    }
    /// A text behind the number of its characters, which is one of `Length`.
    template <std::integral Length> std::string text() { return fromUtf16(raw(std::size_t{get<Length>()} * 2)); }

  private:
    std::string_view m_rest;
};

} // namespace opd::testserver
