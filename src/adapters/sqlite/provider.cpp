#include "adapters/sqlite/provider.h"

#include "adapters/sqlite/audited_save.h"
#include "adapters/sqlite/drawn_numbers.h"
#include "adapters/sqlite/engine/errors.h"
#include "adapters/sqlite/migrations.h"
#include "adapters/sqlite/prepared_statements.h"
#include "adapters/sqlite/procedures.h"
#include "adapters/sqlite/row_order.h"
#include "adapters/sqlite/statement_reader.h"
#include "base/text/text.h"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <unistd.h>

namespace opd::adapters::sqlite {

namespace {

/// All rows of the query; the columns are known also when there are none. They are asked for behind the first step,
/// which prepares a statement again whose tables have changed.
ado::ResultSet rowsOf(Query& query) {
    ado::ResultSet result;
    bool isRow = query.next();
    const Query::Columns& columns = query.columns();
    result.columns = columns.names;
    for (; isRow; isRow = query.next()) {
        std::vector<ado::Value>& row = result.rows.emplace_back();
        row.reserve(columns.kinds.size());
        for (std::size_t column = 0; column < columns.kinds.size(); ++column)
            row.push_back(query.value(static_cast<int>(column), columns.kinds[column]));
    }
    return result;
}

/// Makes what a procedure writes one step: a transaction of its own, or a part of the one that is open.
class WholeStep {
  public:
    WholeStep(Database& database, PreparedStatements& prepared)
        : m_database(database), m_prepared(prepared), m_outermost(sqlite3_get_autocommit(database.handle()) != 0) {
        m_prepared.run(m_outermost ? "BEGIN IMMEDIATE" : "SAVEPOINT step");
    }
    ~WholeStep() {
        if (m_done || sqlite3_get_autocommit(m_database.handle()) != 0)
            return;
        sqlite3_exec(m_database.handle(), m_outermost ? "ROLLBACK" : "ROLLBACK TO step; RELEASE step", nullptr, nullptr,
                     nullptr);
    }
    WholeStep(const WholeStep&) = delete;
    WholeStep& operator=(const WholeStep&) = delete;

    void done() {
        m_prepared.run(m_outermost ? "COMMIT" : "RELEASE step");
        m_done = true;
    }

  private:
    Database& m_database;
    PreparedStatements& m_prepared;
    bool m_outermost;
    bool m_done = false;
};

/// A place among the desks that want to write, given up when it goes unless a transaction is open then.
class Turn {
  public:
    explicit Turn(Database& database) : m_database(database) { m_database.enterQueue(); }
    ~Turn() { m_database.leaveQueue(); }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

    /// Gives the place up and waits for the disk, which keeps nobody else waiting.
    void settle() {
        m_database.leaveQueue();
        m_database.settle();
    }

  private:
    Database& m_database;
};

class SqliteLink final : public ado::Link {
  public:
    SqliteLink(const std::filesystem::path& file, const Clock& clock, std::chrono::milliseconds patience)
        : m_database(file, Database::Mode::Existing, clock) {
        m_database.setPatience(patience);
        m_database.run("PRAGMA foreign_keys = ON; PRAGMA synchronous = FULL; PRAGMA temp_store = MEMORY");
    }

    Database& database() { return m_database; }

    /// Keeps what the link needs to live, as long as it lives.
    void keep(std::shared_ptr<void> needed) { m_needed = std::move(needed); }

    ado::ResultSet run(const ado::Request& request) override {
        m_database.statementBegins();
        const ReadStatement& statement = m_reader.read(request.text);
        if (statement.procedure != nullptr)
            return runProcedure(*statement.procedure, *statement.prepared, statement.arguments);
        const LentStatements lent(*statement.prepared);
        Query& query = lent->queries.front();
        std::optional<Turn> turn = turnFor(*lent);
        int position = 0;
        for (const Argument& argument : statement.arguments)
            query.bindKept(++position, argument);
        ado::ResultSet answer = rowsOf(query);
        if (turn)
            turn->settle();
        for (auto& row : answer.rows)
            for (const std::size_t column : statement.translation->moments)
                row[column] = row[column].asDate();
        orderRows(answer, statement.translation->order);
        return answer;
    }

