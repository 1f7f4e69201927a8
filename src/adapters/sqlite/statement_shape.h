#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace opd::adapters::sqlite {

/// What the texts have in common that differ in nothing but their values, and the values of the one that was read last.
class StatementShape {
  public:
    /// Reads a statement text, which stays where it is while the values are used. False for one that has a character
    /// or a quote which no statement of the desk has.
    bool read(std::string_view statement);

    /// The text with a mark in the place of each value. It tells a text that ends with "%" from one that does not.
    const std::string& key() const { return m_key; }

    /// The values in their order: the texts without their quotes, and the numbers.
    const std::vector<std::string_view>& values() const { return m_values; }

  private:
    /// Read a value, and answer where it ends; npos for a quote that no statement of the desk has.
    std::size_t readText(std::string_view statement, std::size_t at);
    std::size_t readNumber(std::string_view statement, std::size_t at);

    std::string m_key;
    std::vector<std::string_view> m_values;
};

} // namespace opd::adapters::sqlite
