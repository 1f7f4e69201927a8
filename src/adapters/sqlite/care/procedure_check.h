#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// What keeps a hospital from answering the desk: its version and its procedures.
namespace opd::adapters::sqlite {

/// A procedure that the desk calls. One that it calls with different numbers of arguments is there once for each.
struct CalledProcedure {
    std::string database;
    std::string name;
    std::vector<std::string> arguments; ///< in the order in which they are sent, outputs behind them
};

/// All of them, by database and name; a server has to have the same.
std::vector<CalledProcedure> calledProcedures();

/// The version of an embedded hospital, and the one that this program works with.
struct SchemaVersions {
    int hospital = 0;
    int program = 0;
};
SchemaVersions versionsOf(const std::filesystem::path& folder);

/// Which procedures cannot run in an embedded hospital of this program's version, and why: a line each. Nothing of them
/// is run. This and the function before it throw ado::Error when the hospital cannot be read.
std::vector<std::string> faultsOfProcedures(const std::filesystem::path& folder);

} // namespace opd::adapters::sqlite
