#include "adapters/sqlite/parser.h"

#include "adapters/sqlite/engine/errors.h"
#include "base/text/text.h"

#include <algorithm>
#include <utility>

namespace opd::adapters::sqlite {

namespace {

/// A table of a select, and the name that its columns are called by; none where it is the only one.
struct Source {
    const Table* table;
    std::string alias;
};

/// A column that a statement names: how the embedded database calls it, and what it holds.
struct NamedColumn {
    const Source& source;
    const Column& column;
    std::string sql;
};

class Parser {
  public:
    Parser(std::string_view statement, Catalog& catalog) : m_tokens(tokensOf(statement)), m_catalog(catalog) {}

    std::variant<Translation, ProcedureCall> batch() {
        if (take("select"))
            select();
        else if (take("update"))
            update();
        else if (take("delete"))
            remove();
        else
            return call();
        expectEnd();
        return std::move(m_translation);
    }

  private:
    const Token& next(std::size_t ahead = 0) const { return m_tokens[std::min(m_at + ahead, m_tokens.size() - 1)]; }

    bool isSymbol(std::string_view symbol) const { return next().kind == Token::Kind::Symbol && next().text == symbol; }

    [[noreturn]] void refuse() const {
        const std::string near = next().kind == Token::Kind::End ? "the end of the statement" : next().text;
        throw serverError("Incorrect syntax near '" + near + "'.", 102, "42000");
    }

    bool take(std::string_view word) {
        if (!isWord(next(), word))
            return false;
        ++m_at;
        return true;
    }

    bool takeSymbol(std::string_view symbol) {
        if (!isSymbol(symbol))
            return false;
        ++m_at;
        return true;
    }

    void expect(std::string_view word) {
        if (!take(word))
            refuse();
    }

    void expectSymbol(std::string_view symbol) {
        if (!takeSymbol(symbol))
            refuse();
    }

    void expectEnd() const {
        if (next().kind != Token::Kind::End)
            refuse();
    }

    std::string word() {
        if (next().kind != Token::Kind::Word)
            refuse();
        return m_tokens[m_at++].text;
    }

    /// A quoted text or a number.
    void literal(const Placeholder& place) {
        if (next().kind != Token::Kind::Text && next().kind != Token::Kind::Number)
            refuse();
        ++m_at;
        m_translation.values.push_back(place);
    }

    /// Digits alone, few enough for any machine: they become a part of the statement.
    std::string wholeNumber() {
        constexpr std::size_t mostDigits = 9;
        if (next().kind != Token::Kind::Number || next().text.size() > mostDigits ||
            next().text.find_first_not_of(characters::digits) != std::string::npos)
            refuse();
        m_translation.values.push_back({.kind = Placeholder::Kind::Written, .written = next().text});
        return m_tokens[m_at++].text;
    }

    const Table& table() {
        const std::string database = word();
        expectSymbol("..");
        return m_catalog.table(database, word());
    }

    static std::string quoted(const std::string& identifier) { return "\"" + identifier + "\""; }

    std::string& sql() { return m_translation.sql; }

    void bind(const Placeholder& place) {
        literal(place);
        sql() += "?";
    }

    // The list of a select stands before its tables, whose columns it names: it is read when they are known.
    void select() {
        std::string limit;
        if (take("top"))
            limit = " LIMIT " + wholeNumber();
        const std::size_t list = m_at;
        while (next().kind != Token::Kind::End && !isWord(next(), "from"))
            ++m_at;
        const std::string tables = take("from") ? from() : std::string{};
        const std::size_t behind = std::exchange(m_at, list);
        sql() = "SELECT ";
        items();
        if (!m_sources.empty()) {
            expect("from");
            m_at = behind;
            sql() += tables;
            const bool isWhole = limit.empty() && !isWord(next(), "where");
            where();
            orderBy(limit.empty(), isWhole);
        }
        sql() += limit;
    }

