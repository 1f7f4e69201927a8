#include "server/interpreter.h"

#include "base/text/text.h"
#include "server/literals.h"
#include "server/procedure_list.h"

#include <algorithm>
#include <sstream>

namespace opd::testserver {

namespace {

constexpr std::string_view databases[] = {"master", "LABORATORY", "Patient_Data", "Build_File", "billing"};

std::string stripped(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::string_view::npos ? std::string{}
                                           : std::string{text.substr(first, text.find_last_not_of(blanks) - first + 1)};
}

/// The parts between the ";" that stand outside of quotes, without the empty ones.
std::vector<std::string> statementsOf(const std::string& batch) {
    std::vector<std::string> statements;
    std::size_t start = 0;
    bool quoted = false;
    for (std::size_t at = 0; at <= batch.size(); ++at) {
        quoted = quoted != (at < batch.size() && batch[at] == '\'');
        if (at < batch.size() && (quoted || batch[at] != ';'))
            continue;
        if (std::string statement = stripped(batch.substr(start, at - start)); !statement.empty())
            statements.push_back(std::move(statement));
        start = at + 1;
    }
    return statements;
}

/// The first two words, in capitals; empty where there are none.
std::vector<std::string> firstWords(const std::string& statement) {
    std::istringstream all(statement);
    std::vector<std::string> words(2);
    for (std::string& word : words)
        if (all >> word)
            word = text::upper(std::string_view{word});
    return words;
}

bool isProcedureCall(const std::vector<std::string>& words) {
    return words[0] != "SELECT" && words[0] != "UPDATE" && words[0] != "DELETE";
}

/// The value of an output, which is cut by nobody.
ado::Value outputOf(const ado::ResultSet& answer, const Parameter& parameter, std::size_t place) {
    if (answer.rows.empty())
        return {};
    for (std::size_t column = 0; column < answer.columns.size(); ++column)
        if (text::equalsIgnoringCase("@" + answer.columns[column], parameter.name))
            place = column;
    if (place >= answer.columns.size())
        throw ado::Error("The procedure has no output parameter " + parameter.name + ".", "Test server", 8162);
    const ado::Value& value = answer.rows.front()[place];
    const std::size_t bytes = text::length(value.asText()) * (parameter.type.isWide() ? 2 : 1);
    if (bytes > parameter.type.size)
        throw ado::Error("String or binary data would be truncated.", "Test server", 8152);
    return value;
}

} // namespace

bool isDatabase(const std::string& name) {
    return std::any_of(std::begin(databases), std::end(databases),
                       [&](std::string_view database) { return text::equalsIgnoringCase(database, name); });
}

bool isHousekeeping(const std::string& batch) {
    const std::vector<std::string> words = firstWords(batch);
    return words[0] == "SET" || words[0] == "USE" || words[0].starts_with("SP_DATATYPE_INFO") ||
           (words[0] == "SELECT" && words[1].starts_with("@@"));
}

std::string textOf(const std::string& procedure, const std::vector<Parameter>& parameters, bool withOutputs) {
    std::string text = procedure;
    bool first = true;
    for (const Parameter& parameter : parameters) {
        if (parameter.isOutput && !withOutputs)
            continue;
        text += first ? " " : ", ";
        first = false;
        if (parameter.isOutput)
            text += (parameter.name.empty() ? "?" : parameter.name) + " OUTPUT";
        else // the engine's procedures take an empty text for null
            text += parameter.value.isNull() ? "''" : literalOf(parameter.value);
    }
    return text;
}

void Interpreter::run(const std::string& batch, Tokens& tokens, Done kind, bool more) {
    const std::vector<std::string> statements = statementsOf(batch);
    if (statements.empty())
        tokens.done(kind, more);
    for (std::size_t place = 0; place < statements.size(); ++place)
        statement(statements[place], tokens, kind, more || place + 1 < statements.size());
}

void Interpreter::statement(const std::string& text, Tokens& tokens, Done kind, bool more) {
    const std::vector<std::string> words = firstWords(text);
    if (ofSession(words, text, tokens)) {
        tokens.done(kind, more);
        return;
    }
    if (const auto literal = literalRow(text)) {
        tokens.rows(literal->row, literal->types);
        tokens.done(kind, more, 1);
        return;
    }
    const bool executes = words[0] == "EXEC" || words[0] == "EXECUTE";
    constexpr std::string_view list = "..SP_SPROC_COLUMNS";
    const ado::ResultSet result = words[0].ends_with(list)
                                      ? procedureColumns(words[0].substr(0, words[0].size() - list.size()), m_lacking)
                                      : m_engine.run(executes ? stripped(text.substr(words[0].size())) : text);
    tokens.rows(result);
    const bool hasRows = !result.columns.empty();
    if (!isProcedureCall(words)) {
        tokens.done(kind, more, hasRows ? result.rows.size() : 1);
        return;
    }
    if (hasRows)
        tokens.done(Done::InProcedure, true, result.rows.size());
    tokens.returnStatus(0);
    tokens.done(kind == Done::Batch ? Done::Procedure : kind, more);
}

bool Interpreter::ofSession(const std::vector<std::string>& words, const std::string& text, Tokens& tokens) {
    if (words[0] == "USE")
        use(stripped(text.substr(words[0].size())), tokens);
    else if (words[0] == "BEGIN" && words[1].starts_with("TRAN"))
        begin(tokens);
    else if (words[0] == "COMMIT")
        commit(tokens);
    else if (words[0] == "ROLLBACK")
        rollBackAtOnce(tokens);
    else
        return words[0] == "SET";
    return true;
}

void Interpreter::use(const std::string& database, Tokens& tokens) {
    const std::string name = text::replaced(text::replaced(database, "[", ""), "]", "");
    if (!isDatabase(name))
        throw ado::Error("Database '" + name + "' does not exist. Make sure that the name is entered correctly.",
                         "Test server", 911);
    tokens.database(name, m_database);
    tokens.info(5701, "Changed database context to '" + name + "'.");
    m_database = name;
}

void Interpreter::call(const std::string& procedure, const std::vector<Parameter>& parameters, Tokens& tokens) {
    const ado::ResultSet result = m_engine.run(textOf(procedure, parameters, false));
    const bool hasOutputs =
        std::any_of(parameters.begin(), parameters.end(), [](const Parameter& each) { return each.isOutput; });
    if (!hasOutputs && !result.columns.empty()) {
        tokens.rows(result);
        tokens.done(Done::InProcedure, true, result.rows.size());
    }
    tokens.returnStatus(0);
    std::size_t output = 0;
    for (std::size_t place = 0; place < parameters.size(); ++place)
        if (const Parameter& parameter = parameters[place]; parameter.isOutput)
            tokens.returnValue(place, parameter.name, parameter.type, outputOf(result, parameter, output++));
    tokens.done(Done::Procedure, false);
}

void Interpreter::begin(Tokens& tokens) {
    m_engine.begin();
    tokens.transaction(Tokens::Transaction::Begun, m_engine.transaction());
}

void Interpreter::commit(Tokens& tokens) {
    m_engine.commit();
    tokens.transaction(Tokens::Transaction::Committed, m_engine.transaction());
}

void Interpreter::transaction(const TransactionRequest& request, Tokens& tokens) {
    switch (request.kind) {
    case TransactionRequest::Begin:
        begin(tokens);
        break;
    case TransactionRequest::Commit:
        commit(tokens);
        break;
    case TransactionRequest::Rollback:
        rollBackAtOnce(tokens);
        break;
    default:
        throw ado::Error("This transaction request is not supported.", "Test server", 40508);
    }
    if (request.beginsNext)
        begin(tokens);
    tokens.done(Done::Batch, false);
}

void Interpreter::rollBack(Tokens& tokens) {
    if (m_engine.inTransaction())
        rollBackAtOnce(tokens);
}

void Interpreter::rollBackAtOnce(Tokens& tokens) {
    m_engine.rollback();
    tokens.transaction(Tokens::Transaction::RolledBack, m_engine.transaction());
}

} // namespace opd::testserver
