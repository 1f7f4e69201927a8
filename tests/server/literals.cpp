#include "server/literals.h"

#include "base/text/text.h"

#include <cstdlib>
#include <map>
#include <regex>
#include <utility>

namespace opd::testserver {

namespace {

const std::map<std::string, Type> types{
    {"BIT", {Type::Id::BitN, 1}},
    {"INT", {Type::Id::IntN, 4}},
    {"BIGINT", {Type::Id::IntN, 8}},
    {"FLOAT", {Type::Id::FltN, 8}},
    {"MONEY", {Type::Id::MoneyN, 8}},
    {"DATETIME", {Type::Id::DateTimeN, 8}},
    {"DATE", {Type::Id::DateN, 3}},
    {"DATETIME2", {Type::Id::DateTime2N, 6}},
    {"DECIMAL", {Type::Id::DecimalN, 9, 18, 0}},
    {"VARCHAR", {Type::Id::VarChar, 30}},
    {"NVARCHAR", {Type::Id::NVarChar, 60}},
};

/// A value, perhaps within CAST with a type and its two numbers, and a name; "," where another one follows.
const std::regex item{
    R"re(\s*(cast\(\s*)?(null|-?\d+|N?'(?:[^']|'')*')(?:\s+as\s+(\w+)(?:\((\w+)(?:,(\w+))?\))?\s*\))?)re"
    R"re(\s+(?:as\s+)?(\w+)\s*(,|$))re",
    std::regex::icase};

ado::Value valueOf(const std::string& written) {
    if (text::equalsIgnoringCase(written, "null"))
        return {};
    const std::size_t quote = written.find('\'');
    if (quote == std::string::npos)
        return std::int64_t{std::atoll(written.c_str())};
    return text::replaced(written.substr(quote + 1, written.size() - quote - 2), "''", "'");
}

/// The type of a value that no CAST changes.
Type typeOf(const std::string& written, const ado::Value& value) {
    if (value.isNull())
        return {Type::Id::IntN, 4};
    if (const auto* number = value.get<std::int64_t>())
        return {Type::Id::IntN, *number == static_cast<std::int32_t>(*number) ? 4U : 8U};
    Type type = wideText(text::length(value.asText()));
    if (written.front() == '\'')
        type.id = Type::Id::VarChar;
    return type;
}

/// A type with its numbers, "18" and "2" of "DECIMAL(18,2)", "MAX" of "NVARCHAR(MAX)"; both may be empty.
Type sized(Type type, const std::string& first, const std::string& second) {
    const auto size = static_cast<std::uint32_t>(std::atoi(first.c_str()));
    if (first.empty())
        return type;
    if (type.isText())
        type.size = text::equalsIgnoringCase(first, "MAX") ? Type::unlimited : type.isWide() ? 2 * size : size;
    else
        type.precision = static_cast<std::uint8_t>(size);
    if (!second.empty())
        type.scale = static_cast<std::uint8_t>(std::atoi(second.c_str()));
    return type;
}

} // namespace

std::optional<LiteralRow> literalRow(const std::string& statement) {
    constexpr std::string_view select = "SELECT";
    if (!text::equalsIgnoringCase(std::string_view{statement}.substr(0, select.size()), select))
        return std::nullopt;
    LiteralRow result;
    auto& cells = result.row.rows.emplace_back();
    std::vector<std::string> names;
    auto at = statement.begin() + select.size();
    for (std::smatch found; at != statement.end(); at = found[0].second) {
        if (!std::regex_search(at, statement.end(), found, item, std::regex_constants::match_continuous))
            return std::nullopt;
        const std::string written = found[2];
        cells.push_back(valueOf(written));
        if (found[1].matched != found[3].matched)
            return std::nullopt;
        const auto cast = types.find(text::upper(std::string_view{found[3].str()}));
        if (found[3].matched && cast == types.end())
            return std::nullopt;
        result.types.push_back(found[3].matched ? sized(cast->second, found[4], found[5])
                                                : typeOf(written, cells.back()));
        names.push_back(found[6]);
    }
    result.row.columns = std::move(names);
    return result;
}

} // namespace opd::testserver
