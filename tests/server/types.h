#pragma once

#include "ado/value.h"
#include "server/wire.h"

namespace opd::testserver {

/// A type of a column or parameter.
struct Type {
    enum class Id : std::uint8_t {
        IntN = 0x26,
        DateN = 0x28,
        DateTime2N = 0x2A, ///< in whole seconds
        BitN = 0x68,
        DecimalN = 0x6A,
        FltN = 0x6D,
        MoneyN = 0x6E,
        DateTimeN = 0x6F,
        VarChar = 0xA7,
        NVarChar = 0xE7,
    };

    Id id = Id::NVarChar;
    std::uint32_t size = 0; ///< bytes at most; `unlimited` for a text of any length
    std::uint8_t precision = 0;
    std::uint8_t scale = 0;

    static constexpr std::uint32_t unlimited = 0xFFFF;

    bool isText() const { return isWide() || id == Id::VarChar; }
    bool isWide() const { return id == Id::NVarChar; }
};

constexpr std::uint32_t longestLimitedText = 8000; ///< bytes

/// The narrowest type that holds every one of the values of a column.
class WidestOf {
  public:
    void add(const ado::Value& value);
    Type type() const;

  private:
    bool m_flags = false, m_whole = false, m_big = false, m_decimal = false, m_moments = false, m_early = false;
    bool m_text = false;
    std::size_t m_longest = 0; ///< characters of UTF-16
};

/// NVARCHAR of a number of characters, or of any length where so many do not fit.
Type wideText(std::size_t characters);

/// The type and then a value of a parameter. Throws Disconnected for one that is no text.
Type readType(Reader& reader);
ado::Value readValue(Reader& reader, const Type& type);

/// The type and then a value of a column. The value is converted; throws ado::Error when it cannot be.
void writeType(Writer& writer, const Type& type);
void writeValue(Writer& writer, const Type& type, const ado::Value& value);

} // namespace opd::testserver
