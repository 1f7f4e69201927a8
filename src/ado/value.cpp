#include "ado/value.h"

#include "ado/error.h"
#include "base/clock/date_text.h"
#include "base/text/text.h"

#include <charconv>
#include <cmath>

namespace opd::ado {

namespace {

template <class... Functions> struct Overloaded : Functions... { using Functions::operator()...; };
template <class... Functions> Overloaded(Functions...) -> Overloaded<Functions...>;

/// The shortest decimal text that reads back as the same number.
std::string decimalText(double number) {
    char buffer[400]; // the longest one is 1.8e308 written out, with its sign
    const auto result = std::to_chars(std::begin(buffer), std::end(buffer), number, std::chars_format::fixed);
    return {buffer, result.ptr};
}

double numberOf(const std::string& utf8) {
    const std::string digits = text::trimmed(utf8);
    if (digits.empty())
        return 0;
    double number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc{} || end != digits.data() + digits.size() || !std::isfinite(number))
        throw Error("The text \"" + utf8 + "\" is no number.");
    return number;
}

} // namespace

std::string Value::asText() const {
    return std::visit(Overloaded{
                          [](std::monostate) { return std::string{}; },
                          [](bool flag) { return std::string{flag ? "True" : "False"}; },
                          [](std::int64_t number) { return std::to_string(number); },
                          [](double number) { return decimalText(number); },
                          [](const std::string& utf8) { return utf8; },
                          [](const DateTime& moment) {
                              return moment == moment.date() ? dateText(moment)
                                                             : dateText(moment) + " " + clockText(moment);
                          },
                      },
                      m_value);
}

std::string_view Value::asView(std::string& room) const {
    if (const std::string* const utf8 = get<std::string>())
        return *utf8;
    return room = asText();
}

bool Value::asFlag() const {
    return std::visit(Overloaded{
                          [](std::monostate) { return false; },
                          [](bool flag) { return flag; },
                          [](std::int64_t number) { return number != 0; },
                          [](double number) { return number != 0; },
                          [](const std::string& utf8) {
                              const std::string word = text::upper(text::trimmed(utf8));
                              return !word.empty() && word != "0" && word != "FALSE";
                          },
                          [](const DateTime& moment) { return moment.isSet(); },
                      },
                      m_value);
}

DateTime Value::asDate() const {
    if (const auto* moment = std::get_if<DateTime>(&m_value))
        return *moment;
    const std::string utf8 = asText();
    if (text::isBlank(utf8))
        return {};
    if (const std::optional<DateTime> moment = parseDate(utf8))
        return *moment;
    throw Error("The value \"" + utf8 + "\" is no date.");
}

double Value::asNumber() const {
    return std::visit(Overloaded{
                          [](std::monostate) { return 0.0; },
                          [](bool flag) { return flag ? 1.0 : 0.0; },
                          [](std::int64_t number) { return static_cast<double>(number); },
                          [](double number) { return number; },
                          [](const std::string& utf8) { return numberOf(utf8); },
                          [](const DateTime&) -> double { throw Error("A date is no number."); },
                      },
                      m_value);
}

} // namespace opd::ado
