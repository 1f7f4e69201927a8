#include "server/types.h"

#include "ado/error.h"

#include <algorithm>
#include <limits>

namespace opd::testserver {

namespace {

/// The types of parameters that have no place for null, and what they are with one.
struct FixedType {
    std::uint8_t id;
    Type::Id nullable;
    std::uint32_t size;
};
constexpr FixedType fixedTypes[] = {
    {0x30, Type::Id::IntN, 1},   {0x32, Type::Id::BitN, 1},      {0x34, Type::Id::IntN, 2},
    {0x38, Type::Id::IntN, 4},   {0x3A, Type::Id::DateTimeN, 4}, {0x3B, Type::Id::FltN, 4},
    {0x3C, Type::Id::MoneyN, 8}, {0x3D, Type::Id::DateTimeN, 8}, {0x3E, Type::Id::FltN, 8},
    {0x7A, Type::Id::MoneyN, 4}, {0x7F, Type::Id::IntN, 8},
};

constexpr std::string_view latinCollation{"\x09\x04\xD0\x00\x34", 5}; ///< code page 1252, blind to case

constexpr std::size_t longestDate = 27; ///< characters

constexpr DateTime firstOfShortDates{1753, 1, 1, 0, 0, 0};

} // namespace

bool Type::isText() const {
    return isWide() || id == Id::VarChar || id == Id::Char;
}

void WidestOf::add(const ado::Value& value) {
    if (value.isNull())
        return;
    if (value.get<bool>() != nullptr) {
        m_flags = true;
    } else if (const auto* number = value.get<std::int64_t>()) {
        m_whole = true;
        m_big = m_big || *number != static_cast<std::int32_t>(*number);
    } else if (value.get<double>() != nullptr) {
        m_decimal = true;
    } else if (const auto* moment = value.get<DateTime>()) {
        m_moments = true;
        m_early = m_early || *moment < firstOfShortDates;
    } else {
        m_text = true;
    }
    m_longest = std::max(m_longest, toUtf16(value.asText()).size() / 2);
}

Type WidestOf::type(Version version) const {
    const bool numbers = m_flags || m_whole || m_decimal;
    const bool longDates = m_early && version >= Version::V7_3;
    if (m_text || (m_moments && (numbers || (m_early && !longDates))) || !(numbers || m_moments))
        return wideText(m_longest, version);
    if (m_moments)
        return longDates ? Type{Type::Id::DateTime2N, 8, 0, 7} : Type{Type::Id::DateTimeN, 8};
    if (m_decimal)
        return {Type::Id::FltN, 8};
    if (m_whole)
        return {Type::Id::IntN, m_big ? 8U : 4U};
    return {Type::Id::BitN, 1};
}

Type wideText(std::size_t characters, Version version) {
    if (2 * characters <= longestLimitedText)
        return {Type::Id::NVarChar, std::max<std::uint32_t>(1, static_cast<std::uint32_t>(characters)) * 2};
    if (version >= Version::V7_2)
        return {Type::Id::NVarChar, Type::unlimited};
    return {Type::Id::NText, std::numeric_limits<std::int32_t>::max()};
}

Type typeIn(Version version, const Type& type) {
    const bool newDate = type.id == Type::Id::DateN || type.id == Type::Id::DateTime2N;
    if (newDate && version < Version::V7_3)
        return wideText(longestDate, version);
    return version == Version::V7_1 && type.isText() && type.size == Type::unlimited
               ? wideText(longestLimitedText, version)
               : type;
}

Type readType(Reader& reader) {
    const auto id = reader.get<std::uint8_t>();
    for (const FixedType& fixed : fixedTypes)
        if (fixed.id == id)
            return {fixed.nullable, fixed.size, 0, 0, true};
    Type type{static_cast<Type::Id>(id)};
    switch (type.id) {
    case Type::Id::DateN:
        return type;
    case Type::Id::DateTime2N:
        type.scale = reader.get<std::uint8_t>();
        return type;
    case Type::Id::IntN:
    case Type::Id::BitN:
    case Type::Id::FltN:
    case Type::Id::MoneyN:
    case Type::Id::DateTimeN:
        type.size = reader.get<std::uint8_t>();
        return type;
    case Type::Id::DecimalN:
    case Type::Id::NumericN:
        type.size = reader.get<std::uint8_t>();
        type.precision = reader.get<std::uint8_t>();
        type.scale = reader.get<std::uint8_t>();
        return type;
    case Type::Id::VarChar:
    case Type::Id::Char:
    case Type::Id::NVarChar:
    case Type::Id::NChar:
        type.size = reader.get<std::uint16_t>();
        reader.raw(latinCollation.size());
        return type;
    case Type::Id::NText:
        type.size = reader.get<std::uint32_t>();
        reader.raw(latinCollation.size());
        return type;
    }
    throw Disconnected("a parameter of a type that is not known here: " + std::to_string(id));
}

void writeType(Writer& writer, const Type& type) {
    writer.put(static_cast<std::uint8_t>(type.id));
    switch (type.id) {
    case Type::Id::DateN:
        break;
    case Type::Id::DateTime2N:
        writer.put(type.scale);
        break;
    case Type::Id::DecimalN:
    case Type::Id::NumericN:
        writer.put(static_cast<std::uint8_t>(type.size)).put(type.precision).put(type.scale);
        break;
    case Type::Id::NText:
        writer.put(type.size).raw(latinCollation);
        break;
    case Type::Id::VarChar:
    case Type::Id::Char:
    case Type::Id::NVarChar:
    case Type::Id::NChar:
        writer.put(static_cast<std::uint16_t>(type.size)).raw(latinCollation);
        break;
    default:
        writer.put(static_cast<std::uint8_t>(type.size));
    }
}

} // namespace opd::testserver
