#pragma once

#include "ado/error.h"
#include "ado/provider.h"
#include "server/types.h"

#include <optional>

namespace opd::testserver {

/// What ends a part of an answer: of a batch, of a statement inside a procedure, of a procedure.
enum class Done : std::uint8_t { Batch = 0xFD, InProcedure = 0xFF, Procedure = 0xFE };

/// Writes the tokens of an answer.
class Tokens {
  public:
    const std::string& bytes() const { return m_out.bytes; }
    void clear() { m_out.bytes.clear(); }

    /// The columns and rows of a result; none without columns.
    void rows(const ado::ResultSet& result);
    void rows(const ado::ResultSet& result, const std::vector<Type>& types);

    void error(const ado::Error& error) { message(0xAA, error.number(), classOf(error.number()), error.what()); }
    void info(long number, const std::string& text) { message(0xAB, number, 0, text); }
    void returnStatus(std::int32_t status) { m_out.put(std::uint8_t{0x79}).put(status); }
    void returnValue(std::size_t place, const std::string& name, const Type& type, const ado::Value& value);

    /// `more` says that another part follows.
    void done(Done kind, bool more, std::optional<std::uint64_t> count = {});
    void doneFailed(Done kind) { doneToken(kind, 0x02, 0); }
    void doneGivenUp() { doneToken(Done::Batch, 0x20, 0); }

    void database(const std::string& now, const std::string& before) { change(1, now, before); }
    void packetSize(std::size_t now, std::size_t before) { change(4, std::to_string(now), std::to_string(before)); }
    void collation();

    /// A transaction began (its number), or was committed or rolled back.
    enum class Transaction : std::uint8_t { Begun = 8, Committed = 9, RolledBack = 10 };
    void transaction(Transaction what, std::uint64_t number);

    void loginAccepted();

  private:
    static std::uint8_t classOf(long number);
    void message(std::uint8_t token, long number, std::uint8_t severity, const std::string& text);
    void columns(const std::vector<std::string>& names, const std::vector<Type>& types);
    void change(std::uint8_t what, const std::string& now, const std::string& before);
    void envChange(const Writer& body);
    void doneToken(Done kind, std::uint16_t status, std::uint64_t count);

    Writer m_out;
};

} // namespace opd::testserver
