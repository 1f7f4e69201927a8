#pragma once

#include "base/clock/date_time.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace opd::ado {

/// One value of a row: null, boolean, whole number, decimal number, UTF-8 text or date with time.
class Value {
  public:
    Value() = default;
    Value(bool flag) : m_value(flag) {}
    Value(int number) : m_value(std::int64_t{number}) {}
    Value(std::int64_t number) : m_value(number) {}
    Value(double number) : m_value(number) {}
    Value(std::string utf8) : m_value(std::move(utf8)) {}
    Value(const char* utf8) : m_value(std::string{utf8}) {}
    Value(DateTime moment) : m_value(moment) {}

    bool isNull() const { return std::holds_alternative<std::monostate>(m_value); }

    /// The value when it is of this kind (bool, std::int64_t, double, std::string, DateTime), otherwise null.
    template <class Kind> const Kind* get() const { return std::get_if<Kind>(&m_value); }

    /// The value as text: null is empty, true is "True", a date is "mm/dd/yyyy" with a time of day when it has one.
    std::string asText() const;

    /// The same without a copy of what is a text already; anything else is made one in `room`.
    std::string_view asView(std::string& room) const;

    /// False for null, 0, "0", "False" and blank text; true for anything else.
    bool asFlag() const;

    /// The value as a date: a date itself, or a text that `parseDate` reads. "No date" for null and blank text.
    /// Throws Error when the value is no date.
    DateTime asDate() const;

    /// The value as a number, 0 for null and blank text. Throws Error when the value is no number.
    double asNumber() const;

    bool operator==(const Value&) const = default;

  private:
    std::variant<std::monostate, bool, std::int64_t, double, std::string, DateTime> m_value;
};

} // namespace opd::ado