    /// One table, or one with others joined to it, each by a column.
    std::string from() {
        const Table& first = table();
        std::string text = " FROM " + quoted(first.name);
        m_sources = {{&first, {}}};
        if (next().kind != Token::Kind::Word || isWord(next(), "where") || isWord(next(), "order"))
            return text;
        m_sources.front().alias = word();
        text += " AS " + quoted(m_sources.front().alias);
        while (isWord(next(), "inner") || isWord(next(), "left"))
            text += join();
        return text;
    }

    std::string join() {
        std::string text = take("inner") ? " JOIN " : "";
        if (text.empty() && take("left"))
            text = " LEFT JOIN ";
        expect("join");
        const Table& joined = table();
        m_sources.push_back({&joined, word()});
        text += quoted(joined.name) + " AS " + quoted(m_sources.back().alias);
        expect("on");
        text += " ON " + column().sql;
        expectSymbol("=");
        return text + " = " + column().sql;
    }

    void items() {
        if (m_sources.size() == 1 && takeSymbol("*")) {
            sql() += "*";
            return;
        }
        std::size_t position = 0;
        do {
            if (position > 0)
                sql() += ", ";
            item(position++);
        } while (takeSymbol(","));
    }

    void item(std::size_t position) {
        std::string name;
        if (take("getdate")) {
            expectSymbol("(");
            expectSymbol(")");
            sql() += "now()";
            m_translation.moments.push_back(position);
            name = "Date";
        } else if (take("isnull")) {
            expectSymbol("(");
            const NamedColumn tested = column();
            name = tested.column.name;
            sql() += "ifnull(" + tested.sql + ", ";
            expectSymbol(",");
            const bool isNumber = next().kind == Token::Kind::Number;
            if (isNumber)
                sql() += wholeNumber();
            else
                bind({});
            sql() += ")";
            expectSymbol(")");
        } else {
            const NamedColumn shown = column();
            name = shown.column.name;
            sql() += shown.sql;
            m_listed.resize(position + 1);
            m_listed.back() = shown.sql;
        }
        if (take("as") || (next().kind == Token::Kind::Word && !isWord(next(), "from")))
            name = word();
        sql() += " AS " + quoted(name);
    }

    /// A column of the only table, or, with the name of its table before it, of one of several.
    NamedColumn column() {
        if (m_sources.empty())
            refuse();
        if (m_sources.front().alias.empty()) {
            const Column& found = m_sources.front().table->column(word());
            return {m_sources.front(), found, quoted(found.name)};
        }
        const std::string alias = word();
        const auto source = std::find_if(m_sources.begin(), m_sources.end(), [&](const Source& each) {
            return text::equalsIgnoringCase(each.alias, alias);
        });
        expectSymbol(".");
        const std::string name = word();
        if (source == m_sources.end())
            throw serverError("The multi-part identifier \"" + alias + "." + name + "\" could not be bound.", 4104,
                              "42000");
        const Column& found = source->table->column(name);
        return {*source, found, quoted(source->alias) + "." + quoted(found.name)};
    }

    void where() {
        if (!take("where"))
            return;
        sql() += " WHERE ";
        condition();
        while (take("and")) {
            sql() += " AND ";
            condition();
        }
    }

    bool isOrder() const { return isSymbol("<") || isSymbol(">") || isSymbol("<=") || isSymbol(">="); }

    void condition() {
        const NamedColumn subject = column();
        if (take("is")) {
            sql() += subject.sql + (take("not") ? " IS NOT NULL" : " IS NULL");
            expect("null");
        } else if (take("like")) {
            like(subject.sql);
        } else if (isOrder() && !subject.source.table->key.empty()) {
            range(subject);
        } else if (isOrder() || isSymbol("=") || isSymbol("<>")) {
            compare(subject, subject.sql);
        } else {
            refuse();
        }
    }

    void compare(const NamedColumn& subject, const std::string& name) {
        sql() += name + " " + m_tokens[m_at++].text + " ";
        bind({.kind = Placeholder::Kind::ForColumn, .column = &subject.column});
    }

