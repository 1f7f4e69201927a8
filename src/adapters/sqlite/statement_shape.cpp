#include "adapters/sqlite/statement_shape.h"

#include <array>

namespace opd::adapters::sqlite {

namespace {

enum class Sort : unsigned char { Strange, Letter, Digit, Quote, Other };

constexpr std::array<Sort, 256> sorts = [] {
    std::array<Sort, 256> all{};
    const auto mark = [&](std::string_view characters, Sort sort) {
        for (const char character : characters)
            all[static_cast<unsigned char>(character)] = sort;
    };
    mark("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_@", Sort::Letter);
    mark("0123456789", Sort::Digit);
    mark("'", Sort::Quote);
    mark(" \t\r\n,=()*.<>", Sort::Other);
    return all;
}();

Sort sortOf(char character) {
    return sorts[static_cast<unsigned char>(character)];
}

/// Where the letters and digits end that begin here.
std::size_t endOfWord(std::string_view statement, std::size_t at) {
    while (at < statement.size() && (sortOf(statement[at]) == Sort::Letter || sortOf(statement[at]) == Sort::Digit))
        ++at;
    return at;
}

} // namespace

bool StatementShape::readText(std::string_view statement, std::size_t& at) {
    const std::size_t close = statement.find('\'', at + 1);
    if (close == std::string_view::npos || (close + 1 < statement.size() && statement[close + 1] == '\''))
        return false;
    m_values.push_back(statement.substr(at + 1, close - at - 1));
    m_key += m_values.back().ends_with('%') ? "%'" : "'";
    at = close + 1;
    return true;
}

bool StatementShape::read(std::string_view statement) {
    m_key.clear();
    m_values.clear();
    for (std::size_t at = 0; at < statement.size();) {
        std::size_t end = at + 1;
        switch (sortOf(statement[at])) {
        case Sort::Letter:
            end = endOfWord(statement, at);
            m_key.append(statement, at, end - at);
            break;
        case Sort::Digit:
            end = endOfWord(statement, at);
            m_values.push_back(statement.substr(at, end - at));
            m_key += '#';
            break;
        case Sort::Quote:
            if (!readText(statement, end = at))
                return false;
            break;
        case Sort::Other:
            m_key += statement[at];
            break;
        case Sort::Strange:
            return false;
        }
        at = end;
    }
    return true;
}

} // namespace opd::adapters::sqlite
