#pragma once

#include "ado/columns.h"
#include "ado/value.h"

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace opd::ado {

/// The parts of a connection string, found by key in any letter case ("Data Source", "Initial Catalog", "User ID",
/// "Password", "Integrated Security").
class ConnectionString {
  public:
    /// Reads "Key=Value;Key=Value"; blanks around keys are ignored.
    explicit ConnectionString(std::string_view text);

    /// The value, or an empty text.
    std::string get(std::string_view key) const;

    std::string dataSource() const { return get("Data Source"); }

  private:
    std::map<std::string, std::string> m_values;
};

/// Who logs on to which database of which server.
struct LogOn {
    std::string user; ///< empty for integrated security
    std::string password;
    std::string server; ///< or the folder of an embedded hospital
    std::string catalog;
};

/// The connection string that every part of the program writes.
std::string connectionString(const LogOn& logOn);

enum class CursorLocation { Unspecified = 0, Server = 2, Client = 3 }; ///< the embedded provider heeds none of these
enum class CursorType { Unspecified = -1, ForwardOnly = 0, Dynamic = 2 };
enum class LockType { Unspecified = -1, ReadOnly = 1, Optimistic = 3 };

/// What a statement does to the database. One that reads may be sent again when its answer was lost, and may be given
/// up; one that writes never.
enum class Effect { Reads, Writes };

/// A statement text on its way to the database, with how it is to be read.
struct Request {
    std::string text;
    Effect effect = Effect::Writes;
    bool throughRecordset = false; ///< opened by a recordset; otherwise run by the connection itself
    CursorLocation cursorLocation = CursorLocation::Unspecified;
    CursorType cursorType = CursorType::Unspecified;
    LockType lockType = LockType::Unspecified;
};

/// A stored procedure called with typed parameters instead of text.
struct Call {
    struct Output {
        std::string name; ///< with its "@"
        int size = 0;     ///< characters
    };
    std::string procedure; ///< qualified name
    std::vector<Output> outputs;
};

/// What a statement answers, read whole.
struct ResultSet {
    Columns columns;
    std::vector<std::vector<Value>> rows;
    bool rowCountKnown = true; ///< false when the provider's cursor cannot count
};

/// One open session with a database. Every member throws Error with the database's message when it fails. A link that
/// has lost its database within a transaction fails until that is rolled back; outside of one it may reconnect, and
/// send what reads once more.
class Link {
  public:
    virtual ~Link() = default;

    virtual ResultSet run(const Request& request) = 0;

    /// Runs the call and returns its output values in the order of its outputs.
    virtual std::vector<Value> call(const Call& call) = 0;

    virtual void begin() = 0;
    virtual void commit() = 0;
    virtual void rollback() = 0;

    /// How long each of the members above waits for a database that others hold before it fails.
    virtual void setPatience(std::chrono::milliseconds) {}

    /// What is waited for.
    enum class WaitsFor { Statement, Login };

    /// Told over and over, on the thread of the caller, while a statement or a login waits or works for long. It uses
    /// no database and throws nothing. False asks the link to give it up, which then fails with SQLSTATE HY008.
    using OnWait = std::function<bool(WaitsFor)>;
    virtual void setOnWait(const OnWait&) {}
};

/// A kind of database that connections can be opened to.
class Provider {
  public:
    virtual ~Provider() = default;

    /// True when this provider serves the data source: a folder is the embedded database, anything else a server name.
    virtual bool serves(const ConnectionString& settings) const = 0;

    /// Opens a session; several threads may ask at once. `onWait` is told while that lasts, if it is given, and is the
    /// link's own afterwards. Throws Error with a clear message when the database cannot be reached.
    virtual std::unique_ptr<Link> open(const ConnectionString& settings, const Link::OnWait& onWait) = 0;
};

/// True when a data source names a folder (it holds a "/" or is a folder on this machine) and not a server.
bool isFolder(const std::string& dataSource);

/// True when it names a server.
bool isServer(const std::string& dataSource);

/// The providers that connections choose from; the first that serves a data source opens it. For use by several
/// threads.
class Providers {
  public:
    /// Adds a provider, once per kind: a second one of the same `kind` takes the place of the first.
    void add(const std::string& kind, std::shared_ptr<Provider> provider);

    /// Opens a session with the provider that serves the settings. Throws Error when none does.
    std::unique_ptr<Link> open(const ConnectionString& settings, const Link::OnWait& onWait) const;

    /// The providers of this process, used by every connection that is given no others.
    static Providers& ofProcess();

  private:
    std::shared_ptr<Provider> serving(const ConnectionString& settings) const;

    mutable std::mutex m_mutex; ///< guards the list
    std::vector<std::pair<std::string, std::shared_ptr<Provider>>> m_providers;
};

} // namespace opd::ado
