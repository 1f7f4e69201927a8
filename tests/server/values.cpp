// Values of columns and parameters, by their types.
#include "server/types.h"

#include <bit>
#include <cmath>

namespace opd::testserver {

namespace {

constexpr DateTime firstDayOfShortDates{1900, 1, 1, 0, 0, 0};
constexpr DateTime firstDayOfLongDates{1, 1, 1, 0, 0, 0};
constexpr int ticksPerSecond = 300;
constexpr double moneyUnits = 10000;
constexpr std::uint16_t nullText = 0xFFFF;
constexpr std::uint64_t nullUnlimited = ~std::uint64_t{0};

int secondsOf(const DateTime& moment) {
    return (moment.hour * 60 + moment.minute) * 60 + moment.second;
}

/// A text of any length comes in pieces behind its whole length.
std::string unlimitedBytes(Reader& reader) {
    std::string bytes;
    for (auto size = reader.get<std::uint32_t>(); size != 0; size = reader.get<std::uint32_t>())
        bytes += reader.raw(size);
    return bytes;
}

void writeText(Writer& writer, const Type& type, const ado::Value& value) {
    const std::string bytes = type.isWide() ? toUtf16(value.asText()) : toCodePage(value.asText());
    if (type.size == Type::unlimited) {
        writer.put(value.isNull() ? nullUnlimited : std::uint64_t{bytes.size()});
        if (!bytes.empty())
            writer.put(static_cast<std::uint32_t>(bytes.size())).raw(bytes);
        if (!value.isNull())
            writer.put(std::uint32_t{0});
    } else if (value.isNull()) {
        writer.put(nullText);
    } else {
        const std::string_view fitting = std::string_view{bytes}.substr(0, type.size);
        writer.put(static_cast<std::uint16_t>(fitting.size())).raw(fitting);
    }
}

std::string whole(std::int64_t number, std::size_t size) {
    return Writer{}.put(number).bytes.substr(0, size);
}

std::string decimalBytes(double number, const Type& type) {
    const auto units = static_cast<std::uint64_t>(std::llround(std::abs(number) * std::pow(10.0, type.scale)));
    std::string bytes = Writer{}.put(static_cast<std::uint8_t>(number < 0 ? 0 : 1)).put(units).bytes;
    bytes.resize(type.size, '\0');
    return bytes;
}

/// The high half comes first.
std::string moneyBytes(double number) {
    const std::string bytes = whole(std::llround(number * moneyUnits), 8);
    return bytes.substr(4) + bytes.substr(0, 4);
}

std::string shortDate(const DateTime& moment) {
    const long days = daysBetween(firstDayOfShortDates, moment.date());
    return whole(days, 4) + whole(std::int64_t{secondsOf(moment)} * ticksPerSecond, 4);
}

std::string longDay(const DateTime& moment) {
    return whole(daysBetween(firstDayOfLongDates, moment.date()), 3);
}

/// The bytes of a value that is neither null nor a text.
std::string bytesOf(const Type& type, const ado::Value& value) {
    switch (type.id) {
    case Type::Id::BitN:
        return whole(value.asFlag() ? 1 : 0, 1);
    case Type::Id::IntN: {
        const auto* number = value.get<std::int64_t>();
        return whole(number != nullptr ? *number : std::llround(value.asNumber()), type.size);
    }
    case Type::Id::FltN:
        return whole(std::bit_cast<std::int64_t>(value.asNumber()), 8);
    case Type::Id::MoneyN:
        return moneyBytes(value.asNumber());
    case Type::Id::DateTimeN:
        return shortDate(value.asDate());
    case Type::Id::DateTime2N:
        return whole(secondsOf(value.asDate()), 3) + longDay(value.asDate());
    case Type::Id::DateN:
        return longDay(value.asDate());
    default:
        return decimalBytes(value.asNumber(), type);
    }
}

} // namespace

ado::Value readValue(Reader& reader, const Type& type) {
    std::string bytes;
    if (type.size == Type::unlimited) {
        if (reader.get<std::uint64_t>() == nullUnlimited)
            return {};
        bytes = unlimitedBytes(reader);
    } else {
        const auto size = reader.get<std::uint16_t>();
        if (size == nullText)
            return {};
        bytes = reader.raw(size);
    }
    return type.isWide() ? fromUtf16(bytes) : fromCodePage(bytes);
}

void writeValue(Writer& writer, const Type& type, const ado::Value& value) {
    if (type.isText()) {
        writeText(writer, type, value);
        return;
    }
    const std::string bytes = value.isNull() ? std::string{} : bytesOf(type, value);
    writer.put(static_cast<std::uint8_t>(bytes.size())).raw(bytes);
}

} // namespace opd::testserver
