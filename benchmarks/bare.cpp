#include "bare.h"

#include "adapters/sqlite/audited_save.h"
#include "adapters/sqlite/drawn_numbers.h"
#include "adapters/sqlite/parser.h"
#include "adapters/sqlite/procedures.h"
#include "adapters/sqlite/statement_shape.h"
#include "workplace.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <stdexcept>

namespace opd::bench {

using namespace adapters::sqlite;

namespace {

/// Steps through a statement and takes every column of every row.
std::size_t readWhole(sqlite3_stmt* statement) {
    std::size_t rows = 0;
    std::size_t bytes = 0;
    int result = SQLITE_ROW;
    while ((result = sqlite3_step(statement)) == SQLITE_ROW) {
        ++rows;
        for (int column = 0; column < sqlite3_column_count(statement); ++column)
            if (sqlite3_column_text(statement, column) != nullptr)
                bytes += static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
    }
    sqlite3_reset(statement);
    if (result != SQLITE_DONE)
        throw std::runtime_error(sqlite3_errmsg(sqlite3_db_handle(statement)));
    benchmark::DoNotOptimize(bytes);
    return rows;
}

/// An argument that lives longer than the text that it stands in.
ado::Value kept(const Argument& argument) {
    const auto* const piece = std::get_if<std::string_view>(&argument);
    return piece != nullptr ? ado::Value{std::string{*piece}} : std::get<ado::Value>(argument);
}

void bind(sqlite3_stmt* statement, int position, const ado::Value& value) {
    if (const auto* text = value.get<std::string>())
        sqlite3_bind_text(statement, position, text->data(), static_cast<int>(text->size()), SQLITE_STATIC);
    else if (const auto* number = value.get<std::int64_t>())
        sqlite3_bind_int64(statement, position, *number);
    else if (const auto* decimal = value.get<double>())
        sqlite3_bind_double(statement, position, *decimal);
    else
        sqlite3_bind_null(statement, position);
}

} // namespace

Bare::Bare(const std::filesystem::path& folder) : m_database(databaseFile(folder), Database::Mode::Existing, clock()) {
    m_database.run("PRAGMA foreign_keys = ON; PRAGMA synchronous = FULL; PRAGMA temp_store = MEMORY");
    guardDrawnNumbers(m_database);
    rememberAuditedSave(m_database);
}

Bare::~Bare() {
    for (const auto& [text, statements] : m_prepared)
        for (sqlite3_stmt* statement : statements)
            sqlite3_finalize(statement);
}

const std::vector<sqlite3_stmt*>& Bare::prepared(const std::string& sql) {
    if (const auto known = m_prepared.find(sql); known != m_prepared.end())
        return known->second;
    std::vector<sqlite3_stmt*>& statements = m_prepared[sql];
    for (const char* rest = sql.c_str();;) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v3(m_database.handle(), rest, -1, SQLITE_PREPARE_PERSISTENT, &statement, &rest) !=
            SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(m_database.handle()));
        if (statement == nullptr)
            return statements;
        statements.push_back(statement);
    }
}

std::size_t Bare::rows(const std::string& sql, const std::vector<std::string>& values) {
    sqlite3_stmt* const statement = prepared(sql).front();
    int position = 0;
    for (const std::string& value : values)
        sqlite3_bind_text(statement, ++position, value.data(), static_cast<int>(value.size()), SQLITE_STATIC);
    return readWhole(statement);
}

std::vector<std::vector<std::string>> Bare::texts(const std::string& sql) {
    std::vector<std::vector<std::string>> all;
    Query query(m_database, sql.c_str());
    while (query.next()) {
        std::vector<std::string>& row = all.emplace_back();
        for (int column = 0; column < query.columnCount(); ++column)
            row.push_back(query.value(column, Query::Kind::AsStored).asText());
    }
    return all;
}

Replay::Replay(Bare& bare, const std::vector<std::string>& trace) : m_bare(bare) {
    for (const std::string& line : trace)
        add(line);
}

void Replay::add(const std::string& line) {
    if (line == "begin" || line == "commit") {
        m_inTransaction = line == "begin";
        addWords(m_inTransaction ? "BEGIN IMMEDIATE" : "COMMIT");
    } else if (line.starts_with("{call ")) {
        const std::string name = line.substr(6, line.find('(') - 6);
        const std::size_t dots = name.find("..");
        addCall(name.substr(0, dots), name.substr(dots + 2), {});
    } else {
        const auto parsed = parse(line, m_bare.catalog());
        StatementShape shape;
        shape.read(line);
        if (const auto* call = std::get_if<ProcedureCall>(&parsed)) {
            addCall(call->database, call->procedure, shape.values());
            return;
        }
        const auto& translation = std::get<Translation>(parsed);
        Step& step = m_steps.emplace_back(Step{m_bare.prepared(translation.sql).front(), {}});
        for (std::size_t i = 0; i < translation.values.size(); ++i)
            if (translation.values[i].kind != Placeholder::Kind::Written)
                step.bindings.push_back({static_cast<int>(step.bindings.size()) + 1,
                                         kept(argumentFor(translation.values[i], shape.values()[i]))});
    }
}

void Replay::addCall(const std::string& database, const std::string& name,
                     const std::vector<std::string_view>& values) {
    const Procedure& procedure = findProcedure(database, name, values.size());
    const std::vector<sqlite3_stmt*>& statements = m_bare.prepared(procedure.body);
    const auto writes = std::count_if(statements.begin(), statements.end(),
                                      [](sqlite3_stmt* statement) { return sqlite3_stmt_readonly(statement) == 0; });
    const bool isOneStep = writes > 1 && !m_inTransaction;
    if (isOneStep)
        addWords("BEGIN IMMEDIATE");
    for (sqlite3_stmt* const statement : statements) {
        Step& step = m_steps.emplace_back(Step{statement, {}});
        for (std::size_t i = 0; i < values.size(); ++i) {
            const Procedure::Parameter& parameter = procedure.parameters[i];
            if (const int at = sqlite3_bind_parameter_index(statement, (":" + parameter.name).c_str()); at > 0)
                step.bindings.push_back({at, kept(argumentFor(parameter, values[i]))});
        }
    }
    if (isOneStep)
        addWords("COMMIT");
}

std::size_t Replay::run() const {
    std::size_t rows = 0;
    for (const Step& step : m_steps) {
        for (const Binding& binding : step.bindings)
            bind(step.statement, binding.position, binding.value);
        rows += readWhole(step.statement);
    }
    return rows;
}

} // namespace opd::bench
