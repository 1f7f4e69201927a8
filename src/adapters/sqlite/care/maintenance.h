#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// What an administrator does with an embedded hospital, while its desks work. Every function throws ado::Error or
/// std::runtime_error with one clear message, and has changed nothing then.
namespace opd::adapters::sqlite {

/// Writes the hospital of a folder, as it is at one moment, into a file that is not there yet.
void backUp(const std::filesystem::path& folder, const std::filesystem::path& backup);

/// Puts what a backup holds in the place of what the folder's hospital holds, in one step. What it held is kept in a
/// file beside it, whose path is the answer; empty when there was none. Numbers that were given out since the backup
/// stay given out, as far as a file can still tell. A damaged hospital is kept as it is in that file, with its
/// journals, or these alone where the file is lost; no desk may have it open then.
std::filesystem::path restore(const std::filesystem::path& folder, const std::filesystem::path& backup);

/// What is wrong with a hospital, a line each; nothing when all is right. `place` is a folder or the file of a backup.
std::vector<std::string> faultsOf(const std::filesystem::path& place);

/// What the hospital is called; what is not set stays as it is. They are no statement's values, so that a name may have
/// an apostrophe.
struct HospitalNames {
    std::optional<std::string> name;
    std::optional<std::string> address;
    std::optional<std::string> clientCode;
};
void setNames(const std::filesystem::path& folder, const HospitalNames& names);

} // namespace opd::adapters::sqlite
