#include "adapters/sqlite/engine/database.h"

#include "adapters/sqlite/engine/errors.h"
#include "adapters/sqlite/engine/functions.h"
#include "base/clock/date_text.h"

#include <algorithm>
#include <cerrno>
#include <thread>
#include <unistd.h>
#include <utility>

namespace opd::adapters::sqlite {

namespace {

using namespace std::chrono_literals;

/// From when on a statement is told of, and how often.
constexpr auto toldAfter = 150ms;
constexpr auto toldEvery = 40ms;

/// How long a waiting statement sleeps before it asks for the lock again: short, because whoever asks more often gets
/// it.
constexpr auto shortestNap = 1ms;
constexpr auto longestNap = 10ms;

/// How many pages the journal may have before it is copied into the file. The library's own choice is a thousand, which
/// keeps the desk that copies them waiting four times as long.
constexpr int longJournal = 250;

/// What a connection keeps at hand for its statements' many small pieces of memory: a save takes some hundred.
constexpr int pieceBytes = 1200;
constexpr int pieces = 256;

/// After how many steps of the engine a working statement looks at the clock.
constexpr int stepsBetweenLooks = 20000;

void check(const Database& database, int result) {
    if (result != SQLITE_OK)
        database.fail();
}

/// True for a file that this user may only read, or that lies where nothing can be written, and at which nobody works:
/// a backup on a disk for reading alone. The engine could read it with files beside it only.
bool standsStill(const std::filesystem::path& file) {
    std::error_code unreadable;
    const bool canWrite = eaccess(file.c_str(), W_OK) == 0 && eaccess(file.parent_path().c_str(), W_OK | X_OK) == 0;
    return !canWrite && !std::filesystem::exists(file.string() + "-wal", unreadable) && !unreadable;
}

/// The name by which the engine opens a file for which it may take it that nothing changes.
std::string unchanging(const std::filesystem::path& file) {
    std::string name = "file://";
    for (const char character : file.string())
        name += std::string_view{"%?#"}.find(character) == std::string_view::npos
                    ? std::string(1, character)
                    : "%" + std::string{character == '%'   ? "25"
                                        : character == '?' ? "3F"
                                                           : "23"};
    return name + "?immutable=1";
}

} // namespace

std::filesystem::path databaseFile(const std::filesystem::path& folder) {
    return folder / "hospital.db";
}

std::filesystem::path queueOf(const std::filesystem::path& file) {
    return file.string() + ".queue";
}

void refuseUnlessWritable(const std::filesystem::path& file) {
    if (eaccess(file.c_str(), R_OK) != 0 && errno == EACCES)
        throw serverError("This user may not read it: ask the administrator for permission to use it.", 229, "42000");
    for (const char* journal : {"-wal", "-shm"})
        if (eaccess((file.string() + journal).c_str(), R_OK | W_OK) != 0 && errno == EACCES)
            throw serverError("Another user's desk has it open, and keeps " + file.filename().string() + journal +
                                  " to itself: ask the administrator to let the folder's group have it.",
                              229, "42000");
    if (eaccess(file.c_str(), W_OK) != 0 || eaccess(file.parent_path().c_str(), W_OK | X_OK) != 0)
        throw serverError("This user may only read it: nothing could be saved.", 3906, "25000");
}

void Database::Waiting::tell(Moment now) {
    if (!onWait || now - begun < toldAfter || now - told < toldEvery)
        return;
    givenUp = !onWait() || givenUp;
    told = std::chrono::steady_clock::now(); // what was told may have taken its time
}

int Database::Waiting::onBusy(void* waiting, int times) {
    Waiting& self = *static_cast<Waiting*>(waiting);
    const Moment now = std::chrono::steady_clock::now();
    if (times == 0)
        self.lockedSince = now;
    if (now - self.lockedSince >= self.patience)
        return 0;
    self.tell(now);
    if (self.givenUp)
        return 0;
    std::this_thread::sleep_for(std::min<std::chrono::milliseconds>(shortestNap * (times + 1), longestNap));
    return 1;
}

int Database::Waiting::onProgress(void* waiting) {
    Waiting& self = *static_cast<Waiting*>(waiting);
    self.tell(std::chrono::steady_clock::now());
    return self.givenUp ? 1 : 0;
}

Database::Database(const std::filesystem::path& file, Mode mode, const Clock& clock) : m_queue(queueOf(file)) {
    // Nobody asks how much memory the engine has, and counting takes a lock each time. Another library of the process
    // may have begun to use the engine: it goes on as it is then.
    static const int uncounted = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    static_cast<void>(uncounted);
    sqlite3* handle = nullptr;
    const std::filesystem::path whole = std::filesystem::absolute(file); // "file:..." means something to the engine
    const bool isStill = mode == Mode::Existing && standsStill(whole);
    // A connection is used by one thread at a time, so the engine need not see to that at every cell.
    const int flags = SQLITE_OPEN_NOMUTEX | (mode == Mode::Create ? SQLITE_OPEN_CREATE : 0) |
                      (isStill ? SQLITE_OPEN_READONLY | SQLITE_OPEN_URI : SQLITE_OPEN_READWRITE);
    const int result = sqlite3_open_v2((isStill ? unchanging(whole) : whole.string()).c_str(), &handle, flags, nullptr);
    m_handle.reset(handle);
    if (result != SQLITE_OK)
        fail();
    sqlite3_extended_result_codes(handle, 1);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_LOOKASIDE, nullptr, pieceBytes, pieces);
    sqlite3_busy_handler(handle, &Waiting::onBusy, m_waiting.get());
    sqlite3_progress_handler(handle, stepsBetweenLooks, &Waiting::onProgress, m_waiting.get());
    statementBegins();
    registerFunctions(handle, clock);
}

