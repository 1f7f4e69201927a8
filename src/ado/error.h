#pragma once

#include <stdexcept>
#include <string>

namespace opd::ado {

/// A failure of the database or of a statement on its way there. `what()` is the database's own message, fit to be
/// shown to the clerk.
class Error : public std::runtime_error {
  public:
    explicit Error(const std::string& message, std::string source = "OPD Registration", long number = 0,
                   std::string sqlState = "HY000")
        : std::runtime_error(message), m_source(std::move(source)), m_number(number), m_sqlState(std::move(sqlState)) {}

    const std::string& source() const { return m_source; }     ///< the part that reports: a provider's name
    long number() const { return m_number; }                   ///< the database's own error number, 0 when it has none
    const std::string& sqlState() const { return m_sqlState; } ///< five characters

    /// True when the answer was lost: what the statement was to store may be stored all the same.
    bool leavesDoubt() const { return m_leavesDoubt; }
    void setLeavesDoubt(bool leavesDoubt) { m_leavesDoubt = leavesDoubt; }

  private:
    std::string m_source;
    long m_number;
    std::string m_sqlState;
    bool m_leavesDoubt = false;
};

/// What a statement fails with that was given up.
inline Error stopped(const std::string& source) {
    return Error("The database was not waited for any longer. Nothing was changed.", source, 0, "HY008");
}

} // namespace opd::ado
