#pragma once

#include "ado/provider.h"

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

namespace opd::testserver {

/// The client no longer wants the answer to the running statement.
class GivenUp : public std::runtime_error {
  public:
    GivenUp() : std::runtime_error("given up") {}
};

/// The embedded database behind a connection. A transaction takes hold of it with its first statement that may write,
/// as on a server, where neither beginning one nor reading keeps others from writing.
class Engine {
  public:
    /// `isGivenUp` is asked over and over while a statement waits or works for long.
    Engine(std::unique_ptr<ado::Link> link, std::function<bool()> isGivenUp);

    /// Each throws ado::Error, or GivenUp.
    ado::ResultSet run(const std::string& statement);
    void begin();
    void commit();
    void rollback();

    bool inTransaction() const { return m_inTransaction; }
    std::uint64_t transaction() const { return m_number; } ///< of the one that is open, or the last one

  private:
    template <class Work> void watched(const Work& work);
    void end(void (ado::Link::*how)(), const char* refusal, long number);

    std::unique_ptr<ado::Link> m_link;
    std::function<bool()> m_isGivenUp;
    bool m_givenUp = false;
    bool m_inTransaction = false;
    bool m_holds = false; ///< the transaction has begun in the database itself
    std::uint64_t m_number = 0;
};

} // namespace opd::testserver
