#include "registration/record/amount_text.h"

#include "base/text/text.h"

#include <algorithm>
#include <charconv>

namespace opd::registration {

namespace {

constexpr std::size_t mostDigits = 12; ///< before the point: what a double holds to the last centavo
constexpr std::size_t mostDecimals = 2;
constexpr std::size_t groupSize = 3;

bool isDigits(const std::string& text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// The digits without what parts their thousands; empty when they are parted otherwise.
std::string withoutThousands(const std::string& whole) {
    const std::size_t first = whole.find_first_of(", ");
    if (first == std::string::npos)
        return whole;
    const char separator = whole[first];
    if (first == 0 || first > groupSize)
        return {};
    for (std::size_t place = first; place < whole.size(); place += groupSize + 1)
        if (whole[place] != separator || whole.size() - place <= groupSize)
            return {};
    return text::replaced(whole, std::string(1, separator), "");
}

} // namespace

std::string amountText(double amount) {
    char digits[64];
    const auto result = std::to_chars(std::begin(digits), std::end(digits), amount, std::chars_format::fixed, 2);
    return {digits, result.ptr};
}

std::optional<double> parseAmount(const std::string& text) {
    const std::string trimmed = text::trimmed(text);
    if (trimmed.empty())
        return 0;
    const std::size_t point = trimmed.find('.');
    const std::string whole = withoutThousands(trimmed.substr(0, point));
    const std::string decimals = point == std::string::npos ? "0" : trimmed.substr(point + 1);
    if (!isDigits(whole) || whole.size() > mostDigits || !isDigits(decimals) || decimals.size() > mostDecimals)
        return std::nullopt;
    const std::string plain = whole + "." + decimals;
    double amount = 0;
    std::from_chars(plain.data(), plain.data() + plain.size(), amount);
    return amount;
}

} // namespace opd::registration
