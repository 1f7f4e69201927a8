#pragma once

#include "adapters/sqlite/engine/writer_queue.h"
#include "ado/columns.h"
#include "ado/value.h"
#include "base/clock/clock.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <sqlite3.h>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace opd::adapters::sqlite {

/// The file of a database folder.
std::filesystem::path databaseFile(const std::filesystem::path& folder);

/// The file beside a database in which the desks that want to write stand in a queue.
std::filesystem::path queueOf(const std::filesystem::path& file);

/// Throws ado::Error when this user may not read a database file that is there, or only read it: told at the start, not
/// when the first patient is to be saved. Its journal lies beside it, so the folder counts as well.
void refuseUnlessWritable(const std::filesystem::path& file);

/// An open database file with the hospital's collation and functions.
class Database {
  public:
    enum class Mode { Existing, Create };

    /// Opens the file; "Existing" never makes one, and serves for reading where nothing can be written. Throws
    /// ado::Error.
    Database(const std::filesystem::path& file, Mode mode, const Clock& clock);

    sqlite3* handle() const { return m_handle.get(); }

    /// Runs statements that answer no rows. Throws ado::Error.
    void run(const std::string& sql);

    /// How long it waits for a lock that others hold; 5 seconds to begin with.
    void setPatience(std::chrono::milliseconds patience) { m_waiting->patience = patience; }

    /// Sets what is told over and over while a statement waits for a lock or works for long, and whose false gives the
    /// statement up. It throws nothing.
    void setOnWait(std::function<bool()> onWait) { m_waiting->onWait = std::move(onWait); }

    /// Waits in the queue of the desks that want to write, as patiently as for a lock.
    void enterQueue();

    /// Lets the next one write, unless a transaction is open.
    void leaveQueue() {
        if (sqlite3_get_autocommit(handle()) != 0)
            m_queue.leave();
    }

    /// From now on a commit returns before it is on the disk, and `settle` puts it there: the others may write
    /// meanwhile, and the disk takes the commits of several desks at once. A later commit is never there without the
    /// earlier ones, whoever made them. Does nothing where the file keeps another kind of journal, whose commits are on
    /// the disk when they return.
    void settleLater();

    /// Puts on the disk what was committed since the last time, and now and then copies the journal into the file; to
    /// be called out of the queue. Throws ado::Error when the disk does not take it: whether it is there is not certain
    /// then, and every later statement fails.
    void settle();

    /// A statement begins: what it takes from here on is what is called long. Throws ado::Error when the disk has
    /// failed before.
    void statementBegins();

    /// Throws ado::Error when the file was removed, or another one put in its place, since it was opened: what is
    /// written then is lost.
    void throwIfMoved() const;

    /// Throws ado::Error with the handle's last failure.
    [[noreturn]] void fail() const;

  private:
    struct Close {
        void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
    };

    /// What the library's own handlers work with; it stays where it is.
    struct Waiting {
        using Moment = std::chrono::steady_clock::time_point;

        std::chrono::milliseconds patience{std::chrono::seconds{5}};
        std::function<bool()> onWait;
        Moment begun;
        Moment told;
        Moment lockedSince;
        bool givenUp = false;

        void tell(Moment now);
        static int onBusy(void* waiting, int times);
        static int onProgress(void* waiting);
    };

    static int onCommit(void* database, sqlite3* handle, const char* schema, int journalPages);
    bool syncJournal() const;
    bool copyJournal() const;
    void shortenJournal();

    WriterQueue m_queue;
    int m_unsettledPages = 0; ///< how long the journal was behind the last commit; 0 when all is on the disk
    bool m_diskFailed = false;
    std::unique_ptr<Waiting> m_waiting = std::make_unique<Waiting>(); // outlives the handle
    std::unique_ptr<sqlite3, Close> m_handle;
};

/// A value on its way into a statement: a piece of a text that stays where it is, or a value of its own.
using Argument = std::variant<std::string_view, ado::Value>;

/// A prepared statement.
class Query {
  public:
    enum class Use { Once, Often };

    /// Prepares the first statement of the text; `rest` becomes what stands behind it. Throws ado::Error.
    Query(const Database& database, const char* sql, const char** rest = nullptr, Use use = Use::Once);

    /// True when the text held nothing but blanks and comments.
    bool isEmpty() const { return !m_statement; }
    sqlite3_stmt* statement() const { return m_statement.get(); }

    bool writes() const { return sqlite3_stmt_readonly(m_statement.get()) == 0; }

    /// Binds a value to a parameter by its position from 1, or by its name with the colon; an unknown name is ignored.
    void bind(int position, const ado::Value& value);
    void bind(const std::string& name, const ado::Value& value);

    /// Binds without a copy: the argument stays as it is until the query is reset.
    void bindKept(int position, const Argument& argument);

    /// Steps to the next row; false behind the last one. Throws ado::Error.
    bool next();

    /// Gives up its hold on the database, and forgets what was bound.
    void reset();

    int columnCount() const { return sqlite3_column_count(m_statement.get()); }
    std::string columnName(int column) const { return sqlite3_column_name(m_statement.get(), column); }

    /// What a column declares that its values are.
    enum class Kind { AsStored, Flag, Moment };
    Kind kind(int column) const;

    /// The columns of a query that has been stepped. They are asked for once, and again when the library has prepared
    /// the statement anew because a table has changed.
    struct Columns {
        ado::Columns names;
        std::vector<Kind> kinds;
    };
    const Columns& columns();

    /// The value of a column of the current row, as a column of that kind has it.
    ado::Value value(int column, Kind kind) const;
    ado::Value value(int column) const { return value(column, kind(column)); }

  private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    void bindText(int position, std::string_view text, sqlite3_destructor_type lifetime);

    const Database& m_database;
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
    Columns m_columns;
    int m_columnsOf = -1; ///< how often the library had prepared it anew when they were asked for
};

} // namespace opd::adapters::sqlite
