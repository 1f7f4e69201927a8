#include "adapters/sqlite/statement_shape.h"

#include "adapters/sqlite/tokens.h"

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
    mark(characters::letters, Sort::Letter);
    mark(characters::digits, Sort::Digit);
    mark("'", Sort::Quote);
    mark(characters::blanks, Sort::Other);
    mark(characters::symbols, Sort::Other);
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

std::size_t StatementShape::readText(std::string_view statement, std::size_t at) {
    const std::size_t close = statement.find('\'', at + 1);
    if (close == std::string_view::npos || (close + 1 < statement.size() && statement[close + 1] == '\''))
        return std::string_view::npos;
    m_values.push_back(statement.substr(at + 1, close - at - 1));
    m_key += m_values.back().ends_with('%') ? "%'" : "'";
    return close + 1;
}

std::size_t StatementShape::readNumber(std::string_view statement, std::size_t at) {
    const std::size_t end = endOfWord(statement, at);
    m_values.push_back(statement.substr(at, end - at));
    m_key += '#';
    return end;
}

bool StatementShape::read(std::string_view statement) {
    m_key.clear();
    m_values.clear();
    std::size_t done = 0; // all before it is in the key
    for (std::size_t at = 0; at < statement.size();) {
        const Sort sort = sortOf(statement[at]);
        if (sort == Sort::Other) {
            ++at;
        } else if (sort == Sort::Letter) {
            at = endOfWord(statement, at + 1);
        } else if (sort == Sort::Strange) {
            return false;
        } else {
            m_key.append(statement, done, at - done);
            at = done = sort == Sort::Quote ? readText(statement, at) : readNumber(statement, at);
        }
    }
    if (done == std::string_view::npos)
        return false;
    m_key.append(statement, done);
    return true;
}

} // namespace opd::adapters::sqlite