    std::vector<ado::Value> call(const ado::Call& call) override {
        m_database.statementBegins();
        const std::size_t dots = call.procedure.find("..");
        if (dots == std::string::npos)
            throw serverError("Could not find stored procedure '" + call.procedure + "'.", 2812, "42000");
        const Procedure& procedure = findProcedure(call.procedure.substr(0, dots), call.procedure.substr(dots + 2), 0);
        // A drawn number is no promise. Whoever is told it reads of a row that was written under it, and is on the disk
        // no earlier than the drawing.
        const ado::ResultSet answer = runProcedure(procedure, m_prepared.of(procedure), {}, Settles::WithTheNext);
        std::vector<ado::Value> outputs;
        for (const ado::Call::Output& output : call.outputs)
            outputs.push_back(outputOf(answer, output));
        return outputs;
    }

    void begin() override {
        m_database.statementBegins();
        m_database.throwIfMoved();
        const Turn turn(m_database);
        m_prepared.run("BEGIN IMMEDIATE");
    }
    void commit() override {
        m_database.statementBegins();
        Turn turn(m_database);
        m_prepared.run("COMMIT");
        turn.settle();
    }
    void rollback() override {
        const Turn turn(m_database);
        m_prepared.run("ROLLBACK");
    }

    void setPatience(std::chrono::milliseconds patience) override { m_database.setPatience(patience); }
    void setOnWait(const OnWait& onWait) override {
        m_database.setOnWait(onWait ? std::function([onWait] { return onWait(WaitsFor::Statement); }) : nullptr);
    }

  private:
    enum class Settles { AtOnce, WithTheNext };

    ado::ResultSet runProcedure(const Procedure& procedure, Prepared& prepared, const std::vector<Argument>& arguments,
                                Settles settles = Settles::AtOnce) {
        const LentStatements lent(prepared);
        std::optional<Turn> turn = turnFor(*lent);
        std::optional<WholeStep> step; // a single statement is whole by itself
        if (lent->writing > 0 && lent->queries.size() > 1)
            step.emplace(m_database, m_prepared);
        ado::ResultSet answer;
        for (std::size_t i = 0; i < lent->queries.size(); ++i) {
            Query& query = lent->queries[i];
            bind(query, lent->places[i], arguments);
            answer = rowsOf(query);
            query.reset(); // a statement that is not reset keeps its transaction open
        }
        if (step)
            step->done();
        if (turn && settles == Settles::AtOnce)
            turn->settle();
        orderRows(answer, placesOf(procedure.order, answer));
        return answer;
    }

    /// Where an answer has the columns of these names.
    static std::vector<std::size_t> placesOf(const std::vector<std::string>& names, const ado::ResultSet& answer) {
        std::vector<std::size_t> places;
        for (const std::string& name : names) {
            const auto column = std::find(answer.columns.begin(), answer.columns.end(), name);
            places.push_back(static_cast<std::size_t>(column - answer.columns.begin()));
        }
        return places;
    }

    static void bind(Query& query, const std::vector<int>& places, const std::vector<Argument>& arguments) {
        for (std::size_t i = 0; i < arguments.size(); ++i)
            if (places[i] > 0)
                query.bindKept(places[i], arguments[i]);
    }

    /// The place among those who want to write that the statements need: none within a transaction, which has one.
    std::optional<Turn> turnFor(const Prepared& prepared) {
        if (prepared.writing == 0 || sqlite3_get_autocommit(m_database.handle()) == 0)
            return std::nullopt;
        m_database.throwIfMoved();
        return std::optional<Turn>(std::in_place, m_database);
    }

    static ado::Value outputOf(const ado::ResultSet& answer, const ado::Call::Output& output) {
        const std::string_view wanted = std::string_view{output.name}.substr(output.name.starts_with("@") ? 1 : 0);
        for (std::size_t column = 0; column < answer.columns.size(); ++column)
            if (text::equalsIgnoringCase(answer.columns[column], wanted) && !answer.rows.empty())
                return fitted(answer.rows.front()[column], output);
        throw serverError("The procedure gave no value for " + output.name + ".", 8162, "42000");
    }

