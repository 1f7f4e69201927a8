#pragma once

#include "adapters/sqlite/catalog.h"
#include "adapters/sqlite/engine/database.h"

#include <filesystem>
#include <map>
#include <sqlite3.h>
#include <string>
#include <vector>

namespace opd::bench {

/// The database's own interface and nothing above it: what the module's figures are held against.
class Bare {
  public:
    explicit Bare(const std::filesystem::path& folder);
    ~Bare();
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;

    /// The statements of a text, prepared once.
    const std::vector<sqlite3_stmt*>& prepared(const std::string& sql);

    /// Binds texts by position to the one statement of a text, and reads every row whole. Answers how many there were.
    std::size_t rows(const std::string& sql, const std::vector<std::string>& values);

    /// All rows as texts, for choosing what to ask for; nothing of it is measured.
    std::vector<std::vector<std::string>> texts(const std::string& sql);

    adapters::sqlite::Database& database() { return m_database; }
    adapters::sqlite::Catalog& catalog() { return m_catalog; }

  private:
    adapters::sqlite::Database m_database;
    adapters::sqlite::Catalog m_catalog{m_database};
    std::map<std::string, std::vector<sqlite3_stmt*>> m_prepared;
};

/// What the module sent once, sent again by the database's own interface: the same statements and transactions in the
/// same order, each prepared once and its values ready to be bound.
class Replay {
  public:
    /// `trace` is what the connection's trace was told.
    Replay(Bare& bare, const std::vector<std::string>& trace);

    /// Sends everything; answers how many rows came back.
    std::size_t run() const;

  private:
    struct Binding {
        int position;
        ado::Value value;
    };
    struct Step {
        sqlite3_stmt* statement;
        std::vector<Binding> bindings;
    };

    void add(const std::string& line);
    void addCall(const std::string& database, const std::string& procedure,
                 const std::vector<std::string_view>& values);
    void addWords(const char* sql) { m_steps.push_back({m_bare.prepared(sql).front(), {}}); }

    Bare& m_bare;
    std::vector<Step> m_steps;
    bool m_inTransaction = false;
};

} // namespace opd::bench
