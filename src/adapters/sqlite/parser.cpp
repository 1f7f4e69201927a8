#include "adapters/sqlite/parser.h"

#include "adapters/sqlite/errors.h"

#include <algorithm>
#include <utility>

namespace opd::adapters::sqlite {

namespace {

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
    std::string literal() {
        if (next().kind != Token::Kind::Text && next().kind != Token::Kind::Number)
            refuse();
        return m_tokens[m_at++].text;
    }

    /// Digits alone, few enough for any machine: they become a part of the statement.
    std::string wholeNumber() {
        constexpr std::size_t mostDigits = 9;
        if (next().kind != Token::Kind::Number || next().text.size() > mostDigits ||
            next().text.find_first_not_of("0123456789") != std::string::npos)
            refuse();
        return m_tokens[m_at++].text;
    }

    const Table& table() {
        const std::string database = word();
        expectSymbol("..");
        return m_catalog.table(database, word());
    }

    static std::string quoted(const std::string& identifier) { return "\"" + identifier + "\""; }

    std::string& sql() { return m_translation.sql; }

    void bind(std::string value) {
        sql() += "?";
        m_translation.values.emplace_back(std::move(value));
    }

    // The list of a select stands before its table, whose columns it names: it is read when the table is known.
    void select() {
        std::string limit;
        if (take("top"))
            limit = " LIMIT " + wholeNumber();
        const std::size_t list = m_at;
        while (next().kind != Token::Kind::End && !isWord(next(), "from"))
            ++m_at;
        const Table* const source = take("from") ? &table() : nullptr;
        const std::size_t behind = std::exchange(m_at, list);
        sql() = "SELECT ";
        items(source);
        if (source != nullptr) {
            expect("from");
            m_at = behind;
            sql() += " FROM " + quoted(source->name);
            where(*source);
            orderBy(*source);
        }
        sql() += limit;
    }

    void items(const Table* source) {
        if (source != nullptr && takeSymbol("*")) {
            sql() += "*";
            return;
        }
        std::size_t position = 0;
        do {
            if (position > 0)
                sql() += ", ";
            item(source, position++);
        } while (takeSymbol(","));
    }

    void item(const Table* source, std::size_t position) {
        std::string name;
        if (take("getdate")) {
            expectSymbol("(");
            expectSymbol(")");
            sql() += "now()";
            m_translation.moments.push_back(position);
            name = "Date";
        } else if (take("isnull")) {
            expectSymbol("(");
            name = column(source);
            sql() += "ifnull(" + quoted(name) + ", ";
            expectSymbol(",");
            const bool isNumber = next().kind == Token::Kind::Number;
            if (isNumber)
                sql() += wholeNumber();
            else
                bind(literal());
            sql() += ")";
            expectSymbol(")");
        } else {
            name = column(source);
            sql() += quoted(name);
        }
        if (take("as") || (next().kind == Token::Kind::Word && !isWord(next(), "from")))
            name = word();
        sql() += " AS " + quoted(name);
    }

    std::string column(const Table* source) {
        if (source == nullptr)
            refuse();
        return source->column(word()).name;
    }

    void where(const Table& source) {
        if (!take("where"))
            return;
        sql() += " WHERE ";
        condition(source);
        while (take("and")) {
            sql() += " AND ";
            condition(source);
        }
    }

    void condition(const Table& source) {
        const Column& subject = source.column(word());
        const std::string name = quoted(subject.name);
        if (take("is")) {
            sql() += name + (take("not") ? " IS NOT NULL" : " IS NULL");
            expect("null");
        } else if (take("like")) {
            like(name);
        } else {
            const bool equal = isSymbol("=");
            if (!equal && !isSymbol("<>"))
                refuse();
            ++m_at;
            sql() += name + (equal ? " = " : " <> ");
            bind(literalFor(subject, literal()));
        }
    }

    /// The desk looks for beginnings alone: the "%" at the end is the statement's own, all before it was typed by
    /// somebody and stands for itself.
    void like(const std::string& name) {
        std::string beginning = literal();
        const bool begins = beginning.ends_with('%');
        if (begins)
            beginning.pop_back();
        sql() += begins ? "begins_with(" + name + ", " : "(" + name + " = ";
        bind(std::move(beginning));
        sql() += ")";
    }

    void orderBy(const Table& source) {
        if (!take("order"))
            return;
        expect("by");
        sql() += " ORDER BY " + quoted(source.column(word()).name);
        if (take("desc"))
            sql() += " DESC";
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
                bind(literalFor(assigned, literal()));
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
        where(target);
    }

    ProcedureCall call() {
        ProcedureCall call;
        call.database = word();
        expectSymbol("..");
        call.procedure = word();
        if (next().kind != Token::Kind::End) {
            do
                call.arguments.push_back(literal());
            while (takeSymbol(","));
        }
        expectEnd();
        return call;
    }

    std::vector<Token> m_tokens;
    std::size_t m_at = 0;
    Catalog& m_catalog;
    Translation m_translation;
};

} // namespace

std::variant<Translation, ProcedureCall> parse(std::string_view statement, Catalog& catalog) {
    return Parser(statement, catalog).batch();
}

} // namespace opd::adapters::sqlite
