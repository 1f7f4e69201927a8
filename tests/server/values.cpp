// Values of columns and parameters, by their types.
#include "ado/error.h"
#include "server/types.h"

#include <array>
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

DateTime momentOf(const DateTime& firstDay, long days, long seconds) {
    DateTime moment = addDays(firstDay, days);
    moment.hour = static_cast<int>(seconds / 3600);
    moment.minute = static_cast<int>(seconds / 60 % 60);
    moment.second = static_cast<int>(seconds % 60);
    return moment;
}

/// A whole number of as many bytes as the reader has left, at most eight of them.
std::uint64_t numberOf(std::string_view bytes) {
    std::uint64_t number = 0;
    for (std::size_t byte = 0; byte < std::min<std::size_t>(bytes.size(), 8); ++byte)
        number |= std::uint64_t{static_cast<unsigned char>(bytes[byte])} << (8 * byte);
    return number;
}

std::int64_t signedNumberOf(std::string_view bytes) {
    switch (bytes.size()) {
    case 1: // the one without a sign
        return static_cast<std::int64_t>(numberOf(bytes));
    case 2:
        return static_cast<std::int16_t>(numberOf(bytes));
    case 4:
        return static_cast<std::int32_t>(numberOf(bytes));
    default:
        return static_cast<std::int64_t>(numberOf(bytes));
    }
}

double floatOf(std::string_view bytes) {
    return bytes.size() == 4 ? double{std::bit_cast<float>(static_cast<std::uint32_t>(numberOf(bytes)))}
                             : std::bit_cast<double>(numberOf(bytes));
}

/// The high half comes first.
double moneyOf(std::string_view bytes) {
    if (bytes.size() == 4)
        return static_cast<double>(signedNumberOf(bytes)) / moneyUnits;
    const std::uint64_t units = numberOf(bytes.substr(0, 4)) << 32U | numberOf(bytes.substr(4));
    return static_cast<double>(static_cast<std::int64_t>(units)) / moneyUnits;
}

double decimalOf(std::string_view bytes, const Type& type) {
    const double magnitude = static_cast<double>(numberOf(bytes.substr(1))) / std::pow(10.0, type.scale);
    return bytes.front() == 0 ? -magnitude : magnitude;
}

DateTime shortDateOf(std::string_view bytes) {
    if (bytes.size() == 4)
        return momentOf(firstDayOfShortDates, static_cast<long>(numberOf(bytes.substr(0, 2))),
                        static_cast<long>(numberOf(bytes.substr(2)) * 60));
    return momentOf(firstDayOfShortDates, signedNumberOf(bytes.substr(0, 4)),
                    static_cast<long>(numberOf(bytes.substr(4)) / ticksPerSecond));
}

DateTime longDateOf(std::string_view bytes, const Type& type) {
    const std::string_view time = bytes.substr(0, bytes.size() - 3);
    const auto seconds = static_cast<long>(static_cast<double>(numberOf(time)) / std::pow(10.0, type.scale));
    return momentOf(firstDayOfLongDates, static_cast<long>(numberOf(bytes.substr(time.size()))), seconds);
}

/// A text of any length comes in pieces behind its whole length.
std::string unlimitedBytes(Reader& reader) {
    std::string bytes;
    for (auto size = reader.get<std::uint32_t>(); size != 0; size = reader.get<std::uint32_t>())
        bytes += reader.raw(size);
    return bytes;
}

ado::Value readText(Reader& reader, const Type& type) {
    std::string bytes;
    if (type.id == Type::Id::NText) {
        const auto size = reader.get<std::int32_t>();
        if (size < 0)
            return {};
        bytes = reader.raw(static_cast<std::size_t>(size));
    } else if (type.size == Type::unlimited) {
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

void writeText(Writer& writer, const Type& type, const ado::Value& value) {
    const std::string bytes = type.isWide() ? toUtf16(value.asText()) : toCodePage(value.asText());
    if (type.id == Type::Id::NText) {
        constexpr std::size_t pointerAndStamp = 16 + 8;
        if (value.isNull())
            writer.put(std::uint8_t{0});
        else
            writer.put(std::uint8_t{16})
                .raw(std::string(pointerAndStamp, 'p'))
                .put(static_cast<std::uint32_t>(bytes.size()))
                .raw(bytes);
    } else if (type.size == Type::unlimited) {
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

std::string moneyBytes(double number, std::size_t size) {
    const std::int64_t units = std::llround(number * moneyUnits);
    const std::string bytes = whole(units, 8);
    return size == 4 ? bytes.substr(0, 4) : bytes.substr(4) + bytes.substr(0, 4);
}

std::string shortDate(const DateTime& moment, std::size_t size) {
    const long days = daysBetween(firstDayOfShortDates, moment.date());
    if (size == 4)
        return whole(days, 2) + whole(secondsOf(moment) / 60, 2);
    return whole(days, 4) + whole(std::int64_t{secondsOf(moment)} * ticksPerSecond, 4);
}

std::string longDate(const DateTime& moment, const Type& type) {
    constexpr std::array<std::size_t, 8> timeSizes{3, 3, 3, 4, 4, 5, 5, 5};
    const auto time = static_cast<std::int64_t>(secondsOf(moment) * std::pow(10.0, type.scale));
    return whole(time, timeSizes.at(type.scale)) + whole(daysBetween(firstDayOfLongDates, moment.date()), 3);
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
        return type.size == 4 ? whole(std::bit_cast<std::int32_t>(static_cast<float>(value.asNumber())), 4)
                              : whole(std::bit_cast<std::int64_t>(value.asNumber()), 8);
    case Type::Id::MoneyN:
        return moneyBytes(value.asNumber(), type.size);
    case Type::Id::DateTimeN:
        return shortDate(value.asDate(), type.size);
    case Type::Id::DateTime2N:
        return longDate(value.asDate(), type);
    case Type::Id::DateN:
        return longDate(value.asDate(), {type.id, 0, 0, 0}).substr(3);
    default:
        return decimalBytes(value.asNumber(), type);
    }
}

} // namespace

ado::Value readValue(Reader& reader, const Type& type) {
    if (type.isText())
        return readText(reader, type);
    const std::string_view bytes = reader.raw(type.isFixed ? type.size : reader.get<std::uint8_t>());
    if (bytes.empty())
        return {};
    switch (type.id) {
    case Type::Id::BitN:
        return bytes.front() != 0;
    case Type::Id::IntN:
        return signedNumberOf(bytes);
    case Type::Id::FltN:
        return floatOf(bytes);
    case Type::Id::MoneyN:
        return moneyOf(bytes);
    case Type::Id::DateTimeN:
        return shortDateOf(bytes);
    case Type::Id::DateTime2N:
    case Type::Id::DateN:
        return longDateOf(bytes, type);
    default:
        return decimalOf(bytes, type);
    }
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
