#include "server/types.h"

#include <algorithm>

namespace opd::testserver {

namespace {

constexpr std::string_view latinCollation{"\x09\x04\xD0\x00\x34", 5}; ///< code page 1252, blind to case

constexpr DateTime firstOfShortDates{1753, 1, 1, 0, 0, 0};

} // namespace

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

Type WidestOf::type() const {
    const bool numbers = m_flags || m_whole || m_decimal;
    if (m_text || numbers == m_moments)
        return wideText(m_longest);
    if (m_moments)
        return m_early ? Type{Type::Id::DateTime2N, 6} : Type{Type::Id::DateTimeN, 8};
    if (m_decimal)
        return {Type::Id::FltN, 8};
    if (m_whole)
        return {Type::Id::IntN, m_big ? 8U : 4U};
    return {Type::Id::BitN, 1};
}

Type wideText(std::size_t characters) {
    if (2 * characters > longestLimitedText)
        return {Type::Id::NVarChar, Type::unlimited};
    return {Type::Id::NVarChar, std::max<std::uint32_t>(1, static_cast<std::uint32_t>(characters)) * 2};
}

Type readType(Reader& reader) {
    Type type{static_cast<Type::Id>(reader.get<std::uint8_t>())};
    if (!type.isText())
        throw Disconnected("a parameter that is no text");
    type.size = reader.get<std::uint16_t>();
    reader.raw(latinCollation.size());
    return type;
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
        writer.put(static_cast<std::uint8_t>(type.size)).put(type.precision).put(type.scale);
        break;
    case Type::Id::VarChar:
    case Type::Id::NVarChar:
        writer.put(static_cast<std::uint16_t>(type.size)).raw(latinCollation);
        break;
    default:
        writer.put(static_cast<std::uint8_t>(type.size));
    }
}

} // namespace opd::testserver
