#pragma once

#include "server/engine.h"
#include "server/request.h"
#include "server/tokens.h"

namespace opd::testserver {

/// True for a database that the server has.
bool isDatabase(const std::string& name);

/// True for what drivers and tools send by themselves to set a session up.
bool isHousekeeping(const std::string& batch);

/// Runs the statements of a session, and writes what they answer. Each member throws ado::Error, or GivenUp.
///
/// The statements of the desk go to the engine as they are. Besides these it knows what belongs to a session: SET
/// (which changes nothing), USE, transactions, selects without a table, and which procedures there are.
class Interpreter {
  public:
    /// `lacking` is what procedureColumns leaves out.
    Interpreter(Engine& engine, std::string database, std::vector<std::string> lacking)
        : m_engine(engine), m_database(std::move(database)), m_lacking(std::move(lacking)) {}

    /// Runs statements that ";" parts. `kind` ends each of them, and `more` tells that something follows the last.
    void run(const std::string& batch, Tokens& tokens, Done kind, bool more);

    /// Calls a procedure by its name; the values of its outputs are the columns of its row, by name or by place.
    void call(const std::string& procedure, const std::vector<Parameter>& parameters, Tokens& tokens);

    void transaction(const TransactionRequest& request, Tokens& tokens);

    /// Rolls an open transaction back, as a server does for the victim of a deadlock.
    void rollBack(Tokens& tokens);

  private:
    void statement(const std::string& text, Tokens& tokens, Done kind, bool more);
    bool ofSession(const std::vector<std::string>& words, const std::string& text, Tokens& tokens);
    void use(const std::string& database, Tokens& tokens);
    void begin(Tokens& tokens);
    void commit(Tokens& tokens);
    void rollBackAtOnce(Tokens& tokens);

    Engine& m_engine;
    std::string m_database;
    std::vector<std::string> m_lacking;
};

/// A call of a procedure by its name, as a statement text.
std::string textOf(const std::string& procedure, const std::vector<Parameter>& parameters, bool withOutputs);

} // namespace opd::testserver
