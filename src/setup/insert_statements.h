#pragma once

#include "ado/statement.h"
#include "demonstration/rows.h"

#include <functional>
#include <string>
#include <vector>

namespace opd::setup {

/// A text as a literal of a server's statements.
std::string quoted(const std::string& text);

/// Turns generated rows into INSERT statements of many rows each for a server, and sends those.
class InsertStatements final : public demonstration::Rows {
  public:
    using Send = std::function<void(const ado::Statement&)>;

    /// Each statement is given to `send`, in an order that foreign keys allow.
    explicit InsertStatements(Send send) : m_send(std::move(send)) {}

    void add(const demonstration::Table& table, std::vector<ado::Value> values) override;

    /// Sends what has been added and not sent yet, then the counter.
    void setCounter(std::string_view name, std::int64_t last) override;

  private:
    struct Pending {
        const demonstration::Table* table;
        std::vector<std::string> rows;
    };

    Pending& pendingOf(const demonstration::Table& table);
    void sendPending();

    Send m_send;
    std::vector<Pending> m_pending; ///< in the order in which the tables came up
};

} // namespace opd::setup
