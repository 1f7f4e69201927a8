#include "server/literals.h"

#include "base/text/text.h"

#include <cctype>
#include <cstdlib>
#include <map>

namespace opd::testserver {

namespace {

struct NotLiteral {}; ///< ends the reading of a statement that is something else

class LiteralReader {
  public:
    LiteralReader(std::string_view text, Version version, const SessionValue& sessionValue)
        : m_rest(text), m_version(version), m_sessionValue(sessionValue) {}

    LiteralRow row() {
        expect("SELECT");
        LiteralRow result;
        std::vector<std::string> names;
        result.row.rows.emplace_back();
        do {
            auto [type, value] = item();
            result.types.push_back(type);
            result.row.rows.front().push_back(std::move(value));
            take("AS");
            names.push_back(word());
        } while (take(","));
        if (!m_rest.empty())
            throw NotLiteral{};
        result.row.columns = std::move(names);
        return result;
    }

  private:
    using Item = std::pair<Type, ado::Value>;

    void skipBlanks() {
        while (!m_rest.empty() && std::isspace(static_cast<unsigned char>(m_rest.front())) != 0)
            m_rest.remove_prefix(1);
    }

    /// The next word or number, or nothing.
    std::string word() {
        skipBlanks();
        std::size_t length = 0;
        while (length < m_rest.size() && (std::isalnum(static_cast<unsigned char>(m_rest[length])) != 0 ||
                                          std::string_view{"_@."}.find(m_rest[length]) != std::string_view::npos))
            ++length;
        std::string taken{m_rest.substr(0, length)};
        m_rest.remove_prefix(length);
        skipBlanks();
        return taken;
    }

    bool take(const std::string& wanted) {
        const std::string_view before = m_rest;
        if (wanted.size() == 1) {
            skipBlanks();
            if (!m_rest.starts_with(wanted))
                return false;
            m_rest.remove_prefix(1);
            skipBlanks();
            return true;
        }
        if (text::equalsIgnoringCase(word(), wanted))
            return true;
        m_rest = before;
        return false;
    }

    void expect(const std::string& wanted) {
        if (!take(wanted))
            throw NotLiteral{};
    }

    Item item() {
        if (!take("CAST"))
            return value();
        expect("(");
        const ado::Value cast = value().second;
        expect("AS");
        const Type to = type();
        expect(")");
        return {typeIn(m_version, to), cast};
    }

    Item value() {
        skipBlanks();
        const bool wide = m_rest.starts_with("N'") || m_rest.starts_with("n'");
        if (wide || m_rest.starts_with("'")) {
            m_rest.remove_prefix(wide ? 1 : 0);
            const ado::Value text = quoted();
            Type type = wideText(text::length(text.asText()), m_version);
            if (!wide && type.id == Type::Id::NVarChar)
                type.id = Type::Id::VarChar;
            return {type, text};
        }
        if (m_rest.starts_with("-") || (!m_rest.empty() && std::isdigit(static_cast<unsigned char>(m_rest.front()))))
            return number();
        const std::string name = text::upper(std::string_view{word()});
        if (name == "NULL")
            return {Type{Type::Id::IntN, 4}, {}};
        const std::optional<ado::Value> known = m_sessionValue(name);
        if (!known)
            throw NotLiteral{};
        if (take("("))
            expect(")");
        WidestOf widest;
        widest.add(*known);
        return {widest.type(m_version), *known};
    }

    std::string quoted() {
        std::string text;
        for (m_rest.remove_prefix(1);; m_rest.remove_prefix(1)) {
            if (m_rest.empty())
                throw NotLiteral{};
            if (m_rest.front() == '\'' && !m_rest.starts_with("''"))
                break;
            m_rest.remove_prefix(m_rest.front() == '\'' ? 1 : 0);
            text += m_rest.front();
        }
        m_rest.remove_prefix(1);
        skipBlanks();
        return text;
    }

    Item number() {
        const bool negative = take("-");
        const std::string digits = (negative ? "-" : "") + word();
        const std::size_t point = digits.find('.');
        if (point == std::string::npos) {
            const std::int64_t whole = std::atoll(digits.c_str());
            return {Type{Type::Id::IntN, whole == static_cast<std::int32_t>(whole) ? 4U : 8U}, whole};
        }
        return {Type{Type::Id::NumericN, 9, 18, static_cast<std::uint8_t>(digits.size() - point - 1)},
                std::atof(digits.c_str())};
    }

    /// A type such as "INT", "DECIMAL(18,2)" or "NVARCHAR(MAX)".
    Type type() {
        static const std::map<std::string, Type> types{
            {"BIT", {Type::Id::BitN, 1}},
            {"TINYINT", {Type::Id::IntN, 1}},
            {"SMALLINT", {Type::Id::IntN, 2}},
            {"INT", {Type::Id::IntN, 4}},
            {"BIGINT", {Type::Id::IntN, 8}},
            {"REAL", {Type::Id::FltN, 4}},
            {"FLOAT", {Type::Id::FltN, 8}},
            {"SMALLMONEY", {Type::Id::MoneyN, 4}},
            {"MONEY", {Type::Id::MoneyN, 8}},
            {"SMALLDATETIME", {Type::Id::DateTimeN, 4}},
            {"DATETIME", {Type::Id::DateTimeN, 8}},
            {"DATE", {Type::Id::DateN, 3}},
            {"DATETIME2", {Type::Id::DateTime2N, 8, 0, 7}},
            {"DECIMAL", {Type::Id::DecimalN, 9, 18, 0}},
            {"NUMERIC", {Type::Id::NumericN, 9, 18, 0}},
            {"VARCHAR", {Type::Id::VarChar, 30}},
            {"NVARCHAR", {Type::Id::NVarChar, 60}},
        };
        const auto found = types.find(text::upper(std::string_view{word()}));
        if (found == types.end())
            throw NotLiteral{};
        return take("(") ? sized(found->second) : found->second;
    }

    Type sized(Type type) {
        const std::string first = word();
        const auto size = static_cast<std::uint32_t>(std::atoi(first.c_str()));
        if (type.isText())
            type.size = text::equalsIgnoringCase(first, "MAX") ? Type::unlimited : type.isWide() ? 2 * size : size;
        else if (type.id == Type::Id::DateTime2N)
            type.scale = static_cast<std::uint8_t>(size);
        else
            type.precision = static_cast<std::uint8_t>(size);
        if (take(","))
            type.scale = static_cast<std::uint8_t>(std::atoi(word().c_str()));
        expect(")");
        return type;
    }

    std::string_view m_rest;
    Version m_version;
    const SessionValue& m_sessionValue;
};

} // namespace

std::optional<LiteralRow> literalRow(const std::string& statement, Version version, const SessionValue& sessionValue) {
    try {
        return LiteralReader(statement, version, sessionValue).row();
    } catch (const NotLiteral&) {
        return std::nullopt;
    }
}

} // namespace opd::testserver