    /// A number that has outgrown its place is no number: cut, it would be another one's.
    static ado::Value fitted(const ado::Value& value, const ado::Call::Output& output) {
        if (value.asText().size() > static_cast<std::size_t>(output.size))
            throw serverError("The numbers for " + output.name + " are used up.", 8152, "22001");
        return value;
    }

    std::shared_ptr<void> m_needed;
    Database m_database;
    PreparedStatements m_prepared{m_database};
    StatementReader m_reader{m_database, m_prepared};
};

/// Throws when this user may not read the database, or only read it: told at the start, not when the first patient is
/// to be saved. The journal lies beside the file, so the folder counts as well.
void checkPermissions(const std::filesystem::path& file) {
    if (eaccess(file.c_str(), R_OK) != 0 && errno == EACCES)
        throw serverError("This user may not read it: ask the administrator for permission to use it.", 229, "42000");
    if (eaccess(file.c_str(), W_OK) != 0 || eaccess(file.parent_path().c_str(), W_OK | X_OK) != 0)
        throw serverError("This user may only read it: nothing could be saved.", 3906, "25000");
}

/// Throws when the file is no hospital database, or one of a version that this program does not know yet.
void checkVersion(const Database& database, const std::string& folder) {
    Query hospital(database, "SELECT 1 FROM sqlite_schema WHERE name = 'Patient_Data_tbHospitalInfo'");
    if (!hospital.next() || versionOf(database) < 1)
        throw serverError("The file hospital.db in \"" + folder + "\" is not a hospital database.", 824, "08001");
    if (versionOf(database) > schemaVersion())
        throw serverError("The database in \"" + folder +
                              "\" belongs to a newer version of this program and cannot be used with this one: install "
                              "the newer one.",
                          948, "08001");
}

class SqliteProvider final : public ado::Provider {
  public:
    SqliteProvider(const Clock& clock, NeedOfLink needOfLink, std::chrono::milliseconds patience)
        : m_clock(clock), m_needOfLink(std::move(needOfLink)), m_patience(patience) {}

    bool serves(const ado::ConnectionString& settings) const override { return ado::isFolder(settings.dataSource()); }

    std::unique_ptr<ado::Link> open(const ado::ConnectionString& settings, const ado::Link::OnWait& onWait) override {
        const std::string folder = settings.dataSource();
        std::error_code unreadable;
        if (!std::filesystem::is_directory(folder, unreadable))
            throw serverError("The database folder \"" + folder + "\" does not exist or cannot be read.", 5133,
                              "08001");
        const std::filesystem::path file = databaseFile(folder);
        if (!std::filesystem::exists(file, unreadable))
            throw serverError("The folder \"" + folder + "\" " +
                                  (unreadable == std::errc::permission_denied
                                       ? "is closed to this user: ask the administrator for permission to use it."
                                       : "holds no hospital database."),
                              5133, "08001");
        auto link = opened(file, onWait);
        checkVersion(link->database(), folder);
        if (versionOf(link->database()) < schemaVersion())
            migrate(file, m_clock);
        guardDrawnNumbers(link->database());
        rememberAuditedSave(link->database());
        link->database().settleLater();
        if (m_needOfLink)
            link->keep(m_needOfLink());
        return link;
    }

  private:
    /// Opens the file and reads its first page; a failure says which folder it is about.
    std::unique_ptr<SqliteLink> opened(const std::filesystem::path& file, const ado::Link::OnWait& onWait) const {
        try {
            checkPermissions(file);
            auto link = std::make_unique<SqliteLink>(file, m_clock, m_patience);
            link->setOnWait(onWait);
            Query(link->database(), "SELECT count(*) FROM sqlite_schema").next();
            return link;
        } catch (const ado::Error& error) {
            throw serverError("The database in \"" + file.parent_path().string() + "\" cannot be used. " + error.what(),
                              error.number(), error.sqlState());
        }
    }

    const Clock& m_clock;
    NeedOfLink m_needOfLink;
    std::chrono::milliseconds m_patience;
};

} // namespace

std::shared_ptr<ado::Provider> makeSqliteProvider(const Clock& clock, NeedOfLink needOfLink,
                                                  std::chrono::milliseconds patience) {
    return std::make_shared<SqliteProvider>(clock, std::move(needOfLink), patience);
}

} // namespace opd::adapters::sqlite