void Database::statementBegins() {
    if (m_diskFailed)
        throw serverError("The disk of the hospital's database failed when this desk saved before, and the desk cannot "
                          "go on. Nothing was changed now: close it, and look at the disk.",
                          823, "HY000");
    m_waiting->begun = std::chrono::steady_clock::now();
    m_waiting->givenUp = false;
}

void Database::enterQueue() {
    const auto since = std::chrono::steady_clock::now();
    m_queue.enter([&] {
        const auto now = std::chrono::steady_clock::now();
        m_waiting->tell(now);
        return now - since < m_waiting->patience;
    });
}

int Database::onCommit(void* database, sqlite3*, const char*, int journalPages) {
    static_cast<Database*>(database)->m_unsettledPages = journalPages;
    return SQLITE_OK;
}

void Database::settleLater() {
    Query mode(*this, "PRAGMA journal_mode");
    if (!mode.next() || mode.value(0).asText() != "wal")
        return;
    run("PRAGMA synchronous = NORMAL");
    sqlite3_wal_hook(handle(), &Database::onCommit,
                     this); // in the place of the library's own, which copies the journal
}

void Database::settle() {
    const int pages = std::exchange(m_unsettledPages, 0);
    if (pages == 0)
        return;
    m_diskFailed = !syncJournal();
    if (m_diskFailed) {
        ado::Error failure = serverError("The disk of the hospital's database cannot be written. Whether this was "
                                         "stored is not certain.",
                                         823, "HY000");
        failure.setLeavesDoubt(true);
        throw failure;
    }
    if (pages >= longJournal)
        shortenJournal();
}

bool Database::syncJournal() const {
    sqlite3_file* journal = nullptr;
    sqlite3_file_control(handle(), "main", SQLITE_FCNTL_JOURNAL_POINTER, &journal);
    return journal != nullptr && journal->pMethods != nullptr &&
           journal->pMethods->xSync(journal, SQLITE_SYNC_NORMAL) == SQLITE_OK;
}

/// False when another desk is at it, or the disk is full: the journal stays as it is then, and nothing is lost.
bool Database::copyJournal() const {
    return sqlite3_wal_checkpoint_v2(handle(), "main", SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr) == SQLITE_OK;
}

/// Most of the journal is copied while the others write on, and the rest while they wait: once all of it is in the
/// file, the next one who writes begins it anew.
void Database::shortenJournal() {
    if (!copyJournal())
        return;
    enterQueue();
    copyJournal();
    leaveQueue();
}