    /// The rows of a span are found by their keys: an index that has both the column and the key is read through many
    /// times faster than the rows themselves. The bounds of one column stand together, so that it is read once.
    void range(const NamedColumn& subject) {
        const Table& table = *subject.source.table;
        const std::string key = subject.source.alias.empty() ? "" : quoted(subject.source.alias) + ".";
        sql() +=
            key + quoted(table.key) + " IN (SELECT " + quoted(table.key) + " FROM " + quoted(table.name) + " WHERE ";
        compare(subject, quoted(subject.column.name));
        for (std::size_t before = m_at; take("and"); before = m_at) {
            const NamedColumn other = column();
            if (&other.column != &subject.column || &other.source != &subject.source || !isOrder()) {
                m_at = before;
                break;
            }
            sql() += " AND ";
            compare(subject, quoted(subject.column.name));
        }
        sql() += ")";
    }

    /// The desk looks for beginnings alone: the "%" at the end is the statement's own, all before it was typed by
    /// somebody and stands for itself.
    void like(const std::string& name) {
        const bool begins = next().text.ends_with('%');
        sql() += begins ? "begins_with(" + name + ", " : "(" + name + " = ";
        bind({.kind = begins ? Placeholder::Kind::Beginning : Placeholder::Kind::AsItIs});
        sql() += ")";
    }

    /// The program orders all rows that are found by names that it shows; the engine what else there is, and the whole
    /// of a table that lies in that order.
    void orderBy(bool isAll, bool isWhole) {
        if (!take("order"))
            return;
        expect("by");
        std::string terms;
        std::vector<std::size_t> places;
        bool lies = isWhole && m_sources.size() == 1;
        do {
            const NamedColumn by = column();
            const bool descends = take("desc");
            terms += (terms.empty() ? "" : ", ") + by.sql + (descends ? " DESC" : "");
            const auto listed = std::find(m_listed.begin(), m_listed.end(), by.sql);
            isAll = isAll && by.column.isName && !descends && listed != m_listed.end();
            lies = lies && places.empty() && !descends && by.source.table->liesInOrderOf(by.column);
            places.push_back(static_cast<std::size_t>(listed - m_listed.begin()));
        } while (takeSymbol(","));
        if (isAll && !lies)
            m_translation.order = std::move(places);
        else
            sql() += " ORDER BY " + terms;
    }

    void update() {
        const Table& target = table();
        expect("set");
        sql() = "UPDATE " + quoted(target.name) + " SET ";
        do {
            if (sql().back() != ' ')
                sql() += ", ";
            const Column& assigned = target.column(word());
            expectSymbol("=");
            sql() += quoted(assigned.name) + " = ";
            if (take("null"))
                sql() += "NULL";
            else
                bind({.kind = Placeholder::Kind::ForColumn, .column = &assigned});
        } while (takeSymbol(","));
        restrict(target);
    }

    void remove() {
        take("from");
        const Table& target = table();
        sql() = "DELETE FROM " + quoted(target.name);
        restrict(target);
    }

    /// A statement that writes names the rows it writes.
    void restrict(const Table& target) {
        if (!isWord(next(), "where"))
            refuse();
        m_sources = {{&target, {}}};
        where();
    }

    ProcedureCall call() {
        ProcedureCall call;
        call.database = word();
        expectSymbol("..");
        call.procedure = word();
        if (next().kind != Token::Kind::End) {
            do
                literal({});
            while (takeSymbol(","));
        }
        expectEnd();
        return call;
    }

    std::vector<Token> m_tokens;
    std::size_t m_at = 0;
    Catalog& m_catalog;
    std::vector<Source> m_sources;
    Translation m_translation;
    std::vector<std::string> m_listed; ///< the columns that a select lists as they are, by their positions
};

} // namespace

Argument argumentFor(const Placeholder& place, std::string_view value) {
    switch (place.kind) {
    case Placeholder::Kind::ForColumn:
        return valueFor(*place.column, value);
    case Placeholder::Kind::Beginning:
        value.remove_suffix(1);
        break;
    default:
        break;
    }
    return value;
}

std::variant<Translation, ProcedureCall> parse(std::string_view statement, Catalog& catalog) {
    return Parser(statement, catalog).batch();
}

} // namespace opd::adapters::sqlite
