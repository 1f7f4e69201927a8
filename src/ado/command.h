#pragma once

#include "ado/connection.h"

namespace opd::ado {

/// A stored procedure with output parameters, run on a connection.
class Command {
  public:
    explicit Command(Connection& connection) : m_connection(connection) {}

    Statement CommandText{""}; ///< the procedure's qualified name

    /// Adds an output parameter of variable-length text.
    void addOutput(const std::string& name, int size) { m_outputs.push_back({name, size}); }

    /// Runs the procedure; afterwards the parameters have their values. Throws Error.
    void Execute() { m_values = m_connection.call({CommandText.str(), m_outputs}); }

    /// The value of the n-th output parameter. Throws std::out_of_range before Execute.
    const Value& output(std::size_t index) const { return m_values.at(index); }

  private:
    Connection& m_connection;
    std::vector<Call::Output> m_outputs;
    std::vector<Value> m_values;
};

} // namespace opd::ado