void Database::run(const std::string& sql) {
    if (sqlite3_exec(handle(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        fail();
}

void Database::throwIfMoved() const {
    int moved = 0;
    if (sqlite3_file_control(handle(), "main", SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK && moved != 0)
        throw serverError("The hospital's database file was removed or replaced while this desk was working. What is "
                          "saved now would be lost: close the desk and start it again.",
                          5120, "HY000");
}

void Database::fail() const {
    if (std::exchange(m_waiting->givenUp, false))
        throw ado::stopped("Embedded database");
    throw errorOf(handle());
}

Query::Query(const Database& database, const char* sql, const char** rest, Use use) : m_database(database) {
    sqlite3_stmt* statement = nullptr;
    const unsigned flags = use == Use::Often ? SQLITE_PREPARE_PERSISTENT : 0;
    const int result = sqlite3_prepare_v3(database.handle(), sql, -1, flags, &statement, rest);
    m_statement.reset(statement);
    check(database, result);
}

void Query::bind(int position, const ado::Value& value) {
    sqlite3_stmt* const statement = m_statement.get();
    if (value.isNull()) {
        check(m_database, sqlite3_bind_null(statement, position));
        return;
    }
    if (const auto* number = value.get<double>()) {
        check(m_database, sqlite3_bind_double(statement, position, *number));
        return;
    }
    if (const auto* number = value.get<std::int64_t>()) {
        check(m_database, sqlite3_bind_int64(statement, position, *number));
        return;
    }
    const auto* moment = value.get<DateTime>();
    bindText(position, moment != nullptr ? isoDateText(*moment) : value.asText(), SQLITE_TRANSIENT);
}

void Query::bindKept(int position, const Argument& argument) {
    if (const auto* piece = std::get_if<std::string_view>(&argument)) {
        bindText(position, *piece, SQLITE_STATIC);
        return;
    }
    const auto& value = std::get<ado::Value>(argument);
    if (const auto* text = value.get<std::string>())
        bindText(position, *text, SQLITE_STATIC);
    else
        bind(position, value);
}

void Query::bindText(int position, std::string_view text, sqlite3_destructor_type lifetime) {
    check(m_database,
          sqlite3_bind_text(m_statement.get(), position, text.data(), static_cast<int>(text.size()), lifetime));
}

void Query::bind(const std::string& name, const ado::Value& value) {
    if (const int position = sqlite3_bind_parameter_index(m_statement.get(), name.c_str()); position > 0)
        bind(position, value);
}

bool Query::next() {
    const int result = sqlite3_step(m_statement.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE)
        m_database.fail();
    return result == SQLITE_ROW;
}

void Query::reset() {
    sqlite3_reset(m_statement.get());
    sqlite3_clear_bindings(m_statement.get());
}

const Query::Columns& Query::columns() {
    const int preparedAnew = sqlite3_stmt_status(m_statement.get(), SQLITE_STMTSTATUS_REPREPARE, 0);
    if (m_columnsOf == preparedAnew)
        return m_columns;
    std::vector<std::string> names;
    m_columns.kinds.clear();
    for (int column = 0; column < columnCount(); ++column) {
        names.push_back(columnName(column));
        m_columns.kinds.push_back(kind(column));
    }
    m_columns.names = std::move(names);
    m_columnsOf = preparedAnew;
    return m_columns;
}

Query::Kind Query::kind(int column) const {
    const char* const declared = sqlite3_column_decltype(m_statement.get(), column);
    if (declared == nullptr)
        return Kind::AsStored;
    if (sqlite3_stricmp(declared, "BIT") == 0)
        return Kind::Flag;
    const bool isMoment = sqlite3_stricmp(declared, "DATE") == 0 || sqlite3_stricmp(declared, "DATETIME") == 0;
    return isMoment ? Kind::Moment : Kind::AsStored;
}

ado::Value Query::value(int column, Kind kind) const {
    sqlite3_stmt* const statement = m_statement.get();
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER: {
        const std::int64_t number = sqlite3_column_int64(statement, column);
        return kind == Kind::Flag ? ado::Value{number != 0} : ado::Value{number};
    }
    case SQLITE_FLOAT:
        return sqlite3_column_double(statement, column);
    default:
        break;
    }
    std::string text(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
                     static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
    if (kind == Kind::Moment)
        if (const std::optional<DateTime> moment = parseDate(text))
            return *moment;
    return text;
}

} // namespace opd::adapters::sqlite
